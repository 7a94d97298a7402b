#include "core/settings/settings_file.h"

#include "core/platform/path_text.h"
#include "core/platform/text.h"

namespace bramblet {
namespace {

constexpr const char* kForerunner = "po14.cfg";
constexpr std::size_t kSize = recordSize(kSettingsLayout);
constexpr auto kDirectory = SettingsView::fieldOf<&Settings::DataDirectory>();
constexpr std::size_t kDirectoryEnd = kDirectory.offset + kDirectory.width;

/// Whether a record that is cut off within the data directory has lost only padding of it. One
/// blank does not prove it: paths contain blanks too.
bool directoryHasEnded(const std::string& bytes) {
    return bytes.size() >= kDirectory.offset + 2 &&
           trimmedField(bytes.substr(bytes.size() - 2)).empty();
}

/// The settings, with those fields that are present in the bytes of a possibly truncated record.
Settings withFieldsOf(std::string bytes, Settings settings) {
    if (bytes.size() < kDirectoryEnd && directoryHasEnded(bytes)) bytes.resize(kDirectoryEnd, ' ');
    for (const auto& field : kSettingsLayout) {
        if (field.offset + field.width > bytes.size()) break;
        decodeField(field, bytes, settings);
    }
    return settings;
}

/// Asks whether to try again; otherwise leaves the program.
void askToTryAgain(const FileError& error, Prompts& prompts) {
    const Message message{
        "Bramblet cannot use its settings:\r\n\r\n" + shown(error.path()) + "\r\n" +
            error.inWords() +
            "\r\n\r\nThey name the folder with your orders, so the program does not start without "
            "them. Perhaps another program holds the file for a moment.\r\n\r\nTry again, or close "
            "the program and leave everything as it is?",
        "Settings", Buttons::RetryClose, Icon::Exclamation};
    if (prompts.ask(message) != Answer::Retry) throw StartGivenUp();
}

}  // namespace

SettingsFile::SettingsFile(FileSystem files, std::filesystem::path homeFolder)
    : files_(std::move(files)), home_(std::move(homeFolder)) {}

Settings SettingsFile::LoadConfig(Prompts& prompts) const {
    for (;;) {
        try {
            if (auto settings = read(prompts)) {
                settings->DataDirectory = trimmedField(settings->DataDirectory);
                return *settings;
            }
        } catch (const FileError& error) {
            askToTryAgain(error, prompts);
        }
    }
}

void SettingsFile::SaveConfig(const Settings& settings) const {
    files_.withoutRetry().replace(home_ / kSettingsFile, encodeRecord(kSettingsLayout, settings));
}

std::optional<Settings> SettingsFile::read(Prompts& prompts) const {
    const auto bytes = contentOf(kSettingsFile);
    if (!bytes || bytes->empty()) return firstSettings(bytes.has_value(), prompts);
    if (bytes->size() < kSize) return rescued(*bytes, prompts);
    return decodeRecord(kSettingsLayout, *bytes);
}

/// The content of a file in the home folder; nothing when it is missing. Unreadable is not missing.
std::optional<std::string> SettingsFile::contentOf(const char* name) const {
    try {
        return files_.read(home_ / name);
    } catch (const FileError& error) {
        const bool missing = error.number() == FaultNumber::FileNotFound ||
                             error.number() == FaultNumber::PathNotFound;
        if (!missing) throw;
        return std::nullopt;
    }
}

std::optional<Settings> SettingsFile::firstSettings(bool empty, Prompts& prompts) const {
    const auto forerunner = contentOf(kForerunner);
    if (forerunner && !forerunner->empty()) return takenOver(*forerunner);
    // The very first start leaves an empty forerunner behind, so there have been settings before.
    const std::string trouble =
        empty ? "is empty" : "is missing, although Bramblet has been started here before";
    if (forerunner && !goesOn(trouble, newFolderOutlook(), "", prompts)) return std::nullopt;
    const Settings settings = defaultSettings(home_);
    // The folder first: once there are settings that name it, nobody makes it any more.
    files_.createFolders(defaultDataDirectory(home_));
    SaveConfig(settings);
    files_.replace(home_ / kForerunner, "");
    return settings;
}

/// A record shorter than today's lacks fields at its end, which were never assigned.
Settings SettingsFile::takenOver(const std::string& forerunner) const {
    Settings settings = withFieldsOf(forerunner, decodeRecord(kSettingsLayout, ""));
    settings.BackupFolder = defaultSettings(home_).BackupFolder;
    SaveConfig(settings);
    return settings;
}

std::optional<Settings> SettingsFile::rescued(const std::string& bytes, Prompts& prompts) const {
    const Settings defaults = defaultSettings(home_);
    Settings settings = withFieldsOf(bytes, defaults);
    const std::string folder = trimmedField(withFieldsOf(bytes, {}).DataDirectory);
    if (folder.empty()) settings.DataDirectory = defaults.DataDirectory;
    const std::string trouble = "is too short: it holds " + std::to_string(bytes.size()) +
                                " bytes where " + std::to_string(kSize) + " are needed";
    const std::string outlook =
        folder.empty() ? newFolderOutlook()
                       : "What it still holds can be used, with the data directory\r\n" + folder +
                             "\r\nand the default settings for the rest.";
    const std::string copy = nameForCopy();
    const std::string keeping = ", and the short file is kept as " + copy;
    if (!goesOn(trouble, outlook, keeping, prompts)) return std::nullopt;
    if (folder.empty()) files_.createFolders(defaultDataDirectory(home_));
    // At no moment are both the old file and the new one absent.
    files_.copy(home_ / kSettingsFile, home_ / copy);
    files_.replace(home_ / kSettingsFile, encodeRecord(kSettingsLayout, settings));
    return settings;
}

/// Asks whether to go on despite the trouble with the file; false means reading it again. Leaves
/// the program if the user chooses to.
bool SettingsFile::goesOn(const std::string& trouble, const std::string& outlook,
                          const std::string& keeping, Prompts& prompts) const {
    const Message message{
        "The settings file " + shown(home_ / kSettingsFile) + " " + trouble + ".\r\n\r\n" +
            outlook +
            "\r\n\r\nRetry: read the file again, for example after a good copy has been put back."
            "\r\nIgnore: go on like that" +
            keeping + ".\r\nClose: close the program and leave everything as it is.",
        "Settings", Buttons::RetryIgnoreClose, Icon::Exclamation};
    switch (prompts.ask(message)) {
        case Answer::Retry:
            return false;
        case Answer::Ignore:
            return true;
        default:
            throw StartGivenUp();
    }
}

std::string SettingsFile::newFolderOutlook() const {
    return "It named the folder with your orders. Without it Bramblet would start with its default "
           "settings and the data directory\r\n" +
           shown(defaultDataDirectory(home_)) +
           "\r\nYour orders are not there if another folder had been chosen, and order numbers "
           "would be given a second time.";
}

std::string SettingsFile::nameForCopy() const {
    std::string name = "po15-old.cfg";
    for (int i = 2; files_.exists(home_ / name); ++i)
        name = "po15-old" + std::to_string(i) + ".cfg";
    return name;
}

}  // namespace bramblet
