create table t (a int, b text, c int as (a * 2) stored, d int as (a) virtual);
create unique index part on t (a) where b is not null;
create index plain_part on t (b) where a > 0;
create index expr on t (a, lower(b));
create table k (x int references t (a) on delete set null on update cascade);
create virtual table search using fts5 (body);
create view broken as select z from nowhere;
create view fine as select 1 as one;
