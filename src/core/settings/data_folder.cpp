#include "core/settings/data_folder.h"

#include "core/platform/path_text.h"
#include "core/platform/text.h"

#include <chrono>
#include <thread>

namespace bramblet {

DataFolder::DataFolder(const std::filesystem::path& directory)
    : path_(directory.empty() ? directory : withSeparator(directory)) {}

void DataFolder::CheckDataPath(Prompts& prompts) {
    // The probe has the same name at every desk: another one that is starting may hold it.
    constexpr int kTries = 10;
    const FileSystem patient([tries = 0](const FileError& error) mutable {
        if (++tries == kTries) throw error;
        std::this_thread::sleep_for(std::chrono::milliseconds(30 + 7 * (os::processNumber() % 10)));
    });
    const std::filesystem::path probe = file("testfile.tmp");
    try {
        if (path_.empty()) throw FileError(FaultNumber::PathNotFound, path_);
        // That desk may also remove it before we do.
        const auto unlessGone = [](const auto& step) {
            try {
                step();
            } catch (const FileError& error) {
                if (error.number() != FaultNumber::FileNotFound) throw;
            }
        };
        // One left behind by a power cut would tell when that was.
        unlessGone([&] { patient.remove(probe); });
        patient.touch(probe);
        unlessGone([&] {
            checkedAt_ = patient.status(probe).modified;
            patient.remove(probe);
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
