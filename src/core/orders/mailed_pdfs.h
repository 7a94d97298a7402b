// PDFs of orders on their way into the user's mail program. It may read them long after it was
// handed them, even after this program has ended: they stay for a day at least.
#pragma once

#include "core/platform/clock.h"
#include "core/platform/file_system.h"

#include <filesystem>
#include <string>

namespace bramblet {

class MailedPdfs {
  public:
    /// They are kept in a folder of the home folder that only the user can look into: some mail
    /// programs see nothing of the system's folder for temporary files.
    MailedPdfs(const FileSystem& files, Clock clock, const std::filesystem::path& homeFolder);

    /// Writes a PDF under the order's number, and a further one beside those that are still there.
    std::filesystem::path add(const std::string& number, const std::string& pdf) const;

    /// Removes those of three days ago and earlier, by universal time.
    void removeOld() const;

  private:
    bool isOld(const std::filesystem::path& path) const;

    FileSystem files_;  // without waiting
    Clock clock_;
    std::filesystem::path folder_;
};

}  // namespace bramblet
