#include "workbench/load/target_database.h"

#include <filesystem>

#include "platform/db/journal.h"
#include "platform/files/file_error.h"
#include "platform/files/file_service.h"

namespace tessel::workbench {

// What was left by a load that was cut off goes first.
NewDatabase::NewDatabase(std::string path) : path_(std::move(path)) { Remove(); }

NewDatabase::NewDatabase(const std::string& templateDatabase, std::string path)
    : NewDatabase(std::move(path)) {
    files::CopyFile(templateDatabase, path_);
}

void NewDatabase::PutInPlaceOf(const std::string& path) const {
    std::error_code fault;
    std::filesystem::rename(path_, path, fault);
    if (fault) files::ThrowWriteError("file", path, "made", fault.value());
}

void NewDatabase::Remove() const {
    std::error_code passedOver;
    std::filesystem::remove(path_, passedOver);
    std::filesystem::remove(path_ + "-journal", passedOver);
}

TargetDatabase::TargetDatabase(std::string path, const std::string& templateDatabase)
    : path_(std::move(path)) {
    if (!files::FileExists(path_)) {
        db::RefuseOrphanedJournal(path_);
        made_.emplace(templateDatabase, path_ + ".new");
    }
    database_ = db::Database::Open(made_ ? made_->Path() : path_);
    transaction_.emplace(*database_);
}

void TargetDatabase::Keep() {
    transaction_->Commit();
    if (!made_) return;
    transaction_.reset();
    database_.reset();  // with its journal
    made_->PutInPlaceOf(path_);
}

}  // namespace tessel::workbench
