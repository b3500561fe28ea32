       01  PRINT-LINE.
           05  P-AMOUNT     PIC ZZZ,ZZ9.99-.
           05  P-CREDIT     PIC $$$,$$9.99CR.
           05  P-CHECK      PIC **,**9.99   BLANK WHEN ZERO.
           05  P-SIGNED     PIC +(5)9.
           05  P-DATE       PIC 9(4)/99/99.
           05  P-EURO       PIC Z.ZZ9,99.
           05  P-PHONE      PIC XXXBXXXBXXXX.
           05  P-PART       PIC X(3)9(5).
           05  P-END        PIC ZZ9.
           05  P-BAD        PIC Q(3).
           05  P-BAD-COUNT  PIC X(0).
