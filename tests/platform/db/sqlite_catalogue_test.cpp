#include "platform/db/sqlite_catalogue.h"

#include "platform/db/catalogue_text.h"
#include "platform/db/temporary_database.h"
#include "support/raw_sql.h"

namespace tessel::db {
namespace {

using SqliteCatalogue = TemporaryDatabase;

TEST_F(SqliteCatalogue, IsReadAsTheCasesSayAndTheFileLeftAlone) {
    ExpectCases(TESSEL_TEST_DATA "/catalogue/sqlite", [&](const std::string& sql) {
        const TemporaryFolder folder;
        const std::string file = folder / "source.db";
        test::RunRawSql(file, sql);
        const std::string before = Content(file);
        auto catalogue = ReadSqliteCatalogue(file);
        EXPECT_EQ(Content(file), before);
        return catalogue;
    });
}

TEST_F(SqliteCatalogue, RefusesWhatIsNoDatabase) {
    const std::string text = folder_ / "text.db";
    std::ofstream(text) << std::string(2000, 'x');
    const std::string loop = folder_ / "loop.db";
    std::filesystem::create_symlink(loop, loop);
    const std::pair<std::string, ErrorKind> cases[] = {{folder_ / "none.db", ErrorKind::Missing},
                                                       {text, ErrorKind::NotADatabase},
                                                       {loop, ErrorKind::ReadOnly},
                                                       {folder_.Path(), ErrorKind::NotADatabase}};
    for (const auto& [file, kind] : cases) {
        try {
            (void)ReadSqliteCatalogue(file);
            ADD_FAILURE() << file;
        } catch (const DatabaseError& error) {
            EXPECT_EQ(error.Kind(), kind) << file;
            EXPECT_NE(std::string(error.what()).find(file), std::string::npos) << error.what();
        }
    }
    EXPECT_FALSE(std::filesystem::exists(folder_ / "none.db"));
}

}  // namespace
}  // namespace tessel::db
