#include "core/orders/kept_orders.h"

#include "core/platform/path_text.h"

#include <utility>

namespace bramblet {

std::filesystem::path keptPath(const FileSystem& files, const std::filesystem::path& folder,
                               const std::string& what, const std::string& ending,
                               const Clock& clock) {
    files.createFolders(folder);
    const std::string name = what + " " + timeText(clock);
    std::filesystem::path path = folder / pathOfName(name + ending);
    for (int i = 2; files.exists(path); ++i)
        path = folder / pathOfName(name + " " + std::to_string(i) + ending);
    return path;
}

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
    const std::filesystem::path path =
        keptPath(files_, folder / "kept", madePlainFileName(name) + " unsaved", ".htm", clock_);
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
        if (line.empty()) return {};
        return "Bramblet had to end and has kept the unsaved order as " + line +
               ". Lists, Open Kept Order opens it";
    } catch (const FileError&) {
        return {};
    }
}

}  // namespace bramblet
