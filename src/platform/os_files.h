// The file statements of the operating system, one call each: the only door to it. A failed
// statement throws FileError with the number that its cause stands for.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace bramblet::os {

/// What a path is asked to be opened as.
enum class Open {
    ReadWrite,       ///< for reading and writing; created empty when missing
    Read,            ///< for reading; FileNotFound when missing
    WriteNew,        ///< for writing a file that must not exist yet
    AppendOrCreate,  ///< for writing at its end; created empty when missing
};

/// An open file; closed by its destructor.
class File {
  public:
    File(const std::string& path, Open how);
    ~File();
    File(File&& other) noexcept;
    File& operator=(File&&) = delete;
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    std::uint64_t length() const;
    /// Reads up to `count` bytes at `offset`; fewer only at the end of the file.
    std::string read(std::uint64_t offset, std::size_t count) const;
    void write(std::uint64_t offset, std::string_view bytes);
    void append(std::string_view bytes);
    /// Hands what was written to the disk.
    void flush();

  private:
    std::string path_;
    std::intptr_t handle_;
};

struct FileStatus {
    bool folder;
    std::uint64_t length;
    std::int64_t modified;  ///< nanoseconds since 1970, UTC
};

bool exists(const std::string& path);
/// Whether two paths name one file; false when either is missing.
bool isSameFile(const std::string& a, const std::string& b);
FileStatus status(const std::string& path);
void setModified(const std::string& path, std::int64_t modified);
void remove(const std::string& path);
/// Renames, replacing a file of the new name.
void rename(const std::string& from, const std::string& to);
void createFolder(const std::string& path);
/// Names (no path) of the plain files of a folder, and of its subfolders, each in no certain order.
std::vector<std::string> fileNames(const std::string& folder);
std::vector<std::string> folderNames(const std::string& folder);
/// Bytes that may still be written to the disk of `folder`.
std::uint64_t freeSpace(const std::string& folder);
/// A number that tells this process from others that may write beside it.
std::uint64_t processNumber();

}  // namespace bramblet::os
