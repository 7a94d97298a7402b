#include "core/settings/data_folder.h"

#include "core/platform/path_text.h"
#include "core/platform/text.h"

namespace bramblet {

DataFolder::DataFolder(const std::filesystem::path& directory)
    : path_(directory.empty() ? directory : withSeparator(directory)) {}

void DataFolder::CheckDataPath(const FileSystem& files, Prompts& prompts) {
    const FileSystem once = files.withoutRetry();
    const std::filesystem::path probe = file("testfile.tmp");
    try {
        if (path_.empty()) throw FileError(FaultNumber::PathNotFound, path_);
        // Another desk that is starting at this moment may remove it before we do.
        const auto unlessGone = [](const auto& step) {
            try {
                step();
            } catch (const FileError& error) {
                if (error.number() != FaultNumber::FileNotFound) throw;
            }
        };
        // One left behind by a power cut would tell when that was.
        unlessGone([&] { once.remove(probe); });
        once.touch(probe);
        unlessGone([&] {
            checkedAt_ = once.status(probe).modified;
            once.remove(probe);
        });
        ok_ = true;
    } catch (const FileError& error) {
        ok_ = false;
        reason_ = "Error " + std::to_string(error.code()) + " " + error.description();
        available(prompts);
    }
}

bool DataFolder::available(Prompts& prompts) const {
    if (ok_) return true;
    prompts.ask(
        {"Unable to access the data directory " + shown(path_) +
             "\r\n\r\nThis could be caused by a number of factors, including an incorrect data "
             "path entry in your configuration file, the network being down, you not being "
             "connected to the network, or you lacking correct network permissions.\r\n\r\nThis "
             "problem must be corrected before you can continue. \r\n\r\n" +
             reason_,
         "No Server Access!", Buttons::Ok, Icon::Information});
    return false;
}

std::filesystem::path DataFolder::file(const std::string& name) const {
    std::filesystem::path path = path_;
    return path += pathOfName(name);
}

std::filesystem::path DataFolder::documentPath(const std::string& orderNumber) const {
    const std::string name = trimmed(orderNumber);
    constexpr const char* kEnding = ".htm";
    if (!isPlainFileName(name, kEnding))
        throw FileError(FaultNumber::BadFileName, pathOfName(name));
    return file(name + kEnding);
}

}  // namespace bramblet
