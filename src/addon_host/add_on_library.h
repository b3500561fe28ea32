#pragma once

#include <string>
#include <vector>

#include "addon_host/editor.h"
#include "platform/component/class_registry.h"

namespace tessel {

// A shared library with classes of add-ons. It stays loaded while this lives.
class AddOnLibrary {
  public:
    // Throws ErrorKind::Component, saying why it does not load.
    explicit AddOnLibrary(const std::string& path);

    // The programmatic identifiers of its classes, in the order in which it enters them.
    [[nodiscard]] const std::vector<std::string>& Classes() const { return classes_.names; }

    // Makes an object of the class and calls its Run with the editor's host and workspace; the result as it
    // stands in the last line. Throws what the class throws.
    [[nodiscard]] Json Run(const std::string& progId, const std::shared_ptr<Editor>& editor,
                           const std::string& parameter) const;

  private:
    struct ListedClasses : ClassRegistry {
        void Add(const std::string& progId, Factory factory) override;
        std::vector<std::string> names;
    };
    ListedClasses classes_;
};

}  // namespace tessel
