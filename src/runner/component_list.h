#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tessel {

// A class that add-ons are made of, as a registry has it.
struct RegisteredClass {
    enum class Kind {
        Library,  // a shared library, which tessel-addon-host loads
        Program,  // an executable that speaks the lines itself
    };

    std::string progID{};
    Kind kind = Kind::Library;
    std::string file{};  // full path
};

// A registry file:
//
//     <COMPONENTS>
//       <CLASS PROGID="Example.NumberTables" LIBRARY="addons/libnumber-tables.so"/>
//       <CLASS PROGID="Example.Tool" PROGRAM="/home/me/tool.py"/>
//     </COMPONENTS>
//
// A relative path counts from the folder of the file. Other elements are passed over and kept.
struct ComponentFile {
    std::string path;
    std::vector<RegisteredClass> classes;  // none when the file is not there, or has a fault
    std::string fault;                     // why it cannot be used: a sentence that names the file; or empty
};

// Never throws: what cannot be read, or may be written by others, is the fault.
[[nodiscard]] ComponentFile ReadComponents(const std::string& path);

// The user's registry and, behind it, the installation's.
class ComponentList {
  public:
    // Never throws. `programFolder` is the installation's folder of programs.
    [[nodiscard]] static ComponentList Load(const std::string& programFolder);

    // The first class of that identifier (case ignored). Throws ErrorKind::Component when there is none,
    // saying which registry has a fault.
    [[nodiscard]] const RegisteredClass& ClassOf(std::string_view progID) const;

    [[nodiscard]] const std::vector<ComponentFile>& Files() const { return files_; }

  private:
    std::vector<ComponentFile> files_;
};

[[nodiscard]] std::string InstallationComponentsPath(const std::string& programFolder);

// Enters classes in the registry at `path`, in place of earlier ones of the same identifiers. Classes with
// files below the registry's folder are entered relative to it. The file, and its folder, are made when they
// are not there; changes by several programs at once are all kept. Throws for a registry with a fault, which
// stays as it is, for what cannot be written, and for an identifier that is empty or has control characters.
void EnterClasses(const std::string& path, const std::vector<RegisteredClass>& classes);

// Takes out the classes with that identifier or that file; returns their identifiers. Throws as above.
std::vector<std::string> RemoveClasses(const std::string& path, std::string_view progIDOrFile);

}  // namespace tessel
