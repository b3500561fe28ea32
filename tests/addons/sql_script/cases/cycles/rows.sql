-- A refers to B, B to C, C to A; D to itself, by its primary key and by another; E to a key of two columns.
insert into Tables(TabID,TableName,PrimaryIndexID) values(1,'A',1),(2,'B',2),(3,'C',3),(4,'D',4),(5,'E',null)
insert into Columns(ColumnID,TabID,ColumnName,Position,TypeID,Precision,Scale,IsNullable) values(1,1,'A1',1,4,0,0,0),(2,1,'A2',2,4,0,0,1),(3,2,'B1',1,4,0,0,0),(4,2,'B2',2,4,0,0,1),(5,3,'C1',1,4,0,0,0),(6,3,'C2',2,12,8,0,0),(7,3,'C3',3,4,0,0,1),(8,4,'D1',1,4,0,0,0),(9,4,'D2',2,1,4,0,0),(10,4,'D3',3,4,0,0,1),(11,4,'D4',4,1,4,0,1),(12,5,'E1',1,12,8,0,1),(13,5,'E2',2,4,0,0,1)
insert into Indices(IndexID,TabID,IndexName,[Unique]) values(1,1,'PrimaryKey',1),(2,2,'PrimaryKey',1),(3,3,'PrimaryKey',1),(4,4,'PrimaryKey',1),(5,4,'D_Code',1)
insert into IndexColumns(IndexID,ColumnID,Position,Direction) values(1,1,1,'A'),(2,3,1,'A'),(3,6,1,'A'),(3,5,2,'A'),(4,8,1,'A'),(5,9,1,'A')
insert into Indices(IndexID,TabID,IndexName,[Unique],Comment) values(6,3,'C_Number',1,'for A')
insert into IndexColumns(IndexID,ColumnID,Position,Direction) values(6,5,1,'A')
insert into ForeignKeys(KeyID,TabID,RefTabId,KeyName,HowDelete,Comment) values(1,1,2,'A_B','R','the circle begins'),(2,2,3,'B_C','C','goes on'),(3,3,1,'C_A','R','and ends'),(4,4,4,'D_Parent','R',null),(5,4,4,'D_Other','C','by the code'),(6,5,3,'E_C','C',null)
insert into ForeignKeyColumns(KeyID,ColumnID,RefColumnID) values(1,2,3),(2,4,5),(3,7,1),(4,10,8),(5,11,9),(6,13,5),(6,12,6)
