create table plain (id integer primary key, a, b varchar(10) not null default 'it''s', c default (1 + 2),
                    d date default current_timestamp, e int default null, f text default ('a' || 'b'),
                    g text default "d""q", h text default 'Null', i text default '''a',
                    j blob default x'cafe', k real default -1e-7, l int default 0x1F,
                    m int default (1 - 2), n default true);
create table "two words" (x int, "y]z" int, constraint pk primary key ("y]z" desc, x)) without rowid;
create table child (
    id int primary key, up int constraint tree references child on delete cascade, x int, y int,
    foreign key (y, x) references "TWO words" on delete restrict,
    constraint named unique (x, y), unique (y), constraint gone foreign key (id) references nowhere(id));
create index by_y on child (y desc, x);
create unique index uniq on child (x);
create view v as select id, b from plain;
