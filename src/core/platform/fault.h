// What can go wrong below the windows: a numbered fault with a plain description, thrown where it
// happens and caught at the edge of the operation.
#pragma once

#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <string>

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

/// The description that goes with a number, for example "Disk full".
std::string describe(FaultNumber number);

class Fault : public std::runtime_error {
  public:
    explicit Fault(FaultNumber number) : std::runtime_error(describe(number)), number_(number) {}

    FaultNumber number() const { return number_; }
    int code() const { return static_cast<int>(number_); }
    std::string description() const { return what(); }

    /// One clause for a status line, for example "Disk full (error 61)".
    virtual std::string inWords() const;

  private:
    FaultNumber number_;
};

/// A fault of a file operation, with the path of the file.
class FileError : public Fault {
  public:
    FileError(FaultNumber number, std::filesystem::path path)
        : Fault(number), path_(std::move(path)) {}

    const std::filesystem::path& path() const { return path_; }

  private:
    std::filesystem::path path_;
};

/// A file longer than any genuine file of its kind: it is damaged, and reading it would fill the
/// memory.
class FileTooLong : public FileError {
  public:
    FileTooLong(std::filesystem::path path, std::uint64_t length)
        : FileError(FaultNumber::Overflow, std::move(path)), length_(length) {}

    std::string inWords() const override;

  private:
    std::uint64_t length_;
};

/// A fault caused by the content of one of the boxes: it names the box and its text.
class BoxFault : public Fault {
  public:
    /// `complaint` ends the sentence, for example "is not a date".
    BoxFault(FaultNumber number, std::string box, std::string text, std::string complaint)
        : Fault(number),
          box_(std::move(box)),
          text_(std::move(text)),
          complaint_(std::move(complaint)) {}

    std::string inWords() const override;

  private:
    std::string box_;
    std::string text_;
    std::string complaint_;
};

}  // namespace bramblet
