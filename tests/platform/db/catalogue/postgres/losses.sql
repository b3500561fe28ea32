create type mood as enum ('sad', 'cheerful');
create type number as (re float, im float);
create domain code as char(3) not null default 'abc' check (value <> '');
create domain mycode as code;
create table t (s serial, i int generated always as identity, d mycode, m mood default 'sad', n number,
                ms mood[], v interval day to second (3), c int generated always as (1) stored);
create unique index part on t (i) where m = 'sad';
create index expr on t (i, lower(d));
create index deep on t (i desc nulls last) include (c);
create index hashed on t using hash (i);
create schema other;
create table other.t (a int primary key, b int unique);
create table k (a int references other.t, b int references other.t (b) on delete set null on update cascade,
                exclude using btree (a with =));
create table p (a int, b int, primary key (a)) partition by range (a);
create table p1 partition of p default;
create materialized view mv as select 1 as one;
