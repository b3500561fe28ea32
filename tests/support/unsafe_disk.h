#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace tessel::test {

// A disk that fails on demand, under the database engine and over the real file system. What is opened while
// it is the engine's usual disk stays on it.
class UnsafeDisk {
  public:
    enum class Operation { Open, Read, Write, Truncate, Sync, Delete };
    enum class Fault {
        None,
        Error,  // of the device, at any operation
        Full,   // at a write
        Cut,    // of the power: nothing works from then on
    };
    // What is left of the writes that were not synced before the power went.
    enum class Survival { Nothing, Everything, SomeSectors };

    UnsafeDisk();
    ~UnsafeDisk();  // after everything on it is closed
    UnsafeDisk(const UnsafeDisk&) = delete;
    UnsafeDisk& operator=(const UnsafeDisk&) = delete;

    void BeUsual();
    void BeUnused();  // by what is opened from now on

    // The operation of that number, counted from 0 on from now, has this fault, and so have all after it
    // where it lasts.
    void FailAt(std::size_t number, Fault fault, bool lasts);
    void FailNever() { FailAt(0, Fault::None, false); }
    [[nodiscard]] const std::vector<Operation>& Done() const { return done_; }  // since the last FailAt

    // Writes the files as a power cut by now leaves them; equal seeds leave equal files. Everything on the
    // disk is closed. It can be done again with another outcome.
    void LosePower(Survival survival, unsigned seed);

  private:
    struct Write {
        std::int64_t offset;
        std::string bytes;  // none for a truncation at the offset
    };
    // A file as it was when it was last synced, and what came after.
    struct File {
        bool isThere = false;
        std::string content;
        bool wasMade = false;  // and not synced since
        bool wasDeleted = false;
        std::vector<Write> writes;

        void BeMade() {
            wasMade = true;
            if (std::exchange(wasDeleted, false)) writes = {{0, {}}};
        }
    };
    struct Handle;
    struct Calls;

    [[nodiscard]] int FaultOf(Operation operation, int code);
    File& Know(const std::string& path);
    static void Apply(std::string& content, const Write& write);
    static std::string Surviving(const File& file, Survival survival, std::mt19937& random);

    sqlite3_vfs* real_;
    sqlite3_vfs disk_{};
    std::string name_;
    std::map<std::string, File> files_;
    std::vector<Operation> done_;
    std::size_t failing_ = 0;
    Fault fault_ = Fault::None;
    bool lasts_ = false;
};

}  // namespace tessel::test
