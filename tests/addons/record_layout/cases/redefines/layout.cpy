      *> Two ways to look at the same bytes.
       01  PAYMENT.
           05  PAY-KIND             PIC 9.
               88  PAY-CARD         VALUE 1.
               88  PAY-TRANSFER     VALUE 2.
           05  PAY-DATA             PIC X(40).
           05  CARD REDEFINES PAY-DATA.
               10  CARD-NUMBER      PIC 9(16).
               10  CARD-EXPIRES     PIC 99/99.
           05  TRANSFER REDEFINES PAY-DATA.
               88  NO-TRANSFER      VALUE SPACES.
               10  IBAN             PIC X(34).
               10  FILLER REDEFINES IBAN.
                   15  COUNTRY      PIC AA.
                   15  CHECK-DIGITS PIC 99.
                   15  FILLER       PIC X(30).
           05  PAY-DATE             PIC 9(8).
           05  PAY-DATE-X REDEFINES PAY-DATE PIC X(8) JUSTIFIED RIGHT.
