#include "core/settings/picture_folder.h"

#include "core/platform/path_text.h"

#include <array>

namespace bramblet {
namespace {

constexpr std::array<std::u16string_view, 5> kEndings{u".GIF", u".JPG", u".JPEG", u".BMP", u".PNG"};
constexpr const char* kAbove = "..";

bool isHidden(const std::filesystem::path& name) {
    return name.native().front() == '.';
}

/// The folder above one that ends in a separator; the folder itself if there is none above.
std::filesystem::path parentOf(const std::filesystem::path& folder) {
    return withSeparator(folder.parent_path().parent_path());
}

}  // namespace

bool isPicture(const std::filesystem::path& name) {
    return endsInOneOf(name, kEndings);
}

void PictureFolder::goTo(const std::filesystem::path& folder) {
    path_ = withSeparator(folder);
    folders_.clear();
    pictures_.clear();
    trouble_.clear();
    try {
        folders_ = files_.folderNames(path_);
        pictures_ = files_.fileNames(path_);
    } catch (const FileError& error) {
        trouble_ = error.inWords();
    }
    std::erase_if(folders_, isHidden);
    std::erase_if(pictures_, [](const auto& name) { return isHidden(name) || !isPicture(name); });
    sortWithoutCase(folders_);
    sortWithoutCase(pictures_);
    if (parentOf(path_) != path_) folders_.insert(folders_.begin(), kAbove);
}

void PictureFolder::enter(const std::filesystem::path& name) {
    goTo(name == kAbove ? parentOf(path_) : path_ / name);
}

}  // namespace bramblet
