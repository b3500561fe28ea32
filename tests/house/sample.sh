#!/usr/bin/env bash
# sample.sh FOLDER: names what is wrong with the schema in the sample workspace FOLDER, and fails when there is anything.
set -euo pipefail
faults=$(sqlite3 -batch -bail "$(find "$1/Projects" -name '*.mdb')" <<'SQL'
create temp view KeyPairs as
    select F.KeyID, F.KeyName, C.TabID = F.TabID and R.TabID = F.RefTabId as fits, R.ColumnID as RefColumnID,
           C.TypeID = R.TypeID and C.Precision = R.Precision and C.Scale = R.Scale as sameType
    from ForeignKeys F join ForeignKeyColumns P on P.KeyID = F.KeyID
    left join Columns C on C.ColumnID = P.ColumnID left join Columns R on R.ColumnID = P.RefColumnID;

select 'too few: ' || count(*) || ' tables' from Tables having count(*) < 20;
select 'too few: ' || count(*) || ' columns' from Columns having count(*) < 150;
select 'no primary index: ' || TableName from Tables where PrimaryIndexID is null;
select 'no columns: ' || IndexName from Indices where IndexID not in (select IndexID from IndexColumns);
select 'no columns: ' || KeyName from ForeignKeys where KeyID not in (select KeyID from ForeignKeyColumns);
select 'nullable or in another table: ' || IndexName
    from Indices I join IndexColumns P on P.IndexID = I.IndexID left join Columns C on C.ColumnID = P.ColumnID
    where C.TabID is not I.TabID or (I."Unique" and C.IsNullable);
select 'joins the wrong columns: ' || KeyName from KeyPairs where fits is not 1 or sameType is not 1;
select 'no unique index for: ' || KeyName from ForeignKeys F where not exists (
    select 1 from Indices I where I.TabID = F.RefTabId and I."Unique"
        and (select group_concat(ColumnID) from (select ColumnID from IndexColumns where IndexID = I.IndexID order by 1))
            = (select group_concat(RefColumnID) from (select RefColumnID from KeyPairs where KeyID = F.KeyID order by 1)));
SQL
)
echo "$faults"
[ -z "$faults" ]
