// The folder that the graphic selector shows: its folders and its pictures.
#pragma once

#include "platform/file_system.h"

#include <string>
#include <vector>

namespace bramblet {

class PictureFolder {
  public:
    explicit PictureFolder(const FileSystem& files) : files_(files.withoutRetry()) {}

    /// Shows a folder, given with the separator at its end.
    void goTo(const std::string& folder);
    /// Shows one of `folders`.
    void enter(const std::string& name);

    const std::string& path() const { return path_; }
    /// Names without case sorted; ".." first where there is a folder above. Hidden ones are left
    /// out.
    const std::vector<std::string>& folders() const { return folders_; }
    const std::vector<std::string>& pictures() const { return pictures_; }
    /// Why the folder cannot be shown; empty when it can.
    const std::string& trouble() const { return trouble_; }

    /// The bytes of one of `pictures`. Throws FileError.
    std::string read(const std::string& name) const { return files_.read(path_ + name); }

  private:
    FileSystem files_;
    std::string path_;
    std::vector<std::string> folders_;
    std::vector<std::string> pictures_;
    std::string trouble_;
};

}  // namespace bramblet
