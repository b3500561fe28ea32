#include "support/unsafe_disk.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <new>

namespace tessel::test {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t sector = 512;

std::string Content(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace

// An open file; the real one's memory follows it.
struct UnsafeDisk::Handle {
    sqlite3_file base;
    UnsafeDisk* disk;
    File* file;

    static Handle& Of(sqlite3_file* file) { return *reinterpret_cast<Handle*>(file); }
    sqlite3_file* Real() { return reinterpret_cast<sqlite3_file*>(this + 1); }
};

// What the engine calls.
struct UnsafeDisk::Calls {
    static UnsafeDisk& Disk(sqlite3_vfs* vfs) { return *static_cast<UnsafeDisk*>(vfs->pAppData); }
    static sqlite3_vfs* Real(sqlite3_vfs* vfs) { return Disk(vfs).real_; }

    static int Open(sqlite3_vfs* vfs, const char* path, sqlite3_file* opened, int flags, int* outFlags) {
        UnsafeDisk& disk = Disk(vfs);
        Handle& handle = *new (opened) Handle{{nullptr}, &disk, nullptr};
        if (const int code = disk.FaultOf(Operation::Open, SQLITE_CANTOPEN)) return code;
        const bool isNew = path && !fs::exists(path);
        const int code = disk.real_->xOpen(disk.real_, path, handle.Real(), flags, outFlags);
        if (!handle.Real()->pMethods) return code;
        handle.base.pMethods = Methods();
        if (code != SQLITE_OK || !path) return code;
        handle.file = &disk.Know(path);
        if (isNew) handle.file->BeMade();
        return code;
    }
    static int Delete(sqlite3_vfs* vfs, const char* path, int syncsFolder) {
        UnsafeDisk& disk = Disk(vfs);
        if (const int code = disk.FaultOf(Operation::Delete, SQLITE_IOERR_DELETE)) return code;
        File& file = disk.Know(path);
        const int code = disk.real_->xDelete(disk.real_, path, syncsFolder);
        if (code != SQLITE_OK) return code;
        if (syncsFolder)
            file = {};
        else
            file.wasDeleted = true;
        return code;
    }
    static int Close(sqlite3_file* file) {
        Handle& handle = Handle::Of(file);
        return handle.Real()->pMethods->xClose(handle.Real());
    }
    static int Read(sqlite3_file* file, void* bytes, int count, sqlite3_int64 offset) {
        Handle& handle = Handle::Of(file);
        if (const int code = handle.disk->FaultOf(Operation::Read, SQLITE_IOERR_READ)) return code;
        return handle.Real()->pMethods->xRead(handle.Real(), bytes, count, offset);
    }
    static int Write(sqlite3_file* file, const void* bytes, int count, sqlite3_int64 offset) {
        Handle& handle = Handle::Of(file);
        if (const int code = handle.disk->FaultOf(Operation::Write, SQLITE_IOERR_WRITE)) return code;
        const auto* first = static_cast<const char*>(bytes);
        if (handle.file) handle.file->writes.push_back({offset, std::string(first, first + count)});
        return handle.Real()->pMethods->xWrite(handle.Real(), bytes, count, offset);
    }
    static int Truncate(sqlite3_file* file, sqlite3_int64 size) {
        Handle& handle = Handle::Of(file);
        if (const int code = handle.disk->FaultOf(Operation::Truncate, SQLITE_IOERR_TRUNCATE)) return code;
        if (handle.file) handle.file->writes.push_back({size, {}});
        return handle.Real()->pMethods->xTruncate(handle.Real(), size);
    }
    static int Sync(sqlite3_file* file, int flags) {
        Handle& handle = Handle::Of(file);
        if (const int code = handle.disk->FaultOf(Operation::Sync, SQLITE_IOERR_FSYNC)) return code;
        if (File* synced = handle.file) {
            for (const auto& write : synced->writes) Apply(synced->content, write);
            synced->writes.clear();
            synced->isThere = true;
            synced->wasMade = false;
        }
        return handle.Real()->pMethods->xSync(handle.Real(), flags);
    }
    template <auto member, typename... Arguments>
    static int Pass(sqlite3_file* file, Arguments... arguments) {
        Handle& handle = Handle::Of(file);
        return (handle.Real()->pMethods->*member)(handle.Real(), arguments...);
    }

    static const sqlite3_io_methods* Methods() {
        using Io = sqlite3_io_methods;
        static const Io methods{1,
                                Close,
                                Read,
                                Write,
                                Truncate,
                                Sync,
                                Pass<&Io::xFileSize, sqlite3_int64*>,
                                Pass<&Io::xLock, int>,
                                Pass<&Io::xUnlock, int>,
                                Pass<&Io::xCheckReservedLock, int*>,
                                Pass<&Io::xFileControl, int, void*>,
                                Pass<&Io::xSectorSize>,
                                Pass<&Io::xDeviceCharacteristics>,
                                nullptr,
                                nullptr,
                                nullptr,
                                nullptr,
                                nullptr,
                                nullptr};
        return &methods;
    }
};

UnsafeDisk::UnsafeDisk()
    : real_(sqlite3_vfs_find(nullptr)),
      disk_(*real_),
      name_("unsafe-" + std::to_string(reinterpret_cast<std::uintptr_t>(this))) {
    disk_.zName = name_.c_str();
    disk_.pAppData = this;
    disk_.szOsFile += static_cast<int>(sizeof(Handle));
    disk_.xOpen = Calls::Open;
    disk_.xDelete = Calls::Delete;
    BeUsual();
}

UnsafeDisk::~UnsafeDisk() { sqlite3_vfs_unregister(&disk_); }

void UnsafeDisk::BeUsual() { sqlite3_vfs_register(&disk_, 1); }
void UnsafeDisk::BeUnused() { sqlite3_vfs_register(real_, 1); }

void UnsafeDisk::FailAt(std::size_t number, Fault fault, bool lasts) {
    done_.clear();
    failing_ = number;
    fault_ = fault;
    lasts_ = lasts || fault == Fault::Cut;
}

int UnsafeDisk::FaultOf(Operation operation, int code) {
    const std::size_t number = done_.size();
    done_.push_back(operation);
    if (fault_ == Fault::None || number < failing_ || (number > failing_ && !lasts_)) return SQLITE_OK;
    if (fault_ != Fault::Full) return code;
    return operation == Operation::Write ? SQLITE_FULL : SQLITE_OK;
}

UnsafeDisk::File& UnsafeDisk::Know(const std::string& path) {
    const auto [known, isNew] = files_.try_emplace(path);
    if (isNew && fs::exists(path)) {
        known->second.isThere = true;
        known->second.content = Content(path);
    }
    return known->second;
}

void UnsafeDisk::Apply(std::string& content, const Write& write) {
    const auto offset = static_cast<std::size_t>(write.offset);
    if (write.bytes.empty()) return content.resize(offset);
    content.resize(std::max(content.size(), offset + write.bytes.size()));
    content.replace(offset, write.bytes.size(), write.bytes);
}

// A sector that was lost where the file had grown holds whatever the device held there.
std::string UnsafeDisk::Surviving(const File& file, Survival survival, std::mt19937& random) {
    std::string content = file.content;
    for (const Write& write : file.writes) {
        if (survival == Survival::Everything) Apply(content, write);
        if (survival != Survival::SomeSectors) continue;
        if (write.bytes.empty()) {
            if (random() % 2 == 0) Apply(content, write);
            continue;
        }
        for (std::size_t done = 0; done < write.bytes.size();) {
            const std::size_t offset = static_cast<std::size_t>(write.offset) + done;
            const std::size_t size = std::min(sector - offset % sector, write.bytes.size() - done);
            if (random() % 2 == 0)
                Apply(content, {static_cast<std::int64_t>(offset), write.bytes.substr(done, size)});
            else if (offset >= content.size() && random() % 2 == 0)
                Apply(content, {static_cast<std::int64_t>(offset), std::string(size, '\x5a')});
            done += size;
        }
    }
    return content;
}

void UnsafeDisk::LosePower(Survival survival, unsigned seed) {
    std::mt19937 random(seed);
    const auto takesPlace = [&] {
        return survival == Survival::Everything || (survival == Survival::SomeSectors && random() % 2 == 0);
    };
    for (const auto& [path, file] : files_) {
        const bool isMade = file.isThere || (file.wasMade && takesPlace());
        const bool isDeleted = file.wasDeleted && takesPlace();
        if (isMade && !isDeleted)
            std::ofstream(path, std::ios::binary | std::ios::trunc) << Surviving(file, survival, random);
        else
            fs::remove(path);
    }
}

}  // namespace tessel::test
