#include "ui/rules/origin_reference.h"

#include "schema/sql_text.h"
#include "tessel/error.h"

namespace tessel {

namespace {

bool NamesATable(host::Frontend& frontend, const std::string& repObjId) {
    return !repObjId.empty() && frontend.RepositoryOf()->TypeNameOf(repObjId) == "TABLE";
}

}  // namespace

std::string OriginReference(host::Frontend& frontend, const std::string& repObjId, const std::string& cvrl) {
    if (!NamesATable(frontend, repObjId)) return cvrl;
    try {
        return "text:" + NullToText(frontend.RepositoryOf()->ObjectById(repObjId)->Attribute("Origin"));
    } catch (const Error&) {
        return "";
    }
}

}  // namespace tessel
