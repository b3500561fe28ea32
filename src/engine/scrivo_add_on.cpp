#include "engine/scrivo_add_on.h"

#include "engine/services.h"
#include "platform/component/member_table.h"
#include "platform/files/file_service.h"
#include "report/create_report.h"
#include "schema/sql_text.h"

namespace tessel {

namespace {

constexpr std::int32_t written = 0;
constexpr std::int32_t refused = 1;
constexpr std::int32_t noFile = -1;

}  // namespace

std::int32_t ScrivoAddOn::Run(const std::shared_ptr<host::Frontend>& anCVWS,
                              const std::shared_ptr<host::Generator>& anCV3,
                              const std::shared_ptr<host::PageOptions>& optionsRoot) {
    host_ = anCVWS;
    whyNotOpened_.clear();
    ProvideTexts(state_, *anCVWS);
    const auto project = anCVWS->ProjectObject();
    const auto schemas = anCVWS->RepositoryOf()->PrepareCollection(*project, "DBSCHEMA");
    const auto refuse = [&](const std::string& why) {
        anCV3->WriteLog(why);
        host_.reset();
        return refused;
    };
    if (schemas.empty()) return refuse(state_.texts->Text(539));
    schemaName_ = NullToText(schemas.front()->Attribute("Name"));
    state_.databaseFilename = anCVWS->GetCorvaneName(host::name_item::workspaceFolder) + "\\" +
                              NullToText(schemas.front()->Attribute("Source"));
    if (!files::FileExists(state_.databaseFilename)) return noFile;
    if (!OpenDatabase()) return refuse(state_.texts->Format(540, {"\r\n" + state_.databaseFilename}));
    state_.sqlTypes.LoadSqlTypes(state_.Database());
    CreateReport(anCV3, optionsRoot, anCV3);
    host_.reset();
    return written;
}

bool ScrivoAddOn::OpenDatabase() {
    state_.database.reset();
    try {
        state_.database = db::Database::Open(files::NativePath(state_.databaseFilename));
    } catch (const db::DatabaseError& error) {
        whyNotOpened_ = error.what();
    }
    state_.restrictText = state_.texts->Text(213);
    state_.cascadeText = state_.texts->Text(214);
    return state_.database != nullptr;
}

std::string ScrivoAddOn::SchemaName() const {
    if (!schemaName_.empty() || !state_.schemaObject) return schemaName_;
    return NullToText(state_.schemaObject->Attribute("Name"));
}

void ScrivoAddOn::CreateReport(const std::shared_ptr<host::Generator>& cv3,
                               const std::shared_ptr<host::PageOptions>& optionsRoot,
                               const std::shared_ptr<Object>& aProgress) {
    tessel::CreateReport({.state = state_,
                          .host = host_ ? *host_ : state_.Frontend(),
                          .schemaName = SchemaName(),
                          .generator = *cv3,
                          .options = *optionsRoot,
                          .progress = *aProgress});
}

std::shared_ptr<Collection> ScrivoAddOn::PrimaryKeyColumns(std::int32_t tabID) {
    return WorkspaceOf(state_)->PrimaryKeyColumns(tabID);
}

Value ScrivoAddOn::Call(std::string_view member, CallKind kind, Arguments& arguments) {
    static const MemberTable<ScrivoAddOn> members{
        Method<&ScrivoAddOn::Run>("Run"),
        Method<&ScrivoAddOn::CreateReport>("CreateReport"),
        Method<&ScrivoAddOn::PrimaryKeyColumns>("PrimaryKeyColumns"),
    };
    return members.Call(*this, member, kind, arguments);
}

}  // namespace tessel
