#include "support/odd_share.h"
#include "support/office.h"

#include <gtest/gtest.h>

namespace bramblet {
namespace {

using namespace test;
using Names = std::vector<std::filesystem::path>;

class BackupTest : public Office {
  protected:
    void SetUp() override {
        start();
        std::filesystem::create_directory(target());
        // Of what the program itself made, only the files of the test are to be counted.
        for (const auto& name : FileSystem().fileNames(data("")))
            FileSystem().remove(data("") / name);
    }
    Backup& backup() { return program().backup; }
    std::filesystem::path target() const { return withSeparator(documents / "safe"); }
    void openWith(Backup::Kind kind, const std::filesystem::path& target) {
        backup().open(kind);
        backup().BackUpTarget = target;
    }
    /// A run that is expected to copy everything.
    void run(Backup::Kind kind, const std::filesystem::path& where) {
        openWith(kind, where);
        if (kind == kRestore) prompts.expect(caution, Answer::Yes);
        prompts.expect({kind == kBackup ? "Backup completed!" : "Restoration completed!",
                        "Finished", Buttons::Ok, Icon::Information});
        EXPECT_TRUE(backup().RunBackup_Click());
    }
    bool failingBackup(const std::filesystem::path& where) {
        openWith(kBackup, where);
        return !backup().RunBackup_Click();
    }
    void makeFiles() {
        for (const std::string name : {"a.dat", "B.HTM", "c.Gif", "d.jpg", "e.bmp"})
            writeFile(data(name), "content of " + name);
        for (const std::string name : {"notes.txt", "user.tmp", "a.dat.old", "dat"})
            writeFile(data(name), "not to be copied");
        std::filesystem::create_directory(data("sub.dat"));
#ifndef _WIN32
        std::filesystem::create_symlink("nowhere", data("dangling.dat"));  // no such file
#endif
    }
    Names inTarget() const {
        Names names = FileSystem().fileNames(target());
        std::sort(names.begin(), names.end());
        return names;
    }

    const Message caution{
        "CAUTION - this is the data restoration function, not backup! This should only be used to "
        "recover backup data after a disk failure, or after a bad import operation. This will "
        "over-write whatever you already have in your default data folder COMPLETELY!\r\n\r\n"
        "Proceed?",
        "Confirm", Buttons::YesNo, Icon::Stop, Answer::No};
    const Message same{"Target and source are the same! Please select a different target folder.",
                       "Nothing to do!", Buttons::Ok, Icon::Exclamation};
    static constexpr auto kBackup = Backup::Kind::Backup;
    static constexpr auto kRestore = Backup::Kind::Restore;
};

TEST_F(BackupTest, TheFilesOfThePatternAreCopiedWithTheirTimes) {
    makeFiles();
    writeFile(target() / "a.dat", "an older copy");
    FileSystem files;
    os::setModified(data("a.dat"), 1'000'000'000'000'000'000);
    run(kBackup, "  " + (documents / "safe").string() + " ");
    EXPECT_EQ(inTarget(), (Names{"B.HTM", "a.dat", "c.Gif", "d.jpg", "e.bmp"}));
    EXPECT_EQ(contentOf(target() / "a.dat"), "content of a.dat");
    EXPECT_EQ(files.status(target() / "a.dat").modified, 1'000'000'000'000'000'000);
    EXPECT_EQ(program().settings.BackupFolder, target()) << "remembered";
    EXPECT_EQ(backup().progress().files, 5u);
    EXPECT_EQ(backup().progress().bytes, backup().progress().byteCount);
}

TEST_F(BackupTest, TheTopGraphicGoesAlongWhateverKindOfPictureItIs) {
    makeFiles();
    writeFile(data("Letterhead.png"), "PNG");
    writeFile(data("other.png"), "PNG");
    program().settings.TopGraphic = "letterhead.PNG  ";
    run(kBackup, target());
    prompts.expectSaying("6 files agree, 0 differ, 0 missing");
    backup().Verify_Click();
    FileSystem().remove(data("Letterhead.png"));
    program().settings.BackupFolder = target().string();
    run(kRestore, program().folder.DataPath());
    EXPECT_EQ(contentOf(data("Letterhead.png")), "PNG");
    EXPECT_FALSE(FileSystem().exists(target() / "other.png"));
}

TEST_F(BackupTest, ATargetHasToBeNamedInFull) {
    makeFiles();
    for (const char* typed : {"", "   ", "safe"}) {
        prompts.expectSaying("Please select a target folder");
        EXPECT_TRUE(failingBackup(typed)) << typed;
    }
}

TEST_F(BackupTest, TheFoldersThatTheWindowsStartWith) {
    program().settings.BackupFolder = "   ";
    backup().open(kBackup);
    EXPECT_EQ(backup().BackUpTarget, program().folder.DataPath());
    EXPECT_EQ(backup().Backuplist, program().folder.DataPath());

    prompts.expectChoice(program().folder.DataPath(), target());
    backup().SelectTarget_Click();
    EXPECT_EQ(prompts.lastChoice.title, "Select a folder...");
    EXPECT_EQ(program().settings.BackupFolder, target());
    backup().open(kRestore);
    EXPECT_EQ(backup().Backuplist, target());
    EXPECT_EQ(backup().BackUpTarget, program().folder.DataPath());

    writeFile(documents / "x.dat", "");
    prompts.expectChoice(program().folder.DataPath(), documents.path());
    backup().SelectSource_Click();
    EXPECT_EQ(backup().BackMeUp, Names{"x.dat"});
    EXPECT_EQ(program().settings.BackupFolder, target()) << "a source is not remembered";
    prompts.expectChoice(program().folder.DataPath(), std::nullopt);
    backup().SelectTarget_Click();
    EXPECT_EQ(backup().BackUpTarget, program().folder.DataPath());
}

TEST_F(BackupTest, AFolderIsNeverCopiedIntoItself) {
    Names folders{program().folder.DataPath(),
                  " " + upper(program().folder.DataPath().string()) + " "};
#ifndef _WIN32
    std::filesystem::create_directory_symlink(program().folder.DataPath(), documents / "link");
    folders.push_back(documents / "link");
#endif
    for (const auto& folder : folders) {
        prompts.expect(same);
        EXPECT_TRUE(failingBackup(folder)) << folder;
    }
}

TEST_F(BackupTest, ADeclinedRestoreCopiesNothing) {
    program().settings.BackupFolder = target().string();
    writeFile(target() / "a.dat", "from the backup");
    backup().open(kRestore);
    prompts.expect(caution, Answer::No);
    EXPECT_FALSE(backup().RunBackup_Click());
    EXPECT_FALSE(FileSystem().exists(data("a.dat")));
}

TEST_F(BackupTest, AFolderThatIsGoneOrEmptyIsNoSuccess) {
    program().settings.BackupFolder = (documents / "unplugged").string();
    backup().open(kRestore);
    backup().list();
    EXPECT_NE(backup().BackUpProgress.find("cannot be read"), std::string::npos);
    prompts.expect(caution, Answer::Yes);
    prompts.expectSaying("Error number: 76");
    EXPECT_FALSE(backup().RunBackup_Click());

    openWith(kBackup, target());
    prompts.expectSaying("There are no data files in");
    EXPECT_FALSE(backup().RunBackup_Click());
    prompts.expectSaying("There are no data files in");
    backup().Verify_Click();
}

TEST_F(BackupTest, DuringARunNothingElseIsBegun) {
    makeFiles();
    openWith(kBackup, target());
    backup().onChange = [this] {
        if (!backup().running()) return;
        EXPECT_FALSE(backup().RunBackup_Click());
        backup().Verify_Click();
        backup().StopBackup_Click();
    };
    EXPECT_FALSE(backup().RunBackup_Click());
    EXPECT_EQ(inTarget(), Names{});
}

TEST_F(BackupTest, ListingAndCountingLetTheWindowsLiveAndStop) {
    makeFiles();
    for (const std::string stopped : {"Listing the files", "Counting the files"}) {
        backup().onChange = [&] {
            if (backup().BackUpProgress == stopped) backup().StopBackup_Click();
        };
        EXPECT_TRUE(failingBackup(target()));
        EXPECT_EQ(backup().BackUpProgress, "Stopped") << stopped;
        EXPECT_EQ(prompts.lastLine, "Stopped.");
        EXPECT_FALSE(backup().running());
    }
    EXPECT_EQ(inTarget(), Names{});
}

#ifndef _WIN32
TEST_F(BackupTest, ATargetThatRefusesTimesFlushingOrItsSizeIsBackedUpTo) {
    makeFiles();
    for (const int error : {EPERM, EOPNOTSUPP, ENOSYS}) {
        OddShare share;
        share.flushError = share.timesError = error;
        share.tellsSizes = share.tellsKinds = false;
        run(kBackup, target());
        EXPECT_EQ(inTarget().size(), 5u);
        for (const auto& name : inTarget())
            FileSystem().remove(target() / name);
    }
}

TEST_F(BackupTest, WhatCannotBeListedOrLookedAtIsNeverLeftOut) {
    makeFiles();
    OddShare share;
    share.listingError = EIO;
    prompts.expectSaying("Error number: 57");
    EXPECT_TRUE(failingBackup(target()));
    share.listingError = 0;
    share.lostName = "c.Gif";
    for (const bool tellsKinds : {true, false}) {
        share.tellsKinds = tellsKinds;
        prompts.expectSaying("Error number: 57");
        EXPECT_TRUE(failingBackup(target()));
        EXPECT_EQ(backup().BackUpProgress, "Aborted at c.Gif: Device I/O error (error 57)");
    }
    share.lostName = "notes.txt";
    run(kBackup, target());
    EXPECT_EQ(inTarget().size(), 5u) << "a file that is not wanted may be lost";
}

TEST_F(BackupTest, NamesThatTheCodePageLacksOrThatAreNoTextAreCopiedAsTheyAre) {
    for (const std::filesystem::path name : {"\xC5\x82.htm", "caf\xE9.htm", "caf\xC3\xA9.htm"}) {
        writeFile(data("") / name, "content");
    }
    run(kBackup, target());
    EXPECT_EQ(inTarget(), (Names{"caf\xC3\xA9.htm", "caf\xE9.htm", "\xC5\x82.htm"}));
    prompts.expectSaying("3 files agree, 0 differ, 0 missing");
    backup().Verify_Click();
}

TEST_F(BackupTest, WhatWillNotFitIsNotBegun) {
    makeFiles();
    const std::filesystem::path huge = data("huge.dat");  // all but a hole
    writeFile(huge, "");
    std::filesystem::resize_file(huge, FileSystem().freeSpace(target()).value() + (1 << 30));
    prompts.expectSaying("Error name: Disk full\r\n\r\nError number: 61");
    EXPECT_TRUE(failingBackup(target()));
    EXPECT_EQ(inTarget(), Names{});
}
#endif

TEST_F(BackupTest, AnErrorEndsTheRunAndLeavesNoHalfFile) {
    makeFiles();
    std::filesystem::create_directory(target() / "c.Gif");
    const auto expectError = [&](const std::string& name, const std::string& number) {
        prompts.expect(
            {"An error has occurred, and this operation has been aborted...\r\n\r\nError name: " +
                 name + "\r\n\r\nError number: " + number +
                 "\r\n\r\nPlease make a note of the error name and number, and which process you "
                 "are having trouble with.\r\n\r\nIn the event you are unable to solve the problem "
                 "yourself, this information will make it much more likely that Quenmoor tech "
                 "support will be able to help in a timely manner. Thanks, and sorry you are "
                 "having trouble!",
             "Bramblet", Buttons::Ok, Icon::Stop});
    };
    expectError("Path/File access error", "75");
    EXPECT_TRUE(failingBackup(target()));
    EXPECT_EQ(inTarget(), (Names{"B.HTM", "a.dat"})) << "copied so far, and nothing else";
    EXPECT_EQ(backup().progress().files, 2u);
    EXPECT_EQ(backup().BackUpProgress, "Aborted at c.Gif: Path/File access error (error 75)");
    EXPECT_FALSE(backup().running());

    expectError("Path not found", "76");
    EXPECT_TRUE(failingBackup(documents / "nowhere"));
}

TEST_F(BackupTest, ARunStopsBeforeTheNextFile) {
    makeFiles();
    openWith(kBackup, target());
    backup().onChange = [this] {
        if (backup().BackUpProgress == "Copying: c.Gif") backup().StopBackup_Click();
    };
    EXPECT_FALSE(backup().RunBackup_Click());
    EXPECT_EQ(inTarget(), (Names{"B.HTM", "a.dat"}));
    EXPECT_EQ(prompts.lastLine, "Stopped after 2 of 5 files.");
}

TEST_F(BackupTest, VerifyTellsWhatAgreesDiffersAndIsMissing) {
    makeFiles();
    run(kBackup, target());
    const auto expectResult = [&](const std::string& text, Icon icon) {
        prompts.expect({text, "Verify", Buttons::Ok, icon});
        backup().Verify_Click();
    };
    expectResult("5 files agree, 0 differ, 0 missing.", Icon::Information);
    writeFile(target() / "a.dat", "content of A.dat");  // as long as the source
    writeFile(target() / "B.HTM", "shorter");
    FileSystem().remove(target() / "d.jpg");
    expectResult(
        "2 files agree, 2 differ, 1 missing.\r\n\r\nDifferent:\r\na.dat\r\nB.HTM\r\n\r\n"
        "Missing:\r\nd.jpg",
        Icon::Exclamation);
    FileSystem().remove(target() / "B.HTM");
    std::filesystem::create_directory(target() / "B.HTM");  // which cannot be read as a file
    expectResult(
        "2 files agree, 1 differ, 1 missing, 1 cannot be read.\r\n\r\nDifferent:\r\na.dat\r\n\r\n"
        "Missing:\r\nd.jpg\r\n\r\nCannot be read:\r\nB.HTM: Path/File access error (error 75)",
        Icon::Exclamation);
}

TEST_F(BackupTest, AWipedDataFolderComesBackWhole) {
    for (int i = 1; i <= 40; ++i) {
        newOrder();
        program().editor.edit(&Order::ByEd, "Ann " + std::to_string(i % 3));
        program().editor.SaveChanges_Click();
    }
    run(kBackup, target());
    const std::string index = contentOf(data("po_data.dat"));
    const std::string document = contentOf(data("000007.htm"));
    for (const auto& name : FileSystem().fileNames(data("")))
        FileSystem().remove(data("") / name);
    start();
    EXPECT_EQ(program().savedOrders.rowCount(), 0);
    program().settings.BackupFolder = target().string();
    run(kRestore, program().folder.DataPath());
    EXPECT_EQ(contentOf(data("po_data.dat")), index);
    EXPECT_EQ(contentOf(data("000007.htm")), document);
    EXPECT_EQ(program().savedOrders.rowCount(), 40) << "the lists are filled anew";
    EXPECT_EQ(program().histories.entries(&Order::ByEd)->size(), 3u);
    program().editor.POGrid_Click("000007");
    EXPECT_EQ(order().PONoEd, "000007");
    EXPECT_EQ(order().ByEd, "Ann 1");
}

}  // namespace
}  // namespace bramblet
