*> an order, in free format, lower case, tabs and a period forgotten
01 order-header.
   05 order-no pic 9(10) comp.
   05 ordered-on. *> year, month, day
	  10 ordered-year	pic 9(4).
	  10 ordered-month	pic 99.
		 88 is-first-quarter	values 1 2 3.
	  10 ordered-day	pic 99
   05 remarks-text pic x(80) value "don't ""quote""; *> not a comment"-
      " and on it goes".
   05 total pic s9(11)v99 sign is leading separate character
   05 last-item pic x(3)
