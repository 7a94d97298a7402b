#include "gui/orders/line_dialog.h"

#include "gui/platform/boxes.h"
#include "gui/platform/history_box.h"
#include "gui/platform/literals.h"
#include "gui/platform/qt_text.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPlainTextEdit>

namespace bramblet {
namespace {

QLineEdit* amountBox(const char* name, const std::string& text, const QString& tip) {
    auto* box = lineEdit(name, tip);
    box->setText(toQt(text));
    box->setAlignment(Qt::AlignRight);
    return box;
}

}  // namespace

EditLineDialog::EditLineDialog(const LineEntry& entry, const std::string& caption,
                               const std::vector<std::string>& units,
                               const RegionalFormats& formats, Commands& commands, QWidget* parent)
    : QDialog(parent), formats_(formats), commands_(commands) {
    setObjectName(u"EditLineItem"_s);
    setWindowTitle(toQt(caption));

    description_ = new QPlainTextEdit(linesToQt(entry.description));
    description_->setObjectName(u"Text1"_s);
    description_->setTabChangesFocus(true);
    description_->setToolTip(u"What is ordered; it is printed on one line or more as it needs."_s);
    description_->installEventFilter(this);
    description_->setMinimumWidth(fontMetrics().averageCharWidth() * 62);
    description_->setFixedHeight(fontMetrics().lineSpacing() * 4 + 14);
    description_->selectAll();
    quantity_ = amountBox("QEd", entry.quantity, u"How many are ordered; 0 removes the line."_s);
    unitCost_ = amountBox("UCEd", entry.unitCost, u"What one unit costs."_s);
    unit_ = new HistoryBox("DescriptionUnitCombo", u"Unit"_s);
    unit_->setToolTip(u"The unit of measure, for example ea or box."_s);
    unit_->setEntries(units);
    showText(unit_->lineEdit(), entry.unit);

    auto* save =
        onClick(button("Save", u"&Save"_s, u"Store the line."_s), [this] { this->save(); });
    auto* remove = onClick(button("Del", u"De&lete"_s, u"Remove the line from the order."_s),
                           [this] { this->remove(); });
    auto* cancel =
        onClick(button("Cancel", u"Cancel"_s, u"Close without storing what was typed here."_s),
                [this] { reject(); });
    save->setDefault(true);

    auto* amounts = new QHBoxLayout;
    amounts->setSpacing(6);
    amounts->addWidget(boxLabel(u"&Quantity"_s, quantity_));
    amounts->addWidget(quantity_, 2);
    amounts->addSpacing(10);
    amounts->addWidget(boxLabel(u"&Unit"_s, unit_));
    amounts->addWidget(unit_, 3);
    amounts->addSpacing(10);
    amounts->addWidget(boxLabel(u"Unit &Cost"_s, unitCost_));
    amounts->addWidget(unitCost_, 3);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(remove);
    buttons->addStretch();
    buttons->addWidget(save);
    buttons->addWidget(cancel);
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(8);
    layout->addWidget(boxLabel(u"&Description"_s, description_));
    layout->addWidget(description_);
    layout->addLayout(amounts);
    layout->addStretch(1);
    layout->addSpacing(6);
    layout->addLayout(buttons);
    setTabOrder(description_, quantity_);
    setTabOrder(quantity_, unit_);
    setTabOrder(unit_, unitCost_);
    setTabOrder(unitCost_, save);
    setTabOrder(save, cancel);
    setTabOrder(cancel, remove);
}

LineEntry EditLineDialog::boxes() const {
    return {fromQt(quantity_->text()), fromQt(unit_->currentText()),
            fromQt(description_->toPlainText()), fromQt(unitCost_->text())};
}

void EditLineDialog::save() {
    const auto check = [this] { stored_ = checkedEntry(boxes(), formats_); };
    if (commands_.attemptOrAsk("", "Edit Line Item", check)) accept();
}

void EditLineDialog::remove() {
    stored_ = storedEntry(boxes());
    stored_->quantity = "0";
    accept();
}

bool EditLineDialog::eventFilter(QObject* watched, QEvent* event) {
    // A description is one line on paper, however long it is: Enter stores, as in the other boxes.
    if (watched == description_ && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
            save();
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

}  // namespace bramblet
