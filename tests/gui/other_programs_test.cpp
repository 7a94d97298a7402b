// What other programs make of our files, and how we call them.

#include "core/orders/csv_export.h"
#include "gui/document/order_sheet.h"
#include "gui/names.h"
#include "gui/platform/qt_text.h"
#include "gui/platform/system_desktop.h"
#include "support/sample_orders.h"
#include "support/temporary_folder.h"

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

/// The text of a document's PDF, as another program reads it.
S textOfPdf(const std::string& document) {
    const TemporaryFolder folder;
    const S path = pathToQt(folder / "order.pdf");
    {
        QPdfWriter writer(path);
        OrderSheet::print(
            document, [](const std::string&) { return std::string(); }, writer);
    }
    return outputOf("pdftotext", {name("-raw"), path, name("-")}).remove(QLatin1Char('\f'));
}

TEST(OtherPrograms, APdfHoldsTheTextOfTheDocumentOnce) {
    std::string highRow = "<table border=1><tr><td>";
    std::string longParagraph = highRow;
    for (int i = 0; i < 300; ++i) {
        highRow += "line-" + std::to_string(i) + "<br>";
        for (int j = 0; j < 10; ++j)
            longParagraph += "word-" + std::to_string(10 * i + j) + " ";
    }
    const auto sortedWords = [](const S& text) {
        QStringList words = text.simplified().split(QLatin1Char(' '));
        words.sort();
        return words;
    };
    for (const std::string& document : {longDocument(200), highRow, longParagraph}) {
        OrderSheet sheet([](const std::string&) { return std::string(); });
        sheet.show(document, 1);
        const QStringList expected = sortedWords(sheet.toPlainText());
        EXPECT_GE(expected.size(), 300);
        EXPECT_EQ(sortedWords(textOfPdf(document)), expected);
    }
}

/// A document with one text in every box that takes any, each behind a name of its own.
std::string documentOf(const std::string& text) {
    Order order;
    order.PONoEd = "000123";
    order.ToCombo = "vendor" + text;
    order.ToField = "address" + text + "\r\nsecond" + text;
    order.ShipToCombo = "ship-to" + text;
    order.ShipToField = "dock" + text + "\r\ngate" + text;
    order.JobNumberEd = "job" + text;
    order.ByEd = "by" + text;
    order.ShipViaEd = "via" + text;
    order.FOBEd = "fob" + text;
    order.TermsEd = "terms" + text;
    order.CommentsEd = "comment" + text + "\r\nmore" + text;
    order.lines = {{"1", "", "", "unit" + text, "description" + text, "1.00", "1.00", "special"},
                   {"2", "", "", "ea", "last" + text, "1.00", "2.00", "special"}};
    Settings settings;
    settings.SigLineSpace = 5;
    settings.DescriptionLineLength = 65;
    settings.FontName = "DejaVu Sans";
    settings.FormWidth = "640";
    settings.UseTopGraphic = "N";
    settings.IDText1 = "company" + text;
    settings.IDText2 = "street" + text;
    settings.NumberPrefix = "prefix" + text;
    TotalUp(order, false, {});
    return orderDocument(order, {settings, false, {}});
}

TEST(OtherPrograms, APdfHoldsWhatWasTypedIntoEveryBox) {
    const auto squeezed = [](S text) {
        text.removeIf([](QChar c) { return c.isSpace(); });
        return text;
    };
    for (const char* text :
         {" dia <50 mm, wall >2 mm", " temp < 40 C", " qty <= 10", " 2% <10 days", " Smith <& Sons",
          " <jo@acme.example>", " a <b", " <A grade> and <i am out>", " <tbd> </tbd>", " <3 </3 <",
          " x --> y", " <!-- x", " <!important> <?> <!", " <body> <head> <html>", " <font size=\"7",
          " \"quoted\" 'too' & co; R&D; &", " office, affluent, fjord", " <a> <img> <a name>",
          " \xC4\xD6\xDC \x80 \x93x\x94"}) {
        const S typed = squeezed(toQt(text));
        const S pdf = squeezed(textOfPdf(documentOf(text)));
        for (const char* box : {"vendor", "address", "second", "ship-to", "dock", "gate", "job",
                                "by", "via", "fob", "terms", "comment", "more", "unit",
                                "description", "last", "company", "street", "prefix"}) {
            EXPECT_TRUE(pdf.contains(name(box) + typed)) << box << text << "\n"
                                                         << pdf.toStdString();
        }
        EXPECT_TRUE(pdf.contains(name("AuthorizedSignature:"))) << text;
        for (const char* marker : {"PON", "ITM", "END"})
            EXPECT_FALSE(pdf.contains(name(marker))) << text;
    }
}

TEST(OtherPrograms, WhereTheTopGraphicIsMissingThePaperIsEmpty) {
    const std::string form =
        "<table border=0><tr><td><table><tr><td><img src=\"gone.gif\"></td></tr></table>Form";
    EXPECT_EQ(textOfPdf(form).simplified(), name("Form"));
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
