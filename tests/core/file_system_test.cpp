#include "platform/file_system.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

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

TEST(Files, OnlyPlainNamesMayBePartOfAPath) {
    for (const char* name : {"000123", "PO 12", "A.1", "caf\xE9", "COMET", "console"}) {
        EXPECT_TRUE(isPlainFileName(name)) << name;
    }
    for (const char* name : {"", "../x", "a/b", "a\\b", "c:x", "a..b", "a*", "q?", "x\ty", "CON",
                             "nul", "com1", "Lpt9.x", "a|b", "\"a\""}) {
        EXPECT_FALSE(isPlainFileName(name)) << name;
    }
}

}  // namespace
}  // namespace bramblet
