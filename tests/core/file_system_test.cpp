#include "core/platform/file_system.h"

#include "support/odd_share.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>
#ifndef _WIN32
#include <fcntl.h>
#include <sys/stat.h>
#endif

namespace bramblet::test {
namespace {

FaultNumber faultOf(const std::function<void()>& statement) {
    try {
        statement();
    } catch (const FileError& error) {
        return error.number();
    }
    ADD_FAILURE() << "no fault";
    return FaultNumber::DeviceError;
}

class Files : public ::testing::Test {
  protected:
    const TemporaryFolder folder;
    const FileSystem files;
    const std::filesystem::path path = folder / "po_data.dat";
};

TEST_F(Files, FaultsHaveTheNumbersOfTheirCauses) {
    EXPECT_EQ(faultOf([&] { files.read(path); }), FaultNumber::FileNotFound);
    EXPECT_EQ(faultOf([&] { files.touch(folder / "none/file"); }), FaultNumber::PathNotFound);
    EXPECT_EQ(faultOf([&] { files.openRandom(folder.path()); }), FaultNumber::PathFileAccess);
    EXPECT_EQ(faultOf([&] { files.touch(folder / std::string(300, 'x')); }),
              FaultNumber::BadFileName);
    files.touch(path);
    EXPECT_EQ(faultOf([&] { files.touch(path / "below"); }), FaultNumber::PathNotFound);
}

TEST_F(Files, AFileLongerThanAnyInEarnestIsNotReadIntoMemory) {
    files.openRandom(path).write(kLongestFile, "x");  // of holes
    try {
        files.read(path);
        ADD_FAILURE() << "no fault";
    } catch (const Fault& fault) {
        EXPECT_EQ(fault.number(), FaultNumber::Overflow);
        EXPECT_EQ(fault.inWords(), "the file is damaged, it is 67108865 bytes long");
    }
}

TEST_F(Files, ABusyFileIsWaitedForUntilItIsFreeOrTheWaitGivesUp) {
    int waits = 0;
    const FileSystem waiting([&](const FileError& error) {
        EXPECT_EQ(error.path(), "po_data.dat");
        if (++waits > 2) throw error;
    });
    const auto failing = [](FaultNumber number) {
        return [number] { throw FileError(number, "po_data.dat"); };
    };
    int tries = 0;
    const int result = waiting.run([&] {
        ++tries;
        if (tries == 1) failing(FaultNumber::PermissionDenied)();
        if (tries == 2) failing(FaultNumber::PathFileAccess)();
        return 7;
    });
    EXPECT_EQ(result, 7);
    EXPECT_EQ(waits, 2);
    EXPECT_THROW(waiting.run(failing(FaultNumber::DiskFull)), FileError);
    EXPECT_THROW(waiting.withoutRetry().run(failing(FaultNumber::PermissionDenied)), FileError);
    EXPECT_EQ(waits, 2) << "thrown at once";
    EXPECT_EQ(faultOf([&] { waiting.run(failing(FaultNumber::PermissionDenied)); }),
              FaultNumber::PermissionDenied);
    EXPECT_EQ(waits, 3);
}

TEST_F(Files, ReplacingLeavesTheOldContentWhenItFails) {
    files.replace(path, "first");
    files.replace(path, "second");
    EXPECT_EQ(contentOf(path), "second");
    files.createFolders(folder / "folder");
    EXPECT_THROW(files.replace(folder / "folder", "x"), FileError);
    // Neither run leaves a temporary file behind.
    EXPECT_EQ(files.fileNames(folder.path()), std::vector{path.filename()});
}

TEST_F(Files, OneThatTakesAPlaceInSeveralStepsKeepsTheOthersWaiting) {
    oddities.exchanges = false;
    const auto mayReplace = [](const std::string& there) { return there == "mine"; };
    std::string kept;
    const auto keep = [&](const std::filesystem::path& other) {
        kept = files.read(other);
        files.remove(other);
    };
    const std::filesystem::path claim = folder / "~bramblet-po_data.dat.claim";
    int waits = 0;
    const FileSystem waiting([&](const FileError& error) {
        EXPECT_EQ(error.path(), path);
        EXPECT_EQ(files.read(path), "mine") << "while another program has its claim";
        files.replace(path, "another's");
        ++waits;
        os::removeFolder(claim);
    });
    files.replace(path, "mine");
    os::createFolder(claim);
    waiting.put(path, "new", mayReplace, keep);
    EXPECT_EQ(waits, 1);
    EXPECT_EQ(files.read(path) + ", " + kept, "new, another's");
    EXPECT_FALSE(os::exists(claim));

    os::createFolder(claim);
    EXPECT_EQ(faultOf([&] { files.put(path, "newer", mayReplace, keep); }),
              FaultNumber::PermissionDenied);
    EXPECT_EQ(files.read(path), "new");
    EXPECT_EQ(files.fileNames(folder.path()).size(), 1u);
    oddities = {};
}

TEST_F(Files, ACopyIsWholeAndKeepsItsTime) {
    const std::string content = std::string(3 << 20, 'x') + "y";
    writeFile(folder / "from", content);
    os::setModified(folder / "from", 1'000'000'000'000'000'000);
    writeFile(path, "old");
    files.copy(folder / "from", path);
    EXPECT_EQ(contentOf(path), content);
    EXPECT_EQ(files.status(path).modified, 1'000'000'000'000'000'000);
}

#ifndef _WIN32
TEST_F(Files, ANamedPipeIsRefusedInsteadOfWaitedOn) {
    ASSERT_EQ(::mkfifo(path.c_str(), 0666), 0);
    const std::vector<std::function<void()>> statements{
        [&] { files.read(path); },
        [&] { files.openRandom(path); },
        [&] { files.touch(path); },
        [&] { files.append(path, "x"); },
        [&] { files.copy(path, folder / "copy"); },
    };
    for (const auto& statement : statements)
        EXPECT_EQ(faultOf(statement), FaultNumber::BadFileName);
    EXPECT_FALSE(files.exists(folder / "copy"));
}

TEST_F(Files, NothingIsOpenedForAppendingWhichSharesRefuse) {
    ASSERT_EQ(::open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0666), -1);
    files.touch(path);
    files.append(path, "Ann\r\n");
    files.append(path, "Bob\r\n");
    EXPECT_EQ(contentOf(path), "Ann\r\nBob\r\n");
    for (const auto how : {os::Open::ReadWrite, os::Open::Write, os::Open::WriteNew})
        os::File(folder / ("file" + std::to_string(static_cast<int>(how))), how).write(0, "x");
}

TEST_F(Files, WhatTakesAFilesPlaceHasItsRights) {
    constexpr auto kShared = static_cast<std::filesystem::perms>(0664);
    const auto copied = folder / "copied";
    writeFile(path, "old");
    writeFile(copied, "from the backup");
    std::filesystem::permissions(path, kShared);
    std::filesystem::permissions(copied, static_cast<std::filesystem::perms>(0600));
    const std::vector<std::function<void()>> statements{[&] { files.replace(path, "new"); },
                                                        [&] { files.copy(copied, path); },
                                                        [&] { files.rename(copied, path); }};
    for (const auto& statement : statements) {
        statement();
        EXPECT_EQ(std::filesystem::status(path).permissions(), kShared);
    }
    EXPECT_EQ(contentOf(path), "from the backup");
}
#endif

TEST(FileNames, OnlyPlainNamesMayBePartOfAPath) {
    for (const char* name : {"000123", "PO 12", "A.1", "caf\xE9", "COMET", "console", "LPT2_.04",
                             "COM", "COM12", "COM\xBA"}) {
        EXPECT_TRUE(isPlainFileName(name)) << name;
    }
    for (const char* name :
         {"",         "../x",    "a/b",       "a\\b",   "c:x",       "a..b", "a*",    "q?",
          "x\ty",     "CON",     "nul",       "com1",   "Lpt9.x",    "a|b",  "\"a\"", "LPT2.04",
          "LPT2 .04", "COM\xB9", "lpt\xB3.1", "CONIN$", "conout$.x", "12.",  "12 "}) {
        EXPECT_FALSE(isPlainFileName(name)) << name;
    }
    EXPECT_TRUE(isPlainFileName("12.", ".htm"));
    EXPECT_FALSE(isPlainFileName("LPT2.04", ".htm"));
    EXPECT_TRUE(isPlainFileName(std::string(251, '1'), ".htm"));
    EXPECT_FALSE(isPlainFileName(std::string(252, '1'), ".htm"));
    EXPECT_FALSE(isPlainFileName(std::string(100, '\x80'), ".htm")) << "300 bytes of UTF-8";
}

TEST(FileNames, ANameMadePlainIsOne) {
    const std::vector<std::pair<std::string, std::string>> names{
        {"V/\"1\"", "V__1_"}, {"LPT2.04", "LPT2_.04"},
        {"nul", "nul_"},      {"com\xB2", "com\xB2_"},
        {"a..b. ", "a_b"},    {"...", "_"},
        {"  ", "_"},          {"", "_"},
    };
    for (const auto& [name, plain] : names) {
        EXPECT_EQ(madePlainFileName(name), plain);
        EXPECT_TRUE(isPlainFileName(plain)) << plain;
    }
    const std::string cut = madePlainFileName(std::string(300, '\xE9') + ".jpeg");
    EXPECT_TRUE(isPlainFileName(cut, ".pdf"));
    EXPECT_TRUE(cut.ends_with("\xE9.jpeg")) << cut;
    EXPECT_TRUE(isPlainFileName(madePlainFileName(std::string(1 << 20, '.'))));
}

}  // namespace
}  // namespace bramblet::test
