#include "platform/db/sqlite_catalogue.h"

#include "platform/db/catalogue_text.h"
#include "platform/db/constraint_names.h"
#include "platform/db/temporary_database.h"
#include "support/raw_sql.h"

namespace tessel::db {
namespace {

TEST(ConstraintNames, AreFoundInAnySpelling) {
    const auto names = ReadConstraintNames(R"(CREATE TABLE "a(b" ( -- CONSTRAINT no FOREIGN KEY (x)
        id INT CONSTRAINT nn NOT NULL CONSTRAINT "pk ""1""" PRIMARY KEY,
        a DECIMAL(10,2) DEFAULT (max(1,2)) CONSTRAINT u1 UNIQUE REFERENCES t(x),
        "references" TEXT /* CONSTRAINT no, */ CONSTRAINT [f 2] REFERENCES t ON DELETE SET NULL NOT DEFERRABLE,
        b TEXT CONSTRAINT chk CHECK (b <> 'CONSTRAINT no REFERENCES (') REFERENCES t,
        c INT constraint `f4` references "t,"(y) CONSTRAINT f5 REFERENCES u,
        UNIQUE (a, "b c" COLLATE nocase DESC),
        CONSTRAINT c1 CHECK (a in (1, 2)) CONSTRAINT 'u2' UNIQUE ([x], y) ON CONFLICT IGNORE
        CONSTRAINT f6 FOREIGN KEY (a, b) REFERENCES t(x, y) ON UPDATE SET DEFAULT,
        FOREIGN KEY (c) REFERENCES t(z)) WITHOUT ROWID)");
    EXPECT_EQ(names.primaryKey, "pk \"1\"");
    EXPECT_EQ(names.foreignKeys, (Lines{"", "f 2", "", "f4", "f5", "f6", ""}));
    ASSERT_EQ(names.uniques.size(), 3U);
    EXPECT_EQ(names.uniques[0].name + names.uniques[1].name + names.uniques[2].name, "u1u2");
    EXPECT_EQ(names.uniques[0].columns, Lines{"a"});
    EXPECT_EQ(names.uniques[1].columns, (Lines{"a", "b c"}));
    EXPECT_EQ(names.uniques[2].columns, (Lines{"x", "y"}));
}

class SqliteCatalogue : public TemporaryDatabase {
  protected:
    SourceCatalogue Read(const std::string& sql) {
        const std::string file = folder_ / "source.db";
        test::RunRawSql(file, sql);
        const std::string before = Content(file);
        auto catalogue = ReadSqliteCatalogue(file);
        EXPECT_EQ(Content(file), before);
        return catalogue;
    }
};

TEST_F(SqliteCatalogue, HoldsTablesWithColumnsIndexesAndKeys) {
    const auto catalogue = Read(R"(
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
        create view v as select id, b from plain;)");
    EXPECT_EQ(
        Shown(catalogue),
        (Lines{
            "plain: id [INTEGER]! a [] b [varchar(10)]!=it's c [] d [date]=current_timestamp e [INT] f "
            "[TEXT] g [TEXT]=d\"q h [TEXT]='Null' i [TEXT]='\''a' j [BLOB]=0xCAFE k [REAL]=-1e-7 l "
            "[INT]=0x1F m [INT] n []=true; primary  +id",
            "two words: x [INT]! y]z [INT]!; primary pk -y]z +x",
            "child: id [INT]! up [INT] x [INT] y [INT]; primary  +id; unique named +x +y; unique  +y; index "
            "by_y -y +x; unique uniq +x; key tree to child cascade up>id; key  to TWO words y>y]z x>x; key "
            "gone to nowhere id>id",
            "v view: id [INTEGER] b [varchar(10)]"}));
    const std::string note = ": its default is an expression, which is not taken";
    EXPECT_EQ(Notes(catalogue), (Lines{"plain.c" + note, "plain.f" + note, "plain.m" + note}));
}

TEST_F(SqliteCatalogue, TellsWhatItCannotTake) {
    const auto catalogue = Read(R"(
        create table t (a int, b text, c int as (a * 2) stored, d int as (a) virtual);
        create unique index part on t (a) where b is not null;
        create index plain_part on t (b) where a > 0;
        create index expr on t (a, lower(b));
        create table k (x int references t (a) on delete set null on update cascade);
        create virtual table search using fts5 (body);
        create view broken as select z from nowhere;
        create view fine as select 1 as one;)");
    EXPECT_EQ(Shown(catalogue),
              (Lines{"t: a [INT] b [TEXT] c [INT] d [INT]; index part +a; index plain_part +b",
                     "k: x [INT]; key  to t x>a", "fine view: one []"}));
    const auto notes = Notes(catalogue);
    EXPECT_EQ(
        Lines(notes.begin(), notes.end() - 1),
        (Lines{"t.c: it is computed, and its expression is not taken",
               "t.d: it is computed, and its expression is not taken",
               "part: the condition of the index is not taken, so that it is no longer unique",
               "plain_part: the condition of the index is not taken",
               "expr: an index on an expression is left out", "k -> t: ON DELETE SET NULL becomes RESTRICT",
               "k -> t: ON UPDATE CASCADE is not taken", "search: a virtual table is left out"}));
    EXPECT_TRUE(notes.back().starts_with("broken: the view is left out, for it does not work: no such table"))
        << notes.back();
}

TEST_F(SqliteCatalogue, RefusesWhatIsNoDatabase) {
    const std::string text = folder_ / "text.db";
    std::ofstream(text) << std::string(2000, 'x');
    const std::pair<std::string, ErrorKind> cases[] = {{folder_ / "none.db", ErrorKind::Missing},
                                                       {text, ErrorKind::NotADatabase},
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
