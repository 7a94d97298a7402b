#include "gui/orders/order_panel.h"

#include "gui/addresses/address_panel.h"
#include "gui/platform/boxes.h"
#include "gui/platform/calendar_popup.h"
#include "gui/platform/icons.h"
#include "gui/platform/literals.h"
#include "gui/platform/qt_text.h"

#include <QCheckBox>
#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QVBoxLayout>

namespace bramblet {
namespace {

constexpr int kJobNumberLimit = 12;

/// The boxes of the terms column, from top to bottom.
struct TermsBox {
    const char* label;
    const char* tip;
    OrderField field;
};
const std::array<TermsBox, 5> kTerms{{
    {"&Job Number", "The job that the order belongs to; 12 characters at most.",
     &Order::JobNumberEd},
    {"B&y:", "Who places the order.", &Order::ByEd},
    {"&Via:", "How the goods are to be shipped.", &Order::ShipViaEd},
    {"F&OB:", "The place from which freight is the buyer's.", &Order::FOBEd},
    {"Ter&ms:", "Terms of payment.", &Order::TermsEd},
}};

}  // namespace

OrderPanel::OrderPanel(OrderEditor& editor, AddressBook& addresses, FieldHistories& histories,
                       const OpenOrder& open, int firstDayOfWeek, QWidget* parent)
    : QFrame(parent), editor_(editor), open_(open), historyBoxes_(histories, open) {
    setObjectName(u"band"_s);
    calendar_ = new CalendarPopup(firstDayOfWeek, this);
    vendor_ = new AddressPanel(AddressSide::Vendor, addresses, open);
    shipTo_ = new AddressPanel(AddressSide::Destination, addresses, open);
    historyBoxes_.bind(vendor_->nameBox(), AddressSide::Vendor);
    historyBoxes_.bind(shipTo_->nameBox(), AddressSide::Destination);

    auto* middle = new QHBoxLayout;
    middle->setSpacing(14);
    QLayout* const strip = makeStrip();
    middle->addWidget(vendor_, 5);
    middle->addWidget(shipTo_, 5);
    middle->addLayout(makeTerms(), 4);

    comments_ = historyBoxes_.make(&Order::CommentsEd, u"Comments"_s);
    comments_->setToolTip(u"Printed below the lines of the order."_s);
    auto* comments = new QHBoxLayout;
    comments->addWidget(boxLabel(u"Comme&nts"_s, comments_));
    comments->addWidget(comments_, 1);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(10, 8, 10, 8);
    layout->setSpacing(8);
    layout->addLayout(strip);
    layout->addLayout(middle, 1);
    layout->addLayout(comments);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    setTabs();
}

void OrderPanel::refresh() {
    const Order& order = open_.order();
    boxes_.refresh();
    historyBoxes_.refresh();
    number_->setReadOnly(!open_.numberUnlocked());
    (order.kind == OrderKind::Requisition ? requisition_ : purchaseOrder_)->setChecked(true);
    received_->setChecked(order.MarkReceivedCheck);
    markDates();
    vendor_->refresh();
    shipTo_->refresh();
}

void OrderPanel::makeNumber() {
    number_ = lineEdit("PONoEd", u"Number of the order shown; (PEND) until it is saved."_s);
    number_->setAccessibleName(u"Order number"_s);
    QFont bold = number_->font();
    bold.setBold(true);
    bold.setPointSizeF(bold.pointSizeF() * 1.25);
    number_->setFont(bold);
    number_->setFixedWidth(QFontMetrics(bold).horizontalAdvance(u"(PEND)00"_s) + 10);
    bind(number_, &Order::PONoEd);
    numberLabel_ = new QLabel(u"Number"_s);
    numberLabel_->setObjectName(u"Label11"_s);
    numberLabel_->setToolTip(u"Double-click to unlock the number."_s);
    numberLabel_->installEventFilter(this);
}

void OrderPanel::makeKind() {
    purchaseOrder_ =
        onClick(button<QRadioButton>("OptionPO", u"&Bramblet"_s, u"Create a Bramblet"_s),
                [this] { editor_.chooseKind(OrderKind::PurchaseOrder); });
    requisition_ =
        onClick(button<QRadioButton>("OptionRe", u"Re&quistion"_s, u"Create a Requisition"_s),
                [this] { editor_.chooseKind(OrderKind::Requisition); });
    received_ = onClick(button<QCheckBox>("MarkReceivedCheck", u"Mar&k Received"_s,
                                          u"Check to mark order as Received"_s),
                        [this] { editor_.MarkReceivedCheck_Click(received_->isChecked()); });
}

void OrderPanel::makeDates() {
    orderDate_ = dateBox("OrderDateEd", &Order::OrderDateEd, u"The date of the order."_s);
    shipDate_ = dateBox("ShipDateEd", &Order::ShipDateEd,
                        u"When the goods are to be on site; may be empty."_s);
    orderDatePicker_ = datePicker("OrderDatePicker", u"Select order date from calendar."_s,
                                  orderDate_, &Order::OrderDateEd);
    shipDatePicker_ = datePicker("ShipDatePicker", u"Select on-site date from calendar."_s,
                                 shipDate_, &Order::ShipDateEd);
}

QLayout* OrderPanel::makeStrip() {
    makeNumber();
    makeKind();
    makeDates();
    auto* strip = new QHBoxLayout;
    strip->setSpacing(6);
    strip->addWidget(numberLabel_);
    strip->addWidget(number_);
    strip->addSpacing(12);
    strip->addWidget(purchaseOrder_);
    strip->addSpacing(4);
    strip->addWidget(requisition_);
    strip->addSpacing(14);
    strip->addWidget(received_);
    strip->addStretch(1);
    strip->addWidget(boxLabel(u"Order D&ate"_s, orderDate_));
    strip->addWidget(orderDate_);
    strip->addWidget(orderDatePicker_);
    strip->addSpacing(8);
    strip->addWidget(boxLabel(u"On Sit&e"_s, shipDate_));
    strip->addWidget(shipDate_);
    strip->addWidget(shipDatePicker_);
    return strip;
}

void OrderPanel::bind(QLineEdit* box, OrderField field) {
    boxes_.bind(
        box, [this, field] { return open_.order().*field; },
        [this, field](const std::string& text) { editor_.edit(field, text); });
}

QLineEdit* OrderPanel::dateBox(const char* name, OrderField field, const QString& tip) {
    auto* box = lineEdit(name, tip);
    box->setFixedWidth(fontMetrics().horizontalAdvance(u"00/00/00000"_s) + 14);
    bind(box, field);
    dates_.push_back({box, field, tip});
    connect(box, &QLineEdit::editingFinished, this, &OrderPanel::markDates);
    return box;
}

/// A date that is still being typed is not judged yet: a bad one is marked when its box is left, or
/// at once when a save has refused it.
void OrderPanel::markDates() {
    for (const DateBox& date : dates_) {
        const bool typing = date.box->hasFocus() && !open_.dateRefused();
        const bool refused = !typing && !editor_.isDate(date.field);
        const QString why = refused ? u"\"%1\" is not a date."_s.arg(date.box->text()) : QString();
        if (date.box->accessibleDescription() == why) continue;
        markRefused(date.box, refused);
        date.box->setToolTip(refused ? why : date.tip);
        date.box->setAccessibleDescription(why);
    }
}

QToolButton* OrderPanel::datePicker(const char* name, const QString& tip, QLineEdit* box,
                                    OrderField field) {
    return onClick(toolButton(name, Drawing::Calendar, {}, tip), [this, box, field] {
        calendar_->openUnder(box, editor_.calendarStart(field), [this, field](DayCount day) {
            editor_.MonthView1_DateClick(field, day);
        });
    });
}

QLayout* OrderPanel::makeTerms() {
    auto* grid = new QGridLayout;
    grid->setVerticalSpacing(4);
    for (std::size_t i = 0; i < kTerms.size(); ++i) {
        const TermsBox& terms = kTerms[i];
        const OrderField field = terms.field;
        auto* box =
            historyBoxes_.make(field, QString::fromLatin1(terms.label).remove(QLatin1Char('&')));
        box->setToolTip(QString::fromLatin1(terms.tip));
        if (field == &Order::JobNumberEd) box->lineEdit()->setMaxLength(kJobNumberLimit);
        terms_.push_back(box);
        grid->addWidget(boxLabel(QString::fromLatin1(terms.label), box), static_cast<int>(i), 0);
        grid->addWidget(box, static_cast<int>(i), 1);
    }
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(static_cast<int>(kTerms.size()), 1);
    return grid;
}

/// Tab goes along the strip, then down the two addresses, the terms and the comments.
void OrderPanel::setTabs() {
    std::vector<QWidget*> order{number_,    purchaseOrder_,   requisition_, received_,
                                orderDate_, orderDatePicker_, shipDate_,    shipDatePicker_};
    for (const AddressPanel* side : {vendor_, shipTo_}) {
        order.insert(order.end(), {side->nameBox(), side->addressBox(), side->saveButton(),
                                   side->deleteButton()});
    }
    order.insert(order.end(), terms_.begin(), terms_.end());
    order.push_back(comments_);
    for (std::size_t i = 1; i < order.size(); ++i)
        setTabOrder(order[i - 1], order[i]);
}

bool OrderPanel::eventFilter(QObject* watched, QEvent* event) {
    if (watched == numberLabel_ && event->type() == QEvent::MouseButtonDblClick) {
        Label11_DblClick();
        return true;
    }
    return QFrame::eventFilter(watched, event);
}

}  // namespace bramblet
