       01  MESSAGE-AREA.
           05  MSG-TEXT                PIC X(90) VALUE 'A text that goes
      -    ' on in the next line and it''s longer than one line can hold
      -    ', on a third'.
           05  MSG-NUM
      -        BER                     PIC 9(3).
      *    a comment between
      /    a comment that begins a page
      D    05  DEBUG-COUNTER           PIC 9(5).
      $SET SOURCEFORMAT"FREE"
           05  BROKEN-TEXT             PIC X(5) VALUE 'open.
           05  MSG-CODE                PIC X(4).
           EJECT
      X    05  ODD-INDICATOR           PIC X.
           05  MSG-AFTER-SKIP          PIC X.
           SKIP2
      >>SOURCE FORMAT IS FREE
05 MSG-FREE PIC X(2).
