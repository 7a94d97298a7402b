#include "backup/backup.h"

#include "platform/text.h"

#include <algorithm>
#include <array>

namespace bramblet {
namespace {

constexpr std::array<std::string_view, 5> kEndings{".DAT", ".HTM", ".GIF", ".JPG", ".BMP"};
constexpr std::size_t kBlock = 1 << 20;
constexpr std::size_t kNamesTold = 10;

bool isWanted(const std::string& name) {
    const std::string upperName = upper(name);
    return std::any_of(kEndings.begin(), kEndings.end(),
                       [&](std::string_view ending) { return upperName.ends_with(ending); });
}

std::string folderText(const std::string& text) {
    return withSeparator(trimmed(text));
}

std::string counted(std::size_t count, const std::string& one) {
    return std::to_string(count) + " " + one + (count == 1 ? "" : "s");
}

/// "\r\n\r\nMissing:\r\na\r\nb\r\n... and 12 more", or nothing.
std::string nameList(const std::string& heading, const std::vector<std::string>& names) {
    if (names.empty()) return {};
    std::string text = "\r\n\r\n" + heading;
    for (std::size_t i = 0; i < std::min(names.size(), kNamesTold); ++i)
        text += "\r\n" + names[i];
    if (names.size() > kNamesTold) {
        text += "\r\n... and " + std::to_string(names.size() - kNamesTold) + " more";
    }
    return text;
}

}  // namespace

// A file in use ends a run with a message; it is not waited for.
Backup::Backup(const FileSystem& files, const DataFolder& folder, Settings& settings,
               Prompts& prompts)
    : files_(files.withoutRetry()), folder_(folder), settings_(settings), prompts_(prompts) {}

void Backup::open(Kind kind) {
    kind_ = kind;
    progress_ = {};
    BackUpProgress.clear();
    settings_.BackupFolder = trimmedField(settings_.BackupFolder);
    if (settings_.BackupFolder.empty()) settings_.BackupFolder = folder_.DataPath();
    Backuplist = kind == Kind::Backup ? folder_.DataPath() : settings_.BackupFolder;
    BackUpTarget = kind == Kind::Backup ? settings_.BackupFolder : folder_.DataPath();
    listFiles();
}

void Backup::SelectTarget_Click() {
    const auto folder = prompts_.chooseFolder("Select a folder...", folder_.DataPath());
    if (!folder) return;
    BackUpTarget = withSeparator(*folder);
    settings_.BackupFolder = trimmed(BackUpTarget);
    onChange();
}

void Backup::SelectSource_Click() {
    const auto folder = prompts_.chooseFolder("Select a folder...", folder_.DataPath());
    if (!folder) return;
    Backuplist = withSeparator(*folder);
    listFiles();
    onChange();
}

bool Backup::RunBackup_Click() {
    const Message caution{
        "CAUTION - this is the data restoration function, not backup! This should only be used to "
        "recover backup data after a disk failure, or after a bad import operation. This will "
        "over-write whatever you already have in your default data folder COMPLETELY!\r\n\r\n"
        "Proceed?",
        "Confirm", Buttons::YesNo, Icon::Stop, Answer::No};
    if (kind_ == Kind::Restore && prompts_.ask(caution) != Answer::Yes) return false;
    if (!prepare()) return false;
    bool completed = false;
    try {
        completed = copyAll();
    } catch (const Fault& fault) {
        sayAborted(fault);
    }
    if (kind_ == Kind::Restore) onRestored();
    if (completed) {
        // A target that was typed is remembered like one that was selected.
        if (kind_ == Kind::Backup) settings_.BackupFolder = BackUpTarget;
        const char* const text =
            kind_ == Kind::Backup ? "Backup completed!" : "Restoration completed!";
        prompts_.ask({text, "Finished", Buttons::Ok, Icon::Information});
    }
    return completed;
}

void Backup::Verify_Click() {
    if (!prepare()) return;
    std::vector<std::string> differing;
    std::vector<std::string> missing;
    std::size_t agreeing = 0;
    try {
        const std::vector<Item> all = items();
        start(all);
        for (const auto& item : all) {
            if (!next("Comparing: ", item)) return;
            if (!files_.exists(BackUpTarget + item.name)) {
                missing.push_back(item.name);
            } else if (isSame(item.name)) {
                ++agreeing;
            } else {
                differing.push_back(item.name);
            }
        }
    } catch (const Fault& fault) {
        sayAborted(fault);
        return;
    }
    const std::string result = counted(agreeing, "file") + " agree, " +
                               std::to_string(differing.size()) + " differ, " +
                               std::to_string(missing.size()) + " missing";
    finish(result);
    const bool good = differing.empty() && missing.empty();
    prompts_.ask({result + "." + nameList("Different:", differing) + nameList("Missing:", missing),
                  "Verify", Buttons::Ok, good ? Icon::Information : Icon::Exclamation});
}

/// Brings the folders into shape; false after a message when they are one and the same.
bool Backup::prepare() {
    Backuplist = folderText(Backuplist);
    BackUpTarget = folderText(BackUpTarget);
    listFiles();
    onChange();
    if (!isSameFolder()) return true;
    prompts_.ask({"Target and source are the same! Please select a different target folder.",
                  "Nothing to do!", Buttons::Ok, Icon::Exclamation});
    return false;
}

bool Backup::isSameFolder() const {
    return upper(Backuplist) == upper(BackUpTarget) || files_.isSameFile(Backuplist, BackUpTarget);
}

void Backup::listFiles() {
    BackMeUp.clear();
    try {
        for (const auto& name : files_.fileNames(Backuplist)) {
            if (isWanted(name)) BackMeUp.push_back(name);
        }
        BackUpProgress = counted(BackMeUp.size(), "file");
    } catch (const Fault& fault) {
        BackUpProgress = "This folder cannot be read: " + fault.inWords();
    }
    std::sort(BackMeUp.begin(), BackMeUp.end(), [](const std::string& a, const std::string& b) {
        return std::pair(upper(a), a) < std::pair(upper(b), b);
    });
}

std::vector<Backup::Item> Backup::items() const {
    std::vector<Item> all;
    all.reserve(BackMeUp.size());
    for (const auto& name : BackMeUp)
        all.push_back({name, files_.status(Backuplist + name).length});
    return all;
}

bool Backup::copyAll() {
    const std::vector<Item> all = items();
    checkSpace(all);
    start(all);
    for (const auto& item : all) {
        if (!next("Copying: ", item)) return false;
        files_.copy(Backuplist + item.name, BackUpTarget + item.name);
    }
    finish(counted(all.size(), "file") + " copied");
    return true;
}

/// Throws Fault(DiskFull) when the files will not fit, so far as the system can tell: what they
/// take beyond the files they replace, and one of them twice while it is being replaced.
void Backup::checkSpace(const std::vector<Item>& items) const {
    std::uint64_t more = 0;
    std::uint64_t largest = 0;
    for (const auto& item : items) {
        const std::string target = BackUpTarget + item.name;
        const std::uint64_t old = files_.exists(target) ? files_.status(target).length : 0;
        more += item.length - std::min(item.length, old);
        largest = std::max(largest, std::min(item.length, old));
    }
    std::uint64_t free = 0;
    try {
        free = files_.freeSpace(BackUpTarget);
    } catch (const Fault&) {
        return;
    }
    if (more + largest > free) throw FileError(FaultNumber::DiskFull, BackUpTarget);
}

bool Backup::isSame(const std::string& name) const {
    const RandomFile source(files_, Backuplist + name, os::Open::Read);
    const RandomFile copy(files_, BackUpTarget + name, os::Open::Read);
    if (source.length() != copy.length()) return false;
    for (std::uint64_t offset = 0;; offset += kBlock) {
        const std::string block = source.read(offset, kBlock);
        if (block != copy.read(offset, kBlock)) return false;
        if (block.size() < kBlock) return true;
    }
}

void Backup::start(const std::vector<Item>& items) {
    progress_ = {};
    progress_.fileCount = items.size();
    for (const auto& item : items)
        progress_.byteCount += item.length;
    stopped_ = false;
    running_ = true;
}

/// Tells of the next file; false when the user has stopped the run.
bool Backup::next(const std::string& doing, const Item& item) {
    BackUpProgress = doing + item.name;
    onChange();
    if (stopped_) {
        finish("Stopped after " + std::to_string(progress_.files) + " of " +
               counted(progress_.fileCount, "file"));
        prompts_.say(BackUpProgress);
        return false;
    }
    ++progress_.files;
    progress_.bytes += item.length;
    return true;
}

void Backup::finish(const std::string& line) {
    running_ = false;
    BackUpProgress = line;
    onChange();
}

void Backup::sayAborted(const Fault& fault) {
    finish("Aborted: " + fault.inWords());
    const auto* error = dynamic_cast<const FileError*>(&fault);
    prompts_.say((error != nullptr ? error->path() + ": " : "") + fault.inWords());
    prompts_.ask(
        {"An error has occurred, and this operation has been aborted...\r\n\r\nError name: " +
             fault.description() + "\r\n\r\nError number: " + std::to_string(fault.code()) +
             "\r\n\r\nPlease make a note of the error name and number, and which process you are "
             "having trouble with.\r\n\r\nIn the event you are unable to solve the problem "
             "yourself, this information will make it much more likely that Quenmoor tech support "
             "will be able to help in a timely manner. Thanks, and sorry you are having trouble!",
         "Bramblet", Buttons::Ok, Icon::Stop});
}

}  // namespace bramblet
