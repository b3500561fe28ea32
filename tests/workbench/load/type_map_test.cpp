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
    // A line for each: the type as declared, and its counterpart, followed by '?' where something is lost.
    std::ifstream cases(TESSEL_TEST_DATA "/types.txt");
    ASSERT_TRUE(cases);
    for (std::string line; std::getline(cases, line);) {
        const auto arrow = line.find(" => ");
        const ColumnType type = types.TypeFor(line.substr(0, arrow));
        EXPECT_EQ(line.substr(0, arrow) + " => " + type.text + (type.isExact ? "" : "?"), line);
    }

    // A catalogue may know fewer types.
    database->Execute("delete from SQLTypes where SourceTypeName = 'BOOLEAN'");
    EXPECT_EQ(SqlTypeTable(*database).TypeFor("bool").text, "LONGVARCHAR");
    database->Execute("delete from SQLTypes where SourceTypeName = 'LONGVARCHAR'");
    EXPECT_THROW(SqlTypeTable{*database}, Error);
}

}  // namespace
}  // namespace tessel::workbench
