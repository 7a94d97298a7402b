#include "core/backup/backup_note.h"

#include "core/platform/fault.h"
#include "core/platform/path_text.h"
#include "core/platform/regional_formats.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <functional>
#include <sstream>
#include <string>

namespace bramblet {
namespace {

constexpr const char* kDated = "dated";
constexpr const char* kWithSettings = "settings";

}  // namespace

std::optional<BackupNote::Last> BackupNote::read() const {
    try {
        std::istringstream words(files_.read(path_));
        std::string word;
        words >> word;
        const auto day = parseDate(word, RegionalFormats{}, 0);
        if (!day) return std::nullopt;
        Last last{*day};
        while (words >> word) {
            last.dated = last.dated || word == kDated;
            last.withSettings = last.withSettings || word == kWithSettings;
        }
        return last;
    } catch (const Fault&) {
        return std::nullopt;
    }
}

void BackupNote::write(const Last& last) const {
    const CivilDate date = toCivilDate(last.day);
    std::array<char, 32> day{};
    std::snprintf(day.data(), day.size(), "%04d-%02d-%02d", date.year, date.month, date.day);
    std::string line = day.data();
    if (last.dated) line += std::string(" ") + kDated;
    if (last.withSettings) line += std::string(" ") + kWithSettings;
    files_.replace(path_, line + "\r\n");
}

std::filesystem::path newestBackupIn(const FileSystem& files, const std::filesystem::path& folder) {
    const std::u16string start = withoutCase(pathOfName(std::string(kDatedBackup) + " "));
    auto names = files.folderNames(folder);
    std::erase_if(names, [&](const auto& name) { return !withoutCase(name).starts_with(start); });
    std::sort(names.begin(), names.end(), std::greater<>());  // their days and times
    for (const auto& name : names) {
        if (files.exists(folder / name / kOrderList)) return folder / name;
    }
    return {};
}

}  // namespace bramblet
