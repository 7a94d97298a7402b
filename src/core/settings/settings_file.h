// The settings file "po15.cfg" in the home folder, and how its forerunner's record is taken over.
#pragma once

#include "core/platform/file_system.h"
#include "core/platform/prompts.h"
#include "core/settings/settings.h"

#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>

namespace bramblet {

inline constexpr const char* kSettingsFile = "po15.cfg";

/// The settings could not be used, and the user has chosen to leave; nothing has been changed.
class StartGivenUp : public std::runtime_error {
  public:
    StartGivenUp() : std::runtime_error("The start was given up") {}
};

class SettingsFile {
  public:
    /// When reading, a file in use is waited for by the rule of `files`; when writing, it is not.
    SettingsFile(FileSystem files, std::filesystem::path homeFolder);

    /// Reads the settings; a missing or empty file is first filled with the record of "po14.cfg",
    /// or with the defaults, whose data folder is then created. `DataDirectory` is returned
    /// trimmed.
    ///
    /// The settings name the folder of the orders, so the defaults never take their place unasked:
    /// when a file cannot be read, the user can try again; when it is too short, what is there is
    /// used and a copy is kept. Throws StartGivenUp when the user chooses to leave.
    Settings LoadConfig(Prompts& prompts) const;

    /// Writes the record. Throws FileError.
    void SaveConfig(const Settings& settings) const;

    const std::filesystem::path& homeFolder() const { return home_; }

  private:
    // Each of these returns nothing when the user wants the files read again.
    std::optional<Settings> read(Prompts& prompts) const;
    std::optional<Settings> firstSettings(bool empty, Prompts& prompts) const;
    std::optional<Settings> rescued(const std::string& bytes, Prompts& prompts) const;

    std::optional<std::string> contentOf(const char* name) const;
    Settings takenOver(const std::string& forerunner) const;
    bool goesOn(const std::string& trouble, const std::string& outlook, const std::string& keeping,
                Prompts& prompts) const;
    std::string newFolderOutlook() const;
    std::string nameForCopy() const;

    FileSystem files_;
    std::filesystem::path home_;
};

}  // namespace bramblet
