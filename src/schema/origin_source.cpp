#include "schema/origin_source.h"

#include "platform/files/file_service.h"
#include "schema/sql_text.h"
#include "tessel/error.h"

namespace tessel {

namespace {

void Release(OriginSourceState& state) {
    if (state.source) state.source->Close();
    state.source.reset();
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
    if (identifier.empty()) {
        Release(state);
        state.lastIdentifier.clear();
        return false;
    }
    const auto object = SourceOwner(frontend, identifier);
    if (!object) {
        state.path.clear();
        return false;
    }
    identifier = object->Identifier();
    if (identifier == state.lastIdentifier) return state.isFound;
    state.lastIdentifier = identifier;
    state.isFound = false;
    state.path.clear();

    const std::string file = NullToText(object->Attribute("Lumivex"));
    const std::string candidate = frontend.GetCorvaneName(host::name_item::workspaceFolder) + "\\" + file;
    if (file.empty() || !files::FileExists(candidate)) return false;
    Release(state);
    state.source = TryLoad(frontend, candidate, *object);
    state.isFound = state.source != nullptr;
    if (state.isFound) state.path = candidate;
    return state.isFound;
}

}  // namespace tessel
