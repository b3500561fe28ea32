#include "workbench/load/type_map.h"

#include <gtest/gtest.h>

#include "platform/files/file_service.h"
#include "support/temporary_folder.h"
#include "workbench/load/sql_type_table.h"

namespace tessel::workbench {
namespace {

TEST(TypeMap, DeclaredTypesHaveTheirCounterpartsInTheCatalogue) {
    const TemporaryFolder folder;
    files::CopyFile(std::string(TESSEL_SHARE) + "/DBSchema.mdb", folder / "types.mdb");
    const auto database = db::Database::Open(folder / "types.mdb");
    const SqlTypeTable types(*database);
    const struct {
        const char* declared;
        const char* text;  // followed by '?' where something is lost
    } cases[] = {{"char", "CHAR(1)"},
                 {"Character ( 20 )", "CHAR(20)"},
                 {"CHARACTER VARYING(30)", "VARCHAR(30)"},
                 {"nvarchar(32767)", "VARCHAR(32767)"},
                 {"varchar(32768)", "LONGVARCHAR?"},
                 {"varchar", "LONGVARCHAR?"},
                 {"TEXT", "LONGVARCHAR"},
                 {"CLOB", "LONGVARCHAR"},
                 {"text(50)", "VARCHAR(50)"},
                 {"DECIMAL( 31 , 31 )", "DECIMAL(31,31)"},
                 {"decimal(40,2)", "DECIMAL(31,2)?"},
                 {"decimal(8,-2)", "DECIMAL(8)?"},
                 {"INTEGER(11) UNSIGNED", "INTEGER"},
                 {"unsigned big int", "BIGINT"},
                 {"int8", "BIGINT"},
                 {"smallint", "SMALLINT"},
                 {"tinyint(1)", "TINYINT"},
                 {"real", "REAL"},
                 {"float(24)", "FLOAT(24)"},
                 {"double\tprecision", "DOUBLE"},
                 {"datetime", "TIMESTAMP"},
                 {"character(3)[]", "LONGVARCHAR?"},
                 {"bpchar", "LONGVARCHAR?"},
                 {"bpchar(4)", "CHAR(4)"},
                 {"uuid", "CHAR(36)?"},
                 {"bit(1)", "BOOLEAN"},
                 {"bit(8)", "CHAR(8)?"},
                 {"bytea", "LONGVARBINARY"},
                 {"interval", "LONGVARCHAR?"},
                 {"timestamp(6) without time zone", "TIMESTAMP"},
                 {"TIMESTAMP WITH TIME ZONE", "TIMESTAMP?"},
                 {"time", "TIME"},
                 {"bool", "BOOLEAN"},
                 {"blob", "LONGVARBINARY"},
                 {"binary(16)", "BINARY(16)"},
                 {"varbinary(40000)", "LONGVARBINARY?"},
                 {"varbinary", "LONGVARBINARY?"},
                 {"inet", "LONGVARCHAR?"},
                 {"geometry(8)", "VARCHAR(8)?"},
                 {"geometry(99999999999)", "LONGVARCHAR?"},
                 {"", "LONGVARCHAR?"},
                 {"(", "LONGVARCHAR?"}};
    for (const auto& [declared, text] : cases) {
        const ColumnType type = types.TypeFor(declared);
        EXPECT_EQ(type.text + (type.isExact ? "" : "?"), text) << declared;
    }

    // A catalogue may know fewer types.
    database->Execute("delete from SQLTypes where SourceTypeName = 'BOOLEAN'");
    EXPECT_EQ(SqlTypeTable(*database).TypeFor("bool").text, "LONGVARCHAR");
    database->Execute("delete from SQLTypes where SourceTypeName = 'LONGVARCHAR'");
    EXPECT_THROW(SqlTypeTable{*database}, Error);
}

}  // namespace
}  // namespace tessel::workbench
