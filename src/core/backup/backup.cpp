#include "core/backup/backup.h"

#include "core/platform/path_text.h"
#include "core/platform/text.h"

#include <algorithm>
#include <array>

namespace bramblet {
namespace {

constexpr std::array<std::u16string_view, 5> kEndings{u".DAT", u".HTM", u".GIF", u".JPG", u".BMP"};
constexpr std::size_t kBlock = 1 << 20;
constexpr std::size_t kNamesTold = 10;

bool isWanted(const std::filesystem::path& name) {
    const std::u16string upperName = withoutCase(name);
    return std::any_of(kEndings.begin(), kEndings.end(),
                       [&](std::u16string_view ending) { return upperName.ends_with(ending); });
}

/// Without the blanks around it, and with the separator at its end.
std::filesystem::path tidied(const std::filesystem::path& folder) {
    constexpr std::filesystem::path::value_type kBlank = ' ';
    const auto& text = folder.native();
    const auto first = text.find_first_not_of(kBlank);
    if (first == text.npos) return withSeparator({});
    return withSeparator(text.substr(first, text.find_last_not_of(kBlank) - first + 1));
}

std::string counted(std::size_t count, const std::string& one) {
    return std::to_string(count) + " " + one + (count == 1 ? "" : "s");
}

/// "\r\n\r\nMissing:\r\na\r\nb\r\n... and 12 more", or nothing.
std::string nameList(const std::string& heading, const std::vector<std::filesystem::path>& names) {
    if (names.empty()) return {};
    std::string text = "\r\n\r\n" + heading;
    for (std::size_t i = 0; i < std::min(names.size(), kNamesTold); ++i)
        text += "\r\n" + shown(names[i]);
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
    if (settings_.BackupFolder.empty())
        settings_.BackupFolder = storableFolder(folder_.DataPath()).value_or("");
    const std::filesystem::path remembered = pathOfFolder(settings_.BackupFolder);
    Backuplist = kind == Kind::Backup ? folder_.DataPath() : remembered;
    BackUpTarget = kind == Kind::Backup ? remembered : folder_.DataPath();
    showFiles();
}

void Backup::SelectTarget_Click() {
    const auto folder = prompts_.chooseFolder("Select a folder...", folder_.DataPath());
    if (!folder) return;
    BackUpTarget = withSeparator(*folder);
    rememberTarget();
    onChange();
}

void Backup::SelectSource_Click() {
    const auto folder = prompts_.chooseFolder("Select a folder...", folder_.DataPath());
    if (!folder) return;
    Backuplist = withSeparator(*folder);
    showFiles();
}

void Backup::mu_DataBackup_Click() {
    prompts_.clearLine();
    if (folder_.available(prompts_)) showWindow(Kind::Backup);
}

void Backup::mu_DataRestore_Click() {
    prompts_.clearLine();
    if (folder_.available(prompts_)) showWindow(Kind::Restore);
}

bool Backup::RunBackup_Click() {
    const Message caution{
        "CAUTION - this is the data restoration function, not backup! This should only be used to "
        "recover backup data after a disk failure, or after a bad import operation. This will "
        "over-write whatever you already have in your default data folder COMPLETELY!\r\n\r\n"
        "Proceed?",
        "Confirm", Buttons::YesNo, Icon::Stop, Answer::No};
    if (running_) return false;
    const Prompts::Command command(prompts_);
    if (kind_ == Kind::Restore && prompts_.ask(caution) != Answer::Yes) return false;
    bool copied = false;
    const bool completed = run([&] {
        if (!prepare()) return false;
        copied = true;
        return copyAll();
    });
    if (copied && kind_ == Kind::Restore) onRestored();
    if (!completed) return false;
    // A target that was typed is remembered like one that was selected.
    if (kind_ == Kind::Backup) rememberTarget();
    const char* const text = kind_ == Kind::Backup ? "Backup completed!" : "Restoration completed!";
    prompts_.ask({text, "Finished", Buttons::Ok, Icon::Information});
    return true;
}

void Backup::Verify_Click() {
    if (running_) return;
    const Prompts::Command command(prompts_);
    Comparison result;
    if (!run([&] { return prepare() && compareAll(result); })) return;
    const bool good = result.differing.empty() && result.missing.empty();
    prompts_.ask({BackUpProgress + "." + nameList("Different:", result.differing) +
                      nameList("Missing:", result.missing),
                  "Verify", Buttons::Ok, good ? Icon::Information : Icon::Exclamation});
}

/// Does the work of one of the commands, during which no other one can be begun; false when it did
/// not come to its end.
bool Backup::run(const std::function<bool()>& work) {
    running_ = true;
    stopped_ = false;
    progress_ = {};
    bool done = false;
    try {
        done = work();
    } catch (const Fault& fault) {
        BackUpProgress = "Aborted: " + fault.inWords();
        running_ = false;
        onChange();
        sayAborted(fault);
    }
    running_ = false;
    onChange();
    return done;
}

/// Brings the folders into shape; false after a message when there is nothing to do.
bool Backup::prepare() {
    Backuplist = tidied(Backuplist);
    BackUpTarget = tidied(BackUpTarget);
    const auto nothing = [&](const std::string& why) {
        prompts_.ask({why, "Nothing to do!", Buttons::Ok, Icon::Exclamation});
        return false;
    };
    if (isSameFolder()) {
        return nothing("Target and source are the same! Please select a different target folder.");
    }
    listFiles();
    if (BackMeUp.empty()) return nothing("There are no data files in " + shown(Backuplist) + ".");
    return true;
}

void Backup::rememberTarget() {
    if (const auto text = storableFolder(BackUpTarget)) {
        settings_.BackupFolder = trimmed(*text);
    } else {
        prompts_.say("The folder " + shown(BackUpTarget) +
                     " will not be remembered: its name is too long or no text");
    }
}

bool Backup::isSameFolder() const {
    return withoutCase(Backuplist) == withoutCase(BackUpTarget) ||
           files_.isSameFile(Backuplist, BackUpTarget);
}

void Backup::listFiles() {
    BackMeUp.clear();
    for (const auto& name : files_.fileNames(Backuplist)) {
        if (isWanted(name)) BackMeUp.push_back(name);
    }
    sortWithoutCase(BackMeUp);
}

/// For a window that only shows them yet.
void Backup::showFiles() {
    try {
        listFiles();
        BackUpProgress = counted(BackMeUp.size(), "file");
    } catch (const Fault& fault) {
        BackUpProgress = "This folder cannot be read: " + fault.inWords();
    }
    onChange();
}

std::vector<Backup::Item> Backup::items() const {
    std::vector<Item> all;
    all.reserve(BackMeUp.size());
    for (const auto& name : BackMeUp)
        all.push_back({name, files_.status(Backuplist / name).length});
    return all;
}

bool Backup::copyAll() {
    const std::vector<Item> all = items();
    checkSpace(all);
    start(all);
    for (const auto& item : all) {
        if (!next("Copying: ", item)) return false;
        files_.copy(Backuplist / item.name, BackUpTarget / item.name);
    }
    BackUpProgress = counted(all.size(), "file") + " copied";
    return true;
}

bool Backup::compareAll(Comparison& result) {
    const std::vector<Item> all = items();
    std::size_t agreeing = 0;
    start(all);
    for (const auto& item : all) {
        if (!next("Comparing: ", item)) return false;
        if (!files_.exists(BackUpTarget / item.name)) {
            result.missing.push_back(item.name);
        } else if (isSame(item.name)) {
            ++agreeing;
        } else {
            result.differing.push_back(item.name);
        }
    }
    BackUpProgress = counted(agreeing, "file") + " agree, " +
                     std::to_string(result.differing.size()) + " differ, " +
                     std::to_string(result.missing.size()) + " missing";
    return true;
}

/// Throws Fault(DiskFull) when the files will not fit, so far as the system can tell: what they
/// take beyond the files they replace, and one of them twice while it is being replaced.
void Backup::checkSpace(const std::vector<Item>& items) const {
    std::uint64_t more = 0;
    std::uint64_t largest = 0;
    for (const auto& item : items) {
        const std::filesystem::path target = BackUpTarget / item.name;
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

bool Backup::isSame(const std::filesystem::path& name) const {
    const RandomFile source(files_, Backuplist / name, os::Open::Read);
    const RandomFile copy(files_, BackUpTarget / name, os::Open::Read);
    if (source.length() != copy.length()) return false;
    for (std::uint64_t offset = 0;; offset += kBlock) {
        const std::string block = source.read(offset, kBlock);
        if (block != copy.read(offset, kBlock)) return false;
        if (block.size() < kBlock) return true;
    }
}

void Backup::start(const std::vector<Item>& items) {
    progress_.fileCount = items.size();
    for (const auto& item : items)
        progress_.byteCount += item.length;
}

/// Tells of the next file; false when the user has stopped the run.
bool Backup::next(const std::string& doing, const Item& item) {
    BackUpProgress = doing + shown(item.name);
    onChange();
    if (stopped_) {
        BackUpProgress = "Stopped after " + std::to_string(progress_.files) + " of " +
                         counted(progress_.fileCount, "file");
        prompts_.say(BackUpProgress);
        return false;
    }
    ++progress_.files;
    progress_.bytes += item.length;
    return true;
}

void Backup::sayAborted(const Fault& fault) {
    const auto* error = dynamic_cast<const FileError*>(&fault);
    prompts_.say((error != nullptr ? shown(error->path()) + ": " : "") + fault.inWords());
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
