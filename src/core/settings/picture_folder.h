// The folder that the graphic selector shows: its subfolders and its pictures.
#pragma once

#include "core/platform/file_system.h"

#include <filesystem>
#include <string>
#include <vector>

namespace bramblet {

/// Whether the name is that of a picture of the kinds the selector offers.
bool isPicture(const std::filesystem::path& name);

class PictureFolder {
  public:
    explicit PictureFolder(const FileSystem& files) : files_(files.withoutRetry()) {}

    void goTo(const std::filesystem::path& folder);
    /// Shows one of `folders`.
    void enter(const std::filesystem::path& name);

    /// The folder shown, with a trailing separator.
    const std::filesystem::path& path() const { return path_; }
    /// Names, sorted regardless of case; ".." comes first if there is a folder above. Hidden ones
    /// are left out.
    const std::vector<std::filesystem::path>& folders() const { return folders_; }
    const std::vector<std::filesystem::path>& pictures() const { return pictures_; }
    /// Why the folder cannot be shown; empty when it can.
    const std::string& trouble() const { return trouble_; }

    /// The bytes of one of `pictures`. Throws FileError.
    std::string read(const std::filesystem::path& name) const { return files_.read(path_ / name); }

  private:
    FileSystem files_;
    std::filesystem::path path_;
    std::vector<std::filesystem::path> folders_;
    std::vector<std::filesystem::path> pictures_;
    std::string trouble_;
};

}  // namespace bramblet
