#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "tessel/component.h"

namespace tessel {

// The classes that objects can be made of, by programmatic identifier (case ignored).
class ClassRegistry : public ClassTable {
  public:
    void Add(const std::string& progId, Factory factory) override;
    void Remove(const std::string& progId) override;

    // Makes an object of the class; throws ErrorKind::Component when no such class was entered.
    [[nodiscard]] std::shared_ptr<Object> Create(const std::string& progId) const;

    // Loads a component's shared library and has it enter its classes. The library stays loaded while this
    // registry lives. Throws ErrorKind::Component, saying the library and why it does not load.
    void LoadComponent(const std::string& path);

  private:
    struct Library;
    // Above the factories: what they hold is code of the libraries, which must leave last.
    std::vector<std::shared_ptr<Library>> libraries_;
    std::map<std::string, Factory> factories_;
};

}  // namespace tessel
