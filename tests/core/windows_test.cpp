// What only Windows has: files that others hold, long paths, shares, and code pages by number.

#include "core/platform/code_page_windows.h"
#include "core/platform/file_system.h"
#include "core/platform/path_text.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>
#include <windows.h>

namespace bramblet::test {
namespace {

/// Somebody else's hold on a file.
class Holder {
  public:
    Holder(const std::filesystem::path& path, DWORD shared)
        : handle_(::CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, shared, nullptr,
                                OPEN_ALWAYS, 0, nullptr)) {
        EXPECT_NE(handle_, INVALID_HANDLE_VALUE);
    }
    ~Holder() { letGo(); }
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;

    void lock(DWORD from, DWORD count) { EXPECT_TRUE(::LockFile(handle_, from, 0, count, 0)); }
    void letGo() {
        if (handle_ != INVALID_HANDLE_VALUE) ::CloseHandle(handle_);
        handle_ = INVALID_HANDLE_VALUE;
    }

  private:
    HANDLE handle_;
};

/// Runs a statement with a holder that lets go while it is waited for; the faults met on the way.
std::vector<FaultNumber> faultsUntilFree(Holder& holder,
                                         const std::function<void(const FileSystem&)>& statement) {
    std::vector<FaultNumber> met;
    const FileSystem files([&](const FileError& error) {
        met.push_back(error.number());
        holder.letGo();
        if (met.size() > 1) throw error;
    });
    statement(files);
    return met;
}

class Held : public ::testing::Test {
  protected:
    void SetUp() override { writeFile(path, "0123456789"); }

    TemporaryFolder folder;
    std::filesystem::path path = folder / "po_data.dat";
    const std::vector<FaultNumber> denied{FaultNumber::PermissionDenied};
};

TEST_F(Held, AFileOpenedForItsHolderAloneIsWaitedFor) {
    Holder holder(path, 0);
    const auto read = [&](const FileSystem& files) { EXPECT_EQ(files.read(path), "0123456789"); };
    EXPECT_EQ(faultsUntilFree(holder, read), denied);
}

bool underWine() {
    return ::GetProcAddress(::GetModuleHandleA("ntdll.dll"), "wine_get_version") != nullptr;
}

TEST_F(Held, LockedBytesAreWaitedFor) {
    if (underWine()) GTEST_SKIP() << "locks of bytes stop nobody there";
    Holder holder(path, FILE_SHARE_READ | FILE_SHARE_WRITE);
    holder.lock(4, 2);
    const auto write = [&](const FileSystem& files) {
        RandomFile file = files.openRandom(path);
        EXPECT_EQ(file.read(0, 4), "0123");
        file.write(3, "xyz");
    };
    EXPECT_EQ(faultsUntilFree(holder, write), denied);
    EXPECT_EQ(contentOf(path), "012xyz6789");
}

TEST_F(Held, ReplacingAndDeletingWaitForTheHolder) {
    Holder reader(path, FILE_SHARE_READ);
    const auto replace = [&](const FileSystem& files) { files.replace(path, "new"); };
    EXPECT_EQ(faultsUntilFree(reader, replace).size(), 1u);
    EXPECT_EQ(contentOf(path), "new");
    Holder other(path, FILE_SHARE_READ);
    const auto remove = [&](const FileSystem& files) { files.remove(path); };
    EXPECT_EQ(faultsUntilFree(other, remove).size(), 1u);
    EXPECT_FALSE(os::exists(path));
}

TEST_F(Held, TheProgramItselfKeepsNobodyOut) {
    RandomFile first = FileSystem().openRandom(path);
    RandomFile second = FileSystem().openRandom(path);
    first.write(0, "a");
    second.write(1, "b");
    EXPECT_EQ(FileSystem().read(path), "ab23456789");
    second.write(10, "longer");
    FileSystem().append(path, "!");
    EXPECT_EQ(contentOf(path), "ab23456789longer!");
}

TEST_F(Held, AWriteProtectedFileIsAnAccessError) {
    ASSERT_TRUE(::SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY));
    try {
        FileSystem().remove(path);
        ADD_FAILURE() << "removed";
    } catch (const FileError& error) {
        EXPECT_EQ(error.number(), FaultNumber::PathFileAccess);
    }
    ASSERT_TRUE(::SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL));
}

TEST(WindowsPaths, MayBeLongerThan260Characters) {
    const TemporaryFolder folder;
    const FileSystem files;
    std::filesystem::path deep = folder.path();
    for (int i = 0; i < 4; ++i)
        deep /= std::string(100, static_cast<char>('a' + i));
    files.createFolders(deep);
    files.replace(deep / "000001.htm", "order");
    files.replace(deep / "000001.htm", "order again");
    EXPECT_EQ(files.read(deep / ".." / std::string(100, 'd') / "000001.htm"), "order again");
    EXPECT_EQ(files.fileNames(deep), std::vector<std::filesystem::path>{"000001.htm"});
    EXPECT_TRUE(files.isSameFile(deep, deep / "."));
    EXPECT_GT(files.freeSpace(deep), 0u);
    files.remove(deep / "000001.htm");
}

TEST(WindowsPaths, MayHoldLettersThatTheCodePageLacks) {
    const TemporaryFolder folder;
    const FileSystem files;
    const std::filesystem::path polish = folder / u8"\u0142ukasz";
    const std::filesystem::path name = pathOfName(
        "\xC9"
        "1.htm");
    files.createFolders(polish);
    files.replace(polish / name, "order");
    EXPECT_EQ(files.fileNames(polish), std::vector{name});
    EXPECT_EQ(files.folderNames(folder.path()), std::vector{polish.filename()});
    EXPECT_EQ(files.read(polish / name), "order");
    files.remove(polish / name);
}

TEST(WindowsPaths, OfAShareThatIsNotThereAreNotFound) {
    try {
        FileSystem().createFolders("\\\\no-such-server.invalid\\orders\\po_data\\");
        ADD_FAILURE() << "created";
    } catch (const FileError& error) {
        EXPECT_EQ(error.number(), FaultNumber::PathNotFound);
    }
}

TEST(WindowsCodePages, OfOneByteAreTheSystemsOwn) {
    const CodePage central = codePage(1250);
    EXPECT_EQ(central.unicode[0xB3], u'\u0142');  // l with stroke
    EXPECT_EQ(central.upper[0xB3], 0xA3);
    const CodePage cyrillic = codePage(1251);
    EXPECT_EQ(cyrillic.unicode[0xE6], u'\u0436');
    EXPECT_EQ(cyrillic.upper[0xE6], 0xC6);
    EXPECT_EQ(cyrillic.upper['z'], 'Z');
    for (const unsigned number : {1250u, 1251u, 1252u, 1253u, 1254u, 1255u, 1257u, 874u}) {
        const CodePage page = codePage(number);
        for (unsigned a = 0; a < 256; ++a) {
            for (unsigned b = 0; b < a; ++b)
                EXPECT_NE(page.unicode[a], page.unicode[b]) << number << ": " << a << ", " << b;
        }
    }
}

TEST(WindowsCodePages, OfSeveralBytesCountAsWindows1252) {
    for (const unsigned number : {932u, 936u, 65001u, 99999u})
        EXPECT_EQ(codePage(number).unicode, windows1252().unicode) << number;
}

TEST(WindowsCodePages, OurOwn1252IsTheSystems) {
    for (unsigned byte = 0; byte < 256; ++byte) {
        const char text = static_cast<char>(byte);
        wchar_t unit = 0;
        ::MultiByteToWideChar(1252, 0, &text, 1, &unit, 1);
        EXPECT_EQ(windows1252().unicode[byte], static_cast<char16_t>(unit)) << byte;
    }
}

}  // namespace
}  // namespace bramblet::test
