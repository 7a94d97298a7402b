#include "app/picture_folder.h"

#include "platform/text.h"

#include <algorithm>
#include <array>

namespace bramblet {
namespace {

constexpr std::array<std::string_view, 5> kEndings{".GIF", ".JPG", ".JPEG", ".BMP", ".PNG"};
constexpr const char* kAbove = "..";

bool isPicture(const std::string& name) {
    const std::string upperName = upper(name);
    return std::any_of(kEndings.begin(), kEndings.end(),
                       [&](std::string_view ending) { return upperName.ends_with(ending); });
}

std::string parentOf(const std::string& folder) {
    const auto separator = folder.find_last_of(kFolderSeparator, folder.size() - 2);
    return separator == std::string::npos ? folder : folder.substr(0, separator + 1);
}

void sortWithoutCase(std::vector<std::string>& names) {
    std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
        return std::pair(upper(a), a) < std::pair(upper(b), b);
    });
}

}  // namespace

void PictureFolder::goTo(const std::string& folder) {
    path_ = folder;
    folders_.clear();
    pictures_.clear();
    trouble_.clear();
    try {
        folders_ = files_.folderNames(path_);
        pictures_ = files_.fileNames(path_);
    } catch (const FileError& error) {
        trouble_ = error.inWords();
    }
    std::erase_if(folders_, [](const std::string& name) { return name.starts_with('.'); });
    std::erase_if(pictures_, [](const std::string& name) { return !isPicture(name); });
    sortWithoutCase(folders_);
    sortWithoutCase(pictures_);
    if (parentOf(path_) != path_) folders_.insert(folders_.begin(), kAbove);
}

void PictureFolder::enter(const std::string& name) {
    goTo(name == kAbove ? parentOf(path_) : withSeparator(path_ + name));
}

}  // namespace bramblet
