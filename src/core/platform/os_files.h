// The file operations of the operating system, one call each: the only way to reach them. A failed
// operation throws FileError with the number that stands for its cause. At the end, what tells
// programs and machines apart that use the same files.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace bramblet::os {

/// What a path is to be opened for. None of these is for appending: mounts of network shares refuse
/// that.
enum class Open {
    ReadWrite,  ///< for reading and writing; created empty when missing
    Read,       ///< for reading; FileNotFound when missing
    Write,      ///< for writing; created empty when missing
    WriteNew,   ///< for writing a file that must not exist yet
};

/// An open file; closed by its destructor.
class File {
  public:
    File(const std::filesystem::path& path, Open how);
    ~File();
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    std::uint64_t length() const;
    /// Reads what is at `offset` into `bytes`; returns how many they are, fewer only at the end of
    /// the file.
    std::size_t read(std::uint64_t offset, std::span<char> bytes) const;
    void write(std::uint64_t offset, std::string_view bytes);
    /// Cuts the file off at a length.
    void cut(std::uint64_t length);
    /// Hands what was written to the disk, where the file system supports that.
    void flush();

  private:
    std::filesystem::path path_;
    std::intptr_t handle_;
};

struct FileStatus {
    bool folder;
    std::uint64_t length;
    std::int64_t modified;  ///< nanoseconds since 1970, UTC

    bool operator==(const FileStatus&) const = default;
};

/// Throws FileError when that cannot be said: what cannot be looked at must not pass for missing,
/// or it would be replaced without a question.
bool exists(const std::filesystem::path& path);
/// Whether two paths name the same file; false when either is missing. Throws like `exists`.
bool isSameFile(const std::filesystem::path& a, const std::filesystem::path& b);
FileStatus status(const std::filesystem::path& path);
/// Does nothing when the file system refuses to set times.
void setModified(const std::filesystem::path& path, std::int64_t modified);
void remove(const std::filesystem::path& path);
/// A file with the new name is replaced; its access rights are kept as far as the file system
/// allows.
void rename(const std::filesystem::path& from, const std::filesystem::path& to);
/// The same in one step with the look whether the new name is free, which some file systems cannot
/// do. Nothing has happened unless it is Done.
enum class Renaming { Done, Taken, Unsupported };
Renaming renameNew(const std::filesystem::path& from, const std::filesystem::path& to);
/// Two files take each other's name in one step, which some file systems cannot do. Gone if there
/// is no file `to`; nothing has happened then.
enum class Exchange { Done, Gone, Unsupported };
Exchange exchange(const std::filesystem::path& from, const std::filesystem::path& to);
/// Hands a folder to the disk: without this a power cut may undo a rename in it. A folder that
/// cannot be flushed is left as it is.
void flushFolder(const std::filesystem::path& folder);
/// Starts handing everything written to the disk of `folder` to it, other programs' files as well.
/// A server may not hear of it: each file still has to be flushed, which then costs little.
void flushDisk(const std::filesystem::path& folder);
void createFolder(const std::filesystem::path& path);
/// The same, but only the user can look into it, where the system gives folders such rights. (On
/// Windows it has those of the folder that it is in.)
void createPrivateFolder(const std::filesystem::path& path);
/// False when the name is taken. Of several programs, only one is told that it has made the folder.
bool createNewFolder(const std::filesystem::path& path);
/// Removes an empty folder.
void removeFolder(const std::filesystem::path& path);
enum class Kind { File, Folder, Other };
/// Names (no path) of the plain files or the subfolders in a folder, in no particular order and
/// exactly as they are on the disk. What is there but cannot be examined counts as a file, so that
/// nobody takes it for missing. `reached` is called for every entry; it may throw.
std::vector<std::filesystem::path> namesIn(const std::filesystem::path& folder, Kind kind,
                                           const std::function<void()>& reached);
/// Bytes that may still be written to the disk of `folder`; nothing when the file system does not
/// tell.
std::optional<std::uint64_t> freeSpace(const std::filesystem::path& folder);
/// A number that distinguishes this process from others that may be writing beside it.
std::uint64_t processNumber();
/// What a running program has that no other one has or had, even under the same number or before
/// the machine was last started; empty when no program runs under this number.
std::string processMark(std::uint64_t process);
/// The name of this machine, in the code page.
std::string machineName();

}  // namespace bramblet::os
