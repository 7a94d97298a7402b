#include "core/backup/backup.h"

#include "core/platform/path_text.h"
#include "core/platform/text.h"
#include "core/settings/picture_folder.h"

#include <algorithm>
#include <array>
#include <optional>

namespace bramblet {
namespace {

constexpr std::array<std::u16string_view, 5> kEndings{u".DAT", u".HTM", u".GIF", u".JPG", u".BMP"};
constexpr std::size_t kBlock = 1 << 20;
constexpr std::size_t kNamesTold = 10;

/// Thrown to leave a run that the user has stopped.
struct Stopped {};

/// Keeps a flag true for its own lifetime.
class Flag {
  public:
    explicit Flag(bool& flag) : flag_(flag) { flag_ = true; }
    ~Flag() { flag_ = false; }
    Flag(const Flag&) = delete;
    Flag& operator=(const Flag&) = delete;

  private:
    bool& flag_;
};

/// The folder without blanks around it, and with a trailing separator.
std::filesystem::path tidied(const std::filesystem::path& folder) {
    constexpr std::filesystem::path::value_type kBlank = ' ';
    const auto& text = folder.native();
    const auto first = text.find_first_not_of(kBlank);
    if (first == text.npos) return {};
    return withSeparator(text.substr(first, text.find_last_not_of(kBlank) - first + 1));
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
Backup::Backup(const FileSystem& files, Commands& commands, Settings& settings, const Lists& lists)
    : files_(files.withoutRetry()), commands_(commands), settings_(settings), lists_(lists) {}

void Backup::open(Kind kind) {
    commands_.onData([&] {
        const std::filesystem::path& data = commands_.folder().DataPath();
        kind_ = kind;
        progress_ = {};
        BackUpProgress.clear();
        settings_.BackupFolder = trimmedField(settings_.BackupFolder);
        if (settings_.BackupFolder.empty())
            settings_.BackupFolder = storableFolder(data).value_or("");
        const std::filesystem::path remembered = pathOfFolder(settings_.BackupFolder);
        Backuplist = kind == Kind::Backup ? data : remembered;
        BackUpTarget = kind == Kind::Backup ? remembered : data;
        BackMeUp.clear();
        commands_.open(&Screen::showBackup);
    });
}

void Backup::list() {
    during([&] {
        try {
            listFiles();
            BackUpProgress = counted(BackMeUp.size(), "file");
        } catch (const Fault& fault) {
            BackUpProgress = "This folder cannot be read: " + fault.inWords();
        }
        return true;
    });
}

std::optional<std::filesystem::path> Backup::chooseFolder() {
    return commands_.prompts().chooseFolder("Select a folder...", commands_.folder().DataPath());
}

void Backup::SelectTarget_Click() {
    commands_.run([&] {
        const auto folder = chooseFolder();
        if (!folder) return;
        BackUpTarget = withSeparator(*folder);
        rememberTarget();
    });
}

void Backup::SelectSource_Click() {
    commands_.run([&] {
        const auto folder = chooseFolder();
        if (!folder) return;
        Backuplist = withSeparator(*folder);
        list();
    });
}

bool Backup::RunBackup_Click() {
    if (running_) return false;
    bool completed = false;
    commands_.run([&] {
        if (kind_ == Kind::Restore && !mayRestore()) return;
        bool copied = false;
        completed = run([&] {
            copied = prepare();
            return copied && copyAll();
        });
        if (copied && kind_ == Kind::Restore) refill();
        if (!completed) return;
        // A target that was typed is remembered just like one that was selected.
        if (kind_ == Kind::Backup) rememberTarget();
        const bool backup = kind_ == Kind::Backup;
        commands_.tell(backup ? "Backup completed!" : "Restoration completed!", "Finished");
    });
    return completed;
}

bool Backup::mayRestore() {
    const Message caution{
        "CAUTION - this is the data restoration function, not backup! This should only be used to "
        "recover backup data after a disk failure, or after a bad import operation. This will "
        "over-write whatever you already have in your default data folder COMPLETELY!\r\n\r\n"
        "Proceed?",
        "Confirm", Buttons::YesNo, Icon::Stop, Answer::No};
    return commands_.prompts().ask(caution) == Answer::Yes;
}

/// The order shown stays as it is.
void Backup::refill() {
    lists_.addresses.refreshNames();
    lists_.savedOrders.PopPOGrid();
    lists_.stock.PopStockList();
    lists_.histories.reload();
}

void Backup::Verify_Click() {
    if (running_) return;
    commands_.run([&] {
        Comparison result;
        if (!run([&] { return prepare() && compareAll(result); })) return;
        const bool good =
            result.differing.empty() && result.missing.empty() && result.unreadable.empty();
        commands_.tell(BackUpProgress + "." + nameList("Different:", result.differing) +
                           nameList("Missing:", result.missing) +
                           nameList("Cannot be read:", result.unreadable),
                       "Verify", good ? Icon::Information : Icon::Exclamation);
    });
}

/// Does the work of one of the commands; false when it was not completed.
bool Backup::run(const std::function<bool()>& work) {
    try {
        const bool done = during(work);
        if (stopped_ && !done) commands_.say(BackUpProgress);
        return done;
    } catch (const Fault& fault) {
        sayAborted(fault);
        return false;
    }
}

/// While the work runs, no other can be started. False if some is already running, or if it was
/// stopped.
bool Backup::during(const std::function<bool()>& work) {
    if (running_) return false;
    stopped_ = false;
    progress_ = {};
    bool done = false;
    try {
        const Flag running(running_);
        done = work();
    } catch (const Stopped&) {
        BackUpProgress = stoppedText();
    }
    commands_.screen().showBackupProgress();
    return done;
}

/// Keeps the windows live.
void Backup::step() {
    commands_.screen().showBackupProgress();
    if (stopped_) throw Stopped{};
}

/// Tidies the folders; false, after a message, when there is nothing to do.
bool Backup::prepare() {
    Backuplist = tidied(Backuplist);
    BackUpTarget = tidied(BackUpTarget);
    const auto nothing = [&](const std::string& why) {
        commands_.tell(why, "Nothing to do!", Icon::Exclamation);
        return false;
    };
    if (!BackUpTarget.is_absolute()) {
        return nothing("Please select a target folder, or type its whole path.");
    }
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
        commands_.say("The folder " + shown(BackUpTarget) +
                      " will not be remembered: its name is too long or no text");
    }
}

bool Backup::isSameFolder() const {
    return withoutCase(Backuplist) == withoutCase(BackUpTarget) ||
           files_.isSameFile(Backuplist, BackUpTarget);
}

void Backup::listFiles() {
    BackMeUp.clear();
    BackUpProgress = "Listing the files";
    const std::u16string graphic = withoutCase(pathOfName(trimmedField(settings_.TopGraphic)));
    auto names = files_.fileNames(Backuplist, [this] { step(); });
    std::erase_if(names, [&](const std::filesystem::path& name) {
        const bool isGraphic = isPicture(name) && withoutCase(name) == graphic;
        return !isGraphic && !endsInOneOf(name, kEndings);
    });
    sortWithoutCase(names);
    BackMeUp = std::move(names);
}

/// The files with their lengths. A file that has disappeared since it was listed is skipped.
std::vector<Backup::Item> Backup::items() {
    BackUpProgress = "Counting the files";
    std::vector<Item> all;
    all.reserve(BackMeUp.size());
    for (const auto& name : BackMeUp) {
        step();
        try {
            all.push_back({name, files_.status(Backuplist / name).length});
        } catch (const FileError& error) {
            if (error.number() != FaultNumber::FileNotFound) throw;
        }
    }
    return all;
}

bool Backup::copyAll() {
    const std::vector<Item> all = items();
    checkSpace(all);
    start(all);
    CopyBatch batch(files_, BackUpTarget);
    try {
        for (const auto& item : all) {
            begin("Copying: ", item);
            batch.copy(Backuplist / item.name, item.name);
            finish(item);
        }
        batch.putInPlace();
    } catch (...) {
        try {
            batch.putInPlace();  // what was copied before this
        } catch (const Fault&) {
            // the first fault is the one to tell of
        }
        progress_.files = batch.placed();
        throw;
    }
    BackUpProgress = counted(all.size(), "file") + " copied";
    return true;
}

bool Backup::compareAll(Comparison& result) {
    const std::vector<Item> all = items();
    start(all);
    for (const auto& item : all) {
        begin("Comparing: ", item);
        compare(item.name, result);
        finish(item);
    }
    BackUpProgress = counted(result.agreeing.size(), "file") + " agree, " +
                     std::to_string(result.differing.size()) + " differ, " +
                     std::to_string(result.missing.size()) + " missing";
    if (!result.unreadable.empty())
        BackUpProgress += ", " + std::to_string(result.unreadable.size()) + " cannot be read";
    return true;
}

void Backup::compare(const std::filesystem::path& name, Comparison& result) const {
    try {
        (isSame(name) ? result.agreeing : result.differing).push_back(shown(name));
    } catch (const FileError& error) {
        if (error.path() != BackUpTarget / name) throw;  // the copy is not to blame
        if (error.number() == FaultNumber::FileNotFound ||
            error.number() == FaultNumber::PathNotFound) {
            result.missing.push_back(shown(name));
        } else {
            result.unreadable.push_back(shown(name) + ": " + error.inWords());
        }
    }
}

/// Throws FileError (DiskFull) when the files will not fit, as far as the system can tell. They
/// need what they take beyond the files they replace, and those of one batch twice while they are
/// being replaced.
void Backup::checkSpace(const std::vector<Item>& items) {
    std::uint64_t more = 0;
    std::uint64_t replaced = 0;
    std::uint64_t largest = 0;
    for (const auto& item : items) {
        step();
        const std::filesystem::path target = BackUpTarget / item.name;
        const std::uint64_t old = files_.exists(target) ? files_.status(target).length : 0;
        const std::uint64_t again = std::min(item.length, old);
        more += item.length - again;
        replaced += again;
        largest = std::max(largest, again);
    }
    std::optional<std::uint64_t> free;
    try {
        free = files_.freeSpace(BackUpTarget);
    } catch (const Fault&) {
        return;
    }
    const std::uint64_t twice = std::min(replaced, CopyBatch::kMost + largest);
    if (free && more + twice > *free) throw FileError(FaultNumber::DiskFull, BackUpTarget);
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

/// Announces the next file.
void Backup::begin(const std::string& doing, const Item& item) {
    BackUpProgress = doing + shown(item.name);
    step();
}

void Backup::finish(const Item& item) {
    ++progress_.files;
    progress_.bytes += item.length;
}

std::string Backup::stoppedText() const {
    if (progress_.fileCount == 0) return "Stopped";
    return "Stopped after " + std::to_string(progress_.files) + " of " +
           counted(progress_.fileCount, "file");
}

void Backup::sayAborted(const Fault& fault) {
    const auto* error = dynamic_cast<const FileError*>(&fault);
    const auto path = error != nullptr ? error->path() : std::filesystem::path();
    const auto named = path.has_filename() ? path.filename() : path;
    BackUpProgress =
        "Aborted" + (named.empty() ? "" : " at " + shown(named)) + ": " + fault.inWords();
    commands_.screen().showBackupProgress();
    commands_.say((path.empty() ? "" : shown(path) + ": ") + fault.inWords());
    commands_.tell(
        "An error has occurred, and this operation has been aborted...\r\n\r\nError name: " +
            fault.description() + "\r\n\r\nError number: " + std::to_string(fault.code()) +
            "\r\n\r\nPlease make a note of the error name and number, and which process you are "
            "having trouble with.\r\n\r\nIn the event you are unable to solve the problem "
            "yourself, this information will make it much more likely that Quenmoor tech support "
            "will be able to help in a timely manner. Thanks, and sorry you are having trouble!",
        "Bramblet", Icon::Stop);
}

}  // namespace bramblet
