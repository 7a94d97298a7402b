// What is remembered of backups: the data folder notes its last one, and a folder of dated backups
// tells which of them is the newest.
#pragma once

#include "core/platform/dates.h"
#include "core/platform/file_system.h"

#include <filesystem>
#include <optional>
#include <utility>

namespace bramblet {

/// The file "last_backup.txt" in the data folder, so that every desk knows of the backups of all.
class BackupNote {
  public:
    static constexpr const char* kName = "last_backup.txt";

    BackupNote(FileSystem files, std::filesystem::path path)
        : files_(std::move(files)), path_(std::move(path)) {}

    struct Last {
        DayCount day = 0;
        bool dated = false;         ///< whether it went into a folder named after its day
        bool withSettings = false;  ///< whether the settings went along
    };
    /// Nothing if none is noted, or the note cannot be read.
    std::optional<Last> read() const;
    /// Throws FileError.
    void write(const Last& last) const;

  private:
    FileSystem files_;
    std::filesystem::path path_;
};

/// What the name of a dated backup begins with; day and time follow.
inline constexpr const char* kDatedBackup = "Bramblet";

/// The list of orders, which a dated backup gets last: with it, it is complete.
inline constexpr const char* kOrderList = "po_data.dat";

/// The newest complete one of the dated backups in a folder; empty when there is none. Throws
/// FileError.
std::filesystem::path newestBackupIn(const FileSystem& files, const std::filesystem::path& folder);

}  // namespace bramblet
