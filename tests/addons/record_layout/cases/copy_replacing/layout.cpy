       01  INVOICE.
           COPY Address REPLACING ==:TAG:== BY ==BILL==.
           COPY "ADDRESS.cpy" REPLACING ==:TAG:== BY ==SHIP==
                              ==PIC X(30)== BY ==PIC X(40)==.
           COPY AMOUNT IN TAXLIB SUPPRESS
                REPLACING LEADING ==OLD== BY ==NET==
                          'EUR' BY "JPY"
                          9(5) BY 9(7).
           COPY NOWHERE.
           COPY "../secret.cpy".
           05  LAST-FIELD PIC X.
