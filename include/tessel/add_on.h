#pragma once

#include <initializer_list>
#include <memory>
#include <string>

#include "tessel/component.h"
#include "tessel/vntws.h"

namespace tessel {

// A tool that the editor offers in its Execute menu and `tessel addon run` starts. It runs in a process of
// its own: whatever happens to it, the editor goes on. All its changes of the schema are one transaction,
// which is kept when Run returns and which the user may drop when Run throws.
class AddOn : public Object {
  public:
    // Does the tool's work.
    //
    // `frontend` is the host, asked by name: ProjectObject, Repository, Language ("en", "ja" or "ko"),
    // ErrorsFile (the path where complaints may be left) and GetCorvaneName(number), where 4 is the
    // workspace's folder, 6 its name, 7 the project's name and 13 the folder of what came with the program.
    //
    // `workspace` has the schema and may be called from any thread. Its objects are asked by name. ProjectDB:
    // Select(sql), the rows under "1", "2", ..., each a collection of its fields by name; Execute(sql), how
    // many rows it touched; Name. ToolWindow asks the user: Message(text, icon, buttons), Input(prompt, text)
    // and Form(form).
    //
    // `parameter` is the text that the menu entry or the command line gives.
    //
    // The result goes to the output of `tessel addon run`; Null says nothing there. It may be anything but an
    // object of the tool's own. An exception ends the tool as failed, and its what() is shown to the user.
    virtual Value Run(const std::shared_ptr<Object>& frontend, const std::shared_ptr<VNTWS>& workspace,
                      const std::string& parameter) = 0;

    // Answers to the method Run with these three arguments.
    Value Call(std::string_view member, CallKind kind, Arguments& arguments) override;
};

// A class of a component under its programmatic identifier, such as "Example.NumberTables".
struct ComponentClass {
    const char* progId;
    std::shared_ptr<Object> (*make)();
};

template <typename Class>
std::shared_ptr<Object> MakeObject() {
    return std::make_shared<Class>();
}

// What the entry points do with a component's classes.
namespace component {
int Register(std::initializer_list<ComponentClass> classes, ClassTable* table);
int Unregister(std::initializer_list<ComponentClass> classes, ClassTable* table);
int Make(std::initializer_list<ComponentClass> classes, const char* progId, std::shared_ptr<Object>* object);
}  // namespace component

}  // namespace tessel

// Exports the entry points of a component with these classes, once in each library, outside any namespace:
//
//     TESSEL_COMPONENT({"Example.NumberTables", tessel::MakeObject<NumberTables>})
#define TESSEL_COMPONENT(...)                                                                          \
    extern "C" int TesselRegisterServer(tessel::ClassTable* classes) {                                 \
        return tessel::component::Register({__VA_ARGS__}, classes);                                    \
    }                                                                                                  \
    extern "C" int TesselUnregisterServer(tessel::ClassTable* classes) {                               \
        return tessel::component::Unregister({__VA_ARGS__}, classes);                                  \
    }                                                                                                  \
    extern "C" int TesselGetClassObject(const char* progId, std::shared_ptr<tessel::Object>* object) { \
        return tessel::component::Make({__VA_ARGS__}, progId, object);                                 \
    }                                                                                                  \
    extern "C" int TesselCanUnloadNow() { return 1; }
