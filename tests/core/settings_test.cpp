#include "core/platform/text.h"
#include "core/settings/settings_file.h"
#include "support/scripted_prompts.h"
#include "support/temporary_folder.h"

#include <algorithm>
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

TEST_F(SettingsFileTest, AShortForerunnerIsTakenOverAsFarAsItGoes) {
    FileSystem().createFolders(home());
    Settings old = defaultSettings(home());
    old.DataDirectory = "/srv/My Office/";
    old.NumberPrefix = "X-";
    const std::string record = encodeRecord(kSettingsLayout, old);
    struct Case {
        std::size_t length;
        std::string directory, prefix;
    };
    for (const auto& [length, directory, prefix] :
         {Case{1218, "/srv/My Office/", "X-"}, Case{1024, "/srv/My Office/", ""},
          Case{908 + 8, "", ""}, Case{5, "", ""}}) {
        writeFile(home() / "po14.cfg", record.substr(0, length));
        std::filesystem::remove(home() / "po15.cfg");
        const Settings settings = load();
        EXPECT_EQ(settings.DataDirectory, directory) << length;
        EXPECT_EQ(trimmedField(settings.NumberPrefix), prefix) << length;
        EXPECT_EQ(settings.SigLineSpace, 23);
        EXPECT_FALSE(isOn(settings.UseQuantities));
        EXPECT_EQ(trimmedField(at(1220, 300)), defaultDataDirectory(home()));
        EXPECT_EQ(bytes().size(), 1719u);
    }
}

/// What is wrong with "po15.cfg", and what comes of going on all the same.
class DamagedSettings : public SettingsFileTest {
  protected:
    void SetUp() override {
        FileSystem().createFolders(home());
        Settings settings = defaultSettings(home());
        settings.FontName = "Verdana";
        settings.DataDirectory = "/srv/My Office/";
        settings.TaxFreight = "Y";
        whole_ = encodeRecord(kSettingsLayout, settings);
    }
    void expectQuestion(const std::string& part, Answer answer) {
        prompts_.expectSaying(part, answer);
    }
    std::vector<std::filesystem::path> names() const {
        auto names = FileSystem().fileNames(home());
        std::sort(names.begin(), names.end());
        return names;
    }

    std::string whole_;
};
using Names = std::vector<std::filesystem::path>;

TEST_F(DamagedSettings, WhatAShortFileHoldsIsUsedAndACopyIsKept) {
    // Cut behind the directory, within its padding, within its text (also behind a blank in it),
    // and before it.
    struct Case {
        std::size_t length;
        bool directory;
    };
    int copy = 0;
    for (const auto& [length, directory] :
         {Case{1718, true}, Case{1208, true}, Case{1024, true}, Case{908 + 14, false},
          Case{908 + 8, false}, Case{899, false}, Case{5, false}}) {
        const std::string cut = whole_.substr(0, length);
        const std::string folder =
            directory ? "/srv/My Office/" : defaultDataDirectory(home()).string();
        writeFile(home() / "po15.cfg", cut);
        expectQuestion("po15.cfg is too short: it holds " + std::to_string(length), Answer::Retry);
        expectQuestion("the data directory\r\n" + folder, Answer::Ignore);
        const Settings settings = load();
        EXPECT_EQ(settings.DataDirectory, folder) << length;
        EXPECT_EQ(trimmedField(settings.FontName), length > 396 ? "Verdana" : "Arial");
        EXPECT_EQ(trimmedField(settings.FormWidth), "640");
        EXPECT_EQ(isOn(settings.TaxFreight), length > 1219);
        EXPECT_EQ(trimmedField(settings.BackupFolder), defaultDataDirectory(home()));
        EXPECT_EQ(bytes().size(), 1719u);
        const std::string number = ++copy == 1 ? "" : std::to_string(copy);
        EXPECT_EQ(contentOf(home() / ("po15-old" + number + ".cfg")), cut);
        EXPECT_EQ(FileSystem().exists(defaultDataDirectory(home())), copy > 3)
            << "made for the office that has no other";
        EXPECT_EQ(load().DataDirectory, folder) << "nothing to ask any more";
    }
}

TEST_F(DamagedSettings, LosingTheFileIsNoFirstStart) {
    writeFile(home() / "po14.cfg", "");
    expectQuestion("po15.cfg is missing, although Bramblet has been started here before",
                   Answer::Close);
    EXPECT_THROW(load(), StartGivenUp);
    EXPECT_EQ(names(), Names{"po14.cfg"});
    writeFile(home() / "po15.cfg", "");
    expectQuestion("po15.cfg is empty", Answer::Close);
    EXPECT_THROW(load(), StartGivenUp);
    EXPECT_EQ(bytes(), "");
    EXPECT_FALSE(FileSystem().exists(defaultDataDirectory(home())));
    expectQuestion("the data directory\r\n" + defaultDataDirectory(home()).string(),
                   Answer::Ignore);
    EXPECT_EQ(load().DataDirectory, defaultDataDirectory(home()));
}

TEST_F(DamagedSettings, AFileInUseIsWaitedForAndThenAskedAbout) {
    for (const std::string file : {"po15.cfg", "po14.cfg"}) {
        std::filesystem::create_directory(home() / file);  // refused with error 75
        int waits = 0;
        const auto load = [&](int givingUpAfter) {
            const FileSystem files([&](const FileError& error) {
                if (++waits > givingUpAfter) throw error;
                if (waits < 3) return;
                std::filesystem::remove(home() / file);
                writeFile(home() / file, whole_);
            });
            return SettingsFile(files, home()).LoadConfig(prompts_);
        };
        prompts_.expectSaying(file + "\r\nPath/File access error (error 75)", Answer::Retry);
        prompts_.expectSaying("leave everything as it is", Answer::Close);
        EXPECT_THROW(load(0), StartGivenUp);
        EXPECT_EQ(waits, 2);
        EXPECT_EQ(names(), Names{}) << "nothing was made or moved";
        EXPECT_TRUE(std::filesystem::is_directory(home() / file));
        waits = 0;
        EXPECT_EQ(load(9).DataDirectory, "/srv/My Office/");
        EXPECT_EQ(waits, 3);
        std::filesystem::remove(home() / "po15.cfg");
    }
}

TEST_F(DamagedSettings, WithoutAHomeFolderThereIsNoStart) {
    std::filesystem::remove_all(home());
    writeFile(folder_ / "Quenmoor", "");  // its path runs through a plain file
    prompts_.expectSaying("Path not found (error 76)", Answer::Close);
    EXPECT_THROW(load(), StartGivenUp);
}

TEST(Settings, OnlyAnExactYIsOn) {
    EXPECT_TRUE(isOn("Y"));
    for (const char* other : {"y", "N", "", " ", "1"})
        EXPECT_FALSE(isOn(other));
    EXPECT_FALSE(isOn(std::string(1, '\0')));
}

}  // namespace
}  // namespace bramblet
