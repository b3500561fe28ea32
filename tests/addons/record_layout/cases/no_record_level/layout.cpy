           05  KEY-PART           PIC X(4).
           05  BODY.
               10  CITY           PIC X(20).
               10  BODY-2.
                   15  CITY       PIC X(20).
           05  GROUP-WITH-PIC     PIC X(9).
               10  INNER          PIC X(4).
           05  EMPTY-GROUP.
           05  ODD-CLAUSE         PIC X(4) ENCRYPTED BY MAGIC VALUE 'A'.
           05  NO-TIMES           PIC 9 OCCURS MANY TIMES.
           55  WRONG-LEVEL        PIC X.
           05  1ST-LINE           PIC X(10).
           05  123                PIC X.
           88  LAST-CONDITION     VALUE 10 THRU
                                  20 30.
