// What a run of a backup or a restore does with the files: keeping, copying and comparing them.
#include "core/backup/backup.h"
#include "core/backup/counted.h"
#include "core/orders/kept_orders.h"
#include "core/platform/path_text.h"
#include "core/platform/text.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace bramblet {
namespace {

constexpr std::size_t kBlock = 1 << 20;

}  // namespace

/// False if what will be replaced cannot be kept, and the user does not go on all the same.
bool Backup::keepReplaced() {
    try {
        copyReplaced();
        return true;
    } catch (const Fault& fault) {
        const Message question{"What is there now, and would be replaced, cannot be kept: " +
                                   fault.inWords() + ".\r\n\r\nRestore all the same?",
                               "Confirm", Buttons::YesNo, Icon::Stop, Answer::No};
        if (commands_.prompts().ask(question) == Answer::Yes) return true;
        BackUpProgress = "Nothing was restored";
        return false;
    }
}

/// Copies what differs from the files that will replace it into a new folder.
void Backup::copyReplaced() {
    BackUpProgress = "Looking at what is there now";
    std::vector<std::filesystem::path> names;
    for (const auto& name : BackMeUp) {
        step();
        if ((isSettings(name) || files_.exists(place_ / name)) && !isSame(name))
            names.push_back(name);
    }
    if (names.empty()) return;
    kept_ = makeKeptFolder();
    try {
        CopyBatch batch(files_, kept_);
        for (const auto& name : names) {
            BackUpProgress = "Keeping what is there now: " + shown(name);
            step();
            if (isSettings(name))
                files_.replace(kept_ / name, encodeRecord(kSettingsLayout, settings_));
            else
                batch.copy(place_ / name, name);
        }
        batch.putInPlace();
    } catch (...) {
        removeKept(names);
        kept_.clear();
        throw;
    }
}

/// Beside the data folder, or in it where there is no room beside it, as on a share.
std::filesystem::path Backup::makeKeptFolder() const {
    const auto folderIn = [&](const std::filesystem::path& folder) {
        const auto made = keptPath(files_, folder, "Data before restore", "", clock_);
        files_.createFolders(made);
        return made;
    };
    const std::filesystem::path target = place_.parent_path();  // without the separator
    try {
        if (target.has_relative_path()) return folderIn(target.parent_path());
    } catch (const FileError&) {
        // it may be possible inside
    }
    return folderIn(target / "kept");
}

/// What could not be kept as a whole.
void Backup::removeKept(const std::vector<std::filesystem::path>& names) const {
    try {
        for (const auto& name : names) {
            if (files_.exists(kept_ / name)) files_.remove(kept_ / name);
        }
        files_.removeFolder(kept_);
    } catch (const FileError&) {
        // Copies left behind do no harm.
    }
}

bool Backup::isSettings(const std::filesystem::path& name) const {
    return name == kSettingsFile;
}

std::uint64_t Backup::lengthOf(const std::filesystem::path& name) const {
    if (isSettings(name)) return recordSize(kSettingsLayout);
    return files_.status(Backuplist / name).length;
}

/// The settings as they are, which their file will hold when the program has ended.
std::string Backup::settingsToCopy() const {
    Settings settings = settings_;
    if (const auto folder = storableFolder(BackUpTarget)) settings.BackupFolder = trimmed(*folder);
    return encodeRecord(kSettingsLayout, settings);
}

/// Those of a backup, except for the folders: these are where this machine has them.
Settings Backup::settingsIn(const std::filesystem::path& file) const {
    const std::string bytes = files_.read(file);
    if (bytes.size() < recordSize(kSettingsLayout))
        throw FileError(FaultNumber::PastEndOfFile, file);
    Settings settings = decodeRecord(kSettingsLayout, bytes);
    settings.DataDirectory = settings_.DataDirectory;
    settings.BackupFolder = settings_.BackupFolder;
    return settings;
}

void Backup::copy(const std::filesystem::path& name, CopyBatch& batch) {
    if (!isSettings(name)) return batch.copy(Backuplist / name, name);
    if (kind_ == Kind::Backup) return files_.replace(place_ / name, settingsToCopy());
    Settings settings = settingsIn(Backuplist / name);
    settingsFile_.SaveConfig(settings);
    settings_ = std::move(settings);
}

/// The files with their lengths. A file that has disappeared since it was listed is skipped.
std::vector<Backup::Item> Backup::items() {
    BackUpProgress = "Counting the files";
    std::vector<Item> all;
    all.reserve(BackMeUp.size());
    for (const auto& name : BackMeUp) {
        step();
        try {
            all.push_back({name, lengthOf(name)});
        } catch (const FileError& error) {
            if (error.number() != FaultNumber::FileNotFound) throw;
        }
    }
    return all;
}

bool Backup::copyAll() {
    std::vector<Item> all = items();
    // The list of orders comes last in a dated backup: with it, it is complete.
    if (isDated()) {
        std::stable_partition(all.begin(), all.end(), [](const Item& item) {
            return withoutCase(item.name) != withoutCase(kOrderList);
        });
    }
    checkSpace(all);
    start(all);
    CopyBatch batch(files_, place_);
    try {
        for (const auto& item : all) {
            begin("Copying: ", item);
            copy(item.name, batch);
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
    if (isDated()) BackUpProgress += " to \"" + shown(place_.filename()) + "\"";
    if (!kept_.empty()) BackUpProgress += "; what they have replaced is kept in " + shown(kept_);
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
        if (error.path() != place_ / name) throw;  // the copy is not to blame
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
        const std::filesystem::path target = place_ / item.name;
        const std::uint64_t old = files_.exists(target) ? files_.status(target).length : 0;
        const std::uint64_t again = std::min(item.length, old);
        more += item.length - again;
        replaced += again;
        largest = std::max(largest, again);
    }
    std::optional<std::uint64_t> free;
    try {
        free = files_.freeSpace(place_);
    } catch (const Fault&) {
        return;
    }
    const std::uint64_t twice = std::min(replaced, CopyBatch::kMost + largest);
    if (free && more + twice > *free) throw FileError(FaultNumber::DiskFull, place_);
}

bool Backup::isSame(const std::filesystem::path& name) const {
    if (isSettings(name)) {
        return kind_ == Kind::Backup
                   ? files_.read(place_ / name) == settingsToCopy()
                   : encodeRecord(kSettingsLayout, settingsIn(Backuplist / name)) ==
                         encodeRecord(kSettingsLayout, settings_);
    }
    const RandomFile source(files_, Backuplist / name, os::Open::Read);
    const RandomFile copy(files_, place_ / name, os::Open::Read);
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

}  // namespace bramblet
