#include "ui/rules/rescue.h"

#include <filesystem>

#include "platform/files/file_service.h"
#include "schema/sql_text.h"
#include "tessel/convert.h"
#include "ui/rules/help_contexts.h"
#include "ui/rules/messages.h"

namespace tessel {

namespace {

constexpr int titleText = 2800;
constexpr int lostText = 2801;
constexpr int fileText = 2802;
constexpr int saveText = 2803;
constexpr int filterText = 2804;
constexpr const char* fileField = "FILE";

// Why the file cannot be written to; empty while it can, or while another program writes.
std::string WhyLost(db::Database& database) {
    try {
        const db::Transaction probe(database);  // given up again
        database.Execute("insert into Errors (TblID, KeyID, ColumnID, Message) values (0, 0, 0, '')");
        return {};
    } catch (const db::DatabaseError& error) {
        return error.Kind() == ErrorKind::Busy ? std::string() : error.what();
    }
}

std::string ProposedPath(const ComponentState& state) {
    const std::string path = files::NativePath(state.databaseFilename);
    const auto [folder, baseName, extension] = files::SplitPath(path);
    return folder + '/' + baseName + "-copy" + extension;
}

// A relative path counts from where the user browses, and may begin with "..", which the file service
// refuses.
std::string FullPath(const ComponentState& state, const std::string& path) {
    const std::string workspace = state.Frontend().GetCorvaneName(host::name_item::workspaceFolder);
    return (std::filesystem::path(files::NativePath(workspace)) / path).lexically_normal();
}

host::Form CopyForm(const ComponentState& state, const std::string& reason, const std::string& path) {
    const text::Texts& texts = *state.texts;
    return {.title = texts.Text(titleText),
            .text = texts.Format(lostText, {"\r\n" + reason}),
            .okCaption = texts.Text(saveText),
            .fields = {{.key = fileField,
                        .kind = host::FormField::Kind::SaveFile,
                        .caption = texts.Text(fileText),
                        .value = path,
                        .filter = texts.Text(filterText)}},
            .helpContext = help_context::window};
}

bool SaveCopy(ComponentState& state, const std::string& path) {
    try {
        if (!MayReplace(state, path)) return false;
        files::ReplaceFile(path, state.Database().Copy());
        return true;
    } catch (const Error& error) {
        Tell(state, error.what(), host::Icon::Critical);
        return false;
    }
}

}  // namespace

void OfferCopy(ComponentState& state) {
    const std::string reason = WhyLost(state.Database());
    if (reason.empty()) return;
    std::string path = ProposedPath(state);
    while (const auto values = state.questions->Fill(CopyForm(state, reason, path))) {
        path = FullPath(state, ToText(*values->Find(fileField)));
        if (SaveCopy(state, path)) return;
    }
}

}  // namespace tessel
