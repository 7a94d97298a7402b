#include "gui/addresses/address_panel.h"

#include "gui/platform/boxes.h"
#include "gui/platform/history_box.h"
#include "gui/platform/icons.h"
#include "gui/platform/qt_text.h"

#include <QAction>
#include <QPlainTextEdit>

namespace bramblet {
namespace {

constexpr int kNameLimit = 60;

/// What the two blocks are called, and what their tool tips say.
struct Look {
    const char* nameBox;
    const char* addressBox;
    const char* counter;
    const char* save;
    const char* remove;
    const char* rename;
    QString label;
    QString one;
    OrderField name;
    OrderField address;
};

Look lookOf(AddressSide side) {
    if (side == AddressSide::Vendor) {
        return {"ToCombo",      "ToField", "VendAddyCounter", "ChangedVendor", "DeleteVendor",
                "ToPop_rename", u"&To:"_s, u"vendor"_s,       &Order::ToCombo, &Order::ToField};
    }
    return {"ShipToCombo",       "ShipToField",      "ToAddyCounter", "ChangedDest",
            "DeleteDest",        "ShipToPop_rename", u"Shi&p To:"_s,  u"ship-to address"_s,
            &Order::ShipToCombo, &Order::ShipToField};
}

}  // namespace

AddressPanel::AddressPanel(AddressSide side, AddressBook& book, const OpenOrder& open,
                           QWidget* parent)
    : QWidget(parent), side_(side), book_(book), open_(open) {
    const Look look = lookOf(side);
    nameField_ = look.name;
    addressField_ = look.address;
    name_ = new HistoryBox(
        look.nameBox, look.label,
        u"Pick the %1 from the list, or type the name of a new one."_s.arg(look.one));
    name_->lineEdit()->setMaxLength(kNameLimit);
    name_->setMaxVisibleItems(16);
    name_->suggestFromInside();
    address_ = new QPlainTextEdit;
    address_->setObjectName(QLatin1String(look.addressBox));
    address_->setAccessibleName(u"Address of the %1"_s.arg(look.one));
    address_->setToolTip(u"The address as it is printed on the order."_s);
    address_->setTabChangesFocus(true);
    address_->setLineWrapMode(QPlainTextEdit::NoWrap);
    address_->setFixedHeight(fontMetrics().lineSpacing() * 6 + 14);
    counter_ = quietLabel(look.counter, u"Number of the %1 shown"_s.arg(look.one));
    counter_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    counter_->setMinimumWidth(fontMetrics().averageCharWidth() * 4);
    save_ = toolButton(look.save, Drawing::Store, {},
                       u"Save the %1 shown in the address book"_s.arg(look.one),
                       [this] { book_.Changed_Click(side_); });
    remove_ = toolButton(look.remove, Drawing::Delete, {},
                         u"Delete the %1 shown from the address book"_s.arg(look.one),
                         [this] { book_.Delete_Click(side_); });

    auto* top = row(4, {boxLabel(look.label, name_), grow(name_), counter_, save_, remove_});
    fill(this, column(4, {top, address_, spring()}));
    setTabOrder(name_, address_);
    setTabOrder(address_, save_);

    for (const auto needed : {&HistoryBox::focused, &HistoryBox::opening})
        connect(name_, needed, this, &AddressPanel::fillList);
    connect(name_->lineEdit(), &QLineEdit::textEdited, this,
            [this](const QString& text) { book_.Combo_Change(side_, fromQt(text)); });
    connect(name_, &QComboBox::activated, this, [this] {
        book_.Combo_Change(side_, fromQt(name_->currentText()));
        book_.Combo_Click(side_);
    });
    auto* rename = new QAction(u"&Rename in the Address Book ..."_s, name_);
    rename->setObjectName(QLatin1String(look.rename));
    connect(rename, &QAction::triggered, this, [this] { book_.rename(side_); });
    name_->addAction(rename);
    connect(name_->lineEdit(), &QLineEdit::editingFinished, this,
            [this] { book_.pickTypedName(side_); });
    connect(address_, &QPlainTextEdit::textChanged, this,
            [this] { book_.Field_Change(side_, linesFromQt(linesIn(address_))); });
}

void AddressPanel::fillList() {
    listed_ = true;
    name_->setEntries(book_.shown(side_).names);
}

void AddressPanel::refresh() {
    const AddressBook::Shown& shown = book_.shown(side_);
    if (listed_) fillList();
    showText(name_->lineEdit(), toQt(open_.order().*nameField_));
    showText(address_, linesToQt(open_.order().*addressField_));
    counter_->setText(toQt(shown.counter));
    save_->setEnabled(shown.changedEnabled);
    remove_->setEnabled(shown.deleteEnabled);
}

}  // namespace bramblet
