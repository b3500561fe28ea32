#include "engine/tessel_engine.h"

#include "engine/headless_window.h"
#include "engine/queued_questions.h"
#include "engine/services.h"
#include "platform/component/member_table.h"
#include "platform/db/journal.h"
#include "platform/files/file_service.h"
#include "schema/sql_text.h"
#include "verify/db_check.h"

namespace tessel {

namespace {

constexpr const char* schemaType = "DBSCHEMA";

std::string WorkspaceFolder(host::Frontend& frontend) {
    return frontend.GetCorvaneName(host::name_item::workspaceFolder);
}

std::shared_ptr<host::RepositoryObject> FindObject(host::Frontend& frontend, const std::string& projectName) {
    try {
        return frontend.RepositoryOf()->FindObject(schemaType, projectName);
    } catch (const Error&) {
        return nullptr;
    }
}

std::shared_ptr<host::RepositoryObject> MakeSchemaObject(host::Frontend& frontend,
                                                         host::RepositoryObject& project,
                                                         const std::string& projectName) {
    auto object = frontend.RepositoryOf()->NewObject(schemaType, projectName);
    // Another program may have made its own since this one looked.
    const auto other = FindObject(frontend, projectName);
    if (other && other->Identifier() != object->Identifier()) return other;
    object->BeginChange();
    object->SetAttribute("Source", "Projects\\" + projectName + "\\DBSCHEMA\\" + projectName + ".mdb");
    object->EndChange();
    project.AddRelation("IncludesDBSchema", *object);
    return object;
}

// Why the database does not open, in the user's language.
std::string Reason(const text::Texts& texts, const Error& error) {
    static constexpr std::pair<ErrorKind, int> reasons[] = {
        {ErrorKind::Missing, 1101}, {ErrorKind::Empty, 1102},    {ErrorKind::NotADatabase, 1103},
        {ErrorKind::Jet, 1104},     {ErrorKind::Damaged, 1105},  {ErrorKind::Foreign, 1106},
        {ErrorKind::Newer, 1107},   {ErrorKind::ReadOnly, 1108}, {ErrorKind::Busy, 1109},
    };
    for (const auto& [kind, number] : reasons)
        if (kind == error.Kind()) return texts.Text(number);
    return error.what();
}

// Whoever starts the component without services of its own gets the installation's.
void ProvideServices(ComponentState& state) {
    ProvideTexts(state, state.Frontend());
    if (!state.codePage) state.codePage = std::make_shared<text::CodePage>(text::CodePage::FromEnvironment());
    if (!state.questions) state.questions = std::make_shared<QueuedQuestions>();
    if (!state.loadMainWindow) state.loadMainWindow = LoadHeadlessWindow;
    if (!state.verifySchema)
        state.verifySchema = [](ComponentState& schema) { DBCheck(schema).VerifySchema(true); };
}

}  // namespace

std::int32_t TesselEngine::Run(const std::shared_ptr<host::Frontend>& frontend, const Value&, const Value&) {
    state_.frontend = frontend;
    state_.window.reset();
    state_.originSource = {};
    ProvideServices(state_);
    state_.project = frontend->ProjectObject();
    state_.projectName = NullToText(state_.project->Attribute("Name"));
    FindSchemaObject();
    SetPaths();
    if (!files::FileExists(state_.databaseFilename)) MakeDatabase();
    if (!OpenDatabase()) return 1;
    state_.restrictText = state_.texts->Text(213);
    state_.cascadeText = state_.texts->Text(214);
    return LoadMainWindow() ? 0 : 1;
}

void TesselEngine::FindSchemaObject() {
    const auto find = [this] { return FindObject(*state_.frontend, state_.projectName); };
    state_.schemaObject = find();
    if (state_.schemaObject) return;
    try {
        state_.schemaObject = MakeSchemaObject(*state_.frontend, *state_.project, state_.projectName);
    } catch (const Error&) {
        state_.schemaObject = find();  // another program may have made it meanwhile
        if (!state_.schemaObject) throw;
    }
}

void TesselEngine::SetPaths() {
    const std::string root = WorkspaceFolder(*state_.frontend);
    const std::string source = NullToText(state_.schemaObject->Attribute("Source"));
    if (source.empty())
        throw Error(ErrorKind::Host,
                    "The schema object " + state_.schemaObject->Identifier() +
                        " of the repository has no Source: the path of its database is not known.");
    state_.databaseFilename = root + "\\" + source;
    state_.schemaFolder = root + "\\Projects\\" + state_.projectName + "\\DBSCHEMA";
}

void TesselEngine::MakeDatabase() {
    db::RefuseOrphanedJournal(state_.databaseFilename);
    if (!files::FolderExists(state_.schemaFolder)) files::CreateFolder(state_.schemaFolder);
    const std::string templates = state_.frontend->GetCorvaneName(host::name_item::templates);
    // Of programs that start at once the first places the database, and all open it.
    (void)files::PlaceNewFile(templates + "\\DBSchema.mdb", state_.databaseFilename);
}

bool TesselEngine::OpenDatabase() {
    state_.database.reset();
    try {
        state_.database = db::Database::Open(files::NativePath(state_.databaseFilename));
        return true;
    } catch (const db::DatabaseError& error) {
        state_.questions->Show({.text = state_.texts->Format(516, {"\r\n" + state_.databaseFilename}),
                                .title = state_.Title(),
                                .detail = Reason(*state_.texts, error)});
        return false;
    }
}

bool TesselEngine::LoadMainWindow() {
    try {
        state_.window = state_.loadMainWindow(state_);
        return true;
    } catch (const std::exception& error) {
        state_.window.reset();
        state_.questions->Show(
            {.text = state_.texts->Format(517, {state_.Title(), std::string("\r") + error.what()}),
             .title = state_.Title(),
             .icon = host::Icon::Critical});
        return false;
    }
}

Value TesselEngine::Call(std::string_view member, CallKind kind, Arguments& arguments) {
    static const MemberTable<TesselEngine> members{Method<&TesselEngine::Run>("Run")};
    return members.Call(*this, member, kind, arguments);
}

}  // namespace tessel
