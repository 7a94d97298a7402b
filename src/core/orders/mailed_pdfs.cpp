#include "core/orders/mailed_pdfs.h"

#include "core/platform/path_text.h"

#include <utility>
#include <vector>

namespace bramblet {

MailedPdfs::MailedPdfs(const FileSystem& files, Clock clock,
                       const std::filesystem::path& homeFolder)
    : files_(files.withoutRetry()), clock_(std::move(clock)), folder_(homeFolder / "mail.tmp") {}

std::filesystem::path MailedPdfs::add(const std::string& number, const std::string& pdf) const {
    removeOld();
    files_.createPrivateFolder(folder_);
    const std::string name = madePlainFileName(number);
    std::filesystem::path path = folder_ / pathOfName(name + ".pdf");
    for (int i = 2; files_.exists(path); ++i)
        path = folder_ / pathOfName(name + " " + std::to_string(i) + ".pdf");
    files_.replace(path, pdf);
    return path;
}

void MailedPdfs::removeOld() const {
    std::vector<std::filesystem::path> names;
    try {
        if (files_.exists(folder_)) names = files_.fileNames(folder_);
    } catch (const FileError&) {
        // The next time will do, for a file as well.
    }
    for (const auto& name : names) {
        try {
            if (isOld(folder_ / name)) files_.remove(folder_ / name);
        } catch (const FileError&) {
        }
    }
}

bool MailedPdfs::isOld(const std::filesystem::path& path) const {
    constexpr std::int64_t kNanosecondsOfDay = 86'400'000'000'000;
    constexpr DayCount kDayOf1970 = 25569;
    const std::int64_t day = files_.status(path).modified / kNanosecondsOfDay + kDayOf1970;
    // It began up to a day earlier or later here than where the clocks show universal time.
    return clock_.today() - day >= 3;
}

}  // namespace bramblet
