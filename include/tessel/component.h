#pragma once

#include <functional>
#include <memory>
#include <string>

#include "tessel/object.h"

namespace tessel {

// Where a component's classes are entered under their programmatic identifiers, such as "Tessel.VNTWS".
class ClassTable {
  public:
    using Factory = std::function<std::shared_ptr<Object>()>;

    virtual ~ClassTable() = default;

    // Enters a class, in place of an earlier one of the same identifier (case ignored).
    virtual void Add(const std::string& progId, Factory factory) = 0;
    virtual void Remove(const std::string& progId) = 0;  // nothing when there is none
};

}  // namespace tessel

// The entry points that a component's shared library exports. They return 0 for success and let no exception
// out.
extern "C" {
// Enters every public class of the library.
int TesselRegisterServer(tessel::ClassTable* classes);
// Takes them out again.
int TesselUnregisterServer(tessel::ClassTable* classes);
// Makes an object of the class `progId` and puts it into `object`; 1 when the library has no such class.
int TesselGetClassObject(const char* progId, std::shared_ptr<tessel::Object>* object);
// 0 when no object of the library is alive, so that it can be unloaded; 1 otherwise.
int TesselCanUnloadNow();
}
