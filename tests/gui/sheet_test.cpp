// The order laid out as a sheet of paper, on the screen and on pages.

#include "gui/document/order_sheet.h"
#include "gui/document/page_breaks.h"
#include "support/sample_orders.h"

#include <QtGui>

#include <algorithm>
#include <ctime>
#include <gtest/gtest.h>

namespace bramblet::test {
namespace {

std::string noPicture(const std::string&) {
    return {};
}

std::string repeated(const std::string& part, int times) {
    std::string text;
    for (int i = 0; i < times; ++i)
        text += part;
    return text;
}

class PagesTest : public ::testing::Test {
  protected:
    void divide(const std::string& document, double height) {
        constexpr double kRunningHead = 30;
        sheet.show(document, 1);
        pages = pagesOf(sheet, height, kRunningHead);
        double end = 0;
        for (const Page& page : pages) {
            EXPECT_EQ(page.from, end);
            EXPECT_GT(page.to, page.from);
            const double above = (end > 0 ? kRunningHead : 0) + page.headingsHeight();
            EXPECT_LE(above + page.to - page.from, height);
            end = page.to;
        }
        EXPECT_EQ(end, sheet.size().height());
    }
    static QRectF place(const OrderSheet& in, const QTextBlock& block) {
        return in.documentLayout()->blockBoundingRect(block);
    }
    /// No page ends between two heights.
    void expectWhole(double top, double bottom, const QTextBlock& block) const {
        for (const Page& page : pages) {
            EXPECT_FALSE(page.from > top + 0.01 && page.from < bottom - 0.01)
                << block.text().toStdString();
        }
    }
    void expectNoLineCut() const {
        for (QTextBlock block = sheet.begin(); block.isValid(); block = block.next()) {
            for (int i = 0; i < block.layout()->lineCount(); ++i) {
                const QRectF line = block.layout()->lineAt(i).rect();
                const double top = place(sheet, block).top() + line.top();
                expectWhole(top, top + line.height(), block);
            }
        }
    }

    /// The texts of the rows that begin between two heights of the items table.
    QStringList rowsBetween(double from, double to) const {
        QStringList rows;
        const QTextTable* const table = sheet.find("Quant").currentTable();
        for (int row = 0; row < table->rows(); ++row) {
            const double middle =
                place(sheet, table->cellAt(row, 0).firstCursorPosition().block()).center().y();
            if (middle < from || middle > to) continue;
            QStringList texts;
            for (int column = 0; column < table->columns(); ++column)
                texts += table->cellAt(row, column).firstCursorPosition().block().text();
            rows += texts.join('|');
        }
        return rows;
    }

    OrderSheet sheet{noPicture};
    std::vector<Page> pages;
};

TEST_F(PagesTest, BreakBetweenRowsAndHoldEveryLine) {
    divide(longDocument(200), 950);
    EXPECT_GE(pages.size(), 5u);
    expectNoLineCut();
    int tallCells = 0;
    for (QTextBlock block = sheet.begin(); block.isValid(); block = block.next()) {
        const QTextTable* table = QTextCursor(block).currentTable();
        if (table == nullptr) continue;
        const QTextTableCell cell = table->cellAt(block.position());
        const double top = place(sheet, cell.firstCursorPosition().block()).top();
        const double bottom = place(sheet, cell.lastCursorPosition().block()).bottom();
        expectWhole(top, bottom, block);
        if (bottom - top > 20) ++tallCells;
    }
    EXPECT_GT(tallCells, 20);
    for (int i = 1; i <= 200; ++i)
        EXPECT_EQ(sheet.toPlainText().count(QString("Item-%1-").arg(i)), 1) << i;
}

TEST_F(PagesTest, TablesCloseTogetherFillThePagesAndAHighRowBreaksBetweenItsLines) {
    divide(repeated("<table><tr><td>a</td></tr></table>", 500), 900);
    EXPECT_LE(pages.size(), sheet.size().height() / 900 + 3);
    divide("<table border=\"1\"><tr><td>" + repeated("line<br>", 100) + "</td></tr></table>", 300);
    EXPECT_GE(pages.size(), 4u);
    expectNoLineCut();
}

/// The pages' ends wander over the rows as the order grows.
TEST_F(PagesTest, HeadingsAreRepeatedWhereTheTableGoesOnAndTotalsStayTogether) {
    const QString headings = "Quant|Unit|Description|Unit Price|Amount";
    std::size_t most = 0;
    for (int lines = 1; lines <= 60; ++lines) {
        SCOPED_TRACE(lines);
        divide(longDocument(lines), 500);
        most = std::max(most, pages.size());
        EXPECT_EQ(pages[0].headingsHeight(), 0);
        const double tableEnd = place(sheet, sheet.find("Order Total").block()).bottom();
        for (std::size_t i = 0; i < pages.size(); ++i) {
            const QStringList rows = rowsBetween(pages[i].from, pages[i].to);
            const bool goesOn = i > 0 && pages[i].from < tableEnd;
            EXPECT_EQ(rowsBetween(pages[i].headingsFrom, pages[i].headingsTo),
                      goesOn ? QStringList(headings) : QStringList());
            EXPECT_TRUE(rows.isEmpty() || rows.last() != headings) << "with nothing below them";
            EXPECT_NE(rows.join('/').contains("Sub Total"),
                      !rows.join('/').contains("Order Total"));
        }
    }
    EXPECT_GE(most, 3u);
}

TEST_F(PagesTest, HeadingsThatWouldFillThePageAreNotRepeated) {
    const std::string row = "<tr><td>item</td></tr>";
    const auto table = [&](const std::string& heading) {
        return "<table border=\"1\"><tr>\r\n<td width=\"50%\">" + heading + "</td></tr>" +
               repeated(row, 100) + "</table>";
    };
    divide(table("item"), 300);
    EXPECT_GT(pages.at(1).headingsHeight(), 0);
    divide(table(repeated("high<br>", 15)), 300);
    EXPECT_EQ(pages.at(1).headingsHeight(), 0);
    divide(table("a") + repeated("<p>between</p>", 20) + table("b<br>b"), 300);
    for (const Page& page : pages) {
        const bool second = page.from > sheet.size().height() / 2;
        const double height = page.headingsHeight();
        EXPECT_TRUE(height == 0 || (height > 25) == second) << "the headings of its own table";
    }
}

TEST_F(PagesTest, PrintingTakesAsLongAsTheOrder) {
    const auto ticks = [](int lines) {
        QBuffer pdf;
        pdf.open(QIODevice::WriteOnly);
        QPdfWriter writer(&pdf);
        const std::string document = longDocument(lines);
        const auto start = std::clock();
        OrderSheet::print(document, noPicture, writer);
        return std::clock() - start;
    };
    EXPECT_LT(ticks(1500), 20 * ticks(150));
}

TEST_F(PagesTest, OnlyThePagesAskedForArePrinted) {
    const auto pagesPrinted = [](const QString& wanted) {
        QBuffer pdf;
        pdf.open(QIODevice::WriteOnly);
        QPdfWriter writer(&pdf);
        writer.setPageRanges(QPageRanges::fromString(wanted));
        OrderSheet::print(longDocument(200), noPicture, writer);
        return pdf.data().count("/Type /Page\n");
    };
    const auto all = pagesPrinted("");
    EXPECT_GE(all, 4);
    EXPECT_EQ(pagesPrinted("2-3"), 2);
    EXPECT_EQ(pagesPrinted(QString("1,%1-99").arg(all)), 2);
}

/// Documents that took minutes, or all memory, to lay out.
TEST_F(PagesTest, HostileDocumentsAreLaidOut) {
    const std::string kFiller =
        "<tr bordercolor=\"white\"><td></td><td></td><td></td><td>:</td><td>:</td></tr>";
    const std::vector<std::pair<std::string, int>> cases{
        {repeated("word ", 200'000), 100'000},
        {repeated("<table><tr><td>", 20), 20},
        {"<table cellpadding=\"2000000000\" cellspacing=2000000000><tr><td>", 100},
        {"<table border=1>" + repeated(kFiller, 32'767) + "</table>", 500'000},
        {repeated("<b>", 200'000), 10},
        {"<font size=\"1e20\">", 10},
        {"<table><tr>" + repeated("<td>a", 20'000), 7000},
        {repeated("<img src=a.gif>", 50'000), 100},
        {repeated("<br>", 50'000), 500'000},
        {repeated("<ul><li>", 50'000), 10},
        {std::string(200'000, '<'), 20'000},
    };
    for (const auto& [document, height] : cases) {
        SCOPED_TRACE(document.substr(0, 40));
        divide("<table border=0 width=640><tr><td>" + document + " last", 950);
        EXPECT_GT(sheet.size().height(), height);
        EXPECT_LT(sheet.size().height(), 2 * height + 1000);
        EXPECT_TRUE(sheet.toPlainText().contains("last"));
    }
}

std::string headed(const std::string& company, const std::string& width) {
    Order order = orderWith({{&Order::PONoEd, "000123"}});
    order.lines.push_back(lineOf("office files"));
    Settings settings = formOf(company);
    settings.FormWidth = width;
    settings.TopGraphic = company;
    settings.UseTopGraphic = company.ends_with(".png") ? "Y" : "N";
    return documentOf(std::move(order), settings);
}

/// A picture's file.
std::string bytesOf(const QImage& image, const char* format = "BMP") {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    EXPECT_TRUE(image.save(&buffer, format));
    return bytes.toStdString();
}
std::string bytesOf(const QSize& size, QImage::Format format) {
    QImage black(size, format);
    black.fill(0);
    return bytesOf(black, "PNG");
}

TEST_F(PagesTest, TheHeadingStaysOnOneLineAndOnTheForm) {
    const std::string picture = bytesOf(QSize(2400, 200), QImage::Format_RGB32);
    for (const char* company :
         {"A company whose name is much longer than there is room for it", "wide.png", "Short"}) {
        for (const char* width : {"150", "300", "450", "640", "999"}) {
            SCOPED_TRACE(std::string(company) + ", " + width);
            OrderSheet form([&](const std::string&) { return picture; });
            form.setDocumentMargin(36);
            form.show(headed(company, width), 1);
            const QTextCursor heading = form.find("PURCHASE ORDER");
            ASSERT_FALSE(heading.isNull());
            const QTextBlock block = heading.block();
            EXPECT_EQ(block.layout()->lineCount(), 1);
            const QRectF line = block.layout()->lineAt(0).naturalTextRect();
            EXPECT_LE(place(form, block).left() + line.right(), 36 + form.formWidth());
            EXPECT_NEAR(form.size().width(), form.formWidth() + 72, 2);
            EXPECT_LE(form.formWidth(), qMax(500, std::stoi(width)));
        }
    }
}

TEST_F(PagesTest, AMissingTopGraphicIsToldOfOnTheScreen) {
    for (const char* missing : {"gone.png", "broken.png", "../up.png", ".png"}) {
        OrderSheet form([&](const std::string& wanted) {
            EXPECT_EQ(wanted.find('/'), std::string::npos);
            return wanted == "broken.png" ? "GIF89a" : std::string();
        });
        form.show(headed(missing, "640"), 1);
        EXPECT_TRUE(form.toPlainText().contains(missing)) << missing;
        EXPECT_TRUE(form.toPlainText().contains("company lines")) << missing;
    }
}

TEST_F(PagesTest, PicturesOfTheDataFolderAreShownAndNothingElseIsAskedFor) {
    QImage red(20, 10, QImage::Format_RGB32);
    red.fill(Qt::red);
    // The other kinds can be read too.
    for (const char* format : {"gif", "jpg", "png"})
        EXPECT_TRUE(QImageReader::supportedImageFormats().contains(format)) << format;
    std::vector<std::string> asked;
    OrderSheet withPictures([&](const std::string& wanted) {
        asked.push_back(wanted);
        return bytesOf(red);
    });
    withPictures.show(
        "<img src=\"top.bmp\"><img src=\"http://far.example/spy.gif\">"
        "<img src=\"file:///etc/spy.gif\"><img src=\"/etc/spy.gif\"><img src=\"//far/spy.gif\">"
        "<table background=\"/etc/spy.gif\"><tr><td style=\"background-image:url(/etc/spy.gif)\">",
        1);
    // The text engine opens by itself what it has no answer for.
    for (const char* elsewhere :
         {"/etc/spy.gif", "file:///etc/spy.gif", "//far/spy.gif", "no.gif"}) {
        for (const int type : {QTextDocument::ImageResource, QTextDocument::StyleSheetResource})
            EXPECT_TRUE(withPictures.resource(type, QUrl(elsewhere)).isValid()) << elsewhere;
    }
    QImage paper(200, 60, QImage::Format_RGB32);
    paper.fill(Qt::white);
    QPainter painter(&paper);
    withPictures.drawContents(&painter);
    painter.end();
    EXPECT_EQ(asked, (std::vector<std::string>{"top.bmp", "no.gif"}));
    int redPixels = 0;
    for (int i = 0; i < paper.width() * paper.height(); ++i)
        redPixels += paper.pixelColor(i % 200, i / 200) == QColor(Qt::red) ? 1 : 0;
    EXPECT_EQ(redPixels, red.width() * red.height());
}

/// How a document shows a picture of the data folder.
QImage shownIn(const OrderSheet& sheet, const char* picture) {
    return sheet.resource(QTextDocument::ImageResource, QUrl(picture)).value<QImage>();
}

TEST_F(PagesTest, ZoomedPicturesHaveAllTheDotsOfTheScreenAndTheSamePlace) {
    // Lines one pixel wide are what scaling down and up again would blur.
    QImage lines(8, 4, QImage::Format_RGB32);
    for (int i = 0; i < lines.width() * lines.height(); ++i)
        lines.setPixelColor(i % 8, i / 8, i % 2 == 0 ? Qt::black : Qt::white);
    OrderSheet zoomed([&](const std::string&) { return bytesOf(lines); });
    zoomed.show("<img src=\"top.bmp\">", 0.5, 2);
    const QImage shown = shownIn(zoomed, "top.bmp");
    EXPECT_EQ(shown.deviceIndependentSize(), QSizeF(4, 2));
    lines.setDevicePixelRatio(2);
    EXPECT_EQ(shown.convertToFormat(QImage::Format_RGB32), lines);
}

TEST_F(PagesTest, ASmallFileOfAHugePictureTakesLittleMemory) {
    const auto dotsShown = [](int side) {
        const std::string bytes = bytesOf(QSize(side, side), QImage::Format_Mono);
        EXPECT_LT(bytes.size(), 100'000u);
        OrderSheet zoomed([&](const std::string&) { return bytes; });
        zoomed.show("<table border=0 width=640><tr><td><img src=\"a.png\">", 4, 2);
        EXPECT_LE(zoomed.size().width(), 640 * 4);
        const QImage shown = shownIn(zoomed, "a.png");
        return shown.width() * shown.height();
    };
    EXPECT_GT(dotsShown(4000), 4'000'000);
    EXPECT_LT(dotsShown(4000), 17'000'000);
    EXPECT_EQ(dotsShown(12'000), 1) << "too large to be shown at all";
}

}  // namespace
}  // namespace bramblet::test
