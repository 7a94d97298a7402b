// The remembered values of one free-text field of the order: a text file with one value per line,
// each ended by CR LF, oldest first, without a count or a limit.
#pragma once

#include "core/platform/file_system.h"

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace bramblet {

class FieldHistory {
  public:
    /// The values in file order; a value that is in the file twice is listed twice.
    using Entries = std::shared_ptr<const std::vector<std::string>>;

    explicit FieldHistory(std::filesystem::path path) : path_(std::move(path)) {}

    /// What the list offers; the same object until the file's content changes. Made when it is
    /// first asked for.
    const Entries& entries() const;

    /// Adds a value, trimmed, unless it is blank or already there (letter case matters), and
    /// rereads the file, which is created empty when missing. Throws FileError.
    void remember(const FileSystem& files, const std::string& value);

    /// Drops every line that equals this value apart from blanks around it: the others are written
    /// to a temporary file, which takes the file's place. The temporary name is this program's
    /// alone: two desks sharing one would mix their histories. `entries` stay until the next
    /// `remember`. Throws FileError.
    void forget(const FileSystem& files, const std::string& value) const;

  private:
    void take(std::string content);

    std::filesystem::path path_;
    std::string content_;      ///< of the file
    mutable Entries entries_;  ///< made from it, or null
};

}  // namespace bramblet
