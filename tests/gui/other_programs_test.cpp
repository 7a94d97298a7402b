// What other programs make of our files, and how we call them.

#include "core/orders/csv_export.h"
#include "core/orders/spreadsheet.h"
#include "gui/desk.h"
#include "gui/document/order_sheet.h"
#include "gui/platform/qt_text.h"
#include "gui/platform/system_desktop.h"
#include "support/sample_orders.h"
#include "support/temporary_folder.h"

#include <QFile>
#include <QPdfWriter>
#include <QProcess>
#include <QTest>

#include <gtest/gtest.h>

namespace bramblet::test {
namespace {

/// What a program that has to be on this machine writes.
QString outputOf(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished()) << program.toStdString();
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return QString::fromUtf8(process.readAllStandardOutput());
}

std::string noPicture(const std::string&) {
    return {};
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
    OrderRecords records(2);
    records.put(0, encodeRecord(kOrderIndexLayout, order));
    records.put(1, encodeRecord(kOrderIndexLayout, second));
    const QString script =
        "import csv, sys\n"
        "rows = list(csv.reader(open(sys.argv[1], newline='', encoding=sys.argv[2])))\n"
        "sys.stdout.reconfigure(encoding='utf-8')\n"
        "print(len(rows), set(map(len, rows)), rows[1])";
    const auto readBy = [&](const QString& encoding, const std::string& csv) {
        writeFile(folder / "Orders.csv", csv);
        return outputOf("python3", {"-c", script, pathToQt(folder / "Orders.csv"), encoding})
            .toStdString();
    };
    EXPECT_EQ(readBy("cp1252", ordersAsCsv(records, {})),
              "3 {12} ['000123', '', '3/4/2026', 'Nails, Bolts\\r\\nand More, Ltd', 'Café €', '', "
              "'$1,298.13', '$0.00', '$0.00', '$0.00', '$0.00', '$0.00']\n");
    order.Vendor = "5\" \"Nails\", Bolts";
    order.Job = "=1+1";
    records.put(0, encodeRecord(kOrderIndexLayout, order));
    EXPECT_EQ(readBy("utf-8-sig", ordersForSpreadsheet(records, {})),
              "3 {14} ['000123', \"'=1+1\", '2026-03-04', '5\" \"Nails\", Bolts', 'Café €', '', "
              "'1298.13', '0', '0', '0', '0', '0', 'Purchase Order', 'no']\n");
}

TEST(OtherPrograms, APrintThatCannotBeMadeIsNoticed) {
    const TemporaryFolder folder;
    QPdfWriter writer(pathToQt(folder / "nowhere/order.pdf"));
    EXPECT_FALSE(OrderSheet::print("<p>x", noPicture, writer));
}

/// The text of each page of a document's PDF, as another program reads it.
QStringList pagesOfPdf(const std::string& document) {
    const TemporaryFolder folder;
    const QString path = pathToQt(folder / "order.pdf");
    {
        QPdfWriter writer(path);
        OrderSheet::print(document, noPicture, writer);
    }
    QStringList pages = outputOf("pdftotext", {"-raw", path, "-"}).split('\f');
    EXPECT_TRUE(pages.takeLast().isEmpty()) << "each page is followed by the sign";
    return pages;
}

/// The text of a PDF of one page.
QString textOfPdf(const std::string& document) {
    const QStringList pages = pagesOfPdf(document);
    EXPECT_EQ(pages.size(), 1);
    return pages.join(' ');
}

/// From the second page on, each begins with what is repeated there, and with nothing else twice.
TEST(OtherPrograms, APdfHoldsTheTextOfTheDocumentOnce) {
    std::string highRow = "<table border=1><tr><td>";
    std::string longParagraph = highRow;
    for (int i = 0; i < 300; ++i) {
        highRow += "line-" + std::to_string(i) + "<br>";
        for (int j = 0; j < 10; ++j)
            longParagraph += "word-" + std::to_string(10 * i + j) + " ";
    }
    const auto sortedWords = [](const QString& text) {
        QStringList words = text.simplified().split(' ');
        words.sort();
        return words;
    };
    const QString headings = " Quant Unit Description Unit Price Amount";
    const std::vector<std::tuple<std::string, QString, QString>> cases{
        {longDocument(200), "PURCHASE ORDER No: 000200 ", headings},
        {highRow, "", ""},
        {longParagraph, "", ""}};
    for (const auto& [document, order, repeated] : cases) {
        OrderSheet sheet(noPicture);
        sheet.show(document, 1);
        const QStringList expected = sortedWords(sheet.toPlainText());
        EXPECT_GE(expected.size(), 300);
        QStringList pages = pagesOfPdf(document);
        EXPECT_GE(pages.size(), 3);
        for (qsizetype i = 1; i < pages.size(); ++i) {
            const QString text = pages[i].simplified();
            const QString head =
                order + QString("page %1 of %2").arg(i + 1).arg(pages.size()) + repeated;
            EXPECT_TRUE(text.startsWith(head + ' ')) << text.left(200).toStdString();
            pages[i] = text.mid(head.size());
        }
        EXPECT_EQ(sortedWords(pages.join(' ')), expected);
    }
    // Where the top graphic is missing the paper is empty.
    EXPECT_EQ(textOfPdf("<table border=0><tr><td><table><tr><td><img src=\"gone.gif\"></td></tr>"
                        "</table>Form")
                  .simplified(),
              "Form");
}

/// The boxes that take any text, with a name for each to stand before it.
class Paper : public Desk {};

TEST_F(Paper, GetsWhatTheViewerShows) {
    addLine("2", "Nails, 40 mm", "12.50");
    const QString file = pathToQt(documents / "printed.pdf");
    const auto print = [&](bool agreed) {
        driver->onNextDialog([&, agreed](QWidget& dialog) {
            driver->pick("printers", "Print to File (PDF)");
            driver->type("filename", file);
            agreed ? qobject_cast<QDialog*>(&dialog)->accept() : void(dialog.close());
        });
        driver->trigger("mu_Print");
        return QFile::exists(file);
    };
    driver->inDialog("MakeOrder", [&](QWidget& viewer) {
        EXPECT_FALSE(print(false));
        EXPECT_TRUE(print(true));
        viewer.close();
    });
    EXPECT_TRUE(outputOf("pdftotext", {"-raw", file, "-"}).contains("2 ea Nails, 40 mm"));
    EXPECT_EQ(window->statusBar()->currentMessage(), "");
}

const std::vector<std::pair<std::string, OrderField>> kBoxes{
    {"vendor", &Order::ToCombo},    {"address", &Order::ToField}, {"ship-to", &Order::ShipToCombo},
    {"dock", &Order::ShipToField},  {"job", &Order::JobNumberEd}, {"by", &Order::ByEd},
    {"via", &Order::ShipViaEd},     {"fob", &Order::FOBEd},       {"terms", &Order::TermsEd},
    {"comment", &Order::CommentsEd}};

std::string everywhere(const std::string& text) {
    Order order = orderWith({{&Order::PONoEd, "000123"}});
    for (const auto& [box, field] : kBoxes)
        order.*field = box + text;
    for (const OrderField longer : {&Order::ToField, &Order::ShipToField, &Order::CommentsEd})
        order.*longer += "\r\nsecond-" + order.*longer;
    order.lines = {lineOf("description" + text), lineOf("last" + text)};
    order.lines.front()[kUnit] = "unit" + text;
    Settings settings = formOf("company" + text);
    settings.IDText2 = "street" + text;
    settings.NumberPrefix = "prefix" + text;
    return documentOf(std::move(order), settings);
}

TEST(OtherPrograms, APdfHoldsWhatWasTypedIntoEveryBox) {
    const auto squeezed = [](QString text) {
        text.removeIf([](QChar c) { return c.isSpace(); });
        return text.toStdString();
    };
    std::vector<std::string> names{"second-address", "second-dock", "second-comment",
                                   "unit",           "description", "last",
                                   "company",        "street",      "prefix"};
    for (const auto& [box, field] : kBoxes)
        names.push_back(box);
    for (const char* text :
         {" dia <50 mm, wall >2 mm", " temp < 40 C", " qty <= 10", " 2% <10 days", " Smith <& Sons",
          " <jo@acme.example>", " a <b", " <A grade> and <i am out>", " <tbd> </tbd>", " <3 </3 <",
          " x --> y", " <!-- x", " <!important> <?> <!", " <body> <head> <html>", " <font size=\"7",
          " \"quoted\" 'too' & co; R&D; &", " office, affluent, fjord", " <a> <img> <a name>",
          " \xC4\xD6\xDC \x80 \x93x\x94"}) {
        const std::string typed = squeezed(toQt(text));
        const std::string pdf = squeezed(textOfPdf(everywhere(text)));
        const auto holds = [&](const std::string& part) {
            return pdf.find(part) != std::string::npos;
        };
        for (const std::string& box : names)
            EXPECT_TRUE(holds(box + typed)) << box << text;
        EXPECT_TRUE(holds("AuthorizedSignature:")) << text;
        for (const char* marker : {"PON", "ITM", "END"})
            EXPECT_FALSE(holds(marker)) << text;
    }
}

/// Stand-ins for the desktop's tools that note how they were called.
class XdgTools : public ::testing::Test {
  protected:
    void SetUp() override {
        qputenv("PATH", QFile::encodeName(pathToQt(folder.path())) + ":" + path_);
    }
    void TearDown() override { qputenv("PATH", path_); }

    void tool(const std::string& name, const std::string& script) {
        writeFile(folder / name, "#!/bin/sh\nfor a in " + name + " \"$@\"; do echo \"$a\" >> '" +
                                     (folder / "calls").string() + "'; done\n" + script + "\n");
        std::filesystem::permissions(folder / name, std::filesystem::perms::owner_all);
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
    const std::filesystem::path process = folder / "process";
    const std::filesystem::path closed = folder / "closed";
    tool("xdg-open", "until [ -e '" + closed.string() +
                         "' ]; do sleep 0.1; done; echo noise >&2 && echo $$ > '" +
                         process.string() + "'");
    EXPECT_TRUE(desktop.open("/data/Orders.csv"));
    EXPECT_FALSE(std::filesystem::exists(process));
    writeFile(closed, "");
    const auto number = [&] { return QString::fromStdString(contentOf(process)); };
    EXPECT_TRUE(QTest::qWaitFor([&] { return number().endsWith('\n'); }, 10000));
    const QString running = "/proc/" + number().trimmed();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !QFile::exists(running); }, 10000));
}

TEST_F(XdgTools, MailIsComposedWithItsAttachments) {
    tool("xdg-email", "exit 0");
    const Mail mail{
        "Bramblet #1", "Caf\xE9", {u8"/home-\u0142ukasz/caf\u00E9.htm", "/data/top.gif"}};
    EXPECT_EQ(desktop.compose(mail), MailResult::HandedOver);
    EXPECT_EQ(calls(),
              "xdg-email\n--utf8\n--subject\nBramblet #1\n--body\nCafé\n"
              "--attach\n/home-łukasz/café.htm\n--attach\n/data/top.gif\n");
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

}  // namespace
}  // namespace bramblet::test
