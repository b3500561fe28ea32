       FD  MASTER-FILE
           RECORD CONTAINS 80 CHARACTERS.
       77  LINE-COUNT          PIC 9(4) COMP.
       77  PAGE-COUNT          PIC 9(4) COMP.
       01  HEADER-RECORD.
           05  FILE-DATE       PIC 9(8).
       01  DETAIL-RECORD GLOBAL.
           05  DETAIL-KEY      PIC X(10).
           05  DETAIL-VALUE    PIC S9(5) COMP-3.
       78  MAX-LINES           VALUE 60.
       01  TRAILER-RECORD      PIC X(80).
       PROCEDURE DIVISION.
           DISPLAY 'HELLO'.
