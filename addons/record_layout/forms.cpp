#include "forms.h"

#include "host_calls.h"
#include "report.h"
#include "tessel/convert.h"

namespace tessel::layout {

namespace {

constexpr const char* newTable = "new";
constexpr std::size_t mostRowsShown = 1'000;

using CollectionPointer = std::shared_ptr<Collection>;
using Pairs = std::vector<std::pair<std::string, std::string>>;

CollectionPointer Texts(const Pairs& pairs) {
    auto collection = std::make_shared<Collection>();
    for (const auto& [key, text] : pairs) collection->Add(text, key);
    return collection;
}

std::string KeyOf(std::int32_t tabID) { return "t" + std::to_string(tabID); }

// Builds a form field by field.
class FormBuilder {
  public:
    FormBuilder(Language language, const std::string& text, Text ok) : language_(language) {
        form_->Add(Say(Text::Title), "caption");
        if (!text.empty()) form_->Add(text, "text");
        form_->Add(Say(ok), "ok");
    }

    [[nodiscard]] std::string Say(Text text) const { return Phrase(language_, text); }

    CollectionPointer Add(const char* key, const char* kind, Text caption, const Value& value = Null{}) {
        auto field = std::make_shared<Collection>();
        field->Add(kind, "kind");
        field->Add(Say(caption), "caption");
        if (!value.IsNull()) field->Add(value, "value");
        fields_->Add(field, key);
        return field;
    }
    void AddChoice(const char* key, Text caption, const std::string& value, const Pairs& choices) {
        Add(key, "choice", caption, value)->Add(Texts(choices), "choices");
    }

    CollectionPointer Take() {
        form_->Add(fields_, "fields");
        return form_;
    }

  private:
    Language language_;
    CollectionPointer form_ = std::make_shared<Collection>();
    CollectionPointer fields_ = std::make_shared<Collection>();
};

void AddTableFields(FormBuilder& form, const std::vector<Table>& tables, const Target& target) {
    Pairs choices{{newTable, form.Say(Text::NewTable)}};
    for (const auto& table : tables) choices.emplace_back(KeyOf(table.tabID), table.name);
    const bool isNew = target.tabID == 0;
    form.AddChoice("table", Text::TableField, isNew ? newTable : KeyOf(target.tabID), choices);
    form.Add("name", "text", Text::NameField, isNew ? target.name : std::string());
}

CollectionPointer OptionsForm(Language language, const std::vector<Table>& tables, const Options& options,
                              const Target& target) {
    FormBuilder form(language, "", Text::Preview);
    form.Add("file", "openFile", Text::FileField, options.file)->Add(form.Say(Text::FileFilter), "filter");
    AddTableFields(form, tables, target);
    form.AddChoice("format", Text::FormatField, FormatWord(options),
                   {{"auto", form.Say(Text::FormatAuto)},
                    {"fixed", form.Say(Text::FormatFixed)},
                    {"free", form.Say(Text::FormatFree)}});
    form.AddChoice("occurs", Text::OccursField, OccursWord(options),
                   {{"expand", form.Say(Text::OccursExpand)}, {"once", form.Say(Text::OccursOnce)}});
    form.AddChoice("redefines", Text::RedefinesField, RedefinesWord(options),
                   {{"first", form.Say(Text::RedefinesFirst)}, {"all", form.Say(Text::RedefinesAll)}});
    form.Add("prefix", "check", Text::PrefixField, options.choices.hasPrefix);
    return form.Take();
}

Target TargetIn(const Collection& values, const std::vector<Table>& tables) {
    for (const auto& table : tables)
        if (KeyOf(table.tabID) == ToText(values.At("table"))) return {table.tabID, table.name};
    return {0, ToText(values.At("name"))};
}

CollectionPointer ColumnRows(const std::vector<NewColumn>& columns, const Layout& layout, Language language) {
    auto rows = std::make_shared<Collection>();
    for (const auto& column : columns) {
        const std::string number = std::to_string(rows->Count() + 1);
        if (rows->Count() == mostRowsShown) {
            const std::string rest = std::to_string(columns.size() - mostRowsShown);
            rows->Add(Texts({{"name", Phrase(language, Text::MoreColumns, {rest})},
                             {"type", ""},
                             {"picture", ""},
                             {"line", ""}}),
                      number);
            break;
        }
        std::string line = std::to_string(column.place.line);
        if (column.place.file > 0) {
            const std::string& path = layout.files[static_cast<std::size_t>(column.place.file)];
            line = path.substr(path.rfind('/') + 1) + ":" + line;
        }
        rows->Add(Texts({{"name", column.name},
                         {"type", column.typeText},
                         {"picture", column.picture},
                         {"line", line}}),
                  number);
    }
    return rows;
}

}  // namespace

std::vector<Table> ReadTables(VNTWS& workspace) {
    std::vector<Table> tables;
    for (const auto& row : SelectRows(workspace, "select TabID, TableName from Tables order by TableName"))
        tables.push_back({NumberOf(*row, "TabID"), TextOf(*row, "TableName")});
    return tables;
}

bool AskOptions(VNTWS& workspace, Language language, Options& options, Target& target) {
    const std::vector<Table> tables = ReadTables(workspace);
    const auto values = ShowForm(workspace, OptionsForm(language, tables, options, target));
    if (!values) return false;
    target = TargetIn(*values, tables);
    for (const char* name : {"file", "format", "occurs", "redefines"})
        SetOption(options, name, ToText(values->At(name)));
    options.choices.hasPrefix = ToBoolean(values->At("prefix"));
    return true;
}

std::optional<std::size_t> AskRecord(VNTWS& workspace, Language language, const Layout& layout) {
    Pairs choices;
    for (const auto& record : layout.records)
        choices.emplace_back(std::to_string(choices.size()), record.ShownName());
    FormBuilder form(language, Phrase(language, Text::RecordText), Text::Preview);
    form.AddChoice("record", Text::RecordField, "0", choices);
    const auto values = ShowForm(workspace, form.Take());
    if (!values) return {};
    return static_cast<std::size_t>(ToInt32(values->At("record")));
}

bool ShowPreview(VNTWS& workspace, Language language, const Target& target,
                 const std::vector<NewColumn>& columns, const Layout& layout) {
    const Text text = columns.size() == 1 ? Text::ResultOne : Text::Result;
    FormBuilder form(language, Phrase(language, text, {std::to_string(columns.size()), target.name}),
                     Text::Import);
    const auto list = form.Add("columns", "list", Text::ColumnsField);
    list->Add(Texts({{"name", form.Say(Text::HeadName)},
                     {"type", form.Say(Text::HeadType)},
                     {"picture", form.Say(Text::HeadPicture)},
                     {"line", form.Say(Text::HeadLine)}}),
              "columns");
    list->Add(ColumnRows(columns, layout, language), "rows");
    const auto lines = ReportLines(layout, language);
    if (!lines.empty()) form.Add("report", "note", Text::RemarksField, JoinLines(lines));
    return ShowForm(workspace, form.Take()) != nullptr;
}

}  // namespace tessel::layout
