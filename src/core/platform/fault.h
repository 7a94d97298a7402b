// What can go wrong below the windows: a numbered fault with a plain description, thrown where it
// happens and caught at the edge of the operation.
#pragma once

#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <utility>

namespace bramblet {

/// The fault numbers in use.
enum class FaultNumber : int {
    Overflow = 6,
    TypeMismatch = 13,
    BadFileName = 52,
    FileNotFound = 53,
    DeviceError = 57,
    DiskFull = 61,
    PastEndOfFile = 62,
    BadRecordNumber = 63,
    TooManyFiles = 67,
    PermissionDenied = 70,
    PathFileAccess = 75,
    PathNotFound = 76,
};

/// Whether the fault says that there is no such file, and that none could have such a name.
inline bool isMissing(FaultNumber number) {
    return number == FaultNumber::FileNotFound || number == FaultNumber::PathNotFound ||
           number == FaultNumber::BadFileName;
}

class Fault : public std::runtime_error {
  public:
    /// `words` are for `inWords`, where the number's own description does not say enough.
    explicit Fault(FaultNumber number, std::string words = {});

    FaultNumber number() const { return number_; }
    int code() const { return static_cast<int>(number_); }
    /// What the number stands for, for example "Disk full".
    std::string description() const { return what(); }

    /// One clause for a status line, for example "Disk full (error 61)".
    std::string inWords() const;

  private:
    FaultNumber number_;
    std::string words_;
};

/// A fault of a file operation, with the path of the file.
class FileError : public Fault {
  public:
    FileError(FaultNumber number, std::filesystem::path path, std::string words = {})
        : Fault(number, std::move(words)), path_(std::move(path)) {}

    const std::filesystem::path& path() const { return path_; }

  private:
    std::filesystem::path path_;
};

/// A file longer than any genuine file of its kind: it is damaged, and reading it would fill the
/// memory.
class FileTooLong : public FileError {
  public:
    FileTooLong(std::filesystem::path path, std::uint64_t length);
};

/// A fault caused by the content of one of the boxes: it names the box and its text.
class BoxFault : public Fault {
  public:
    /// `complaint` ends the sentence, for example "is not a date".
    BoxFault(FaultNumber number, const std::string& box, const std::string& text,
             const std::string& complaint);
};

}  // namespace bramblet
