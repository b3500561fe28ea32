-- SECOND joins X with B and Y with A, which stand in the other order.
insert into ForeignKeyColumns (KeyID,ColumnID,RefColumnID) values (1,3,1)
insert into ForeignKeyColumns (KeyID,ColumnID,RefColumnID) values (1,4,2)
insert into ForeignKeyColumns (KeyID,ColumnID,RefColumnID) values (3,1,2)
update ForeignKeys set Comment='  one' & Chr(13) & Chr(10) & 'two' & Chr(9) & '& three ' where KeyID=1
update ForeignKeys set HowDelete=Null where KeyID=3
update ForeignKeys set HowDelete='c' where KeyID=2
