// Unsaved orders, kept as documents of their own when the program has to end without being able to
// ask: they are neither lost nor saved over what the user had saved himself.
#pragma once

#include "core/platform/clock.h"
#include "core/platform/file_system.h"

#include <filesystem>
#include <string>

namespace bramblet {

/// A path in `folder`, which is made: `what`, the time and `ending`, for example
/// "kept/000123 2026-11-21 143005.htm". There is no such file yet.
std::filesystem::path keptPath(const FileSystem& files, const std::filesystem::path& folder,
                               const std::string& what, const std::string& ending,
                               const Clock& clock);

class KeptOrders {
  public:
    KeptOrders(const FileSystem& files, Clock clock, const std::filesystem::path& homeFolder);

    /// Writes the document into the subfolder "kept" of the data folder, or of the home folder if
    /// that fails, and notes where. `name` begins the file's name. Throws FileError if both fail.
    void keep(const std::string& name, const std::string& document,
              const std::filesystem::path& dataFolder) const;

    /// What has been kept since this was last asked, as a line; empty when nothing has.
    std::string news() const;

  private:
    std::filesystem::path keepIn(const std::filesystem::path& folder, const std::string& name,
                                 const std::string& document) const;

    FileSystem files_;  // without waiting
    Clock clock_;
    std::filesystem::path home_;
    std::filesystem::path note_;
};

}  // namespace bramblet
