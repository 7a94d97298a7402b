#include "core/document/document_reader.h"
#include "core/document/document_writer.h"
#include "core/document/totals.h"
#include "core/platform/fault.h"
#include "support/regions.h"
#include "support/sample_orders.h"
#include "support/temporary_folder.h"

#include <functional>
#include <gtest/gtest.h>

namespace bramblet::test {
namespace {

/// An order as the screen shows it after a total-up.
Order sampleOrder() {
    Order order =
        orderWith({{&Order::PONoEd, "000123"},
                   {&Order::JobNumberEd, " J-77 "},
                   {&Order::OrderDateEd, "3/4/2026"},
                   {&Order::ShipDateEd, "3/20/2026"},
                   {&Order::ToCombo, "Acme Supply"},
                   {&Order::ToField, "12 Mill Road\r\n\r\nLeeds <orders@acme.example>\r\nattn: Jo"},
                   {&Order::ShipToCombo, "Main Depot"},
                   {&Order::ShipToField, "1 Dock Street"},
                   {&Order::ByEd, "Ann"},
                   {&Order::ShipViaEd, "Truck"},
                   {&Order::FOBEd, "Leeds"},
                   {&Order::TermsEd, "Net 30"},
                   {&Order::CommentsEd, "Deliver before noon"},
                   {&Order::DiscountFactorEd, ".1"},
                   {&Order::TaxFactorEd, ".065"},
                   {&Order::ShippingEd, "10"}});
    order.lines = {{"2", "", "", "box", "Nails, 40 mm", "12.50", "25.00", "17"},
                   {"1", "", "", "ea", "Caf\xE9 table", "100", "100.00", "special"}};
    TotalUp(order, false, enUS());
    return order;
}

Settings sampleSettings() {
    Settings settings = defaultSettings({});
    settings.SigLineSpace = 10;
    settings.FontName = "Arial      ";
    settings.TopGraphic = "po_top.gif   ";
    settings.NumberPrefix = "BR-  ";
    settings.IDText1 = "Smith & Sons";
    settings.IDText3 = "2 High Street";
    settings.IDText2 = settings.IDText4 = settings.IDText5 = "";
    return settings;
}

class DocumentTest : public ::testing::Test {
  protected:
    std::string document() const {
        return orderDocument(order_, {settings_, taxFreight_, formats_});
    }
    void expectLines(const std::vector<std::string>& lines) const {
        for (const std::string& line : lines)
            EXPECT_EQ(count(document(), "\r\n" + line + "\r\n"), 1u) << line;
    }
    void expectNone(const std::vector<std::string>& parts) const {
        for (const std::string& part : parts)
            EXPECT_EQ(count(document(), part), 0u) << part;
    }

    Order order_ = sampleOrder();
    Settings settings_ = sampleSettings();
    bool taxFreight_ = false;
    RegionalFormats formats_ = enUS();
};

TEST_F(DocumentTest, APurchaseOrderToTheCharacter) {
    EXPECT_EQ(document(), contentOf(BRAMBLET_TEST_DATA "/purchase_order.htm"));
}

TEST_F(DocumentTest, HeadingsOfRequisitions) {
    order_.kind = OrderKind::Requisition;
    expectLines({"<!-- STA R STA -->", "<font size=\"5\"><b>REQUEST FOR QUOTE</b></font><br>",
                 "<font size=\"-1\">Date: 3/4/2026"});
    expectNone({"No: ", "Please reference"});
    settings_.UseReqNumber = "Y";
    expectLines(
        {"<b>No: BR-000123</b><br>",
         "<font size=\"-2\">Please reference this number on all correspondence!</font><br>"});
    settings_.RequestForQuote = "N";
    order_.JobNumberEd = "";
    order_.MarkReceivedCheck = true;
    expectLines(
        {"<!-- STA r STA -->", "<font size=\"6\"><b>REQUISITION</b></font><br>",
         "<font size=\"-2\">Please reference order number on all correspondence!</font><br>\r\n"
         "<br>\r\n<font size=\"-1\">Date: 3/4/2026"});
}

TEST_F(DocumentTest, CompanyLinesInPlaceOfTheGraphic) {
    settings_.UseTopGraphic = "N";
    expectLines({"<b>Smith & Sons</b><br>\r\n2 High Street<br>\r\n</td>"});
    settings_.IDText1 = std::string(60, '\0');
    expectNone({"<img", "<b></b>"});
}

TEST_F(DocumentTest, RowsThatAreNothingAreLeftOut) {
    order_.DiscountFactorEd = "0";  // the amounts were typed by hand: no percentage
    order_.TaxFactorEd = "";
    expectLines({"<td><font size=\"-1\">Disc.</td>", "<td><font size=\"-1\">Tax</td>"});
    order_.lines.clear();
    expectNone({"<!-- ITM"});
    expectLines({"<!-- COM Deliver before noon COM -->\r\n<!-- END -->"});
    order_.DiscountEd = order_.SalesTaxEd = order_.ShippingEd = "0.00";
    order_.CommentsEd = "";
    expectNone({"Disc.", "Tax", "Shipping", "<center>"});
    for (const char* total : {"Sub Total", "Total (Net)", "Order Total"})
        EXPECT_EQ(count(document(), total), 1u) << total;
}

TEST_F(DocumentTest, TaxedShippingStandsBeforeTheTax) {
    taxFreight_ = true;
    EXPECT_LT(document().find(">Shipping<"), document().find(">Tax ("));
}

TEST_F(DocumentTest, FillerRowsShrinkWithWhatTheFormHolds) {
    const auto fillers = [&] { return count(document(), "bordercolor"); };
    EXPECT_EQ(fillers(), 3u);  // 10 less heading, 2 lines, 2 discount, tax, shipping
    order_.lines[0][kDescription] = std::string(130, 'x');  // two lines more
    EXPECT_EQ(fillers(), 1u);
    settings_.DescriptionLineLength = 0;  // nothing is divided by it
    EXPECT_EQ(fillers(), 3u);
    settings_.SigLineSpace = -5;
    EXPECT_EQ(fillers(), 0u);
    settings_.DescriptionLineLength = 1;
    order_.lines[0][kDescription] = std::string(40000, 'x');
    EXPECT_THROW(document(), Fault);
}

TEST_F(DocumentTest, AmountsInTheRegionsCurrencyForm) {
    formats_ = deDE();
    order_.DiscountFactorEd = order_.TaxFactorEd = ",065";
    order_.OrderTotalEd = "1.129,81";
    expectLines({"<td align=\"right\"><font size=\"-1\">1.129,81\xA0\x80</td>",
                 "<td><font size=\"-1\">Disc. (6,5%)</td>", "<!-- TOT 1.129,81 TOT -->"});
}

TEST(NoteBlock, LinesOfAnAddress) {
    const std::vector<std::pair<std::string, std::string>> cases{
        {"", ""},
        {"one", "\r\none<p>"},
        {"one\r\ntwo", "\r\none<br>\r\ntwo<p>"},
        {"one\r\n", "\r\none<br>"},
        {"<b>one</b>\r\ntwo", "\r\n<b>one</b>\r\ntwo<p>"},
        {"one\ntwo", "\r\none<p>\r\ntwo<p>"},
    };
    for (const auto& [text, expected] : cases) {
        std::string result;
        MakeHTML_NoteBlock(text, result);
        EXPECT_EQ(result, expected) << text;
    }
}

TEST(Reader, WhatWasWrittenComesBack) {
    const Order written = sampleOrder();
    Order read;
    const MarkersFound found =
        readMarkers(orderDocument(written, {sampleSettings(), false, enUS()}), read);
    EXPECT_TRUE(found.has(&Order::PONoEd) && found.has(&Order::ToCombo));
    EXPECT_FALSE(found.has(&Order::ToField) || found.has(&Order::OrderTotalEd));
    TotalUp(read, false, enUS());
    read.ToField = written.ToField;  // addresses come from the address book
    read.ShipToField = written.ShipToField;
    read.JobNumberEd = written.JobNumberEd;  // written trimmed
    EXPECT_EQ(read, written);
}

TEST(Reader, MarkersAreWholeLinesAndTheLastOneWins) {
    const struct {
        const char* document;
        OrderField field;
        const char* value;
    } cases[] = {
        {"<!-- JOB one JOB -->\r\n<!-- JOB two JOB -->\r\n", &Order::JobNumberEd, "two"},
        {"<!-- JOB  JOB -->\r\n", &Order::JobNumberEd, ""},
        {"<!-- JOB JOB -->\r\n", &Order::JobNumberEd, "kept"},  // too short to be one
        {"<!-- COM two\r\nlines COM -->\r\n", &Order::CommentsEd, ""},
        {" <!-- JOB x JOB -->\r\n", &Order::JobNumberEd, "kept"},
        {"<!-- JOB x JOB --> \r\n", &Order::JobNumberEd, "kept"},
        {"<!-- TOT 9.00 TOT -->\r\n", &Order::OrderTotalEd, "0.00"},  // recomputed, not read
        {"<!-- TAX 9.00 TAX -->\n", &Order::SalesTaxEd, "9.00"},      // a line feed alone
        {"<!-- BY? Ann BY? -->", &Order::ByEd, "Ann"},                // no line end at all
    };
    for (const auto& [document, field, value] : cases) {
        Order order = orderWith({{&Order::JobNumberEd, "kept"}});
        readMarkers(document, order);
        EXPECT_EQ(order.*field, value) << document;
    }
    Order stored;
    readMarkers("<!-- TOT 9.00 TOT -->\r\n", stored, StoredTotals::Take);
    EXPECT_EQ(stored.OrderTotalEd, "9.00");
}

TEST(Reader, StatusLettersChooseKindAndReceivedMark) {
    for (const std::string letter : {"A", "a", "R", "r", "D"}) {
        Order order;
        order.kind = OrderKind::Requisition;
        readMarkers("<!-- STA " + letter + " STA -->\r\n", order);
        EXPECT_EQ(statusOf(order), letter == "D" ? "R" : letter) << "D chooses nothing";
    }
}

TEST(Reader, ItemLinesAddLinesWithTheCellsTheyHave) {
    Order order;
    readMarkers("<!-- ITM 1\t\t\tea\r\n<!-- ITM 2\t\t\tea\td\t1\t2.00\t7\textra\r\n", order);
    EXPECT_EQ(order.lines, (std::vector<OrderLine>{{"1", "", "", "ea", "", "", "", ""},
                                                   {"2", "", "", "ea", "d", "1", "2.00", "7"}}));
}

}  // namespace
}  // namespace bramblet::test
