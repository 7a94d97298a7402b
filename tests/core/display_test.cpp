#include "core/document/display_html.h"
#include "support/sample_orders.h"

#include <gtest/gtest.h>
#include <regex>

namespace bramblet::test {
namespace {

std::string shownAs(const std::string& document, double zoom = 1) {
    return displayPage(document, zoom).html;
}

std::string repeated(const std::string& part, std::size_t length) {
    std::string text;
    while (text.size() < length)
        text += part;
    return text;
}

TEST(DisplayHtml, TheFrameBecomesThePagesWidth) {
    const DisplayPage page = displayPage(
        "<html><!-- PON 1 PON --><head><title>No text</title></head><body>"
        "<basefont face=\"Arial\" size=\"2\"><table border=\"0\" width=\"700\"><tr><td>Form"
        "</td></tr></table>, more</body></html>",
        1.5);
    EXPECT_EQ(page.html, "Form, more");
    EXPECT_EQ(page.fontFace, "Arial");
    EXPECT_EQ(page.fontSize, 20);  // 13 pixels
    EXPECT_EQ(page.width, 1050);
}

TEST(DisplayHtml, TheWidthOfAFormIsWithinReason) {
    const std::vector<std::pair<std::string, int>> cases{{"999", 999},
                                                         {"5", 100},
                                                         {"50%", 320},
                                                         {"", 640},
                                                         {"wide", 640},
                                                         {"9e9", 100},
                                                         {"99999999999999999999", 1000}};
    for (const auto& [width, pixels] : cases) {
        EXPECT_EQ(displayPage("<table border=0 width=\"" + width + "\"><tr><td>", 1).width, pixels)
            << width;
    }
}

TEST(DisplayHtml, MarkersMayHoldAnything) {
    EXPECT_EQ(shownAs("<html>\r\n<!-- PON 1 PON -->\r\n<!-- COM a --> b\r\n<table> COM -->\r\n"
                      "<!-- ITM 1\t-->\t<b>\r\n<!-- END -->\r\nForm"),
              "\r\nForm");
    // A document that lost its end line, or never had one.
    EXPECT_EQ(shownAs("<!-- JOB a JOB -->\n<!-- ITM 1\t2\n<!-- two\nlines -->Form"), "\n\nForm");
    EXPECT_EQ(shownAs("Form\n<!-- END -->\nand more"), "Form\n\nand more");
}

TEST(DisplayHtml, WhatIsNoTagOfTheDialectIsText) {
    for (const std::string text : {
             "Tube dia <50 mm, wall >2 mm",
             "temp < 40 C, qty <= 10, 2% <10 days, Smith <& Sons, a<",
             "Jo <jo@acme.example>, <tbd>, <part-no>, <br-5>, <body>",
             "class <A grade>, <i am out>, <b or c>, <p 5>, <font=3>, <b\"x=1>",
             "<a>, <img>, </b x>, </3, < b>, <b",
             "<! wow >, <!DOCTYPE, <?>, <!-- never closed",
             "<font size=\"5>open, <td width='1>open",
             "R&D &amp; \"quoted\" 'too'",
         }) {
        const std::string expected = std::regex_replace(text, std::regex("<"), "&lt;");
        const std::string frame = "<table border=0><tr><td>";
        EXPECT_EQ(shownAs(frame + text), expected);
        EXPECT_EQ(shownAs(frame + text + "<br>\r\nnext"), expected + "<br>\r\nnext");
    }
    EXPECT_EQ(shownAs("x <!-- note\nline --> y"), "x &lt;!-- note\nline --> y");
}

TEST(DisplayHtml, TagsOfTheDialectPassAndAreClosed) {
    const std::vector<std::pair<std::string, std::string>> cases{
        {"<B>a</b><BR/><u >b</u>", "<b>a</b><br><u>b</u>"},
        {"<b><i>a", "<b><i>a</i></b>"},
        {"<b><i>a</b>b</i>", "<b><i>a</i></b>b"},
        {"<p>a<p align=right>b</p>", "<p>a</p><p align=\"right\">b</p>"},
        {"<ul><li>a<li>b</ul>", "<ul><li>a</li><li>b</li></ul>"},
        {"<font color=\"red\">a</font>", "<span style=\"color:red;\">a</span>"},
        {"<p style=\"color:blue; background:url(x); width:9e9px\" onclick='x'>a</p>",
         "<p style=\"color:blue;\">a</p>"},
        {"<a href=\"https://acme.example/?a=1\">a</a>",
         "<a href=\"https://acme.example/?a=1\">a</a>"},
        {"<a href=\"file:///etc/passwd\">a</a>", "a"},
        {"<img src=\"a#1.gif\" width=20>", "<img src=\"a%231.gif\" width=\"20\">"},
        {"<img src=\"/etc/spy.gif\"><img src=\"../a.gif\"><img src='//host/a.gif'>x", "x"},
        {"a <!-- note --> b", "a  b"},
        {"</td></tr></table></b>a", "a"},
        {"Jo <jo@x>\r\nLeeds", "Jo &lt;jo@x><br>\r\nLeeds"},
    };
    for (const auto& [document, html] : cases)
        EXPECT_EQ(shownAs(document), html) << document;
}

TEST(DisplayHtml, TextsBetweenCellsGetCells) {
    EXPECT_EQ(shownAs("<table><tr><td>a</td>b</tr>c<td>d</table>e</td><td>f"),
              "<table><tr><td>a</td><td>b</td></tr><tr><td>c</td><td>d</td></tr></table>e f");
}

TEST(DisplayHtml, OnlyCellsThatWouldHaveALineGetOne) {
    EXPECT_EQ(shownAs("<table border=\"0\"><tr><td><table border=\"1\"><tr><td>a</td><td></td></tr>"
                      "<tr bordercolor=\"white\"><td>b</td></tr></table>"
                      "<table border=\"0\"><tr><td>c</td></tr></table></td></tr></table>"),
              "<table width=\"100%\" border=\"0\" cellspacing=\"0\" cellpadding=\"2\" "
              "style=\"border-collapse:collapse\"><tr>"
              "<td style=\"border:1px solid #444444\">a</td><td></td></tr>"
              "<tr><td>b</td></tr></table>"
              "<table border=\"0\"><tr><td>c</td></tr></table>");
}

TEST(DisplayHtml, TheRowThatGivesTheWidthsHoldsTheHeadings) {
    const auto heads = [](const std::string& rows, const std::string& border = "1") {
        const std::string page = shownAs("<table border=\"" + border + "\">" + rows + "</table>");
        return std::pair(count(page, "<thead><tr"), count(page, "</tr></thead>"));
    };
    using Counts = std::pair<std::size_t, std::size_t>;
    const std::string row = "<tr>\r\n<td width=\"7%\">a</td></tr>";
    EXPECT_EQ(heads(row + "<tr><td>b"), Counts(1, 1));
    EXPECT_EQ(heads(row.substr(0, row.size() - 5) + "<tr>" + row), Counts(1, 1)) << "left open";
    EXPECT_EQ(heads("<tr><td>b" + row), Counts(0, 0)) << "not the first row";
    EXPECT_EQ(heads("<tr bordercolor=white>" + row.substr(4)), Counts(0, 0));
    EXPECT_EQ(heads(row, "0"), Counts(0, 0)) << "the addresses";
}

TEST(DisplayHtml, FontSizesAreAbsoluteOrRelativeToTheBase) {
    const std::string huge = "99999999999999999999999";
    const std::vector<std::pair<std::string, std::string>> cases{
        {"+2", "18"}, {"-1", "10"},       {"99", "48"}, {"1e20", "10"},
        {huge, "48"}, {"-" + huge, "10"}, {"x", "10"}};
    for (const auto& [size, pixels] : cases) {
        EXPECT_EQ(shownAs("<basefont size=\"2\"><font size=\"" + size + "\">a"),
                  "<span style=\"font-size:" + pixels + "px;\">a</span>");
    }
}

TEST(DisplayHtml, TheTopGraphicAndTheHeadingAreFound) {
    const std::string heading = "<font size=\"6\"><b>PURCHASE ORDER</b></font><br>\r\nNo: 1";
    const DisplayPage page = displayPage(
        "<table border=0><tr><td>\r\n<table><tr><td><img src=\"top.gif\"></td><td>" + heading, 1);
    ASSERT_TRUE(page.topGraphic);
    EXPECT_EQ(page.topGraphic->name, "top.gif");
    EXPECT_EQ(page.html.substr(page.topGraphic->place, page.topGraphic->length),
              "<img src=\"top.gif\">");
    EXPECT_EQ(page.heading, "PURCHASE ORDER");
    EXPECT_EQ(page.headingSize, 32);
    EXPECT_EQ(page.number, "");
    const auto numberBehind = [&](const std::string& text) {
        const std::string start =
            "<table border=0><tr><td><font size=\"6\"><b>ORDER</b></font><br>";
        return displayPage(start + text, 1).number;
    };
    EXPECT_EQ(numberBehind("\r\n<b>No: LJ-7</b><br>"), "No: LJ-7");
    EXPECT_EQ(numberBehind("<br><b>No: 7</b>"), "") << "a job number comes without bold";
    EXPECT_EQ(numberBehind("<b>" + std::string(100'000, 'x')).size(), 200u);
    EXPECT_NE(page.html.find("<div style=\"white-space:nowrap\">"), std::string::npos);
    EXPECT_FALSE(
        displayPage("<table border=0><tr><td>" + heading + "<img src=x.gif>", 1).topGraphic);
}

TEST(DisplayHtml, WildNumbersAndDepthsAreBounded) {
    const std::string wild = shownAs(
        "<table cellpadding=\"2000000000\" width=\"1e9%\" border=2><tr>"
        "<td colspan=2000000000 rowspan=-5 width=2000000000>");
    EXPECT_EQ(wild,
              "<table width=\"1%\" border=\"2\" cellpadding=\"50\"><tr>"
              "<td width=\"1000\" colspan=\"40\" rowspan=\"1\"></td></tr></table>");
    const std::string nested = shownAs(repeated("<table><tr><td>a", 20 * 16) + "b");
    EXPECT_EQ(count(nested, "<table>"), 4u);
    EXPECT_EQ(count(nested, "a"), 4 * 2 + 20u);
    EXPECT_EQ(count(shownAs(repeated("<b>", 100'000) + "x"), "<b>"), 100u);
    // A paragraph of a million lines would take minutes.
    const std::string breaks = shownAs("a" + repeated("<br>", 40'000) + "b");
    EXPECT_EQ(count(breaks, "<br>") + count(breaks, "<div>"), 10'000u);
    EXPECT_GT(count(breaks, "<div>"), 40u);
    EXPECT_EQ(count(shownAs("<table>" + repeated("<td>", 4000)), "<tr>"), 25u);
    const std::string rows = shownAs("<table>" + repeated("<tr><td>x<td>y", 1'500'000));
    EXPECT_LT(count(rows, "<td>"), 50'100u);
    EXPECT_EQ(count(rows, "x"), count(rows, "y")) << "no text is lost";
    EXPECT_GT(count(rows, "y"), 100'000u);
}

TEST(DisplayHtml, OfManyFillerRowsMostBecomeOneHighRow) {
    const std::string filler =
        "<tr bordercolor=\"white\" cellpadding=\"0\" cellspacing=\"0\"><td></td>\r\n<td></td>\r\n"
        "<td></td>\r\n<td>:</td>\r\n<td>:</td>\r\n</tr>\r\n";
    const auto rows = [&](std::size_t number) {
        const std::string page =
            shownAs("<table border=1>" + repeated(filler, number * filler.size()) + "</table>", 2);
        return std::pair(count(page, "<tr>"), count(page, "<td style=\"padding-bottom:"));
    };
    EXPECT_EQ(rows(200), (std::pair<std::size_t, std::size_t>(200, 0)));
    EXPECT_EQ(rows(32767), (std::pair<std::size_t, std::size_t>(201, 1)));
}

// None of these may take time that grows with the square of its length, as is seen by the test's
// time limit.
TEST(DisplayHtml, LargeDocumentsOfOddMarkupAreReadInTime) {
    for (const char* part : {"<", "<b a=\"", "<!--", "<head>", "<tr bordercolor=white>"})
        EXPECT_TRUE(shownAs("x" + repeated(part, 2'000'000)).starts_with('x')) << part;
    for (const char* text : {"word ", "x"}) {
        EXPECT_GE(count(shownAs("<b>" + repeated(text, 1'000'000)), "<div><b>"), 200u)
            << "in paragraphs of bounded length";
    }
    const std::string format = "<font face=\"" + std::string(5000, 'A') + "\">";
    const std::string document = repeated(format, 90 * format.size()) + repeated("word ", 500'000);
    EXPECT_LT(shownAs(document).size(), 2 * document.size()) << "long formats are not repeated";
}

}  // namespace
}  // namespace bramblet::test
