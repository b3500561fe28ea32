      *	from a PC: tabs, two-byte line ends, Latin-1, an end mark
	01  PART.
	    05  PART-NAME	PIC X(20) VALUE "Café".
000100	    05  PART-NO		PIC 9(6)
12
AB12
