#include "core/document/totals.h"

#include "core/platform/fault.h"
#include "support/regions.h"

#include <array>
#include <gtest/gtest.h>
#include <sstream>

namespace bramblet::test {
namespace {

/// Parts between "|".
std::vector<std::string> parts(const std::string& text) {
    std::vector<std::string> parts;
    std::istringstream in(text);
    for (std::string part; std::getline(in, part, '|');)
        parts.push_back(part);
    return parts;
}

/// An order of these line totals, and what is typed into the boxes for discount factor, discount,
/// tax factor, tax, shipping.
Order orderOf(const std::string& lines, const std::string& typed) {
    Order order;
    for (const std::string& total : parts(lines)) {
        OrderLine line;
        line[kLineTotal] = total;
        order.lines.push_back(line);
    }
    auto boxes = parts(typed);
    boxes.resize(5);
    order.DiscountFactorEd = boxes[0];
    order.DiscountEd = boxes[1];
    order.TaxFactorEd = boxes[2];
    order.SalesTaxEd = boxes[3];
    order.ShippingEd = boxes[4];
    return order;
}

/// The boxes from top to bottom: sub total, factor, discount, net, factor, tax, shipping, total.
std::string boxesOf(const Order& order) {
    return order.SubTotalEd + "|" + order.DiscountFactorEd + "|" + order.DiscountEd + "|" +
           order.NetTotalEd + "|" + order.TaxFactorEd + "|" + order.SalesTaxEd + "|" +
           order.ShippingEd + "|" + order.OrderTotalEd;
}

/// What is wrong with an order that cannot be totalled.
std::string faultOf(Order& order, const RegionalFormats& formats = {}) {
    try {
        TotalUp(order, false, formats);
    } catch (const BoxFault& fault) {
        return fault.inWords();
    }
    return "nothing";
}

TEST(Totals, AreComputedFromWhatWasTyped) {
    const struct {
        const char *what, *lines, *typed, *boxes;
        bool taxFreight = false;
    } cases[] = {
        {"no lines", "", "|0.00||0.00|0.00", "0.00|0|0.00|0.00|0|0.00|0.00|0.00"},
        {"signs and separators in cells", "1,200.00|-5.00||abc|$1.5", "|0.00",
         "1,206.50|0|0.00|1,206.50|0|0.00|0.00|1,206.50"},
        {"the discount that is subtracted is the one shown", "100.01", ".5|9",
         "100.01|.5|50.01|50.00|0|0.00|0.00|50.00"},
        {"typed discount, tax and shipping stay", "100", "0|7.50| 0 |2|$12",
         "100.00|0|7.50|92.50|0|2.00|12.00|106.50"},
        {"emptied discount", "100", "", "100.00|0|0.00|100.00|0|0.00|0.00|100.00"},
        {"tax on the net alone", "200", "|0|.065||10", "200.00|0|0|200.00|.065|13.00|10.00|223.00"},
        {"tax on net and shipping", "200", "|0|.065||10",
         "200.00|0|0|200.00|.065|13.65|10.00|223.65", true},
        {"the net keeps four decimals", "0.0049|0.0049", "|0", "0.01|0|0|0.01|0|0.00|0.00|0.01"},
        {"more discount than goods", "5", "|7", "5.00|0|7|-2.00|0|0.00|0.00|-2.00"},
    };
    const RegionalFormats formats = enUS();
    for (const auto& [what, lines, typed, boxes, taxFreight] : cases) {
        Order order = orderOf(lines, typed);
        TotalUp(order, taxFreight, formats);
        EXPECT_EQ(boxesOf(order), boxes) << what;
        TotalUp(order, taxFreight, formats);
        EXPECT_EQ(boxesOf(order), boxes) << what << ", totalled up twice";
    }
}

TEST(Totals, InARegionWithACommaForDecimals) {
    Order order = orderOf("1.200,50", ",1|0,00||0,00|0,00");
    TotalUp(order, false, deDE());
    EXPECT_EQ(order.DiscountEd, "120,05");
    EXPECT_EQ(order.OrderTotalEd, "1.080,45");
    EXPECT_EQ(multiplierHint(order, deDE()), "");
    // A point groups digits there, it does not separate decimals.
    order.TaxFactorEd = "0.5";
    TotalUp(order, false, deDE());
    EXPECT_EQ(multiplierHint(order, deDE()),
              "The tax multiplier 0.5 stands for 500%; 50% is written 0,5");
    order.DiscountFactorEd = ".5";
    EXPECT_EQ(faultOf(order, deDE()),
              "\".5\" in the box discount multiplier is not a number; 50% is written 0,5");
}

TEST(Totals, AMultiplierAboveOneIsTold) {
    const std::array<std::string, 3> cases[] = {
        {"1", ".065", ""},
        {"15", "", "The discount multiplier 15 stands for 1500%"},
        {"1.5", "6.5",
         "The discount multiplier 1.5 stands for 150%; the tax multiplier 6.5 stands for 650%"},
        {"0", "1" + std::string(308, '0'),
         "The tax multiplier 10000000000000000000 stands for far too much"}};
    for (const auto& [discount, tax, hint] : cases) {
        EXPECT_EQ(multiplierHint(orderOf("", discount + "||" + tax), enUS()),
                  hint.empty() ? "" : hint + "; 50% is written 0.5");
    }
}

TEST(Totals, AFaultNamesTheBoxAndLeavesWhatWasDoneBefore) {
    const struct {
        const char *lines, *typed, *words, *subTotal;
    } cases[] = {
        {"10|1.2.3", "|0", "\"1.2.3\" in the box Total of line 2 is not an amount", "0.00"},
        {"10", "|ten", "\"ten\" in the box Discount is not an amount", "10.00"},
        {"10", "1.2.3|0",
         "\"1.2.3\" in the box discount multiplier is not a number; 50% is written 0.5", "10.00"},
        {"10", "|0|1..1", "\"1..1\" in the box tax multiplier is not a number; 50% is written 0.5",
         "10.00"},
        {"10", "|0|||1.2.3", "\"1.2.3\" in the box Shipping is not an amount", "10.00"},
        {"900,000,000,000,000", "|0|9",
         "\"9\" in the box tax multiplier leads to an amount that is too large",
         "900,000,000,000,000.00"},
        {"900,000,000,000,000|900,000,000,000,000", "|0",
         "\"900,000,000,000,000\" in the box Total of line 2 leads to an amount that is too large",
         "0.00"},
    };
    for (const auto& [lines, typed, words, subTotal] : cases) {
        Order order = orderOf(lines, typed);
        EXPECT_EQ(faultOf(order), words);
        EXPECT_EQ(order.SubTotalEd, subTotal) << words;
    }
}

}  // namespace
}  // namespace bramblet::test
