#include "core/document/document_reader.h"
#include "core/document/document_writer.h"
#include "core/document/totals.h"
#include "core/platform/fault.h"
#include "support/regions.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace bramblet::test {
namespace {

/// An order as the screen shows it after a total-up.
Order sampleOrder() {
    Order order;
    order.PONoEd = "000123";
    order.JobNumberEd = " J-77 ";
    order.OrderDateEd = "3/4/2026";
    order.ShipDateEd = "3/20/2026";
    order.ToCombo = "Acme Supply";
    order.ToField = "12 Mill Road\r\n\r\nLeeds <orders@acme.example>\r\nattn: Jo";
    order.ShipToCombo = "Main Depot";
    order.ShipToField = "1 Dock Street";
    order.ByEd = "Ann";
    order.ShipViaEd = "Truck";
    order.FOBEd = "Leeds";
    order.TermsEd = "Net 30";
    order.CommentsEd = "Deliver before noon";
    order.lines = {{"2", "", "", "box", "Nails, 40 mm", "12.50", "25.00", "17"},
                   {"1", "", "", "ea", "Caf\xE9 table", "100", "100.00", "special"}};
    order.DiscountFactorEd = ".1";
    order.TaxFactorEd = ".065";
    order.ShippingEd = "10";
    TotalUp(order, false, enUS());
    return order;
}

Settings sampleSettings() {
    Settings settings;
    settings.SigLineSpace = 10;
    settings.DescriptionLineLength = 65;
    settings.FontName = "Arial      ";
    settings.FormWidth = "640";
    settings.UseTopGraphic = "Y";
    settings.TopGraphic = "po_top.gif   ";
    settings.RequestForQuote = "Y";
    settings.UseReqNumber = "N";
    settings.NumberPrefix = "BR-  ";
    settings.IDText1 = "Smith & Sons";
    settings.IDText3 = "2 High Street";
    return settings;
}

class DocumentTest : public ::testing::Test {
  protected:
    std::string document() const {
        return orderDocument(order_, {settings_, taxFreight_, formats_});
    }
    /// Whether the line stands in the document by itself.
    bool hasLine(const std::string& line) const {
        return document().find("\r\n" + line + "\r\n") != std::string::npos;
    }
    std::size_t count(const std::string& part) const {
        const std::string text = document();
        std::size_t found = 0;
        for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
            ++found;
        }
        return found;
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
    EXPECT_TRUE(hasLine("<!-- STA R STA -->"));
    EXPECT_TRUE(hasLine("<font size=\"5\"><b>REQUEST FOR QUOTE</b></font><br>"));
    EXPECT_EQ(count("No: "), 0u);
    EXPECT_EQ(count("Please reference"), 0u);
    EXPECT_TRUE(hasLine("<font size=\"-1\">Date: 3/4/2026"));

    settings_.UseReqNumber = "Y";
    EXPECT_TRUE(hasLine("<b>No: BR-000123</b><br>"));
    EXPECT_TRUE(hasLine(
        "<font size=\"-2\">Please reference this number on all correspondence!</font><br>"));

    settings_.RequestForQuote = "N";
    order_.JobNumberEd = "";
    order_.MarkReceivedCheck = true;
    EXPECT_TRUE(hasLine("<!-- STA r STA -->"));
    EXPECT_TRUE(hasLine("<font size=\"6\"><b>REQUISITION</b></font><br>"));
    EXPECT_TRUE(hasLine(
        "<font size=\"-2\">Please reference order number on all correspondence!</font><br>\r\n"
        "<br>\r\n"
        "<font size=\"-1\">Date: 3/4/2026"));
}

TEST_F(DocumentTest, CompanyLinesInPlaceOfTheGraphic) {
    settings_.UseTopGraphic = "N";
    EXPECT_EQ(count("<img"), 0u);
    EXPECT_TRUE(hasLine("<b>Smith & Sons</b><br>\r\n2 High Street<br>\r\n</td>"));
    settings_.IDText1 = std::string(60, '\0');
    EXPECT_EQ(count("<b></b>"), 0u);
}

TEST_F(DocumentTest, TotalsRowsThatAreNothingAreLeftOut) {
    order_.DiscountFactorEd = order_.TaxFactorEd = "0";
    order_.DiscountEd = order_.SalesTaxEd = order_.ShippingEd = "0.00";
    order_.CommentsEd = "";
    EXPECT_EQ(count("Disc."), 0u);
    EXPECT_EQ(count("Tax"), 0u);
    EXPECT_EQ(count("Shipping"), 0u);
    EXPECT_EQ(count("<center>"), 0u);
    EXPECT_EQ(count("Sub Total") + count("Total (Net)") + count("Order Total"), 3u);
}

TEST_F(DocumentTest, AmountsTypedByHandHaveNoPercentage) {
    order_.DiscountFactorEd = "0";
    order_.TaxFactorEd = "";
    EXPECT_TRUE(hasLine("<td><font size=\"-1\">Disc.</td>"));
    EXPECT_TRUE(hasLine("<td><font size=\"-1\">Tax</td>"));
}

TEST_F(DocumentTest, TaxedShippingStandsBeforeTheTax) {
    taxFreight_ = true;
    const std::string text = document();
    EXPECT_LT(text.find(">Shipping<"), text.find(">Tax ("));
}

TEST_F(DocumentTest, AnOrderWithoutLinesGoesFromCommentsToTheEndMarker) {
    order_.lines.clear();
    EXPECT_EQ(count("<!-- ITM"), 0u);
    EXPECT_TRUE(hasLine("<!-- COM Deliver before noon COM -->\r\n<!-- END -->"));
}

TEST_F(DocumentTest, FillerRowsShrinkWithWhatTheFormHolds) {
    const auto fillers = [&] { return count("bordercolor"); };
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
    EXPECT_TRUE(hasLine("<td align=\"right\"><font size=\"-1\">1.129,81\xA0\x80</td>"));
    EXPECT_TRUE(hasLine("<td><font size=\"-1\">Disc. (6,5%)</td>"));
    EXPECT_TRUE(hasLine("<!-- TOT 1.129,81 TOT -->"));
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
    EXPECT_TRUE(found.number && found.vendor && found.shipTo);
    TotalUp(read, false, enUS());
    read.ToField = written.ToField;  // addresses come from the address book
    read.ShipToField = written.ShipToField;
    read.JobNumberEd = written.JobNumberEd;  // written trimmed
    EXPECT_EQ(read, written);
}

struct MarkerCase {
    const char* document;
    OrderField field;
    const char* value;
};

TEST(Reader, MarkersAreWholeLinesAndTheLastOneWins) {
    const std::vector<MarkerCase> cases{
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
    for (const auto& given : cases) {
        Order order;
        order.JobNumberEd = "kept";
        readMarkers(given.document, order);
        EXPECT_EQ(order.*given.field, given.value) << given.document;
    }
}

TEST(Reader, StatusLettersChooseKindAndReceivedMark) {
    const auto status = [](const std::string& letter) {
        Order order;
        order.kind = OrderKind::Requisition;
        readMarkers("<!-- STA " + letter + " STA -->\r\n", order);
        return statusOf(order);
    };
    for (const char* letter : {"A", "a", "R", "r"})
        EXPECT_EQ(status(letter), letter);
    EXPECT_EQ(status("D"), "R");  // nothing chosen
}

TEST(Reader, ItemLinesAddLinesWithTheCellsTheyHave) {
    Order order;
    readMarkers("<!-- ITM 1\t\t\tea\r\n<!-- ITM 2\t\t\tea\td\t1\t2.00\t7\textra\r\n", order);
    ASSERT_EQ(order.lines.size(), 2u);
    EXPECT_EQ(order.lines[0], (OrderLine{"1", "", "", "ea", "", "", "", ""}));
    EXPECT_EQ(order.lines[1], (OrderLine{"2", "", "", "ea", "d", "1", "2.00", "7"}));
}

}  // namespace
}  // namespace bramblet::test
