// The data folder: where all business data lives, whether it can be used, and the names of the
// files in it.
#pragma once

#include "core/platform/file_system.h"
#include "core/platform/prompts.h"

#include <cstdint>
#include <filesystem>
#include <string>

namespace bramblet {

class DataFolder {
  public:
    /// `directory` is the folder that the settings name; fixed for the run.
    explicit DataFolder(const std::filesystem::path& directory);

    /// Tests that the folder is writable by creating and deleting a file in it; shows the no-access
    /// message if that fails. The folder itself is never created.
    void CheckDataPath(Prompts& prompts);

    /// Whether the check succeeded.
    bool DataPathOK() const { return ok_; }

    /// When it was checked, by the clock of the machine that holds the folder, in nanoseconds since
    /// 1970.
    std::int64_t checkedAt() const { return checkedAt_; }

    /// Called at the start of every command on data: true if the folder can be used, otherwise the
    /// no-access message is shown.
    bool available(Prompts& prompts) const;

    /// The folder with a trailing separator.
    const std::filesystem::path& DataPath() const { return path_; }

    /// Path of a file in the folder; `name` is in the code page.
    std::filesystem::path file(const std::string& name) const;

    /// Path of an order's document. Throws FileError (52) for a number that would name a file
    /// anywhere else, or that no file system accepts.
    std::filesystem::path documentPath(const std::string& orderNumber) const;

  private:
    std::filesystem::path path_;
    std::string reason_;
    bool ok_ = false;
    std::int64_t checkedAt_ = 0;
};

}  // namespace bramblet
