#include "schema/origin_source.h"

#include "platform/files/file_service.h"
#include "schema/sql_text.h"
#include "tessel/error.h"

namespace tessel {

namespace {

void Forget(OriginSourceState& state) {
    if (state.source) state.source->Close();
    state = {};
}

// The object whose source is meant; none for a data port that nothing reads or writes.
std::shared_ptr<host::RepositoryObject> SourceOwner(host::Frontend& frontend, const std::string& identifier) {
    auto object = frontend.RepositoryOf()->ObjectById(identifier);
    if (frontend.ObjectKind(*object) != "DATAPORT") return object;
    auto related = object->Related("IsReadIn");
    if (related.empty()) related = object->Related("IsWrittenIn");
    return related.empty() ? nullptr : related.front();
}

std::shared_ptr<host::OriginSource> TryLoad(host::Frontend& frontend, const std::string& path,
                                            const host::RepositoryObject& object) {
    try {
        return frontend.LoadSource(path, object);
    } catch (const Error&) {
        return nullptr;  // a source that does not load counts as none
    }
}

}  // namespace

bool LocateOriginSource(OriginSourceState& state, host::Frontend& frontend, std::string& identifier) {
    const auto object = identifier.empty() ? nullptr : SourceOwner(frontend, identifier);
    if (!object) {
        Forget(state);
        return false;
    }
    identifier = object->Identifier();
    if (identifier == state.lastIdentifier) return state.source != nullptr;
    Forget(state);
    state.lastIdentifier = identifier;

    const std::string file = NullToText(object->Attribute("Lumivex"));
    const std::string candidate = frontend.GetCorvaneName(host::name_item::workspaceFolder) + "\\" + file;
    if (file.empty() || !files::FileExists(candidate)) return false;
    state.source = TryLoad(frontend, candidate, *object);
    if (state.source) state.path = candidate;
    return state.source != nullptr;
}

}  // namespace tessel
