-- A column without a name.
insert into Columns (ColumnID,TabID,ColumnName,Position,TypeID,Precision) values (12,1,'',12,3,32)
