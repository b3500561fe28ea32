       01  SENSOR  USAGE COMP.
           05  READING-NO      PIC 9(9).
           05  GAUGE.
               10  LEVEL-A     PIC S9(4).
               10  LEVEL-B     PIC S9(9)V9(3)  USAGE DISPLAY
                               SIGN TRAILING SEPARATE.
           05  BIG             PIC S9(18) COMP-5.
           05  BIG-U           PIC 9(18)  COMP-5.
           05  SHORT-U         BINARY-SHORT UNSIGNED.
           05  LONG-S          BINARY-LONG SIGNED SYNC RIGHT.
           05  BYTES-X         PIC X(2) COMP-X.
           05  SINGLE          COMP-1.
           05  TWICE           COMP-2.
           05  PLACE-X         INDEX.
           05  NEXT-ONE        POINTER.
           05  TITLE-N         PIC N(12)  NATIONAL.
           05  TITLE-G         PIC G(6)   DISPLAY-1.
           05  LONG-TEXT       PIC X(40000) DISPLAY.
           05  HUGE-NUMBER     PIC 9(38) PACKED-DECIMAL.
           05  HUGE-DECIMAL    PIC S9(20)V9(18) COMP-3.
           05  SCALED          PIC S9(3)P(4) COMP-3.
           05  TINY            PIC VPP9(2) DISPLAY.
           05  FLOATED         PIC +9.99E+99 DISPLAY.
