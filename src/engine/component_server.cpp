#include <atomic>
#include <utility>

#include "engine/classes.h"
#include "platform/component/answer.h"
#include "platform/component/class_registry.h"

namespace {

using tessel::Object;
using tessel::component::Answer;

// The process's one instance of the component.
tessel::ComponentState& Component() {
    static tessel::ComponentState state;
    return state;
}

std::atomic<int> liveObjects = 0;

// The same object, counted until its last user lets go of it.
std::shared_ptr<Object> Counted(std::shared_ptr<Object> object) {
    ++liveObjects;
    Object* const counted = object.get();
    return {counted, [object = std::move(object)](Object*) mutable {
                object.reset();
                --liveObjects;
            }};
}

// Enters the classes of the table behind it, each with its objects counted.
class CountingTable : public tessel::ClassTable {
  public:
    explicit CountingTable(ClassTable& classes) : classes_(classes) {}
    void Add(const std::string& progId, Factory factory) override {
        classes_.Add(progId, [factory = std::move(factory)] { return Counted(factory()); });
    }
    void Remove(const std::string& progId) override { classes_.Remove(progId); }

  private:
    ClassTable& classes_;
};

}  // namespace

int TesselRegisterServer(tessel::ClassTable* classes) {
    return Answer([&] {
        CountingTable counting(*classes);
        tessel::AddClasses(counting, Component());
    });
}

int TesselUnregisterServer(tessel::ClassTable* classes) {
    return Answer([&] { tessel::RemoveClasses(*classes); });
}

int TesselGetClassObject(const char* progId, std::shared_ptr<Object>* object) {
    return Answer([&] {
        tessel::ClassRegistry own;
        CountingTable counting(own);
        tessel::AddClasses(counting, Component());
        *object = own.Create(progId);
    });
}

int TesselCanUnloadNow() {
    return liveObjects == 0 && !Component().window ? tessel::component::succeeded : tessel::component::failed;
}
