#include "generate_schema.h"

#include <sqlite3.h>

#include <stdexcept>

#include "platform/files/file_service.h"

namespace tessel::bench {

namespace {

void Run(sqlite3* connection, const std::string& sql) {
    if (sqlite3_exec(connection, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(connection));
}

// Number holds what every row is made of: the numbers from 1 to `last`.
void Count(sqlite3* connection, const std::string& number, int last) {
    Run(connection, "create temp table " + number +
                        " as with recursive Counted(n) as (select 1 union all select n + 1 from Counted "
                        "where n < " +
                        std::to_string(last) + ") select n from Counted");
}

// Columns 1, 2 and 3 are what keys refer to; columns 6, 7 and 8 refer to such columns of other tables.
constexpr const char* schema = R"(
insert into Tables (TabID, TableName, Comments, PrimaryIndexID, Created)
    select n, printf('TABLE_%05d', n), printf('What table %d is for', n), 3 * n - 2, '2026-01-31T10:00:00' from T;
insert into Columns (ColumnID, TabID, ColumnName, Position, TypeID, Precision, Scale, IsNullable, Comments, Created)
    select 20 * T.n + C.n - 20, T.n, printf('COLUMN_%02d', C.n), C.n,
           case when C.n in (1, 6) then 4 when C.n in (2, 7) then 12 when C.n in (3, 8) then 5 else C.n % 4 * 3 + 3 end,
           case when C.n in (2, 7) then 40 when C.n > 8 and C.n % 4 in (0, 3) then 12 else 0 end, 0,
           C.n > 8, printf('What column %d is for', C.n), '2026-01-31T10:00:00' from T, C;
insert into Indices (IndexID, TabID, IndexName, [Unique])
    select 3 * T.n + I.n - 3, T.n, case I.n when 1 then 'PrimaryKey' else printf('INDEX_%d', I.n) end, I.n < 3
    from T, C as I where I.n <= 3;
insert into IndexColumns (IndexID, ColumnID, Position, Direction)
    select IndexID, 20 * TabID - 20 + P.n, 1, 'A' from Indices, C as P where P.n = (IndexID - 1) % 3 + 1;
insert into IndexColumns (IndexID, ColumnID, Position, Direction)
    select IndexID, 20 * TabID - 17, 2, 'A' from Indices where (IndexID - 1) % 3 = 1;
insert into ForeignKeys (KeyID, TabID, RefTabId, KeyName, HowDelete)
    select 2 * T.n - 1, T.n, T.n % (select count(*) from T) + 1, 'KEY_1', 'R' from T
    union all select 2 * T.n, T.n, T.n * 7 % (select count(*) from T) + 1, 'KEY_2', 'C' from T;
insert into ForeignKeyColumns (KeyID, ColumnID, RefColumnID)
    select KeyID, 20 * TabID - 14, 20 * RefTabId - 19 from ForeignKeys where KeyID % 2 = 1
    union all select KeyID, 20 * TabID - 13, 20 * RefTabId - 18 from ForeignKeys where KeyID % 2 = 0
    union all select KeyID, 20 * TabID - 12, 20 * RefTabId - 17 from ForeignKeys where KeyID % 2 = 0;

update Columns set IsNullable = 1 where Position = 1 and TabID % 100 = 20;
update Columns set TypeID = 1 where Position in (7, 8) and TabID % 100 = 40;
delete from IndexColumns where IndexID in (select IndexID from Indices where IndexName = 'INDEX_2' and TabID % 100 = 60);
)";

}  // namespace

void GenerateSchema(const std::string& share, const std::string& file, int tables) {
    files::CopyFile(share + "/DBSchema.mdb", file);
    sqlite3* connection = nullptr;
    if (sqlite3_open(file.c_str(), &connection) != SQLITE_OK) throw std::runtime_error(file);
    Run(connection, "begin");
    Count(connection, "T", tables);
    Count(connection, "C", 20);
    Run(connection, schema);
    Run(connection, "commit");
    sqlite3_close(connection);
}

}  // namespace tessel::bench
