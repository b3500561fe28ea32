      * copied twice under two names
           05  :TAG:-ADDRESS.
               10  :TAG:-STREET    PIC X(30).
               10  :TAG:-CITY      PIC X(25).
           COPY COUNTRY.
