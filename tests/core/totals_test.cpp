#include "core/document/totals.h"

#include "core/platform/fault.h"
#include "support/regions.h"

#include <array>
#include <gtest/gtest.h>

namespace bramblet {
namespace {

using namespace test;

Order withLines(const std::vector<std::string>& totals) {
    Order order;
    for (const auto& total : totals) {
        OrderLine line;
        line[kLineTotal] = total;
        order.lines.push_back(line);
    }
    return order;
}

/// The boxes from top to bottom: sub total, factor, discount, net, factor, tax, shipping, total.
std::vector<std::string> boxesOf(const Order& order) {
    return {order.SubTotalEd,  order.DiscountFactorEd, order.DiscountEd, order.NetTotalEd,
            order.TaxFactorEd, order.SalesTaxEd,       order.ShippingEd, order.OrderTotalEd};
}

struct Case {
    const char* what;
    std::vector<std::string> lines;
    std::vector<std::string> typed;  ///< discount factor, discount, tax factor, tax, shipping
    bool taxFreight;
    std::vector<std::string> boxes;
};

Order orderOf(const Case& given) {
    Order order = withLines(given.lines);
    order.DiscountFactorEd = given.typed[0];
    order.DiscountEd = given.typed[1];
    order.TaxFactorEd = given.typed[2];
    order.SalesTaxEd = given.typed[3];
    order.ShippingEd = given.typed[4];
    return order;
}

TEST(Totals, AreComputedFromWhatWasTyped) {
    const std::vector<Case> cases{
        {"no lines",
         {},
         {"", "0.00", "", "0.00", "0.00"},
         false,
         {"0.00", "0", "0.00", "0.00", "0", "0.00", "0.00", "0.00"}},
        {"signs and separators in cells",
         {"1,200.00", "-5.00", "", "abc", "$1.5"},
         {"", "0.00", "", "", ""},
         false,
         {"1,206.50", "0", "0.00", "1,206.50", "0", "0.00", "0.00", "1,206.50"}},
        {"the discount that is subtracted is the one shown",
         {"100.01"},
         {".5", "9", "", "", ""},
         false,
         {"100.01", ".5", "50.01", "50.00", "0", "0.00", "0.00", "50.00"}},
        {"typed discount, tax and shipping stay",
         {"100"},
         {"0", "7.50", " 0 ", "2", "$12"},
         false,
         {"100.00", "0", "7.50", "92.50", "0", "2.00", "12.00", "106.50"}},
        {"emptied discount",
         {"100"},
         {"", "", "", "", ""},
         false,
         {"100.00", "0", "0.00", "100.00", "0", "0.00", "0.00", "100.00"}},
        {"tax on the net alone",
         {"200"},
         {"", "0", ".065", "", "10"},
         false,
         {"200.00", "0", "0", "200.00", ".065", "13.00", "10.00", "223.00"}},
        {"tax on net and shipping",
         {"200"},
         {"", "0", ".065", "", "10"},
         true,
         {"200.00", "0", "0", "200.00", ".065", "13.65", "10.00", "223.65"}},
        {"the net keeps four decimals",
         {"0.0049", "0.0049"},
         {"", "0", "", "", ""},
         false,
         {"0.01", "0", "0", "0.01", "0", "0.00", "0.00", "0.01"}},
        {"more discount than goods",
         {"5"},
         {"", "7", "", "", ""},
         false,
         {"5.00", "0", "7", "-2.00", "0", "0.00", "0.00", "-2.00"}},
    };
    const RegionalFormats formats = enUS();
    for (const auto& given : cases) {
        Order order = orderOf(given);
        TotalUp(order, given.taxFreight, formats);
        EXPECT_EQ(boxesOf(order), given.boxes) << given.what;
        TotalUp(order, given.taxFreight, formats);
        EXPECT_EQ(boxesOf(order), given.boxes) << given.what << ", totalled up twice";
    }
}

TEST(Totals, InARegionWithACommaForDecimals) {
    Order order = withLines({"1.200,50"});
    order.DiscountFactorEd = ",1";
    order.DiscountEd = order.ShippingEd = order.SalesTaxEd = "0,00";
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
    try {
        TotalUp(order, false, deDE());
        ADD_FAILURE() << "no fault";
    } catch (const BoxFault& fault) {
        EXPECT_EQ(fault.inWords(),
                  "\".5\" in the box discount multiplier is not a number; 50% is written 0,5");
    }
}

TEST(Totals, AMultiplierAboveOneIsTold) {
    Order order;
    for (const auto& [discount, tax, hint] : std::vector<std::array<const char*, 3>>{
             {"1", ".065", ""},
             {"15", "", "The discount multiplier 15 stands for 1500%; 50% is written 0.5"},
             {"1.5", "6.5",
              "The discount multiplier 1.5 stands for 150%; the tax multiplier 6.5 stands for "
              "650%; 50% is written 0.5"},
         }) {
        order.DiscountFactorEd = discount;
        order.TaxFactorEd = tax;
        EXPECT_EQ(multiplierHint(order, enUS()), hint);
    }
    order.DiscountFactorEd = "0";
    order.TaxFactorEd = "1" + std::string(308, '0');
    EXPECT_EQ(
        multiplierHint(order, enUS()),
        "The tax multiplier 10000000000000000000 stands for far too much; 50% is written 0.5");
}

struct FaultCase {
    std::vector<std::string> lines;
    std::vector<std::string> typed;
    const char* words;
    const char* subTotal;  ///< what stands in the box afterwards
};

TEST(Totals, AFaultNamesTheBoxAndLeavesWhatWasDoneBefore) {
    const std::vector<FaultCase> cases{
        {{"10", "1.2.3"},
         {"", "0", "", "", ""},
         "\"1.2.3\" in the box Total of line 2 is not an amount",
         "0.00"},
        {{"10"}, {"", "ten", "", "", ""}, "\"ten\" in the box Discount is not an amount", "10.00"},
        {{"10"},
         {"1.2.3", "0", "", "", ""},
         "\"1.2.3\" in the box discount multiplier is not a number; 50% is written 0.5",
         "10.00"},
        {{"10"},
         {"", "0", "1..1", "", ""},
         "\"1..1\" in the box tax multiplier is not a number; 50% is written 0.5",
         "10.00"},
        {{"10"},
         {"", "0", "", "", "1.2.3"},
         "\"1.2.3\" in the box Shipping is not an amount",
         "10.00"},
        {{"900,000,000,000,000"},
         {"", "0", "9", "", ""},
         "\"9\" in the box tax multiplier leads to an amount that is too large",
         "900,000,000,000,000.00"},
        {{"900,000,000,000,000", "900,000,000,000,000"},
         {"", "0", "", "", ""},
         "\"900,000,000,000,000\" in the box Total of line 2 leads to an amount that is too large",
         "0.00"},
    };
    const RegionalFormats formats = enUS();
    for (const auto& given : cases) {
        Order order = orderOf({"", given.lines, given.typed, false, {}});
        try {
            TotalUp(order, false, formats);
            ADD_FAILURE() << given.words;
        } catch (const BoxFault& fault) {
            EXPECT_EQ(fault.inWords(), given.words);
        }
        EXPECT_EQ(order.SubTotalEd, given.subTotal) << given.words;
    }
}

}  // namespace
}  // namespace bramblet
