               10  :TAG:-COUNTRY   PIC XX.
           COPY ADDRESS.
