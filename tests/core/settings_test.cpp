#include "core/platform/text.h"
#include "core/settings/settings_file.h"
#include "support/scripted_prompts.h"
#include "support/temporary_folder.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace bramblet::test {
namespace {

using Names = std::vector<std::filesystem::path>;
constexpr std::size_t kLength = 1719;

class SettingsFileTest : public ::testing::Test {
  protected:
    void SetUp() override {
        FileSystem().createFolders(home());
        Settings settings = defaultSettings(home());
        settings.FontName = "Verdana";
        settings.DataDirectory = "/srv/My Office/";
        settings.NumberPrefix = "X-";
        settings.TaxFreight = "Y";
        whole_ = encodeRecord(kSettingsLayout, settings);
    }
    std::filesystem::path home() const { return folder_ / "Quenmoor"; }
    std::string defaultData() const { return defaultDataDirectory(home()).string(); }
    SettingsFile file(FileSystem files = {}) const { return {std::move(files), home()}; }
    Settings load() { return file().LoadConfig(prompts_); }
    void write(const std::string& name, const std::string& bytes) const {
        writeFile(home() / name, bytes);
    }
    std::string bytes() const { return contentOf(home() / "po15.cfg"); }

    std::string whole_;
    TemporaryFolder folder_;
    ScriptedPrompts prompts_;
};

TEST_F(SettingsFileTest, FirstStartWritesTheDefaultsToTheByte) {
    std::filesystem::remove_all(home());
    load();
    const auto zeros = [](std::size_t count) { return std::string(count, '\0'); };
    const std::string expected =
        std::string("\x17\0\x41\0", 4) + zeros(48) + fitted("", 100) + "YNNYNY" + zeros(18) +
        "1    1    7855 9735 " + fitted("Arial", 200) + "640" + fitted("po_top.gif", 200) + "Y" +
        fitted("Your Company Name", 60) + fitted("Address Line 1", 60) +
        fitted("Address Line 2", 60) + fitted("Address Line 3", 60) +
        fitted("Maybe phone & fax here?", 60) + zeros(8) + fitted(defaultData(), 300) + zeros(12) +
        fitted(defaultData(), 300) + fitted("", 199);
    EXPECT_EQ(bytes().size(), kLength);
    EXPECT_EQ(bytes(), expected);
    EXPECT_EQ(defaultDataDirectory(home()), withSeparator(home() / "po_data"));
    EXPECT_EQ(contentOf(home() / "po14.cfg"), "");
    EXPECT_TRUE(os::exists(defaultDataDirectory(home())));
}

TEST_F(SettingsFileTest, TheForerunnersRecordIsTakenOverButForTheBackupFolder) {
    std::string old = whole_;
    old.replace(4, 8, "reserved");
    old.replace(908, 300, fitted("  /srv/data/", 300));
    old.replace(1220, 300, fitted("/backup/", 300));
    write("po14.cfg", old);
    const Settings settings = load();
    EXPECT_EQ(settings.DataDirectory, "/srv/data/");  // trimmed
    EXPECT_EQ(bytes().substr(0, 1220), old.substr(0, 1220));
    EXPECT_EQ(trimmedField(settings.BackupFolder), defaultData());
    EXPECT_FALSE(os::exists(defaultDataDirectory(home())));
}

TEST_F(SettingsFileTest, EveryByteOfAFileIsCarriedThrough) {
    std::string old;
    for (std::size_t i = 0; i < kLength; ++i)
        old.push_back(static_cast<char>(i * 7 % 251));
    old.replace(908, 300, fitted("/d/", 300));
    write("po15.cfg", old);
    file().SaveConfig(load());
    EXPECT_EQ(bytes(), old);
}

TEST_F(SettingsFileTest, AShortForerunnerIsTakenOverAsFarAsItGoes) {
    for (const std::size_t length : {1218, 1024, 908 + 8, 5}) {
        write("po14.cfg", whole_.substr(0, length));
        std::filesystem::remove(home() / "po15.cfg");
        const Settings settings = load();
        EXPECT_EQ(settings.DataDirectory, length > 1000 ? "/srv/My Office/" : "") << length;
        EXPECT_EQ(trimmedField(settings.NumberPrefix), length > 1210 ? "X-" : "") << length;
        EXPECT_EQ(settings.SigLineSpace, 23);
        EXPECT_FALSE(isOn(settings.UseQuantities));
        EXPECT_EQ(trimmedField(settings.BackupFolder), defaultData());
        EXPECT_EQ(bytes().size(), kLength);
    }
}

/// What is wrong with "po15.cfg", and what comes of going on all the same.
class DamagedSettings : public SettingsFileTest {
  protected:
    void expectQuestion(const std::string& part, Answer answer) {
        prompts_.expectSaying(part, answer);
    }
    void expectNoStart() { EXPECT_THROW(load(), StartGivenUp); }
    Names names() const { return FileSystem().fileNames(home()); }
};

TEST_F(DamagedSettings, WhatAShortFileHoldsIsUsedAndACopyIsKept) {
    int copy = 0;
    // Cut behind the directory, within its padding, within its text (also behind a blank in it),
    // and before it.
    for (const std::size_t length : {1718, 1208, 1024, 908 + 14, 908 + 8, 899, 5}) {
        const std::string cut = whole_.substr(0, length);
        const std::string directory = length > 1000 ? "/srv/My Office/" : defaultData();
        write("po15.cfg", cut);
        expectQuestion("po15.cfg is too short: it holds " + std::to_string(length), Answer::Retry);
        expectQuestion("the data directory\r\n" + directory, Answer::Ignore);
        const Settings settings = load();
        EXPECT_EQ(settings.DataDirectory, directory) << length;
        EXPECT_EQ(trimmedField(settings.FontName), length > 396 ? "Verdana" : "Arial");
        EXPECT_EQ(trimmedField(settings.FormWidth), "640");
        EXPECT_EQ(isOn(settings.TaxFreight), length > 1219);
        EXPECT_EQ(trimmedField(settings.BackupFolder), defaultData());
        EXPECT_EQ(bytes().size(), kLength);
        const std::string number = ++copy == 1 ? "" : std::to_string(copy);
        EXPECT_EQ(contentOf(home() / ("po15-old" + number + ".cfg")), cut);
        EXPECT_EQ(os::exists(defaultDataDirectory(home())), copy > 3)
            << "made for the office that has no other";
        EXPECT_EQ(load().DataDirectory, directory) << "nothing to ask any more";
    }
}

TEST_F(DamagedSettings, LosingTheFileIsNoFirstStart) {
    write("po14.cfg", "");
    expectQuestion("po15.cfg is missing, although Bramblet has been started here before",
                   Answer::Close);
    expectNoStart();
    EXPECT_EQ(names(), Names{"po14.cfg"});
    write("po15.cfg", "");
    expectQuestion("po15.cfg is empty", Answer::Close);
    expectNoStart();
    EXPECT_EQ(bytes(), "");
    EXPECT_FALSE(os::exists(defaultDataDirectory(home())));
    expectQuestion("the data directory\r\n" + defaultData(), Answer::Ignore);
    EXPECT_EQ(load().DataDirectory, defaultData());
}

TEST_F(DamagedSettings, AFileInUseIsWaitedForAndThenAskedAbout) {
    for (const std::string name : {"po15.cfg", "po14.cfg"}) {
        std::filesystem::create_directory(home() / name);  // refused with error 75
        int waits = 0;
        const auto load = [&](int givingUpAfter) {
            const FileSystem files([&](const FileError& error) {
                if (++waits > givingUpAfter) throw error;
                if (waits < 3) return;
                std::filesystem::remove(home() / name);
                write(name, whole_);
            });
            return file(files).LoadConfig(prompts_);
        };
        expectQuestion(name + "\r\nPath/File access error (error 75)", Answer::Retry);
        expectQuestion("leave everything as it is", Answer::Close);
        EXPECT_THROW(load(0), StartGivenUp);
        EXPECT_EQ(waits, 2);
        EXPECT_EQ(names(), Names{}) << "nothing was made or moved";
        EXPECT_TRUE(std::filesystem::is_directory(home() / name));
        waits = 0;
        EXPECT_EQ(load(9).DataDirectory, "/srv/My Office/");
        EXPECT_EQ(waits, 3);
        std::filesystem::remove(home() / "po15.cfg");
    }
}

TEST_F(DamagedSettings, WithoutAHomeFolderThereIsNoStart) {
    std::filesystem::remove_all(home());
    writeFile(folder_ / "Quenmoor", "");  // its path runs through a plain file
    expectQuestion("Path not found (error 76)", Answer::Close);
    expectNoStart();
}

TEST(Settings, OnlyAnExactYIsOn) {
    EXPECT_TRUE(isOn("Y"));
    for (const char* other : {"y", "N", "", " ", "1"})
        EXPECT_FALSE(isOn(other)) << other;
}

}  // namespace
}  // namespace bramblet::test
