       01  SALES-TABLE.
           03  REGION-COUNT     PIC 99  COMP.
           03  REGION OCCURS 2 TO 3 TIMES DEPENDING ON REGION-COUNT
                      ASCENDING KEY IS REGION-CODE
                      INDEXED BY REGION-X REGION-Y.
               05  REGION-CODE  PIC XX.
               05  QUARTER OCCURS 2.
                   07  SALES    PIC S9(5)V99 PACKED-DECIMAL
                                OCCURS 2 TIMES.
                   07  NOTED    PIC X.
           03  TOTAL            PIC 9(12).
