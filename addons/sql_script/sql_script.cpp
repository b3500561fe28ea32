#include "sql_script/sql_script.h"

#include <filesystem>

#include "shared/files.h"
#include "shared/progress.h"
#include "sql_script/parameters.h"
#include "sql_script/planner.h"
#include "sql_script/schema_reader.h"
#include "sql_script/text_tools.h"
#include "tessel/convert.h"
#include "tessel/error.h"

namespace tessel::sql_script {

namespace {

constexpr std::int32_t workspaceFolder = 4;
constexpr std::int32_t projectName = 7;
constexpr std::int32_t shareFolder = 13;
constexpr std::size_t mostRemarksShown = 10;

// The script cannot be written.
class WriteError : public Error {
  public:
    using Error::Error;
};

using Fields = std::shared_ptr<Collection>;

Fields Made(std::initializer_list<std::pair<const char*, Value>> items) {
    auto fields = std::make_shared<Collection>();
    for (const auto& [key, value] : items) fields->Add(value, key);
    return fields;
}

// One run of the tool.
class Task {
  public:
    Task(Object& frontend, VNTWS& workspace)
        : frontend_(frontend), workspace_(workspace), language_(tool::LanguageOf(Get("Language"))) {}

    Value Run(const std::string& parameter) {
        Parameters parameters = ReadParameters(parameter, language_);
        if (!parameters.dialect || parameters.file.empty()) return AskAndWrite(parameters);
        MakeAbsolute(parameters);
        return WriteAndTell(parameters, false);
    }

  private:
    Value Call(Object& object, const char* member, Arguments arguments) {
        return object.Call(member, CallKind::Method, arguments);
    }
    std::string Get(const char* member) {
        Arguments none;
        const Value value = frontend_.Call(member, CallKind::Get, none);
        return value.IsNull() ? std::string() : ToText(value);
    }
    std::string Name(std::int32_t item) {
        return ReplaceAll(ToText(Call(frontend_, "GetCorvaneName", {item})), "\\", "/");
    }
    [[nodiscard]] std::string Said(Text text, const std::vector<std::string>& parameters = {}) const {
        return Say(language_, text, parameters);
    }

    // Why the file cannot be read or written.
    [[nodiscard]] std::string Failed(Text text, const std::string& file, std::error_code failure) const {
        return Said(text, {file, failure.message()});
    }

    // A file that cannot be written goes back to the form.
    std::string AskAndWrite(Parameters& parameters) {
        if (parameters.file.empty())
            parameters.file = Name(workspaceFolder) + "/Output/" + Name(projectName) + ".sql";
        while (Ask(parameters)) {
            try {
                if (MayWrite(parameters)) return WriteAndTell(parameters, true);
            } catch (const WriteError& error) {
                (void)Tell(error.what(), "warning");
            }
        }
        return Said(Text::NothingWritten);
    }

    static void MakeAbsolute(Parameters& parameters) {
        parameters.file = std::filesystem::absolute(ReplaceAll(parameters.file, "\\", "/")).string();
    }

    // Makes the name of the file whole, and asks before another file is replaced.
    bool MayWrite(Parameters& parameters) {
        if (parameters.file.empty()) {
            (void)Tell(Said(Text::NoFile), "warning");
            return false;
        }
        MakeAbsolute(parameters);
        std::error_code ignored;
        return !std::filesystem::is_regular_file(parameters.file, ignored) ||
               Tell(Said(Text::Replaces, {parameters.file}), "warning", "OKCancel") == "OK";
    }

    std::string Tell(const std::string& text, const char* icon, const char* buttons = "OK") {
        return ToText(Call(*workspace_.ToolWindow(), "Message", {text, icon, buttons}));
    }

    std::string WriteAndTell(const Parameters& parameters, bool tellsSuccess) {
        const ServerSchema planned = Write(parameters);
        const std::string summary = Summary(planned, parameters.file);
        TellRemarks(planned, summary, tellsSuccess);
        return summary;
    }

    // False when the user cancelled.
    bool Ask(Parameters& parameters) {
        const Value answer = Call(*workspace_.ToolWindow(), "Form", {Value(FormFor(parameters))});
        const auto* values = answer.As<Fields>();
        if (!values) return false;
        parameters.dialect = FindDialect(ToText((*values)->At("dialect")));
        parameters.file = Trim(ToText((*values)->At("file")));
        parameters.options.dropsTables = ToBoolean((*values)->At("drop"));
        parameters.options.hasComments = ToBoolean((*values)->At("comments"));
        return parameters.dialect != nullptr;
    }

    Fields FormFor(const Parameters& parameters) {
        auto choices = std::make_shared<Collection>();
        for (const auto& dialect : Dialects()) choices->Add(dialect.caption, dialect.name);
        const Dialect& chosen = parameters.dialect ? *parameters.dialect : Dialects().front();
        const auto fields = Made({
            {"dialect", Made({{"kind", "choice"},
                              {"caption", Said(Text::Database)},
                              {"value", chosen.name},
                              {"choices", choices}})},
            {"file", Made({{"kind", "saveFile"},
                           {"caption", Said(Text::File)},
                           {"value", parameters.file},
                           {"filter", Said(Text::Filter)}})},
            {"drop", Made({{"kind", "check"},
                           {"caption", Said(Text::Drop)},
                           {"value", parameters.options.dropsTables}})},
            {"comments", Made({{"kind", "check"},
                               {"caption", Said(Text::Comments)},
                               {"value", parameters.options.hasComments}})},
        });
        return Made({{"caption", Said(Text::Caption)}, {"ok", Said(Text::Write)}, {"fields", fields}});
    }

    ServerSchema Write(const Parameters& parameters) {
        constexpr std::int32_t half = 50;
        tool::Progress progress(workspace_, Said(Text::Progress), 2 * half);
        progress.Step(Said(Text::Reading), half);
        Schema schema = ReadSchema(*workspace_.ProjectDB());
        schema.name = Name(projectName);
        const ServerSchema planned = PlanSchema(*parameters.dialect, Types(*parameters.dialect), schema);
        const std::size_t count = planned.order.size();
        std::size_t shown = 0;
        const auto show = [&](std::size_t place) {
            const std::size_t reached = (place + 1) * half / count;
            if (reached == shown) return;
            progress.Step(Said(Text::Writing, {planned.tables[planned.order[place]].name}),
                          static_cast<std::int32_t>(reached - shown));
            shown = reached;
        };
        const std::string script = WriteScript(*parameters.dialect, planned, parameters.options, show);
        if (const auto failure = tool::ReplaceFile(parameters.file, script))
            throw WriteError(ErrorKind::File, Failed(Text::CannotWrite, parameters.file, failure));
        return planned;
    }

    // The workspace's own table of types goes before the installation's.
    TypeTable Types(const Dialect& dialect) {
        std::string file = Name(workspaceFolder) + "/Options/sql_types.txt";
        std::string content;
        auto failure = tool::ReadFile(file, content);
        if (failure == std::errc::no_such_file_or_directory) {
            file = Name(shareFolder) + "/addons/sql_types.txt";
            failure = tool::ReadFile(file, content);
        }
        if (failure) throw Error(ErrorKind::File, Failed(Text::CannotRead, file, failure));
        return {content, file, dialect, language_};
    }

    [[nodiscard]] std::string Summary(const ServerSchema& planned, const std::string& file) const {
        const std::size_t remarks = RemarksOf(planned).size();
        std::string counts = Counted(language_, Text::Table, Text::Tables, CountTables(planned)) + ", " +
                             Counted(language_, Text::Key, Text::Keys, CountKeys(planned));
        if (remarks > 0) counts += ", " + Counted(language_, Text::Remark, Text::Remarks, remarks);
        return Said(Text::Summary, {counts, file});
    }

    // All of them in the list of complaints, the first ones in a message. The script is there also without
    // the list.
    void TellRemarks(const ServerSchema& planned, const std::string& summary, bool tellsSuccess) {
        const auto remarks = RemarksOf(planned);
        if (remarks.empty()) {
            if (tellsSuccess) (void)Tell(summary, "information");
            return;
        }
        std::string all;
        std::string shown = summary + "\n";
        for (std::size_t i = 0; i < remarks.size(); ++i) {
            const std::string line = Said(remarks[i]->text, remarks[i]->parameters);
            all += line + "\n";
            if (i < mostRemarksShown) shown += "\n" + line;
        }
        if (remarks.size() > mostRemarksShown)
            shown += "\n" + Said(Text::MoreRemarks, {std::to_string(remarks.size() - mostRemarksShown)});
        if (const std::string file = Get("ErrorsFile"); !file.empty())
            if (const auto failure = tool::ReplaceFile(file, all))
                shown += "\n" + Failed(Text::CannotWrite, file, failure);
        (void)Tell(shown, "warning");
    }

    Object& frontend_;
    VNTWS& workspace_;
    Language language_;
};

}  // namespace

Value SqlScript::Run(const std::shared_ptr<Object>& frontend, const std::shared_ptr<VNTWS>& workspace,
                     const std::string& parameter) {
    return Task(*frontend, *workspace).Run(parameter);
}

}  // namespace tessel::sql_script
