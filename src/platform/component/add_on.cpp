#include "tessel/add_on.h"

#include "platform/component/answer.h"
#include "platform/text/utf8.h"
#include "tessel/convert.h"
#include "tessel/error.h"

namespace tessel {

namespace {

template <typename Class>
std::shared_ptr<Class> ObjectAt(const Arguments& arguments, std::size_t position) {
    std::shared_ptr<Class> object;
    if (const auto* given = arguments[position].As<std::shared_ptr<Object>>())
        object = std::dynamic_pointer_cast<Class>(*given);
    if (!object) throw Error(ErrorKind::Argument, "Run takes the host, the workspace and a text.");
    return object;
}

}  // namespace

Value AddOn::Call(std::string_view member, CallKind kind, Arguments& arguments) {
    if (kind != CallKind::Method || !text::SameText(member, "Run"))
        throw Error(ErrorKind::Member, "There is no member \"" + std::string(member) + "\".");
    if (arguments.size() != 3)
        throw Error(ErrorKind::Argument, "Run takes the host, the workspace and a text.");
    return Run(ObjectAt<Object>(arguments, 0), ObjectAt<VNTWS>(arguments, 1), ToText(arguments[2]));
}

namespace component {

int Register(std::initializer_list<ComponentClass> classes, ClassTable* table) {
    return Answer([&] {
        for (const auto& entry : classes) table->Add(entry.progId, entry.make);
    });
}

int Unregister(std::initializer_list<ComponentClass> classes, ClassTable* table) {
    return Answer([&] {
        for (const auto& entry : classes) table->Remove(entry.progId);
    });
}

int Make(std::initializer_list<ComponentClass> classes, const char* progId, std::shared_ptr<Object>* object) {
    int result = failed;
    const int outcome = Answer([&] {
        for (const auto& entry : classes)
            if (text::SameText(entry.progId, progId)) {
                *object = entry.make();
                result = succeeded;
            }
    });
    return outcome == succeeded ? result : outcome;
}

}  // namespace component

}  // namespace tessel
