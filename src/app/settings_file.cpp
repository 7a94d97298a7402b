#include "app/settings_file.h"

#include "platform/path_text.h"
#include "platform/text.h"

namespace bramblet {
namespace {

constexpr const char* kFile = "po15.cfg";
constexpr const char* kForerunner = "po14.cfg";
constexpr std::size_t kSize = recordSize(kSettingsLayout);

}  // namespace

SettingsFile::SettingsFile(FileSystem files, std::filesystem::path homeFolder)
    : files_(std::move(files)), home_(std::move(homeFolder)) {}

Settings SettingsFile::LoadConfig(Prompts& prompts) {
    Settings settings;
    try {
        files_.createFolders(home_);
        const std::string bytes = contentOf(kFile);
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
    if (handsOff_) return;
    RandomFile file = files_.openRandom(home_ / kFile);
    file.write(0, encodeRecord(kSettingsLayout, settings));
    file.flush();
}

/// The content of a file of the home folder, which is created empty when it is missing.
std::string SettingsFile::contentOf(const char* name) const {
    if (!files_.exists(home_ / name)) files_.touch(home_ / name);
    return files_.read(home_ / name);
}

Settings SettingsFile::firstSettings(Prompts& prompts) {
    const std::string forerunner = contentOf(kForerunner);
    if (forerunner.size() >= kSize) {
        Settings settings = decodeRecord(kSettingsLayout, forerunner);
        settings.BackupFolder = storableFolder(defaultDataDirectory(home_)).value_or("");
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
    Settings settings = defaultSettings(home_);
    SaveConfig(settings);
    files_.createFolders(defaultDataDirectory(home_));
    return settings;
}

Settings SettingsFile::insteadOfUnusable(const std::string& name, const std::string& reason,
                                         Prompts& prompts) {
    std::string text = "The settings file " + shown(home_ / name) + " cannot be used: " + reason +
                       ".\r\n\r\nThe program goes on with its default settings. ";
    handsOff_ = true;
    try {
        text += "The old file was kept as " + moveAside(name) + " in the same folder.";
        handsOff_ = false;
        newDefaults();
    } catch (const FileError& error) {
        text += handsOff_ ? "The old file was left where it is, and no settings are saved this time"
                          : " The default settings could not be stored";
        text += ": " + error.inWords() + ".";
    }
    prompts.ask({text, "Settings", Buttons::Ok, Icon::Exclamation});
    return defaultSettings(home_);
}

std::string SettingsFile::moveAside(const std::string& name) const {
    const std::string stem = name.substr(0, name.find('.'));
    std::string kept = stem + "-old.cfg";
    for (int i = 2; files_.exists(home_ / kept); ++i) {
        kept = stem + "-old" + std::to_string(i) + ".cfg";
    }
    files_.rename(home_ / name, home_ / kept);
    return kept;
}

}  // namespace bramblet
