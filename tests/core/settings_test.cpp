#include "app/settings_file.h"
#include "platform/text.h"
#include "support/scripted_prompts.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace bramblet {
namespace {

using namespace test;

class SettingsFileTest : public ::testing::Test {
  protected:
    std::filesystem::path home() const { return folder_ / "Quenmoor"; }
    Settings load() { return SettingsFile(FileSystem(), home()).LoadConfig(prompts_); }
    std::string bytes() const { return contentOf(home() / "po15.cfg"); }
    /// The bytes of the file from an offset on.
    std::string at(std::size_t offset, std::size_t width) const {
        return bytes().substr(offset, width);
    }

    TemporaryFolder folder_;
    ScriptedPrompts prompts_;
};

TEST_F(SettingsFileTest, FirstStartWritesTheDefaultsToTheByte) {
    load();
    const std::string zeros(300, '\0');
    const auto blanks = [](const std::string& text, std::size_t width) {
        return text + std::string(width - text.size(), ' ');
    };
    const std::string directory = withSeparator(home() / "po_data").string();
    ASSERT_EQ(bytes().size(), 1719u);
    EXPECT_EQ(at(0, 4), std::string("\x17\0\x41\0", 4));
    EXPECT_EQ(at(4, 48), zeros.substr(0, 48));
    EXPECT_EQ(at(52, 100), blanks("", 100));
    EXPECT_EQ(at(152, 6), "YNNYNY");
    EXPECT_EQ(at(158, 18), zeros.substr(0, 18));
    EXPECT_EQ(at(176, 20), "1    1    7855 9735 ");
    EXPECT_EQ(at(196, 200), blanks("Arial", 200));
    EXPECT_EQ(at(396, 3), "640");
    EXPECT_EQ(at(399, 200), blanks("po_top.gif", 200));
    EXPECT_EQ(at(599, 61), "Y" + blanks("Your Company Name", 60));
    EXPECT_EQ(at(660, 240), blanks("Address Line 1", 60) + blanks("Address Line 2", 60) +
                                blanks("Address Line 3", 60) +
                                blanks("Maybe phone & fax here?", 60));
    EXPECT_EQ(at(900, 8), zeros.substr(0, 8));
    EXPECT_EQ(at(908, 300), blanks(directory, 300));
    EXPECT_EQ(at(1208, 12), zeros.substr(0, 12));
    EXPECT_EQ(at(1220, 300), blanks(directory, 300));
    EXPECT_EQ(at(1520, 199), blanks("", 199));
    EXPECT_EQ(contentOf(home() / "po14.cfg"), "");
    EXPECT_TRUE(FileSystem().exists(directory));
}

TEST_F(SettingsFileTest, TheForerunnersRecordIsTakenOverButForTheBackupFolder) {
    FileSystem().createFolders(home());
    std::string old = encodeRecord(kSettingsLayout, defaultSettings(home()));
    old.replace(4, 8, "reserved");
    old.replace(908, 300, fitted("  /srv/data/", 300));
    old.replace(1220, 300, fitted("/backup/", 300));
    writeFile(home() / "po14.cfg", old);
    const Settings settings = load();
    EXPECT_EQ(settings.DataDirectory, "/srv/data/");  // trimmed
    EXPECT_EQ(at(0, 1220), old.substr(0, 1220));
    EXPECT_EQ(trimmedField(at(1220, 300)), defaultDataDirectory(home()));
    EXPECT_FALSE(FileSystem().exists(defaultDataDirectory(home())));
}

TEST_F(SettingsFileTest, EveryByteOfAFileIsCarriedThrough) {
    FileSystem().createFolders(home());
    std::string old;
    for (std::size_t i = 0; i < 1719; ++i)
        old.push_back(static_cast<char>(i * 7 % 251));
    old.replace(908, 300, std::string("/d/") + std::string(297, ' '));
    writeFile(home() / "po15.cfg", old);
    SettingsFile file(FileSystem(), home());
    file.SaveConfig(file.LoadConfig(prompts_));
    EXPECT_EQ(bytes(), old);
}

TEST_F(SettingsFileTest, AnUnusableFileIsKeptAsideAndReplacedByTheDefaults) {
    FileSystem().createFolders(home());
    for (const std::string kept : {"po15-old.cfg", "po15-old2.cfg"}) {
        writeFile(home() / "po15.cfg", "short");
        prompts_.expectSaying("po15.cfg cannot be used: it holds 5 bytes where 1719 are needed");
        load();
        EXPECT_EQ(contentOf(home() / kept), "short");
        EXPECT_EQ(bytes().size(), 1719u);
    }
}

TEST_F(SettingsFileTest, AnUnreadableFileIsToldToo) {
    FileSystem().createFolders(home() / "po15.cfg");  // a folder of that name
    prompts_.expectSaying("Path/File access error (error 75)");
    EXPECT_EQ(trimmedField(load().FontName), "Arial");
    EXPECT_EQ(bytes().size(), 1719u);
}

TEST_F(SettingsFileTest, AFileThatCannotBePutAsideIsNeverWrittenOver) {
    // The home folder's path runs through a plain file: nothing there can be read, moved or made.
    writeFile(folder_ / "Quenmoor", "");
    SettingsFile file(FileSystem(), home());
    prompts_.expectSaying("no settings are saved this time");
    const Settings settings = file.LoadConfig(prompts_);
    EXPECT_NO_THROW(file.SaveConfig(settings));
}

TEST(Settings, OnlyAnExactYIsOn) {
    EXPECT_TRUE(isOn("Y"));
    for (const char* other : {"y", "N", "", " ", "1"})
        EXPECT_FALSE(isOn(other));
    EXPECT_FALSE(isOn(std::string(1, '\0')));
}

}  // namespace
}  // namespace bramblet
