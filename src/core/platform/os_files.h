// The file statements of the operating system, one call each: the only door to it. A failed
// statement throws FileError with the number that its cause stands for.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace bramblet::os {

/// What a path is asked to be opened as. None of these is for appending: mounts of network shares
/// refuse that.
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
    File(File&& other) noexcept;
    File& operator=(File&&) = delete;
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    std::uint64_t length() const;
    /// Reads up to `count` bytes at `offset`; fewer only at the end of the file.
    std::string read(std::uint64_t offset, std::size_t count) const;
    void write(std::uint64_t offset, std::string_view bytes);
    /// Hands what was written to the disk, where the file system knows of that.
    void flush();

  private:
    std::filesystem::path path_;
    std::intptr_t handle_;
};

struct FileStatus {
    bool folder;
    std::uint64_t length;
    std::int64_t modified;  ///< nanoseconds since 1970, UTC
};

bool exists(const std::filesystem::path& path);
/// Whether two paths name one file; false when either is missing.
bool isSameFile(const std::filesystem::path& a, const std::filesystem::path& b);
FileStatus status(const std::filesystem::path& path);
/// Does nothing where the file system refuses to be told times.
void setModified(const std::filesystem::path& path, std::int64_t modified);
void remove(const std::filesystem::path& path);
/// Renames, and hands the folder to the disk. A file of the new name is replaced and its access
/// rights stay, so far as the file system lets us.
void rename(const std::filesystem::path& from, const std::filesystem::path& to);
void createFolder(const std::filesystem::path& path);
/// Names (no path) of the plain files of a folder, in no certain order and just as they are on the
/// disk. What is there but cannot be looked at counts as a file, so that nobody takes it for
/// missing. `reached` is called for every entry; it may throw.
std::vector<std::filesystem::path> fileNames(const std::filesystem::path& folder,
                                             const std::function<void()>& reached);
/// The same of its subfolders.
std::vector<std::filesystem::path> folderNames(const std::filesystem::path& folder);
/// Bytes that may still be written to the disk of `folder`; none where the file system does not
/// tell.
std::optional<std::uint64_t> freeSpace(const std::filesystem::path& folder);
/// A number that tells this process from others that may write beside it.
std::uint64_t processNumber();

}  // namespace bramblet::os
