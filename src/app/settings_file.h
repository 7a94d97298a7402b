// The settings file "po15.cfg" in the home folder, and the taking over of its forerunner's record.
#pragma once

#include "app/settings.h"
#include "platform/file_system.h"
#include "platform/prompts.h"

#include <filesystem>
#include <string>

namespace bramblet {

class SettingsFile {
  public:
    SettingsFile(FileSystem files, std::filesystem::path homeFolder);

    /// Reads the settings; a missing or empty file is first filled with the record of "po14.cfg",
    /// or with the defaults, whose data folder is then created. A file that cannot be used is kept
    /// under another name, said so, and replaced by the defaults. `DataDirectory` comes trimmed.
    Settings LoadConfig(Prompts& prompts);

    /// Writes the record. Throws FileError. Does nothing when the old file could neither be used
    /// nor put aside: it is not lost for settings that are only the defaults.
    void SaveConfig(const Settings& settings) const;

    const std::filesystem::path& homeFolder() const { return home_; }

  private:
    std::string contentOf(const char* name) const;
    Settings firstSettings(Prompts& prompts);
    Settings newDefaults() const;
    Settings insteadOfUnusable(const std::string& name, const std::string& reason,
                               Prompts& prompts);
    std::string moveAside(const std::string& name) const;

    FileSystem files_;
    std::filesystem::path home_;
    bool handsOff_ = false;
};

}  // namespace bramblet
