#include "sql_script/script_writer.h"

#include <ranges>

#include "sql_script/literal.h"
#include "sql_script/text_tools.h"

namespace tessel::sql_script {

namespace {

constexpr const char* indent = "    ";

// The text as lines of remarks, whatever line ends it has.
std::string Lines(const std::string& before, std::string text) {
    text = ReplaceAll(ReplaceAll(std::move(text), "\r\n", "\n"), "\r", "\n");
    std::erase(text, '\0');
    std::string lines;
    std::string_view rest = Trim(text);
    while (!rest.empty()) lines.append(before).append("-- ").append(NextPart(rest, '\n')).append("\n");
    return lines;
}

class Writer {
  public:
    Writer(const Dialect& dialect, const ServerSchema& schema, const ScriptOptions& options)
        : dialect_(dialect), schema_(schema), options_(options) {}

    std::string Write(const std::function<void(std::size_t)>& begins) {
        WriteHeading();
        script_ += dialect_.begin;
        if (options_.dropsTables) WriteDrops();
        for (std::size_t i = 0; i < schema_.order.size(); ++i) {
            begins(i);
            WriteTable(schema_.tables[schema_.order[i]]);
        }
        WriteLaterKeys();
        script_ += "\n";
        script_ += dialect_.end;
        return std::move(script_);
    }

  private:
    [[nodiscard]] std::string Quoted(const std::string& name) const { return QuoteName(dialect_, name); }
    [[nodiscard]] bool Comments(CommentForm form) const {
        return options_.hasComments && dialect_.comments == form;
    }

    void WriteHeading() {
        const auto count = [](Text one, Text many, std::size_t number) {
            return Counted(Language::English, one, many, number);
        };
        const std::size_t remarks = RemarksOf(schema_).size();
        script_ = Lines("", schema_.name + ": the schema for " + dialect_.caption);
        script_ += "-- " + count(Text::Table, Text::Tables, CountTables(schema_)) + ", " +
                   count(Text::Key, Text::Keys, CountKeys(schema_));
        if (remarks > 0) script_ += ", " + count(Text::Remark, Text::Remarks, remarks);
        script_ += "\n";
        script_ += dialect_.hint;
        script_ += "\n";
    }

    void WriteDrops() {
        script_ += dialect_.beforeDrop;
        std::string names;
        for (const auto place : schema_.order | std::views::reverse) {
            const ServerTable& table = schema_.tables[place];
            if (table.isLeftOut) continue;
            // Tables that refer to each other only go together, unless each goes by itself.
            if (IsServer(dialect_, Server::Sqlite))
                script_ += "DROP TABLE IF EXISTS " + Quoted(table.name) + ";\n";
            else
                names += (names.empty() ? "" : ",\n" + std::string(indent)) + Quoted(table.name);
        }
        if (!names.empty()) script_ += "DROP TABLE IF EXISTS\n" + std::string(indent) + names + ";\n";
        script_ += dialect_.afterDrop;
    }

    void WriteTable(const ServerTable& table) {
        script_ += "\n";
        for (const auto& remark : table.remarks)
            script_ += Lines("", "Remark: " + Say(Language::English, remark.text, remark.parameters));
        if (table.isLeftOut) return;
        script_ += "CREATE TABLE " + Quoted(table.name) + " (\n";
        std::string comment = Comments(CommentForm::Line) ? Lines(indent, table.comment) : "";
        if (options_.hasComments && !table.storage.empty())
            comment += Lines(indent, "Storage: " + table.storage);
        if (!comment.empty()) script_ += comment + "\n";
        WriteElements(table);
        script_ += ")";
        script_ += dialect_.tableOptions;
        if (Comments(CommentForm::Clause)) script_ += CommentClause(table.comment);
        script_ += ";\n";
        if (!dialect_.hasInlineIndexes) WriteIndexes(table);
        if (Comments(CommentForm::Statement)) WriteComments(table);
    }

    // Columns and what else stands between the parentheses.
    void WriteElements(const ServerTable& table) {
        std::vector<std::string> elements;
        for (const auto& column : table.columns) elements.push_back(ColumnElement(table, column));
        for (const auto& index : table.indexes)
            if ((index.isPrimary && !IsInColumn(table, index)) || dialect_.hasInlineIndexes)
                elements.push_back(IndexElement(table, index));
        for (const auto& key : table.keys)
            if (!key.isLater) elements.push_back(Remarked(key.comment) + indent + KeyClause(table, key));
        for (std::size_t i = 0; i < elements.size(); ++i)
            script_ += elements[i] + (i + 1 < elements.size() ? ",\n" : "\n");
    }

    // A comment above an element, for a server that keeps none with it.
    [[nodiscard]] std::string Remarked(const std::string& comment) const {
        return !options_.hasComments || dialect_.comments == CommentForm::Statement ? ""
                                                                                    : Lines(indent, comment);
    }

    [[nodiscard]] std::string CommentClause(const std::string& comment) const {
        return comment.empty() ? "" : " COMMENT " + TextLiteral(dialect_, comment);
    }

    [[nodiscard]] std::string ColumnElement(const ServerTable& table, const ServerColumn& column) const {
        std::string element = Comments(CommentForm::Line) ? Lines(indent, column.comment) : "";
        element += indent + Quoted(column.name) + " " + column.type;
        if (!column.isNullable) element += " NOT NULL";
        if (!column.defaultValue.empty()) element += " DEFAULT " + column.defaultValue;
        for (const auto& index : table.indexes)
            if (IsInColumn(table, index) && &table.columns[index.parts.front().column] == &column)
                element += " CONSTRAINT " + Quoted(index.name) + " PRIMARY KEY DESC";
        if (Comments(CommentForm::Clause)) element += CommentClause(column.comment);
        return element;
    }

    // SQLite takes a primary key of one INTEGER column for the row's number, which has no direction, except
    // where a descending one stands with its column.
    [[nodiscard]] bool IsInColumn(const ServerTable& table, const ServerIndex& index) const {
        return IsServer(dialect_, Server::Sqlite) && index.isPrimary && index.parts.size() == 1 &&
               index.parts.front().isDescending &&
               UpperAscii(table.columns[index.parts.front().column].type) == "INTEGER";
    }

    [[nodiscard]] std::string IndexElement(const ServerTable& table, const ServerIndex& index) const {
        std::string element = Comments(CommentForm::Line) ? Lines(indent, index.comment) : "";
        element += indent;
        if (!index.isPrimary)
            element += (index.isUnique ? "UNIQUE KEY " : "KEY ") + Quoted(index.name);
        else
            element +=
                (dialect_.namesPrimary ? "CONSTRAINT " + Quoted(index.name) + " " : "") + "PRIMARY KEY";
        element += " " + Parts(table, index);
        if (Comments(CommentForm::Clause)) element += CommentClause(index.comment);
        return element;
    }

    [[nodiscard]] std::string Parts(const ServerTable& table, const ServerIndex& index) const {
        std::string parts;
        for (const auto& part : index.parts)
            parts += (parts.empty() ? "" : ", ") + Quoted(table.columns[part.column].name) +
                     (part.isDescending ? " DESC" : "");
        return "(" + parts + ")";
    }

    [[nodiscard]] std::string KeyClause(const ServerTable& table, const ServerKey& key) const {
        const ServerTable& refTable = schema_.tables[key.refTable];
        std::string columns;
        std::string refColumns;
        for (const auto& [column, refColumn] : key.pairs) {
            const char* comma = columns.empty() ? "" : ", ";
            columns += comma + Quoted(table.columns[column].name);
            refColumns += comma + Quoted(refTable.columns[refColumn].name);
        }
        return "CONSTRAINT " + Quoted(key.name) + " FOREIGN KEY (" + columns + ") REFERENCES " +
               Quoted(refTable.name) + " (" + refColumns + ") ON DELETE " +
               (key.deletesCascade ? "CASCADE" : "RESTRICT");
    }

    void WriteIndexes(const ServerTable& table) {
        for (const auto& index : table.indexes) {
            if (index.isPrimary) continue;
            if (Comments(CommentForm::Line)) script_ += Lines("", index.comment);
            script_ += std::string(index.isUnique ? "CREATE UNIQUE INDEX " : "CREATE INDEX ") +
                       Quoted(index.name) + " ON " + Quoted(table.name) + " " + Parts(table, index) + ";\n";
        }
    }

    void WriteComments(const ServerTable& table) {
        const auto comment = [this](const std::string& what, const std::string& text) {
            if (!text.empty()) script_ += "COMMENT ON " + what + " IS " + TextLiteral(dialect_, text) + ";\n";
        };
        comment("TABLE " + Quoted(table.name), table.comment);
        for (const auto& column : table.columns)
            comment("COLUMN " + Quoted(table.name) + "." + Quoted(column.name), column.comment);
        for (const auto& index : table.indexes) comment("INDEX " + Quoted(index.name), index.comment);
        for (const auto& key : table.keys)
            if (!key.isLater) WriteKeyComment(table, key);
    }

    void WriteKeyComment(const ServerTable& table, const ServerKey& key) {
        if (!key.comment.empty())
            script_ += "COMMENT ON CONSTRAINT " + Quoted(key.name) + " ON " + Quoted(table.name) + " IS " +
                       TextLiteral(dialect_, key.comment) + ";\n";
    }

    void WriteLaterKeys() {
        const char* gap = "\n";
        for (const auto place : schema_.order) {
            const ServerTable& table = schema_.tables[place];
            for (const auto& key : table.keys) {
                if (!key.isLater) continue;
                script_ += std::exchange(gap, "");
                if (Comments(CommentForm::Clause)) script_ += Lines("", key.comment);
                script_ += "ALTER TABLE " + Quoted(table.name) + " ADD " + KeyClause(table, key) + ";\n";
                if (Comments(CommentForm::Statement)) WriteKeyComment(table, key);
            }
        }
    }

    const Dialect& dialect_;
    const ServerSchema& schema_;
    const ScriptOptions& options_;
    std::string script_;
};

}  // namespace

std::string WriteScript(const Dialect& dialect, const ServerSchema& schema, const ScriptOptions& options,
                        const std::function<void(std::size_t)>& begins) {
    return Writer(dialect, schema, options).Write(begins);
}

}  // namespace tessel::sql_script
