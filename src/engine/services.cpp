#include "engine/services.h"

#include "platform/files/file_service.h"

namespace tessel {

void ProvideTexts(ComponentState& state, host::Frontend& frontend) {
    if (state.texts) return;
    const std::string folder = frontend.GetCorvaneName(host::name_item::templates) + "\\texts";
    state.texts = std::make_shared<text::Texts>(files::NativePath(folder), text::LanguageOfLocale());
}

}  // namespace tessel
