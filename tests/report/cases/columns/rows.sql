-- The key admits nulls, and one of its columns stands before another.
insert into IndexColumns (IndexID,ColumnID,Position,Direction) values (1,6,1,'A')
insert into IndexColumns (IndexID,ColumnID,Position,Direction) values (1,1,2,'A')
-- An index that is not primary makes no key.
insert into Indices (IndexID,TabID,IndexName) values (2,2,'ANY')
insert into IndexColumns (IndexID,ColumnID,Position,Direction) values (2,2,1,'A')
