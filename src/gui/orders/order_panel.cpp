#include "gui/orders/order_panel.h"

#include "gui/addresses/address_panel.h"
#include "gui/platform/calendar_popup.h"
#include "gui/platform/icons.h"
#include "gui/platform/qt_text.h"

#include <QEvent>
#include <QGridLayout>
#include <QPainter>
#include <QRadioButton>

namespace bramblet {
namespace {

constexpr int kJobNumberLimit = 12;

/// The boxes of the terms column, from top to bottom.
struct TermsBox {
    QString label;
    QString tip;
    OrderField field;
};
const std::array<TermsBox, 5> kTerms{{
    {u"&Job Number"_s, u"The job that the order belongs to; 12 characters at most."_s,
     &Order::JobNumberEd},
    {u"B&y:"_s, u"Who places the order."_s, &Order::ByEd},
    {u"&Via:"_s, u"How the goods are to be shipped."_s, &Order::ShipViaEd},
    {u"F&OB:"_s, u"The place from which freight is the buyer's."_s, &Order::FOBEd},
    {u"Ter&ms:"_s, u"Terms of payment."_s, &Order::TermsEd},
}};

}  // namespace

OrderPanel::OrderPanel(OrderEditor& editor, AddressBook& addresses, FieldHistories& histories,
                       const OpenOrder& open, int firstDayOfWeek, QWidget* parent)
    : QWidget(parent),
      editor_(editor),
      open_(open),
      historyBoxes_(histories, open),
      firstDayOfWeek_(firstDayOfWeek) {
    setObjectName(u"band"_s);
    vendor_ = new AddressPanel(AddressSide::Vendor, addresses, open);
    shipTo_ = new AddressPanel(AddressSide::Destination, addresses, open);
    historyBoxes_.bind(vendor_->nameBox(), AddressSide::Vendor);
    historyBoxes_.bind(shipTo_->nameBox(), AddressSide::Destination);

    auto* comments = historyBoxes_.make(&Order::CommentsEd, u"Comments"_s,
                                        u"Printed below the lines of the order."_s);
    auto* strip = makeStrip();
    auto* middle = row(14, {grow(vendor_, 5), grow(shipTo_, 5), grow(makeTerms(), 4)});
    fill(this,
         column(8, {strip, grow(middle),
                    row(-1, {boxLabel(u"Comme&nts"_s, comments), grow(comments)})}),
         QMargins(10, 8, 10, 8));
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
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
    numberLabel_ = namedLabel("Label11", u"Double-click to unlock the number."_s);
    numberLabel_->setText(u"Number"_s);
    numberLabel_->installEventFilter(this);
}

void OrderPanel::makeKind() {
    purchaseOrder_ = button<QRadioButton>("OptionPO", u"&Bramblet"_s, u"Create a Bramblet"_s,
                                          [this] { editor_.chooseKind(OrderKind::PurchaseOrder); });
    requisition_ = button<QRadioButton>("OptionRe", u"Re&quistion"_s, u"Create a Requisition"_s,
                                        [this] { editor_.chooseKind(OrderKind::Requisition); });
    received_ = button<QCheckBox>(
        "MarkReceivedCheck", u"Mar&k Received"_s, u"Check to mark order as Received"_s,
        [this] { editor_.MarkReceivedCheck_Click(received_->isChecked()); });
}

QLayout* OrderPanel::makeStrip() {
    makeNumber();
    makeKind();
    auto* orderDate =
        makeDate(u"Order D&ate"_s, "OrderDateEd", u"The date of the order."_s, &Order::OrderDateEd,
                 "OrderDatePicker", u"Select order date from calendar."_s);
    auto* shipDate =
        makeDate(u"On Sit&e"_s, "ShipDateEd", u"When the goods are to be on site; may be empty."_s,
                 &Order::ShipDateEd, "ShipDatePicker", u"Select on-site date from calendar."_s);
    return row(6, {numberLabel_, number_, gap(12), purchaseOrder_, gap(4), requisition_, gap(14),
                   received_, spring(), orderDate, gap(8), shipDate});
}

void OrderPanel::bind(QLineEdit* box, OrderField field) {
    boxes_.bind(
        box, [this, field] { return open_.order().*field; },
        [this, field](const std::string& text) { editor_.edit(field, text); });
}

/// A box for a date, with its label and the button that opens the calendar.
QLayout* OrderPanel::makeDate(const QString& caption, const char* name, const QString& tip,
                              OrderField field, const char* picker, const QString& pickerTip) {
    auto* box = lineEdit(name, tip);
    box->setFixedWidth(fontMetrics().horizontalAdvance(u"00/00/00000"_s) + 14);
    bind(box, field);
    dates_.push_back({box, field, tip});
    connect(box, &QLineEdit::editingFinished, this, &OrderPanel::markDates);
    const auto pick = [this, box, field] {
        if (calendar_ == nullptr) calendar_ = new CalendarPopup(firstDayOfWeek_, this);
        calendar_->openUnder(box, editor_.calendarStart(field), [this, field](DayCount day) {
            editor_.MonthView1_DateClick(field, day);
        });
    };
    return row(6, {boxLabel(caption, box), box,
                   toolButton(picker, Drawing::Calendar, {}, pickerTip, pick)});
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

QLayout* OrderPanel::makeTerms() {
    auto* grid = new QGridLayout;
    grid->setVerticalSpacing(4);
    for (std::size_t i = 0; i < kTerms.size(); ++i) {
        const TermsBox& terms = kTerms[i];
        auto* box = historyBoxes_.make(terms.field, QString(terms.label).remove(QLatin1Char('&')),
                                       terms.tip);
        if (terms.field == &Order::JobNumberEd) box->lineEdit()->setMaxLength(kJobNumberLimit);
        grid->addWidget(boxLabel(terms.label, box), static_cast<int>(i), 0);
        grid->addWidget(box, static_cast<int>(i), 1);
    }
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(static_cast<int>(kTerms.size()), 1);
    return grid;
}

/// A band with round corners.
void OrderPanel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(palette().color(QPalette::Mid));
    painter.setBrush(palette().alternateBase());
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 5, 5);
}

/// The calendar is made anew in the new colours when it is next opened.
void OrderPanel::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() != QEvent::PaletteChange || calendar_ == nullptr) return;
    calendar_->deleteLater();
    calendar_ = nullptr;
}

bool OrderPanel::eventFilter(QObject* watched, QEvent* event) {
    if (watched == numberLabel_ && event->type() == QEvent::MouseButtonDblClick) {
        Label11_DblClick();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace bramblet
