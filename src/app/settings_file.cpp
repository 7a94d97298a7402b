#include "app/settings_file.h"

#include "platform/text.h"

namespace bramblet {
namespace {

constexpr const char* kFile = "po15.cfg";
constexpr const char* kForerunner = "po14.cfg";
constexpr std::size_t kSize = recordSize(kSettingsLayout);

}  // namespace

SettingsFile::SettingsFile(FileSystem files, std::string homeFolder)
    : files_(std::move(files)), home_(std::move(homeFolder)) {}

Settings SettingsFile::LoadConfig(Prompts& prompts) const {
    Settings settings;
    try {
        files_.createFolders(home_);
        const std::string bytes = files_.openRandom(home_ + kFile).readAll();
        if (bytes.empty()) {
            settings = firstSettings(prompts);
        } else if (bytes.size() < kSize) {
            settings =
                insteadOfUnusable(kFile,
                                  "it holds " + std::to_string(bytes.size()) + " bytes where " +
                                      std::to_string(kSize) + " are needed",
                                  prompts);
        } else {
            settings = decodeRecord(kSettingsLayout, bytes);
        }
    } catch (const FileError& error) {
        settings = insteadOfUnusable(kFile, error.inWords(), prompts);
    }
    settings.DataDirectory = trimmedField(settings.DataDirectory);
    return settings;
}

void SettingsFile::SaveConfig(const Settings& settings) const {
    files_.openRandom(home_ + kFile).write(0, encodeRecord(kSettingsLayout, settings));
}

Settings SettingsFile::firstSettings(Prompts& prompts) const {
    const std::string forerunner = files_.openRandom(home_ + kForerunner).readAll();
    if (forerunner.size() >= kSize) {
        Settings settings = decodeRecord(kSettingsLayout, forerunner);
        settings.BackupFolder = defaultDataDirectory(home_);
        SaveConfig(settings);
        return settings;
    }
    if (!forerunner.empty()) {
        return insteadOfUnusable(
            kForerunner, "it is shorter than the " + std::to_string(kSize) + " bytes of a record",
            prompts);
    }
    return newDefaults();
}

Settings SettingsFile::newDefaults() const {
    const Settings settings = defaultSettings(home_);
    SaveConfig(settings);
    files_.createFolders(defaultDataDirectory(home_));
    return settings;
}

Settings SettingsFile::insteadOfUnusable(const std::string& name, const std::string& reason,
                                         Prompts& prompts) const {
    std::string text = "The settings file " + home_ + name + " cannot be used: " + reason +
                       ".\r\n\r\nThe program goes on with its default settings.";
    Settings settings = defaultSettings(home_);
    try {
        const std::string kept = moveAside(name);
        settings = newDefaults();
        text += " The old file was kept as " + kept + " in the same folder.";
    } catch (const FileError& error) {
        text += " They could not be stored: " + error.inWords() + ".";
    }
    prompts.ask({text, "Settings", Buttons::Ok, Icon::Exclamation});
    return settings;
}

std::string SettingsFile::moveAside(const std::string& name) const {
    const std::string stem = name.substr(0, name.find('.'));
    std::string kept = stem + "-old.cfg";
    for (int i = 2; files_.exists(home_ + kept); ++i) {
        kept = stem + "-old" + std::to_string(i) + ".cfg";
    }
    files_.rename(home_ + name, home_ + kept);
    return kept;
}

}  // namespace bramblet
