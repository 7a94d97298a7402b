#include "core/app/open_home.h"

#include "core/platform/path_text.h"

#include <cstring>
#include <sstream>
#include <utility>

namespace bramblet {
namespace {

/// A path as it stands in a file: exactly, whatever its letters are.
std::string bytesOf(const std::filesystem::path& path) {
    const auto* const bytes = reinterpret_cast<const char*>(path.c_str());
    return {bytes, path.native().size() * sizeof(std::filesystem::path::value_type)};
}
std::filesystem::path pathOfBytes(const std::string& bytes) {
    std::filesystem::path::string_type native(
        bytes.size() / sizeof(std::filesystem::path::value_type), 0);
    std::memcpy(native.data(), bytes.data(), native.size() * sizeof(native[0]));
    return native;
}

}  // namespace

OpenHome::OpenHome(std::filesystem::path folder)
    : folder_(std::move(folder)),
      sign_(folder_ / "bramblet.open"),
      call_(folder_ / "bramblet.call") {
    const std::uint64_t process = os::processNumber();
    own_ = os::machineName() + '\n' + std::to_string(process) + '\n' + os::processMark(process);
}

bool OpenHome::enter(Prompts& prompts, Desktop& desktop, const std::function<void()>& moment,
                     const std::filesystem::path& file) {
    try {
        files_.createFolders(folder_);
        for (entered_ = putUp(); !entered_; entered_ = putUp()) {
            const auto other = occupant();
            Answer answer = Answer::Ignore;
            if (other && calls(*other, desktop, moment, file)) return false;
            if (other) answer = ask(*other, prompts);
            if (answer == Answer::Close) return false;
            if (answer == Answer::Ignore) files_.remove(sign_);
        }
        wasCalled();  // by somebody who called the program before us
    } catch (const FileError&) {
        // It starts as if there were no sign.
    }
    return true;
}

std::optional<std::filesystem::path> OpenHome::wasCalled() const {
    try {
        if (!entered_ || !files_.exists(call_)) return std::nullopt;
        const std::string file = files_.read(call_);
        files_.remove(call_);
        return pathOfBytes(file);
    } catch (const FileError&) {
        return std::nullopt;
    }
}

void OpenHome::leave() {
    try {
        if (std::exchange(entered_, false) && files_.read(sign_) == own_) files_.remove(sign_);
    } catch (const FileError&) {
        // It is recognised as left behind.
    }
}

/// False when there is a sign already.
bool OpenHome::putUp() const {
    try {
        RandomFile(files_, sign_, os::Open::WriteNew).write(0, own_);
        return true;
    } catch (const FileError&) {
        if (!files_.exists(sign_)) throw;
        return false;
    }
}

/// Nobody when the sign is that of a program of this machine that has ended, or cannot be read.
std::optional<OpenHome::Occupant> OpenHome::occupant() const {
    Occupant other;
    std::string mark;
    std::istringstream lines(files_.read(sign_));
    std::getline(lines, other.machine);
    lines >> other.process >> mark;
    if (!lines) return std::nullopt;
    const bool left = other.machine == os::machineName() && os::processMark(other.process) != mark;
    return left ? std::nullopt : std::optional(other);
}

/// Asks the other program to show itself; false when it does not answer.
bool OpenHome::calls(const Occupant& other, Desktop& desktop, const std::function<void()>& moment,
                     const std::filesystem::path& file) const {
    constexpr int kMoments = 40;
    if (other.machine != os::machineName()) return false;
    desktop.letToFront(other.process);
    files_.replace(call_, bytesOf(file));
    for (int i = 0; i < kMoments; ++i) {
        moment();
        if (!files_.exists(call_)) return true;
    }
    files_.remove(call_);
    return false;
}

Answer OpenHome::ask(const Occupant& other, Prompts& prompts) const {
    const bool here = other.machine == os::machineName();
    const std::string where = here ? "is already open, but does not answer. Perhaps it is busy."
                                   : "is already open on the computer " + other.machine +
                                         ", or that computer was cut off while it was.";
    return prompts.ask(
        {"Bramblet " + where + " It uses the same settings:\r\n\r\n" + shown(folder_) +
             "\r\n\r\nRetry: look again, for example after it has been closed.\r\nIgnore: start "
             "all "
             "the same. The settings of the one that is closed last are kept.\r\nClose: do not "
             "start.",
         "Bramblet", Buttons::RetryIgnoreClose, Icon::Exclamation});
}

}  // namespace bramblet
