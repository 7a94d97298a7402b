#include "support/odd_share.h"
#include "support/office.h"

#include <algorithm>
#include <array>
#include <cerrno>

namespace bramblet::test {
namespace {

constexpr const char* kKept = "Data before restore 2026-03-04 143005";

using Names = std::vector<std::filesystem::path>;

class BackupTest : public Office {
  protected:
    void TearDown() override { oddities = {}; }
    Backup& backup() { return program().backup; }
    std::filesystem::path target() const { return withSeparator(documents / "safe"); }
    void wipeData() {
        for (const auto& name : FileSystem().fileNames(data("")))
            os::remove(data("") / name);
    }
    bool runTo(const std::filesystem::path& where) {
        backup().mu_DataBackup_Click();
        backup().BackUpTarget = where;
        return backup().RunBackup_Click();
    }
    void backUp() {
        prompts.expect(notice("Backup completed!", "Finished"));
        EXPECT_TRUE(runTo(target()));
    }
    void expectFailure(const std::string& message, const std::filesystem::path& where) {
        prompts.expectSaying(message);
        EXPECT_FALSE(runTo(where)) << where << message;
        EXPECT_FALSE(backup().running());
    }
    bool restore(const std::filesystem::path& from, Answer caution, const std::string& told) {
        program().settings.BackupFolder = from.string();
        backup().mu_DataRestore_Click();
        prompts.expect({"CAUTION - this is the data restoration function, not backup! This should "
                        "only be used to recover backup data after a disk failure, or after a bad "
                        "import operation. This will over-write whatever you already have in your "
                        "default data folder COMPLETELY!\r\n\r\nProceed?",
                        "Confirm", Buttons::YesNo, Icon::Stop, Answer::No},
                       caution);
        if (!told.empty()) prompts.expectSaying(told);
        return backup().RunBackup_Click();
    }
    void verify(const std::string& result, Icon icon = Icon::Information) {
        prompts.expect(notice(result, "Verify", icon));
        backup().Verify_Click();
    }
    Names inTarget() const {
        Names names = FileSystem().fileNames(target());
        std::sort(names.begin(), names.end());
        return names;
    }
    void SetUp() override {
        start();
        std::filesystem::create_directory(target());
        wipeData();  // of what the program itself made
        for (const std::string name : {"a.dat", "B.HTM", "c.Gif", "d.jpg", "e.bmp"})
            writeFile(data(name), "content of " + name);
        for (const std::string name : {"notes.txt", "user.tmp", "a.dat.old", "dat"})
            writeFile(data(name), "not to be copied");
        std::filesystem::create_directory(data("sub.dat"));
#ifndef _WIN32
        std::filesystem::create_symlink("nowhere", data("dangling.dat"));  // no such file
#endif
    }
};

TEST_F(BackupTest, TheFilesOfThePatternAreCopiedWithTheirTimes) {
    writeFile(target() / "a.dat", "an older copy");
    os::setModified(data("a.dat"), 1'000'000'000'000'000'000);
    prompts.expect(notice("Backup completed!", "Finished"));
    EXPECT_TRUE(runTo("  " + (documents / "safe").string() + " "));
    EXPECT_EQ(inTarget(), (Names{"B.HTM", "a.dat", "c.Gif", "d.jpg", "e.bmp"}));
    EXPECT_EQ(contentOf(target() / "a.dat"), "content of a.dat");
    EXPECT_EQ(os::status(target() / "a.dat").modified, 1'000'000'000'000'000'000);
    EXPECT_EQ(program().settings.BackupFolder, target()) << "remembered";
    EXPECT_EQ(backup().progress().files, 5u);
    EXPECT_EQ(backup().progress().bytes, backup().progress().byteCount);
}

TEST_F(BackupTest, TheTopGraphicGoesAlongWhateverKindOfPictureItIs) {
    writeFile(data("Letterhead.png"), "PNG");
    writeFile(data("other.png"), "PNG");
    program().settings.TopGraphic = "letterhead.PNG  ";
    backUp();
    verify("6 files agree, 0 differ, 0 missing.");
    os::remove(data("Letterhead.png"));
    EXPECT_FALSE(restore(target(), Answer::No, ""));
    EXPECT_FALSE(os::exists(data("Letterhead.png"))) << "not without consent";
    EXPECT_TRUE(restore(target(), Answer::Yes, "Restoration completed!"));
    EXPECT_EQ(stored("Letterhead.png"), "PNG");
    EXPECT_FALSE(os::exists(target() / "other.png"));
}

TEST_F(BackupTest, TheFoldersThatTheWindowsStartWith) {
    const std::filesystem::path dataPath = program().folder.DataPath();
    program().settings.BackupFolder = "   ";
    backup().mu_DataBackup_Click();
    EXPECT_EQ(backup().BackUpTarget, dataPath);
    EXPECT_EQ(backup().Backuplist, dataPath);
    prompts.expectChoice(dataPath, target());
    backup().SelectTarget_Click();
    EXPECT_EQ(prompts.lastChoice.title, "Select a folder...");
    EXPECT_EQ(program().settings.BackupFolder, target());
    backup().mu_DataRestore_Click();
    EXPECT_EQ(backup().Backuplist, target());
    EXPECT_EQ(backup().BackUpTarget, dataPath);
    writeFile(documents / "x.dat", "");
    prompts.expectChoice(dataPath, documents.path());
    backup().SelectSource_Click();
    EXPECT_EQ(backup().BackMeUp, Names{"x.dat"});
    EXPECT_EQ(program().settings.BackupFolder, target()) << "a source is not remembered";
    prompts.expectChoice(dataPath, std::nullopt);
    backup().SelectTarget_Click();
    EXPECT_EQ(backup().BackUpTarget, dataPath);
}

TEST_F(BackupTest, AFolderWhoseNameCannotBeStoredIsNotRemembered) {
    const auto deep = documents / std::string(200, 'x') / std::string(200, 'y');
    backup().mu_DataBackup_Click();
    prompts.expectChoice(program().folder.DataPath(), deep);
    backup().SelectTarget_Click();
    EXPECT_EQ(backup().BackUpTarget, withSeparator(deep));
    expectSaid("will not be remembered: its name is too long or no text");
    EXPECT_NE(program().settings.BackupFolder, deep);
}

TEST_F(BackupTest, ATargetHasToBeNamedInFullAndIsNeverTheSource) {
    for (const char* typed : {"", "   ", "safe"})
        expectFailure("Please select a target folder", typed);
    const std::filesystem::path source = program().folder.DataPath();
    Names folders{source, " " + upper(source.string()) + " "};
#ifndef _WIN32
    std::filesystem::create_directory_symlink(source, documents / "link");
    folders.push_back(documents / "link");
#endif
    for (const auto& folder : folders)
        expectFailure("Target and source are the same! Please select a different target folder.",
                      folder);
}

TEST_F(BackupTest, AFolderThatIsGoneOrEmptyIsNoSuccess) {
    EXPECT_FALSE(restore(documents / "unplugged", Answer::Yes, "Error number: 76"));
    backup().list();
    EXPECT_TRUE(contains(backup().BackUpProgress, "cannot be read"));
    wipeData();
    expectFailure("There are no data files in", target());
    prompts.expectSaying("There are no data files in");
    backup().Verify_Click();
}

TEST_F(BackupTest, DuringARunNothingElseIsBegun) {
    screen.onBackupProgress = [this] {
        if (!backup().running()) return;
        EXPECT_FALSE(backup().RunBackup_Click());
        backup().Verify_Click();
        backup().StopBackup_Click();
    };
    EXPECT_FALSE(runTo(target()));
    EXPECT_EQ(inTarget(), Names{});
}

TEST_F(BackupTest, ARunAndItsPreparationsStopBeforeTheNextFile) {
    const std::vector<std::array<std::string, 3>> stops{
        {"Listing the files", "Stopped", "Stopped."},
        {"Counting the files", "Stopped", "Stopped."},
        {"Copying: c.Gif", "Stopped after 2 of 5 files", "Stopped after 2 of 5 files."}};
    for (const auto& [doing, progress, line] : stops) {
        EXPECT_EQ(inTarget(), Names{});
        screen.onBackupProgress = [&, where = doing] {
            if (backup().BackUpProgress == where) backup().StopBackup_Click();
        };
        EXPECT_FALSE(runTo(target()));
        EXPECT_FALSE(backup().running());
        EXPECT_EQ(backup().BackUpProgress, progress);
        EXPECT_EQ(screen.lastLine, line);
    }
    EXPECT_EQ(inTarget(), (Names{"B.HTM", "a.dat"}));
}

#ifndef _WIN32
TEST_F(BackupTest, ATargetThatRefusesTimesFlushingOrItsSizeIsBackedUpTo) {
    for (const int error : {EPERM, EOPNOTSUPP, ENOSYS}) {
        oddities.flushError = oddities.timesError = error;
        oddities.tellsSizes = oddities.tellsKinds = false;
        backUp();
        EXPECT_EQ(inTarget().size(), 5u);
        for (const auto& name : inTarget())
            os::remove(target() / name);
    }
}

TEST_F(BackupTest, WhatCannotBeListedOrLookedAtIsNeverLeftOut) {
    oddities.listingError = EIO;
    expectFailure("Error number: 57", target());
    oddities.listingError = 0;
    oddities.lostPath = "/c.Gif";
    for (const bool tellsKinds : {true, false}) {
        oddities.tellsKinds = tellsKinds;
        expectFailure("Error number: 57", target());
        EXPECT_EQ(backup().BackUpProgress, "Aborted at c.Gif: Device I/O error (error 57)");
    }
    oddities.lostPath = "/notes.txt";
    backUp();
    EXPECT_EQ(inTarget().size(), 5u) << "a file that is not wanted may be lost";
}

TEST_F(BackupTest, NamesThatTheCodePageLacksOrThatAreNoTextAreCopiedAsTheyAre) {
    wipeData();
    const Names names{"caf\xC3\xA9.htm", "caf\xE9.htm", "\xC5\x82.htm"};
    for (const auto& name : names)
        writeFile(data("") / name, "content");
    backUp();
    EXPECT_EQ(inTarget(), names);
    verify("3 files agree, 0 differ, 0 missing.");
}

TEST_F(BackupTest, WhatWillNotFitIsNotBegun) {
    writeFile(data("huge.dat"), "");  // all but a hole
    std::filesystem::resize_file(data("huge.dat"),
                                 FileSystem().freeSpace(target()).value() + (1 << 30));
    expectFailure("Error name: Disk full\r\n\r\nError number: 61", target());
    EXPECT_EQ(inTarget(), Names{});
}
#endif

TEST_F(BackupTest, AnErrorEndsTheRunAndLeavesNoHalfFile) {
    std::filesystem::create_directory(target() / "c.Gif");
    prompts.expect(notice(
        "An error has occurred, and this operation has been aborted...\r\n\r\nError name: "
        "Path/File access error\r\n\r\nError number: 75\r\n\r\nPlease make a note of the error "
        "name and number, and which process you are having trouble with.\r\n\r\nIn the event you "
        "are unable to solve the problem yourself, this information will make it much more likely "
        "that Quenmoor tech support will be able to help in a timely manner. Thanks, and sorry you "
        "are having trouble!",
        "Bramblet", Icon::Stop));
    EXPECT_FALSE(runTo(target()));
    EXPECT_EQ(inTarget(), (Names{"B.HTM", "a.dat"})) << "copied so far, and nothing else";
    EXPECT_EQ(backup().progress().files, 2u);
    EXPECT_EQ(backup().BackUpProgress, "Aborted at c.Gif: Path/File access error (error 75)");
}

TEST_F(BackupTest, AMissingTargetIsCreatedOnceTheUserAgrees) {
    const auto missing = withSeparator(documents / "stick" / "safe");
    const Message question =
        yesNo("The folder " + shown(missing) + " does not exist.\r\n\r\nCreate it?");
    prompts.expect(question, Answer::No);
    EXPECT_FALSE(runTo(missing));
    EXPECT_FALSE(os::exists(documents / "stick"));
    prompts.expect(question, Answer::Yes);
    prompts.expect(notice("Backup completed!", "Finished"));
    EXPECT_TRUE(runTo(missing));
    EXPECT_EQ(FileSystem().fileNames(missing).size(), 5u);
    writeFile(documents / "file", "");
    prompts.expectSaying("does not exist", Answer::Yes);
    expectFailure("Error number: 76", documents / "file" / "safe");
}

TEST_F(BackupTest, ADatedBackupLeavesTheEarlierOnesAloneAndTheNewestIsFoundAgain) {
    writeFile(data("po_data.dat"), "");
    backup().mu_DataBackup_Click();
    backup().BackUpTarget = target();
    backup().dated = true;
    prompts.expect(notice("There is no dated backup in " + shown(target()) + ".", "Nothing to do!",
                          Icon::Exclamation));
    backup().Verify_Click();
    for (const char* name : {"Bramblet 2026-03-04 143005", "Bramblet 2026-03-04 143005 2"}) {
        writeFile(data("a.dat"), name);
        prompts.expect(notice("Backup completed!", "Finished"));
        EXPECT_TRUE(backup().RunBackup_Click());
        EXPECT_EQ(backup().BackUpProgress, "6 files copied to \"" + std::string(name) + "\"");
        EXPECT_EQ(contentOf(target() / name / "a.dat"), name);
        verify("6 files agree, 0 differ, 0 missing.");
    }
    EXPECT_EQ(inTarget(), Names{});
    EXPECT_EQ(program().settings.BackupFolder, target());

    std::filesystem::create_directory(target() / "Bramblet 2026-03-05 090000");  // unfinished
    backup().mu_DataRestore_Click();
    backup().list();
    EXPECT_EQ(backup().warning,
              "There is no list of orders in this folder. The newest backup in it is \"Bramblet "
              "2026-03-04 143005 2\".");
    backup().TakeNewest_Click();
    EXPECT_EQ(backup().warning, "");
    EXPECT_EQ(backup().BackMeUp.size(), 6u);
    start();
    backup().mu_DataBackup_Click();
    EXPECT_TRUE(backup().dated) << "as the last one was made";
}

TEST_F(BackupTest, TheSettingsGoAlongByChoiceAndComeBackWithoutTheirFolders) {
    program().settings.IDText1 = fitted("Larkfield Joinery", 60);
    backup().mu_DataBackup_Click();
    backup().BackUpTarget = target();
    backup().takeSettingsAlong(true);
    EXPECT_EQ(backup().BackMeUp.back(), "po15.cfg");
    prompts.expect(notice("Backup completed!", "Finished"));
    EXPECT_TRUE(backup().RunBackup_Click());
    verify("6 files agree, 0 differ, 0 missing.");
    EXPECT_EQ(contentOf(target() / "po15.cfg").size(), 1719u);

    program().settings.IDText1 = "Somebody else";
    Settings others = program().settings;
    EXPECT_TRUE(restore(target(), Answer::Yes, "Restoration completed!"));
    EXPECT_EQ(program().settings.IDText1, "Somebody else") << "not asked for";
    program().settings.BackupFolder = fitted((documents / "elsewhere").string(), 300);
    const std::string folder = program().settings.BackupFolder;
    backup().mu_DataRestore_Click();
    backup().Backuplist = target();
    backup().takeSettingsAlong(true);
    prompts.expectSaying("CAUTION", Answer::Yes);
    prompts.expectSaying("Restoration completed!");
    EXPECT_TRUE(backup().RunBackup_Click());
    EXPECT_EQ(trimmed(program().settings.IDText1), "Larkfield Joinery");
    EXPECT_EQ(trimmed(program().settings.BackupFolder), trimmed(folder));
    EXPECT_EQ(program().settings.DataDirectory, others.DataDirectory);
    EXPECT_EQ(contentOf(home() / "po15.cfg"), encodeRecord(kSettingsLayout, program().settings));
    verify("6 files agree, 0 differ, 0 missing.");
    EXPECT_TRUE(contains(contentOf(home() / kKept / "po15.cfg"), "Somebody else"));
    writeFile(target() / "po15.cfg", "too short");
    prompts.expectSaying("CAUTION", Answer::Yes);
    prompts.expectSaying("cannot be kept: Input past end of file (error 62)", Answer::No);
    EXPECT_FALSE(backup().RunBackup_Click());
}

TEST_F(BackupTest, ARestoreFirstKeepsWhatItReplaces) {
    backUp();
    EXPECT_TRUE(restore(target(), Answer::Yes, "Restoration completed!"));
    EXPECT_FALSE(os::exists(home() / kKept)) << "nothing is replaced by anything else";
    writeFile(data("a.dat"), "written since");
    os::remove(data("B.HTM"));
    EXPECT_TRUE(restore(target(), Answer::Yes, "Restoration completed!"));
    EXPECT_EQ(FileSystem().fileNames(home() / kKept), Names{"a.dat"});
    EXPECT_EQ(contentOf(home() / kKept / "a.dat"), "written since");
    EXPECT_EQ(stored("a.dat") + stored("B.HTM"), "content of a.datcontent of B.HTM");
    EXPECT_EQ(screen.lastLine, "What the restore has replaced is kept in " + shown(home() / kKept));
    EXPECT_EQ(backup().BackUpProgress,
              "5 files copied; what they have replaced is kept in " + shown(home() / kKept));
}

TEST_F(BackupTest, WhatCannotBeKeptIsNotReplacedUnasked) {
    backUp();
    writeFile(data("a.dat"), "written since");
    obstruct(data("c.Gif"));
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        prompts.expectSaying("CAUTION", Answer::Yes);
        prompts.expect(
            {"What is there now, and would be replaced, cannot be kept: Path/File access "
             "error (error 75).\r\n\r\nRestore all the same?",
             "Confirm", Buttons::YesNo, Icon::Stop, Answer::No},
            answer);
        if (answer == Answer::Yes) prompts.expectSaying("Error number: 75");  // its place is taken
        program().settings.BackupFolder = target().string();
        backup().mu_DataRestore_Click();
        EXPECT_FALSE(backup().RunBackup_Click());
        EXPECT_FALSE(os::exists(home() / kKept));
        EXPECT_EQ(stored("a.dat"), answer == Answer::No ? "written since" : "content of a.dat");
    }
}

TEST_F(BackupTest, ABackupOlderThanAWeekIsHintedAtIfThereAreOrders) {
    const std::string none = "No backup of these orders is known: Data > Back Up Data makes one";
    struct Case {
        const char* note;
        const char* orderDate;
        std::string hint;
    };
    const std::vector<Case> cases{
        {"", "3/4/2026", ""},
        {"", "2/25/2026", ""},
        {"", "2/24/2026", none},
        {"not a date", "2/24/2026", none},
        {"2026-02-25", "1/1/2026", ""},
        {"2026-03-09", "1/1/2026", ""},
        {"2026-02-24 dated", "3/4/2026",
         "The last backup is 8 days old: Data > Back Up Data makes a new one"}};
    for (const auto& [note, orderDate, hint] : cases) {
        SCOPED_TRACE(note + std::string(orderDate));
        wipeData();
        start();
        program().lookAround();
        newOrder();
        type(&Order::OrderDateEd, orderDate);
        save();
        if (*note != '\0') writeFile(data("last_backup.txt"), note);
        screen.hints.clear();
        start();
        program().lookAround();
        EXPECT_EQ(screen.hints, hint.empty() ? std::vector<std::string>{} : std::vector{hint});
    }
    prompts.expectSaying("Delete purchase order", Answer::Yes);
    program().editor.POPop_delete_Click("000001");
    screen.hints.clear();
    start();
    program().lookAround();
    EXPECT_EQ(screen.hints.size(), 0u) << "there is no order";
    newOrder();
    backUp();
    EXPECT_EQ(stored("last_backup.txt"), "2026-03-04 dated\r\n");
}

TEST_F(BackupTest, WhatWasCopiedBeforeAnErrorIsThereInALargeFolderToo) {
    wipeData();
    for (int i = 1000; i < 1600; ++i)
        writeFile(data("f" + std::to_string(i) + ".dat"), "content");
    std::filesystem::create_directory(target() / "f1589.dat");
    expectFailure("Error number: 75", target());
    EXPECT_EQ(inTarget().size(), 589u);
    EXPECT_EQ(backup().progress().files, 589u);
}

TEST_F(BackupTest, AStopAfterTheLastFileChangesNothing) {
    screen.onBackupProgress = [this] {
        if (backup().BackUpProgress == "5 files copied") backup().StopBackup_Click();
    };
    backUp();
    EXPECT_EQ(screen.lastLine, "");
}

TEST_F(BackupTest, ASourceThatGoesAwayIsNotBlamedOnTheCopy) {
    backUp();
    screen.onBackupProgress = [this] {
        if (backup().BackUpProgress == "Comparing: a.dat") os::remove(data("a.dat"));
    };
    prompts.expectSaying("Error number: 53");
    backup().Verify_Click();
    EXPECT_EQ(backup().BackUpProgress, "Aborted at a.dat: File not found (error 53)");
}

TEST_F(BackupTest, VerifyTellsWhatAgreesDiffersAndIsMissing) {
    backUp();
    verify("5 files agree, 0 differ, 0 missing.");
    writeFile(target() / "a.dat", "content of A.dat");  // as long as the source
    writeFile(target() / "B.HTM", "shorter");
    os::remove(target() / "d.jpg");
    verify(
        "2 files agree, 2 differ, 1 missing.\r\n\r\nDifferent:\r\na.dat\r\nB.HTM\r\n\r\n"
        "Missing:\r\nd.jpg",
        Icon::Exclamation);
    obstruct(target() / "B.HTM");
    verify(
        "2 files agree, 1 differ, 1 missing, 1 cannot be read.\r\n\r\nDifferent:\r\na.dat"
        "\r\n\r\nMissing:\r\nd.jpg\r\n\r\n"
        "Cannot be read:\r\nB.HTM: Path/File access error (error 75)",
        Icon::Exclamation);
}

TEST_F(BackupTest, OfManyMissingFilesTheFirstAreNamed) {
    backUp();
    wipeData();
    for (int i = 101; i <= 115; ++i)
        writeFile(data("f" + std::to_string(i) + ".dat"), "content");
    prompts.expectSaying("\r\nf110.dat\r\n... and 5 more");
    backup().Verify_Click();
}

TEST_F(BackupTest, ARestoreFillsTheListsAnew) {
    wipeData();
    for (const char* by : {"Ann", "Bob"}) {
        newOrder();
        type(&Order::ByEd, by);
        save();
    }
    backUp();
    wipeData();
    start();
    EXPECT_EQ(program().savedOrders.rowCount(), 0);
    EXPECT_TRUE(restore(target(), Answer::Yes, "Restoration completed!"));
    EXPECT_EQ(program().savedOrders.rowCount(), 2);
    EXPECT_EQ(program().histories.entries(&Order::ByEd)->size(), 2u);
}

}  // namespace
}  // namespace bramblet::test
