#include "core/platform/file_system.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>
#ifndef _WIN32
#include <fcntl.h>
#include <sys/stat.h>
#endif

namespace bramblet {
namespace {

using namespace test;

FaultNumber faultOf(const std::function<void()>& statement) {
    try {
        statement();
    } catch (const FileError& error) {
        return error.number();
    }
    ADD_FAILURE() << "no fault";
    return FaultNumber::DeviceError;
}

TEST(Files, FaultsHaveTheNumbersOfTheirCauses) {
    const TemporaryFolder folder;
    const FileSystem files;
    EXPECT_EQ(faultOf([&] { files.read(folder / "none"); }), FaultNumber::FileNotFound);
    EXPECT_EQ(faultOf([&] { files.touch(folder / "none/file"); }), FaultNumber::PathNotFound);
    EXPECT_EQ(faultOf([&] { files.openRandom(folder.path()); }), FaultNumber::PathFileAccess);
    EXPECT_EQ(faultOf([&] { files.touch(folder / std::string(300, 'x')); }),
              FaultNumber::BadFileName);
    files.touch(folder / "file");
    EXPECT_EQ(faultOf([&] { files.touch(folder / "file/below"); }), FaultNumber::PathNotFound);
}

#ifndef _WIN32
TEST(Files, ANamedPipeIsRefusedInsteadOfWaitedOn) {
    const TemporaryFolder folder;
    const std::string pipe = folder / "000001.htm";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0666), 0);
    const FileSystem files;
    const std::vector<std::function<void()>> statements{
        [&] { files.read(pipe); },
        [&] { files.openRandom(pipe); },
        [&] { files.touch(pipe); },
        [&] { files.append(pipe, "x"); },
        [&] { files.copy(pipe, folder / "copy"); },
    };
    for (const auto& statement : statements)
        EXPECT_EQ(faultOf(statement), FaultNumber::BadFileName);
    EXPECT_FALSE(files.exists(folder / "copy"));
}
#endif

TEST(Files, AFileLongerThanAnyInEarnestIsNotReadIntoMemory) {
    const TemporaryFolder folder;
    const FileSystem files;
    files.openRandom(folder / "long").write(kLongestFile, "x");  // of holes
    try {
        files.read(folder / "long");
        ADD_FAILURE() << "no fault";
    } catch (const Fault& fault) {
        EXPECT_EQ(fault.number(), FaultNumber::Overflow);
        EXPECT_EQ(fault.inWords(), "the file is damaged, it is 67108865 bytes long");
    }
}

TEST(Files, ABusyFileIsWaitedForAndTheStatementTriedAgain) {
    const TemporaryFolder folder;
    int waits = 0;
    int tries = 0;
    const FileSystem files([&](const FileError& error) {
        ++waits;
        EXPECT_EQ(error.path(), "po_data.dat");
    });
    const int result = files.run([&] {
        ++tries;
        if (tries == 1) throw FileError(FaultNumber::PermissionDenied, "po_data.dat");
        if (tries == 2) throw FileError(FaultNumber::PathFileAccess, "po_data.dat");
        return 7;
    });
    EXPECT_EQ(result, 7);
    EXPECT_EQ(waits, 2);
}

TEST(Files, OtherFaultsAndThoseWithoutRetryAreThrownAtOnce) {
    int waits = 0;
    const FileSystem files([&](const FileError&) { ++waits; });
    const auto full = [] { throw FileError(FaultNumber::DiskFull, "x"); };
    const auto busy = [] { throw FileError(FaultNumber::PermissionDenied, "x"); };
    EXPECT_THROW(files.run(full), FileError);
    EXPECT_THROW(files.withoutRetry().run(busy), FileError);
    EXPECT_EQ(waits, 0);
}

TEST(Files, GivingUpTheWaitEndsTheOperationWithItsFault) {
    const FileSystem files([](const FileError& error) { throw error; });
    EXPECT_EQ(
        faultOf([&] { files.run([] { throw FileError(FaultNumber::PermissionDenied, "x"); }); }),
        FaultNumber::PermissionDenied);
}

TEST(Files, ReplacingLeavesTheOldContentWhenItFails) {
    const TemporaryFolder folder;
    const FileSystem files;
    files.replace(folder / "000001.htm", "first");
    files.replace(folder / "000001.htm", "second");
    EXPECT_EQ(contentOf(folder / "000001.htm"), "second");
    files.createFolders(folder / "folder");
    EXPECT_THROW(files.replace(folder / "folder", "x"), FileError);
    // Neither run leaves a temporary file behind.
    EXPECT_EQ(files.fileNames(folder.path()), std::vector<std::filesystem::path>{"000001.htm"});
}

TEST(Files, ACopyIsWholeAndKeepsItsTime) {
    const TemporaryFolder folder;
    const FileSystem files;
    std::string content(3 << 20, 'x');
    content[content.size() - 1] = 'y';
    writeFile(folder / "from", content);
    os::setModified(folder / "from", 1'000'000'000'000'000'000);
    writeFile(folder / "to", "old");
    files.copy(folder / "from", folder / "to");
    EXPECT_EQ(contentOf(folder / "to"), content);
    EXPECT_EQ(files.status(folder / "to").modified, 1'000'000'000'000'000'000);
}

#ifndef _WIN32
TEST(Files, NothingIsOpenedForAppendingWhichSharesRefuse) {
    const TemporaryFolder folder;
    const FileSystem files;
    const auto path = folder / "by_field.dat";
    ASSERT_EQ(::open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0666), -1);
    files.touch(path);
    files.append(path, "Ann\r\n");
    files.append(path, "Bob\r\n");
    EXPECT_EQ(contentOf(path), "Ann\r\nBob\r\n");
    for (const auto how : {os::Open::ReadWrite, os::Open::Write, os::Open::WriteNew}) {
        os::File(folder / ("file" + std::to_string(static_cast<int>(how))), how).write(0, "x");
    }
}
#endif

#ifndef _WIN32
TEST(Files, WhatTakesAFilesPlaceHasItsRights) {
    const TemporaryFolder folder;
    const FileSystem files;
    constexpr auto kShared = static_cast<std::filesystem::perms>(0664);
    const auto path = folder / "po_data.dat";
    const auto copied = folder / "copied";
    const auto rightsOf = [](const std::filesystem::path& file) {
        return std::filesystem::status(file).permissions();
    };
    writeFile(path, "old");
    writeFile(copied, "from the backup");
    std::filesystem::permissions(path, kShared);
    std::filesystem::permissions(copied, static_cast<std::filesystem::perms>(0600));
    files.replace(path, "new");
    EXPECT_EQ(rightsOf(path), kShared);
    files.copy(copied, path);
    EXPECT_EQ(rightsOf(path), kShared);
    files.rename(copied, path);
    EXPECT_EQ(rightsOf(path), kShared);
    EXPECT_EQ(contentOf(path), "from the backup");
}
#endif

TEST(Files, OnlyPlainNamesMayBePartOfAPath) {
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

TEST(Files, ANameMadePlainIsOne) {
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
}  // namespace bramblet
