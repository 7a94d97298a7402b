#include "core/document/totals.h"

#include "core/platform/amount_text.h"
#include "core/platform/fault.h"

namespace bramblet {
namespace {

constexpr const char* kDiscountMultiplier = "discount multiplier";
constexpr const char* kTaxMultiplier = "tax multiplier";

std::string howToWriteHalf(const RegionalFormats& formats) {
    return "50% is written " + generalText(0.5, formats);
}

/// Runs `step`, blaming its faults on `box` holding `text`.
template <class Step>
auto blaming(const std::string& box, const std::string& text, Step step,
             const std::string& complaint = "is not an amount") {
    try {
        return step();
    } catch (const Fault& fault) {
        const bool tooLarge = fault.number() == FaultNumber::Overflow;
        throw BoxFault(fault.number(), box, text,
                       tooLarge ? "leads to an amount that is too large" : complaint);
    }
}

/// The computation under way.
class Totals {
  public:
    Totals(Order& order, bool taxFreight, const RegionalFormats& formats)
        : order_(order), taxFreight_(taxFreight), formats_(formats) {}

    void run() {
        const Currency subTotal = sumOfLines();
        set(&Order::SubTotalEd, subTotal);
        applyDiscount(subTotal);
        const Currency discount = amount(&Order::DiscountEd, "Discount");
        const Currency net =
            blaming("Total (Net)", order_.SubTotalEd, [&] { return subTotal - discount; });
        if (taxFreight_) clean(&Order::ShippingEd, "Shipping");
        set(&Order::NetTotalEd, net);
        clean(&Order::SalesTaxEd, "Sales Tax");
        applyTax(net);
        if (!taxFreight_) clean(&Order::ShippingEd, "Shipping");
        const Currency tax = amount(&Order::SalesTaxEd, "Sales Tax");
        const Currency shipping = amount(&Order::ShippingEd, "Shipping");
        set(&Order::OrderTotalEd,
            blaming("Total", order_.NetTotalEd, [&] { return net + tax + shipping; }));
    }

  private:
    Currency sumOfLines() {
        Currency sum;
        for (std::size_t i = 0; i < order_.lines.size(); ++i) {
            std::string& cell = order_.lines[i][kLineTotal];
            blaming("Total of line " + std::to_string(i + 1), cell,
                    [&] { sum = sum + amountOf(cleanedNumber(cell), formats_); });
        }
        return sum;
    }

    void applyDiscount(Currency subTotal) {
        const double factor = cleanFactor(&Order::DiscountFactorEd, kDiscountMultiplier);
        if (factor != 0) {
            blaming(kDiscountMultiplier, order_.DiscountFactorEd,
                    [&] { set(&Order::DiscountEd, toCurrency(toDouble(subTotal) * factor)); });
        }
        if (order_.DiscountEd.empty()) set(&Order::DiscountEd, Currency{});
    }

    void applyTax(Currency net) {
        const double factor = cleanFactor(&Order::TaxFactorEd, kTaxMultiplier);
        if (factor == 0) return;
        const Currency freight = taxFreight_ ? amount(&Order::ShippingEd, "Shipping") : Currency{};
        blaming(kTaxMultiplier, order_.TaxFactorEd,
                [&] { set(&Order::SalesTaxEd, toCurrency(toDouble(net + freight) * factor)); });
    }

    double cleanFactor(OrderField field, const std::string& box) {
        std::string& text = order_.*field;
        text = cleanedNumber(text);
        return blaming(
            box, text, [&] { return numberOf(text, formats_); },
            "is not a number; " + howToWriteHalf(formats_));
    }

    void clean(OrderField field, const std::string& box) {
        std::string& text = order_.*field;
        blaming(box, text,
                [&] { text = standardText(numberOf(CleanNumber(text), formats_), formats_); });
    }

    Currency amount(OrderField field, const std::string& box) {
        return blaming(box, order_.*field, [&] { return amountOf(order_.*field, formats_); });
    }

    void set(OrderField field, Currency value) { order_.*field = standardText(value, formats_); }

    Order& order_;
    bool taxFreight_;
    const RegionalFormats& formats_;
};

}  // namespace

void TotalUp(Order& order, bool taxFreight, const RegionalFormats& formats) {
    Totals(order, taxFreight, formats).run();
}

std::string multiplierHint(const Order& order, const RegionalFormats& formats) {
    std::string hint;
    const auto look = [&](const char* box, const std::string& text) {
        const double factor = numberOf(cleanedNumber(text), formats);
        if (factor <= 1) return;
        constexpr double kReadable = 1e7;
        const std::string meaning =
            factor < kReadable ? generalText(factor * 100, formats) + "%" : "far too much";
        hint += (hint.empty() ? "The " : "; the ") + std::string(box) + " " + text.substr(0, 20) +
                " stands for " + meaning;
    };
    look(kDiscountMultiplier, order.DiscountFactorEd);
    look(kTaxMultiplier, order.TaxFactorEd);
    return hint.empty() ? hint : hint + "; " + howToWriteHalf(formats);
}

}  // namespace bramblet
