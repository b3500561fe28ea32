#include "schema_lines.h"

#include <algorithm>

#include "platform/db/database.h"
#include "platform/text/utf8.h"

namespace tessel::test {

namespace {

std::string Braced(const std::string& comment) { return comment.empty() ? "" : " {" + comment + "}"; }

class Reader {
  public:
    Reader(const std::string& file, PartComments comments)
        : database_(db::Database::Open(file)), comments_(comments) {}

    std::vector<std::string> Read() {
        for (auto row = database_->Select("select * from Tables"); row.Next();) {
            lines_.push_back(row.Text("TableName") + Braced(row.Text("Comments")));
            ReadColumns(row);
            ReadIndexes(row);
            ReadKeys(row);
        }
        std::ranges::sort(lines_);
        return std::move(lines_);
    }

  private:
    void ReadColumns(const db::Query& table) {
        int place = 0;
        for (auto row =
                 Of(table, "select * from Columns C, SQLTypes T where T.TypeID = C.TypeID and C.TabID = ",
                    " order by Position");
             row.Next();)
            lines_.push_back(table.Text("TableName") + "." + std::to_string(++place) + " " +
                             row.Text("ColumnName") + " " + TypeOf(row) +
                             (row.Boolean("IsNullable") ? "" : "!") + DefaultOf(row) +
                             Braced(row.Text("Comments")));
    }

    // That of a Boolean means the same in any letter case.
    static std::string DefaultOf(const db::Query& row) {
        if (row["DefaultValue"].IsNull()) return "";
        const std::string value = row.Text("DefaultValue");
        return " = " + (row.Text("SourceTypeName") == "BOOLEAN" ? text::LowerAscii(value) : value);
    }

    static std::string TypeOf(const db::Query& row) {
        const std::string scale = row.Integer("Scale") == 0 ? "" : "," + row.Text("Scale");
        const std::string size =
            row.Integer("Precision") == 0 ? "" : "(" + row.Text("Precision") + scale + ")";
        return row.Text("SourceTypeName") + size;
    }

    void ReadIndexes(const db::Query& table) {
        for (auto row = Of(table, "select * from Indices where TabID = "); row.Next();) {
            const bool isPrimary = table["PrimaryIndexID"] == row["IndexID"];
            std::string line = table.Text("TableName") + (isPrimary               ? " primary"
                                                          : row.Boolean("Unique") ? " unique"
                                                                                  : " index");
            for (auto part = Of(row,
                                "select * from IndexColumns P, Columns C where C.ColumnID = P.ColumnID and "
                                "P.IndexID = ",
                                " order by P.Position");
                 part.Next();)
                line += " " + part.Text("ColumnName") + (part.Text("Direction") == "D" ? " desc" : "");
            lines_.push_back(line + CommentOf(row));
        }
    }

    void ReadKeys(const db::Query& table) {
        for (auto row =
                 Of(table, "select * from ForeignKeys K, Tables T where T.TabID = K.RefTabId and K.TabID = ");
             row.Next();) {
            std::string line = table.Text("TableName") + " key " + row.Text("KeyName") + " to " +
                               row.Text("TableName") + " " + row.Text("HowDelete");
            for (auto pair = database_->Select(
                     "select C.ColumnName, R.ColumnName as Ref from ForeignKeyColumns P, Columns C, Columns "
                     "R where "
                     "C.ColumnID = P.ColumnID and R.ColumnID = P.RefColumnID and P.KeyID = " +
                     row.Text("KeyID") + " order by R.Position");
                 pair.Next();)
                line += " " + pair.Text("ColumnName") + ">" + pair.Text("Ref");
            lines_.push_back(line + CommentOf(row));
        }
    }

    // The rows that hold the identifier, which is the first field.
    db::Query Of(const db::Query& owner, const std::string& sql, const std::string& order = "") {
        return database_->Select(sql + owner.Text(owner.Fields().front()) + order);
    }

    std::string CommentOf(const db::Query& row) const {
        return comments_ == PartComments::Taken ? Braced(row.Text("Comment")) : "";
    }

    std::shared_ptr<db::Database> database_;
    PartComments comments_;
    std::vector<std::string> lines_;
};

}  // namespace

std::vector<std::string> SchemaLines(const std::string& file, PartComments comments) {
    return Reader(file, comments).Read();
}

}  // namespace tessel::test
