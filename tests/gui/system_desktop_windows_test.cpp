// The programs that Windows has for files, asked for and started through its shell.

#include "gui/platform/qt_text.h"
#include "gui/platform/system_desktop.h"
#include "support/temporary_folder.h"

#include <QFileInfo>

#include <gtest/gtest.h>

namespace bramblet {
namespace {

using namespace test;

TEST(SystemDesktopTest, TheProgramForAFileIsFoundByItsKind) {
    const TemporaryFolder folder;
    writeFile(folder / "a package.msi", "text");  // a kind that every Windows knows
    writeFile(folder / "nobody.knows-this", "text");
    SystemDesktop desktop;
    const QFileInfo program(pathToQt(desktop.programFor(folder / "a package.msi")));
    EXPECT_EQ(program.fileName().toLower(), "msiexec.exe");
    EXPECT_TRUE(program.isExecutable());
    EXPECT_EQ(desktop.programFor(folder / "nobody.knows-this"), "");
    EXPECT_EQ(desktop.programFor(folder / "missing.msi"), "");
}

TEST(SystemDesktopTest, AProgramThatIsNotThereIsAFailureAndNotADialog) {
    const TemporaryFolder folder;
    SystemDesktop desktop;
    EXPECT_FALSE(desktop.openWith(folder / "missing.exe", "https://bramblet.example/"));
    EXPECT_FALSE(desktop.open(folder / "missing.csv"));
}

}  // namespace
}  // namespace bramblet
