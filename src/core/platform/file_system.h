// The program's files. Every operation on them goes through here and through the rule for a data
// folder that several people share: a file that another user holds (errors 70 and 75) is waited
// for, one second at a time, and the operation is tried again.
#pragma once

#include "core/platform/fault.h"
#include "core/platform/os_files.h"

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace bramblet {

/// Waits about a second for the file that the error names. It may throw to give up waiting.
using FileWait = std::function<void(const FileError&)>;

/// Whether a file of this content may be replaced.
using MayReplace = std::function<bool(const std::string& content)>;
/// Moves a file that may not to where it is kept.
using Keep = std::function<void(const std::filesystem::path& other)>;

class RandomFile;

class FileSystem {
  public:
    /// Without a wait function nothing is retried.
    FileSystem() = default;
    explicit FileSystem(FileWait wait) : wait_(std::move(wait)) {}

    /// The same files, but with every fault thrown at once.
    FileSystem withoutRetry() const { return FileSystem(); }

    /// Runs one file operation under the waiting rule.
    template <class Statement>
    auto run(Statement statement) const {
        for (;;) {
            try {
                return statement();
            } catch (const FileError& error) {
                const bool busy = error.number() == FaultNumber::PermissionDenied ||
                                  error.number() == FaultNumber::PathFileAccess;
                if (!wait_ || !busy) throw;
                wait_(error);
            }
        }
    }

    /// Opens for reading and writing by position; a missing file is created empty.
    RandomFile openRandom(const std::filesystem::path& path) const;

    /// The whole content of a file. Throws FileTooLong beyond kLongestFile bytes.
    std::string read(const std::filesystem::path& path) const;

    /// Creates an empty file where there is none.
    void touch(const std::filesystem::path& path) const;

    /// Writes at the end of a file, which is created when missing, and flushes it to disk.
    void append(const std::filesystem::path& path, std::string_view content) const;

    /// Puts `content` in place of the file's: it is written to a temporary file beside it, flushed
    /// to disk and renamed, so that at any moment either the old or the new content is there
    /// complete. The access rights of the old file are kept.
    void replace(const std::filesystem::path& path, std::string_view content) const;

    /// Puts `edited(content)` in place of a file's content, in the same way. If somebody changes
    /// the file meanwhile, that is edited instead.
    void edit(const std::filesystem::path& path,
              const std::function<std::string(const std::string& content)>& edited) const;

    /// Puts `content` in place of a file's, in the same way, but of nothing that it must not
    /// replace: `mayReplace` is asked about what is there, and what it refuses is handed to `keep`,
    /// which has to move it elsewhere (it may stand under another name by then).
    void put(const std::filesystem::path& path, std::string_view content,
             const MayReplace& mayReplace, const Keep& keep) const;

    /// Copies a file under a temporary name and renames it when complete. The copy keeps the time
    /// stamp of the original, and the access rights of the file that it replaces.
    void copy(const std::filesystem::path& from, const std::filesystem::path& to) const;

    bool exists(const std::filesystem::path& path) const {
        return run([&] { return os::exists(path); });
    }
    bool isSameFile(const std::filesystem::path& a, const std::filesystem::path& b) const {
        return run([&] { return os::isSameFile(a, b); });
    }
    os::FileStatus status(const std::filesystem::path& path) const {
        return run([&] { return os::status(path); });
    }
    /// The same without waiting; nothing when it cannot be told.
    std::optional<os::FileStatus> glance(const std::filesystem::path& path) const;
    void remove(const std::filesystem::path& path) const {
        run([&] { os::remove(path); });
    }
    void rename(const std::filesystem::path& from, const std::filesystem::path& to) const {
        run([&] { os::rename(from, to); });
        os::flushFolder(to.parent_path());
    }
    /// The same, but false when there is a file with the new name already. On some file systems,
    /// one that gets the name in this very moment is replaced.
    bool renameNew(const std::filesystem::path& from, const std::filesystem::path& to) const;
    /// `exists`, also where a mount remembers for some seconds that there was no such name: then
    /// the folder is listed.
    bool isTaken(const std::filesystem::path& path) const;
    /// Creates a folder and any missing folders above it.
    void createFolders(const std::filesystem::path& path) const;
    /// Creates a folder into which only the user can look, unless it is there.
    void createPrivateFolder(const std::filesystem::path& path) const {
        run([&] { os::createPrivateFolder(path); });
        os::flushFolder(path.parent_path());
    }
    /// `reached` is called for every entry of the folder; it may throw to end the listing.
    std::vector<std::filesystem::path> fileNames(
        const std::filesystem::path& folder, const std::function<void()>& reached = [] {}) const {
        return run([&] { return os::namesIn(folder, os::Kind::File, reached); });
    }
    /// Removes an empty folder.
    void removeFolder(const std::filesystem::path& path) const {
        run([&] { os::removeFolder(path); });
    }
    std::vector<std::filesystem::path> folderNames(const std::filesystem::path& folder) const {
        return run([&] { return os::namesIn(folder, os::Kind::Folder, [] {}); });
    }
    /// Nothing when the file system does not tell.
    std::optional<std::uint64_t> freeSpace(const std::filesystem::path& folder) const {
        return run([&] { return os::freeSpace(folder); });
    }

  private:
    FileWait wait_;
};

/// The longest file that is read in one piece: 64 MB, several times what the largest office has.
inline constexpr std::uint64_t kLongestFile = 64 << 20;

/// An open file whose bytes are read and written by position.
class RandomFile {
  public:
    RandomFile(const FileSystem& files, std::filesystem::path path, os::Open how)
        : files_(files),
          path_(std::move(path)),
          file_(files.run([&] { return os::File(path_, how); })) {}

    std::uint64_t length() const {
        return files_.run([&] { return file_.length(); });
    }
    /// The bytes at `offset`; fewer at the end of the file.
    std::size_t read(std::uint64_t offset, std::span<char> bytes) const {
        return files_.run([&] { return file_.read(offset, bytes); });
    }
    std::string read(std::uint64_t offset, std::size_t count) const {
        std::string bytes(count, '\0');
        bytes.resize(read(offset, bytes));
        return bytes;
    }
    /// One write call. When it fails halfway, what was there before is put back if that is
    /// possible: half a record would be listed, half a line remembered.
    void write(std::uint64_t offset, std::string_view bytes);
    /// Hands what was written to the disk; a full disk or a lost share may only show up here.
    void flush() {
        files_.run([&] { file_.flush(); });
        if (wasEmpty_) os::flushFolder(path_.parent_path());  // its name may be as new
    }

  private:
    FileSystem files_;
    std::filesystem::path path_;
    os::File file_;
    bool wasEmpty_ = false;  ///< before it was written to
};

class Replacement;

/// Copies of files into one folder, under temporary names until they are put in place together: the
/// disk is then flushed once for all of them.
class CopyBatch {
  public:
    CopyBatch(const FileSystem& files, std::filesystem::path folder);
    ~CopyBatch();

    /// Copies a file, in the same way as FileSystem::copy. A full batch is put in place first.
    void copy(const std::filesystem::path& from, const std::filesystem::path& name);
    /// After a fault, the files that are not yet in place are dropped.
    void putInPlace();
    /// How many have been put in place.
    std::size_t placed() const { return placed_; }

    /// The most bytes of a batch without its last file.
    static constexpr std::uint64_t kMost = 16 << 20;

  private:
    const FileSystem& files_;
    std::filesystem::path folder_;
    std::vector<std::unique_ptr<Replacement>> copies_;
    std::uint64_t bytes_ = 0;
    std::size_t placed_ = 0;
};

/// Whether a file is one of those that are written beside another to take its place. One that is
/// older than a moment was left by a program that died.
bool isTemporaryName(const std::filesystem::path& name);

/// The folder with a trailing separator.
std::filesystem::path withSeparator(std::filesystem::path folder);

/// Whether `name` followed by `ending` may be used as one component of a path, on any system: not
/// empty, no separators, no "..", no drive colon, no device, nothing that a file system refuses.
bool isPlainFileName(std::string_view name, std::string_view ending = "");

/// The name with everything that may not be part of a file name replaced by "_", and cut if it is
/// too long for a file name with an ending after it.
std::string madePlainFileName(std::string name);

}  // namespace bramblet
