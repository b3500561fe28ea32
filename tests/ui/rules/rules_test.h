#pragma once

#include "support/raw_sql.h"
#include "support/schema_test.h"
#include "ui/rules/locale_conversions.h"

namespace tessel::test {

using Strings = std::vector<std::string>;

// A locale that writes 1.234,5 and knows one date.
class CommaLocale : public LocaleConversions {
  public:
    std::optional<double> ToNumber(const std::string& text) const override {
        std::string plain;
        for (const char c : text)
            if (c != '.') plain += c == ',' ? '.' : c;
        try {
            return ToDouble(Value(plain));
        } catch (const Error&) {
            return std::nullopt;
        }
    }
    bool IsDate(const std::string& text) const override { return text == "31.1.2026"; }
};

// Table 1 "Child" with the columns 1 A VARCHAR(8) and 2 B REAL, both not null, and 3 C DATE; table 2 "Parent"
// with 4 X VARCHAR(8), 5 Y REAL, 6 Z DATE. Child's indexes: 1 "PrimaryKey" on A, 2 "Ix" on B and C
// descending. Parent's: 3 "U1" on Y and X, 4 "U2" on Z, both unique, and 5 "Plain". Key 1 "K" links B to Y
// and A to X.
class RulesTest : public SchemaTest {
  protected:
    RulesTest() {
        state.restrictText = "Restrict";
        state.cascadeText = "Cascade";
        AddTable("Child");
        AddTable("Parent");
        for (const char* name : {"A", "B", "C"}) AddColumn(1, name);
        for (const char* name : {"X", "Y", "Z"}) AddColumn(2, name);
        std::int32_t id = Ws().PrimaryAdd(1);
        EXPECT_TRUE(Ws().IndexAdd(1, "Ix", id) && Ws().ForeignAdd(1, 2, "K", id));
        for (const char* name : {"U1", "U2", "Plain"}) EXPECT_TRUE(Ws().IndexAdd(2, name, id));
        for (const char* sql :
             {"update Columns set TypeID=12, Precision=8 where ColumnName='A' or ColumnName='X'",
              "update Columns set TypeID=7 where ColumnName='B' or ColumnName='Y'",
              "update Columns set TypeID=9 where ColumnName='C' or ColumnName='Z'",
              "update Columns set IsNullable=0 where ColumnID<3",
              "update Columns set Comments='one', CVRL='obj:o9' where ColumnID=1",
              "update Indices set Unique=1 where IndexID=3 or IndexID=4",
              "insert into IndexColumns(IndexID,ColumnID,Position,Direction) values (1,1,1,'A'), "
              "(2,3,2,'D'), "
              "(2,2,1,'A'), (3,5,1,'A'), (3,4,2,'A'), (4,6,1,'A'), (5,4,1,'A')",
              "insert into ForeignKeyColumns(KeyID,ColumnID,RefColumnID) values (1,2,5), (1,1,4)",
              "update ForeignKeys set Comment='two'"})
            Db().Execute(sql);
        Mark();
    }

    // The messages and questions since the last call, each after the letter of its symbol.
    Strings Told() {
        Strings told;
        for (const auto& asked : questions->TakeAsked())
            told.push_back(std::string(1, "-cewi"[static_cast<int>(asked.icon)]) + " " + asked.text);
        return told;
    }

    // From now on every change of this kind fails, such as "update on Tables".
    void Break(const std::string& change) {
        RunRawSql(state.databaseFilename,
                  "create trigger Broken before " + change + " begin select raise(abort, 'broken'); end");
    }
    void Mend() { RunRawSql(state.databaseFilename, "drop trigger Broken"); }
};

}  // namespace tessel::test
