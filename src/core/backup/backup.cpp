#include "core/backup/backup.h"

#include "core/backup/counted.h"
#include "core/orders/kept_orders.h"
#include "core/platform/path_text.h"
#include "core/platform/text.h"
#include "core/settings/picture_folder.h"

#include <algorithm>
#include <array>
#include <optional>

namespace bramblet {
namespace {

constexpr std::array<std::u16string_view, 5> kEndings{u".DAT", u".HTM", u".GIF", u".JPG", u".BMP"};
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
Backup::Backup(const FileSystem& files, Commands& commands, Settings& settings,
               const SettingsFile& settingsFile, const Clock& clock, const Lists& lists)
    : files_(files.withoutRetry()),
      commands_(commands),
      settings_(settings),
      settingsFile_(settingsFile),
      clock_(clock),
      note_(files_, commands.folder().file(BackupNote::kName)),
      lists_(lists) {}

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
        warning.clear();
        // The window starts out as the last backup was made.
        const BackupNote::Last last = note_.read().value_or(BackupNote::Last{});
        dated = last.dated;
        withSettings_ = kind == Kind::Backup && last.withSettings;
        commands_.open(&Screen::showBackup);
    });
}

void Backup::list() {
    during([&] {
        warning.clear();
        newest_.clear();
        try {
            listFiles();
            BackUpProgress = counted(BackMeUp.size(), "file");
            if (kind_ == Kind::Restore) look();
        } catch (const Fault& fault) {
            BackUpProgress = "This folder cannot be read: " + fault.inWords();
        }
        return true;
    });
}

/// Whether the source holds orders at all: it may be the folder above dated backups.
void Backup::look() {
    const auto isList = [](const std::filesystem::path& name) {
        return withoutCase(name) == withoutCase(kOrderList);
    };
    if (std::any_of(BackMeUp.begin(), BackMeUp.end(), isList)) return;
    warning = "There is no list of orders in this folder.";
    newest_ = newestBackupIn(files_, Backuplist);
    if (hasNewest())
        warning += " The newest backup in it is \"" + shown(newest_.filename()) + "\".";
}

void Backup::TakeNewest_Click() {
    commands_.run([&] {
        if (!hasNewest()) return;
        Backuplist = withSeparator(newest_);
        list();
    });
}

void Backup::takeSettingsAlong(bool along) {
    withSettings_ = along;
    commands_.run([&] { list(); });
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
            copied = prepare() && makeTarget() && (kind_ == Kind::Backup || keepReplaced());
            return copied && copyAll();
        });
        if (copied && kind_ == Kind::Restore) refill();
        if (copied && !kept_.empty())
            commands_.sayDone("What the restore has replaced is kept in " + shown(kept_));
        if (!completed) return;
        const bool backup = kind_ == Kind::Backup;
        if (backup) {
            // A target that was typed is remembered just like one that was selected.
            rememberTarget();
            commands_.attempt(
                "The day of this backup was not noted: ",
                [&] {
                    note_.write({clock_.today(), dated, withSettings_});
                },
                Loss::List);
        }
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
        if (!run([&] { return prepare() && findDated() && compareAll(result); })) return;
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
    place_ = BackUpTarget;
    kept_.clear();
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

/// Makes the folder for the copies; false if the user does not want it.
bool Backup::makeTarget() {
    if (!files_.exists(BackUpTarget)) {
        const Message question{
            "The folder " + shown(BackUpTarget) + " does not exist.\r\n\r\nCreate it?", "Confirm",
            Buttons::YesNo, Icon::Question};
        if (commands_.prompts().ask(question) != Answer::Yes) {
            BackUpProgress = "Nothing was copied";
            return false;
        }
        files_.createFolders(BackUpTarget);
    }
    if (isDated()) {
        place_ = keptPath(files_, BackUpTarget, kDatedBackup, "", clock_);
        files_.createFolders(place_);
    }
    return true;
}

/// The dated backup to compare with; false, after a message, when there is none.
bool Backup::findDated() {
    if (!isDated()) return true;
    place_ = newestBackupIn(files_, BackUpTarget);
    if (!place_.empty()) return true;
    commands_.tell("There is no dated backup in " + shown(BackUpTarget) + ".", "Nothing to do!",
                   Icon::Exclamation);
    return false;
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
    const std::filesystem::path settings = kSettingsFile;
    const bool there = std::find(names.begin(), names.end(), settings) != names.end();
    std::erase_if(names, [&](const std::filesystem::path& name) {
        const bool isGraphic = isPicture(name) && withoutCase(name) == graphic;
        return !isGraphic && !endsInOneOf(name, kEndings);
    });
    sortWithoutCase(names);
    if (withSettings_ && (there || kind_ == Kind::Backup)) names.push_back(settings);
    BackMeUp = std::move(names);
}

void Backup::remind(const std::vector<std::filesystem::path>& names) const {
    constexpr double kWeek = 7;
    const OrderRecords* const records = lists_.savedOrders.records();
    if (records == nullptr) return;
    const double today = clock_.today();
    double oldest = today;  // the date of an order
    bool any = false;
    for (const OrderRow& order : *records) {
        if (order.field<&OrderIndexRecord::Status>() == kDeletedOrder) continue;
        const double date = order.get<&OrderIndexRecord::OrderDate>();
        if (date > 0) oldest = std::min(oldest, date);
        any = true;
    }
    if (!any) return;
    const bool noted = std::find(names.begin(), names.end(),
                                 std::filesystem::path(BackupNote::kName)) != names.end();
    const auto last = noted ? note_.read() : std::nullopt;
    const double age = today - (last ? last->day : oldest);
    if (!(age > kWeek)) return;
    commands_.screen().showHint(
        last ? "The last backup is " + counted(static_cast<std::size_t>(age), "day") +
                   " old: Data > Back Up Data makes a new one"
             : "No backup of these orders is known: Data > Back Up Data makes one");
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
