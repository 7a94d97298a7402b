#include "gui/orders/totals_panel.h"

#include "gui/platform/qt_text.h"

#include <QGridLayout>
#include <QRegularExpression>

#include <algorithm>

namespace bramblet {

/// One line of the column: label, factor box (none if `factor` is null) and amount box.
struct TotalsPanel::Row {
    const char* label;
    const char* labelName;
    const char* factor;
    const char* factorTip;
    OrderField factorField;
    const char* amount;
    const char* amountTip;
    OrderField amountField;
    bool typed;  ///< whether the user may type the amount
};

std::vector<TotalsPanel::Row> TotalsPanel::columnRows() {
    return {
        {"Sub Total", "SubTotalLab", nullptr, nullptr, nullptr, "SubTotalEd",
         "The sum of the lines.", &Order::SubTotalEd, false},
        {"-  Discount", "DiscountLab", "DiscountFactorEd",
         "Discount multiplier (example .5 = 50%). Blank for none/manual.", &Order::DiscountFactorEd,
         "DiscountEd", "This is subtracted from Sub Total to show Net.", &Order::DiscountEd, true},
        {"Total (Net)", "NetEdLab", nullptr, nullptr, nullptr, "NetTotalEd",
         "Sub Total less Discount.", &Order::NetTotalEd, false},
        {"+ Sales Tax", "Label6", "TaxFactorEd",
         "Tax multiplier (example .065 = 6.5%). Blank for none/manual.", &Order::TaxFactorEd,
         "SalesTaxEd", "This will be added to the Net.", &Order::SalesTaxEd, true},
        {"+ Shipping", "Label4", nullptr, nullptr, nullptr, "ShippingEd", "What shipping costs.",
         &Order::ShippingEd, true},
        {"Total", "Label3", nullptr, nullptr, nullptr, "OrderTotalEd", "What the order comes to.",
         &Order::OrderTotalEd, false},
    };
}

/// Swaps the tax and shipping rows: when shipping is taxed, the column then reads in the order in
/// which its amounts are applied.
void TotalsPanel::ArrangeTaxAndShippingBoxes(std::vector<Row>& rows) {
    const auto rowOf = [&rows](OrderField amount) {
        return std::find_if(rows.begin(), rows.end(),
                            [amount](const Row& row) { return row.amountField == amount; });
    };
    std::iter_swap(rowOf(&Order::SalesTaxEd), rowOf(&Order::ShippingEd));
}

TotalsPanel::TotalsPanel(OrderEditor& editor, const OpenOrder& open, bool taxFreight,
                         const RegionalFormats& formats, QWidget* parent)
    : QWidget(parent), formats_(formats), editor_(editor), open_(open) {
    std::vector<Row> rows = columnRows();
    if (taxFreight) ArrangeTaxAndShippingBoxes(rows);
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(6);
    grid->setVerticalSpacing(4);
    int line = 0;
    for (const Row& row : rows)
        addRow(grid, line++, row);
    grid->setRowStretch(line, 1);
    grid->setColumnStretch(2, 1);
    setFixedWidth(fontMetrics().averageCharWidth() * 44);
}

/// The tip with its example written as in the region. Before a decimal comma people write a zero.
QString TotalsPanel::inRegion(QString tip) const {
    if (formats_.decimalSeparator == ".") return tip;
    static const QRegularExpression decimalPoint(u"\\.(?=\\d)"_s);
    tip.replace(QLatin1String(" ."), QLatin1String(" 0."));
    return tip.replace(decimalPoint, toQt(formats_.decimalSeparator));
}

void TotalsPanel::addRow(QGridLayout* grid, int line, const Row& row) {
    const QString caption = QString::fromLatin1(row.label);
    auto* amount =
        addBox(row.amount, QString::fromLatin1(row.amountTip), row.amountField, row.typed);
    amount->setAccessibleName(caption);
    amount->setMinimumWidth(fontMetrics().horizontalAdvance(u"000,000,000.00"_s) + 14);
    auto* label = boxLabel(caption, amount);
    label->setObjectName(QLatin1String(row.labelName));
    grid->addWidget(label, line, 0);
    if (row.factor != nullptr) {
        auto* factor =
            addBox(row.factor, inRegion(QString::fromLatin1(row.factorTip)), row.factorField, true);
        factor->setAccessibleName(u"Multiplier of %1"_s.arg(caption));
        factor->setFixedWidth(fontMetrics().horizontalAdvance(u"0.0000"_s) + 14);
        grid->addWidget(factor, line, 1);
    }
    grid->addWidget(amount, line, 2);
    if (row.amountField == &Order::OrderTotalEd) {
        QFont bold = amount->font();
        bold.setBold(true);
        amount->setFont(bold);
        label->setFont(bold);
    }
}

QLineEdit* TotalsPanel::addBox(const char* name, const QString& tip, OrderField field, bool typed) {
    auto* box = lineEdit(name, tip);
    box->setAlignment(Qt::AlignRight);
    if (!typed) showOnly(box);
    boxes_.bind(
        box, [this, field] { return open_.order().*field; },
        [this, field](const std::string& text) { editor_.edit(field, text); });
    return box;
}

}  // namespace bramblet
