// Backup and restore: copying the data files, the order documents and the pictures between the data
// folder and another folder, and comparing the two.
#pragma once

#include "core/backup/backup_note.h"
#include "core/history/field_histories.h"
#include "core/orders/saved_orders.h"
#include "core/platform/clock.h"
#include "core/settings/commands.h"
#include "core/settings/settings.h"
#include "core/settings/settings_file.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace bramblet {

class Backup {
  public:
    /// Which of the two windows this is.
    enum class Kind { Backup, Restore };

    /// What a restore puts other files under.
    struct Lists {
        AddressBook& addresses;
        SavedOrders& savedOrders;
        StockList& stock;
        FieldHistories& histories;
    };
    Backup(const FileSystem& files, Commands& commands, Settings& settings,
           const SettingsFile& settingsFile, const Clock& clock, const Lists& lists);

    // Each of these opens its window.
    void mu_DataBackup_Click() { open(Kind::Backup); }
    void mu_DataRestore_Click() { open(Kind::Restore); }

    // What the window shows.
    std::filesystem::path Backuplist;             ///< the source folder
    std::filesystem::path BackUpTarget;           ///< the target folder; may be typed
    std::vector<std::filesystem::path> BackMeUp;  ///< names of the files to be copied, sorted
    std::string BackUpProgress;                   ///< the status line
    /// Whether a backup goes into a new folder in the target, named after the day and the time.
    bool dated = false;
    /// That the folder to be restored from holds no list of orders, if it does not.
    std::string warning;
    /// How far a run has got.
    struct Progress {
        std::size_t files = 0;
        std::size_t fileCount = 0;
        std::uint64_t bytes = 0;
        std::uint64_t byteCount = 0;
    };
    const Progress& progress() const { return progress_; }
    Kind kind() const { return kind_; }
    bool running() const { return running_; }
    /// Whether the settings file goes along.
    bool withSettings() const { return withSettings_; }
    void takeSettingsAlong(bool along);
    /// Whether there is a dated backup in a source that holds no list of orders itself.
    bool hasNewest() const { return !newest_.empty(); }
    /// Goes on to the newest of them.
    void TakeNewest_Click();

    /// Lists the files of the source for the window.
    void list();

    void SelectTarget_Click();
    /// In the restore window only.
    void SelectSource_Click();
    /// Copies every listed file, each under a temporary name until it is complete. True when all
    /// have been copied.
    bool RunBackup_Click();
    /// Compares every file of the source with its copy in the target, byte for byte, and reports
    /// how many agree, differ, are missing or cannot be read.
    void Verify_Click();
    /// Ends a run, or the listing of files, before the next file.
    void StopBackup_Click() { stopped_ = true; }

    /// Gives a hint if there are orders that nobody has backed up for more than a week. `names` are
    /// those of the files in the data folder: every desk that uses it knows of the last backup.
    void remind(const std::vector<std::filesystem::path>& names) const;

  private:
    struct Item {
        std::filesystem::path name;
        std::uint64_t length;
    };

    /// Names; those of unreadable files with the reason.
    struct Comparison {
        std::vector<std::string> agreeing, differing, missing, unreadable;
    };

    void open(Kind kind);
    std::optional<std::filesystem::path> chooseFolder();
    bool mayRestore();
    void refill();
    bool keepReplaced();
    void copyReplaced();
    std::filesystem::path makeKeptFolder() const;
    void removeKept(const std::vector<std::filesystem::path>& names) const;
    bool makeTarget();
    bool findDated();
    void look();
    bool isDated() const { return dated && kind_ == Kind::Backup; }
    bool isSettings(const std::filesystem::path& name) const;
    std::uint64_t lengthOf(const std::filesystem::path& name) const;
    Settings settingsIn(const std::filesystem::path& file) const;
    std::string settingsToCopy() const;
    void copy(const std::filesystem::path& name, CopyBatch& batch);
    bool run(const std::function<bool()>& work);
    bool during(const std::function<bool()>& work);
    void step();
    bool prepare();
    bool isSameFolder() const;
    void rememberTarget();
    void listFiles();
    std::vector<Item> items();
    bool copyAll();
    bool compareAll(Comparison& result);
    void compare(const std::filesystem::path& name, Comparison& result) const;
    void checkSpace(const std::vector<Item>& items);
    bool isSame(const std::filesystem::path& name) const;
    void start(const std::vector<Item>& items);
    void begin(const std::string& doing, const Item& item);
    void finish(const Item& item);
    std::string stoppedText() const;
    void sayAborted(const Fault& fault);

    FileSystem files_;
    Commands& commands_;
    Settings& settings_;
    const SettingsFile& settingsFile_;
    const Clock& clock_;
    BackupNote note_;
    Lists lists_;
    Kind kind_ = Kind::Backup;
    bool withSettings_ = false;
    std::filesystem::path place_;   ///< where a run finds or puts the copies
    std::filesystem::path kept_;    ///< where a restore has put what it replaces
    std::filesystem::path newest_;  ///< the newest dated backup in the source
    Progress progress_;
    bool running_ = false;
    bool stopped_ = false;
};

}  // namespace bramblet
