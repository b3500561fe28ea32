insert into IndexColumns (IndexID,ColumnID,Position,Direction) values (2,2,1,'d')
insert into IndexColumns (IndexID,ColumnID,Position,Direction) values (2,1,2,'A')
-- Positions rule, not the order of the rows; a direction that is not given is none.
insert into IndexColumns (IndexID,ColumnID,Position,Direction) values (1,2,2,Null)
insert into IndexColumns (IndexID,ColumnID,Position,Direction) values (1,1,1,'A')
