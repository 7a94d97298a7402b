#include "core/orders/kept_orders.h"

#include "core/platform/path_text.h"

#include <array>
#include <cstdio>

namespace bramblet {
namespace {

/// For example "2026-11-21 143005".
std::string timeText(const Clock& clock) {
    const CivilDate day = toCivilDate(clock.today());
    const int second = clock.secondOfDay();
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02d %02d%02d%02d", day.year, day.month,
                  day.day, second / 3600, second / 60 % 60, second % 60);
    return text.data();
}

}  // namespace

KeptOrders::KeptOrders(const FileSystem& files, Clock clock,
                       const std::filesystem::path& homeFolder)
    : files_(files.withoutRetry()),
      clock_(std::move(clock)),
      home_(homeFolder),
      note_(home_ / "kept.txt") {}

void KeptOrders::keep(const std::string& name, const std::string& document,
                      const std::filesystem::path& dataFolder) const {
    std::filesystem::path path;
    try {
        path = keepIn(dataFolder, name, document);
    } catch (const FileError&) {
        path = keepIn(home_, name, document);
    }
    files_.append(note_, shown(path) + '\n');
}

std::filesystem::path KeptOrders::keepIn(const std::filesystem::path& folder,
                                         const std::string& name,
                                         const std::string& document) const {
    const std::filesystem::path kept = folder / "kept";
    const std::string stem = madePlainFileName(name) + " unsaved " + timeText(clock_);
    files_.createFolders(kept);
    std::filesystem::path path = kept / pathOfName(stem + ".htm");
    for (int i = 2; files_.exists(path); ++i)
        path = kept / pathOfName(stem + " " + std::to_string(i) + ".htm");
    files_.replace(path, document);
    return path;
}

std::string KeptOrders::news() const {
    try {
        if (!files_.exists(note_)) return {};
        std::string paths = files_.read(note_);
        files_.remove(note_);
        std::string line;
        for (std::size_t end = 0; (end = paths.find('\n')) != std::string::npos;
             paths.erase(0, end + 1))
            line += (line.empty() ? "" : ", ") + paths.substr(0, end);
        return line.empty() ? "" : "Bramblet had to end, and has kept the unsaved order as " + line;
    } catch (const FileError&) {
        return {};
    }
}

}  // namespace bramblet
