create table "two words" (x int, "y.Z" int, gone int, constraint pk primary key ("y.Z", x));
alter table "two words" drop gone, add constraint named unique (x);
create index by_y on "two words" ("y.Z" desc, x);
create table child (id bigint primary key, up bigint, x int not null, y int,
    constraint tree foreign key (up) references child on delete cascade,
    constraint pair foreign key (x, y) references "two words" (x, "y.Z"));
create view v as select id, up from child;
comment on table child is 'It''s a
    child';
comment on column child.up is 'above';
comment on index by_y is '降順';
comment on constraint pk on "two words" is 'the key';
comment on constraint tree on child is 'a tree';
comment on view v is 'seen';
create schema other;
create table other.t (a int);
