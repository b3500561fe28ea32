#include "generate_schema.h"

#include <sqlite3.h>

#include <filesystem>
#include <stdexcept>

#include "engine/tessel_engine.h"
#include "platform/files/file_service.h"
#include "workbench/stand_alone_frontend.h"
#include "workbench/stored_repository.h"

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
    select 8 * T.n + C.n - 8, T.n, printf('COLUMN_%02d', C.n), C.n,
           case C.n when 1 then 4 when 6 then 4 when 2 then 12 when 7 then 12 when 4 then 3 when 5 then 12 else 5 end,
           case C.n when 2 then 40 when 7 then 40 when 4 then 12 when 5 then 80 else 0 end, 0,
           C.n in (4, 5), printf('What column %d is for', C.n), '2026-01-31T10:00:00' from T, C;
insert into Indices (IndexID, TabID, IndexName, [Unique])
    select 3 * T.n + I.n - 3, T.n, case I.n when 1 then 'PrimaryKey' else printf('INDEX_%d', I.n) end, I.n < 3
    from T, C as I where I.n <= 3;
insert into IndexColumns (IndexID, ColumnID, Position, Direction)
    select IndexID, 8 * TabID - 8 + P.n, 1, 'A' from Indices, C as P where P.n = (IndexID - 1) % 3 + 1;
insert into IndexColumns (IndexID, ColumnID, Position, Direction)
    select IndexID, 8 * TabID - 5, 2, 'A' from Indices where (IndexID - 1) % 3 = 1;
insert into ForeignKeys (TabID, RefTabId, KeyName, HowDelete)
    select T.n, T.n % (select count(*) from T) + 1, 'KEY_1', 'R' from T;
insert into ForeignKeys (TabID, RefTabId, KeyName, HowDelete)
    select T.n, T.n * 7 % (select count(*) from T) + 1, 'KEY_2', 'C' from T where T.n % 10 < 3;
insert into ForeignKeyColumns (KeyID, ColumnID, RefColumnID)
    select KeyID, 8 * TabID - 2, 8 * RefTabId - 7 from ForeignKeys where KeyName = 'KEY_1'
    union all select KeyID, 8 * TabID - 1, 8 * RefTabId - 6 from ForeignKeys where KeyName = 'KEY_2'
    union all select KeyID, 8 * TabID, 8 * RefTabId - 5 from ForeignKeys where KeyName = 'KEY_2';

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
    Count(connection, "C", columnsPerTable);
    Run(connection, schema);
    Run(connection, "commit");
    sqlite3_close(connection);
}

std::string SchemaFile(const std::string& workspace) {
    return workspace + "/Projects/Main/DBSCHEMA/Main.mdb";
}

std::shared_ptr<host::Frontend> GenerateWorkspace(const std::string& share, const std::string& path,
                                                  int tables) {
    auto folder = workbench::WorkspaceFolder::Create(path, "Main");
    std::filesystem::create_directory(path + "/Projects/Main/DBSCHEMA");
    GenerateSchema(share, SchemaFile(path), tables);
    workbench::StoredRepository repository(folder.File());
    auto schema = repository.NewObject("DBSCHEMA", "Main");
    schema->BeginChange();
    schema->SetAttribute("Source", "Projects\\Main\\DBSCHEMA\\Main.mdb");
    schema->EndChange();
    return std::make_shared<workbench::StandAloneFrontend>(std::move(folder), "Main", share);
}

void OpenEditor(ComponentState& state, const std::shared_ptr<host::Frontend>& frontend) {
    if (TesselEngine(state).Run(frontend, Missing{}, Missing{}) != 0)
        throw std::runtime_error("The generated schema does not open.");
}

}  // namespace tessel::bench
