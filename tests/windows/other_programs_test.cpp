// What other programs make of our files, and how we call them.

#include "document/csv_export.h"
#include "document/order_sheet.h"
#include "platform/qt_text.h"
#include "platform/system_desktop.h"
#include "support/sample_orders.h"
#include "support/temporary_folder.h"
#include "windows/names.h"

#include <QFile>
#include <QPdfWriter>
#include <QProcess>
#include <QTest>
#include <QTextDocument>

#include <gtest/gtest.h>

namespace bramblet::test {
namespace {

/// What a program that has to be on this machine writes.
S outputOf(const char* program, const QStringList& arguments) {
    QProcess process;
    process.start(name(program), arguments);
    EXPECT_TRUE(process.waitForFinished()) << program;
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return S::fromUtf8(process.readAllStandardOutput());
}

TEST(OtherPrograms, PythonReadsTheListOfOrdersAsItIs) {
    OrderIndexRecord order;
    order.Status = "A";
    order.Number = "000123";
    order.Vendor = "Nails, Bolts\r\nand More, Ltd";
    order.ShipTo = "Caf\xE9 \x80";
    order.OrderDate = 46085;
    order.OrderTotal = toCurrency(1298.13);
    OrderIndexRecord second = order;
    second.Number = "000124";
    const TemporaryFolder folder;
    writeFile(folder / "Orders.csv", ordersAsCsv({order, second}, {}));
    const S script = name(
        "import csv, sys\n"
        "rows = list(csv.reader(open(sys.argv[1], newline='', encoding='cp1252')))\n"
        "sys.stdout.reconfigure(encoding='utf-8')\n"
        "print(len(rows), set(map(len, rows)), rows[1])");
    EXPECT_EQ(outputOf("python3", {name("-c"), script, pathToQt(folder / "Orders.csv")}),
              S::fromUtf8("3 {12} ['000123', '', '3/4/2026', 'Nails, Bolts\\r\\nand More, Ltd', "
                          "'Café €', '', '$1,298.13', '$0.00', '$0.00', '$0.00', '$0.00', "
                          "'$0.00']\n"));
}

TEST(OtherPrograms, APrintThatCannotBeMadeIsNoticed) {
    const TemporaryFolder folder;
    QPdfWriter writer(pathToQt(folder / "nowhere/order.pdf"));
    EXPECT_FALSE(OrderSheet::print(
        "<p>x", [](const std::string&) { return std::string(); }, writer));
}

TEST(OtherPrograms, APdfHoldsTheTextOfTheDocument) {
    const TemporaryFolder folder;
    const S path = pathToQt(folder / "order.pdf");
    const PictureSource noPictures = [](const std::string&) { return std::string(); };
    const std::string document = longDocument(200);
    {
        QPdfWriter writer(path);
        OrderSheet::print(document, noPictures, writer);
    }
    OrderSheet sheet(noPictures);
    sheet.show(document, 1);
    const auto sortedWords = [](const S& text) {
        // Ligatures are taken apart.
        const S plain = text.normalized(S::NormalizationForm_KC).simplified();
        QStringList words = plain.split(QLatin1Char(' '));
        words.sort();
        return words;
    };
    const QStringList expected = sortedWords(sheet.toPlainText());
    EXPECT_GT(expected.size(), 1500);
    EXPECT_EQ(sortedWords(
                  outputOf("pdftotext", {name("-raw"), path, name("-")}).remove(QLatin1Char('\f'))),
              expected);
}

#ifndef _WIN32

/// Stand-ins for the desktop's tools that note how they were called.
class XdgTools : public ::testing::Test {
  protected:
    void SetUp() override {
        qputenv("PATH", QFile::encodeName(pathToQt(folder.path())) + ":" + path_);
    }
    void TearDown() override { qputenv("PATH", path_); }

    void tool(const char* toolName, const std::string& script) {
        const S file = pathToQt(folder / toolName);
        writeFile(folder / toolName, "#!/bin/sh\nfor a in " + std::string(toolName) +
                                         " \"$@\"; do echo \"$a\" >> '" +
                                         (folder / "calls").string() + "'; done\n" + script + "\n");
        QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    std::string calls() const { return contentOf(folder / "calls"); }

    TemporaryFolder folder;
    SystemDesktop desktop;

  private:
    QByteArray path_ = qgetenv("PATH");
};

TEST_F(XdgTools, TheBrowserIsTheProgramForTheTypeOfAPage) {
    tool("xdg-mime", "case $2 in filetype) echo text/html;; default) echo fox.desktop;; esac");
    EXPECT_EQ(desktop.programFor("/home/junk.HTM"), "fox.desktop");
    EXPECT_EQ(calls(),
              "xdg-mime\nquery\nfiletype\n/home/junk.HTM\n"
              "xdg-mime\nquery\ndefault\ntext/html\n");
    tool("xdg-mime", "exit 2");
    EXPECT_EQ(desktop.programFor("/home/junk.HTM"), "");
}

TEST_F(XdgTools, FilesAreOpenedAndAFailureIsSeen) {
    tool("xdg-open", "exit 0");
    EXPECT_TRUE(desktop.open("/data/My Orders; \"$HOME\".csv"));
    EXPECT_TRUE(desktop.openWith("fox.desktop", "https://bramblet.example/"));
    EXPECT_EQ(calls(),
              "xdg-open\n/data/My Orders; \"$HOME\".csv\n"
              "xdg-open\nhttps://bramblet.example/\n");
    tool("xdg-open", "exit 4");
    EXPECT_FALSE(desktop.open("/data/Orders.csv"));
}

TEST_F(XdgTools, AToolThatBecomesTheProgramIsLeftToItself) {
    tool("xdg-open", "sleep 3; echo noise >&2 && touch '" + (folder / "alive").string() + "'");
    const S alive = pathToQt(folder / "alive");
    EXPECT_TRUE(desktop.open("/data/Orders.csv"));
    EXPECT_FALSE(QFile::exists(alive)) << "it was waited for to its end";
    EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(alive); }, 10000));
}

TEST_F(XdgTools, MailIsComposedWithItsAttachments) {
    tool("xdg-email", "exit 0");
    const Mail mail{
        "Bramblet #1", "Caf\xE9", {u8"/home-\u0142ukasz/caf\u00E9.htm", "/data/top.gif"}};
    EXPECT_EQ(desktop.compose(mail), MailResult::HandedOver);
    EXPECT_EQ(calls(),
              "xdg-email\n--utf8\n--subject\nBramblet #1\n--body\nCaf\xC3\xA9\n"
              "--attach\n/home-\xC5\x82ukasz/caf\xC3\xA9.htm\n--attach\n/data/top.gif\n");
    tool("xdg-email", "exit 3");
    EXPECT_EQ(desktop.compose(mail), MailResult::NoMailProgram);
    tool("xdg-email", "exit 4");
    EXPECT_EQ(desktop.compose(mail), MailResult::Failed);
}

TEST_F(XdgTools, NoneOfThemBeingThereIsAFailureToo) {
    qputenv("PATH", QFile::encodeName(pathToQt(folder.path())));
    EXPECT_EQ(desktop.programFor("/home/junk.HTM"), "");
    EXPECT_FALSE(desktop.open("/data/Orders.csv"));
    EXPECT_EQ(desktop.compose({}), MailResult::NoMailProgram);
}

#endif

}  // namespace
}  // namespace bramblet::test
