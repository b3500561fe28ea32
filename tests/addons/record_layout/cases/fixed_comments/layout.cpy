      *> Comments that begin at the column of the indicator,
      *> more of them than anything else,
      *> and marks of changes behind the words.
       01  PARCEL.                                                      CHG000
           05  WEIGHT               PIC 9(5).                           CHG001
           05  SIZE-CODE            PIC X(3).                           CHG002
