// The "Graphic Selector": folders, the pictures in one, and a preview.
#pragma once

#include "core/settings/picture_folder.h"

#include <filesystem>

class QWidget;

namespace bramblet {

/// Lets the user choose a picture, beginning in `folder`. Empty when none was chosen.
std::filesystem::path choosePicture(const FileSystem& files, const std::filesystem::path& folder,
                                    QWidget* parent);

}  // namespace bramblet
