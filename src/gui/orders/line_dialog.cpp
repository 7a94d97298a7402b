#include "gui/orders/line_dialog.h"

#include "core/platform/fault.h"
#include "gui/platform/boxes.h"
#include "gui/platform/history_box.h"
#include "gui/platform/literals.h"
#include "gui/platform/qt_text.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

namespace bramblet {
namespace {

QLineEdit* amountBox(const char* name, const std::string& text, const QString& tip) {
    auto* box = new QLineEdit(toQt(text));
    box->setObjectName(QLatin1String(name));
    box->setAlignment(Qt::AlignRight);
    box->setToolTip(tip);
    return box;
}

QPushButton* button(const char* name, const QString& caption, const QString& tip) {
    auto* button = new QPushButton(caption);
    button->setObjectName(QLatin1String(name));
    button->setToolTip(tip);
    button->setAutoDefault(false);
    return button;
}

}  // namespace

EditLineDialog::EditLineDialog(const LineEntry& entry, const std::string& caption,
                               const std::vector<std::string>& units,
                               const RegionalFormats& formats, Prompts& prompts, QWidget* parent)
    : QDialog(parent), formats_(formats), prompts_(prompts) {
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
    unit_->showText(entry.unit);

    auto* save = button("Save", u"&Save"_s, u"Store the line."_s);
    auto* remove = button("Del", u"De&lete"_s, u"Remove the line from the order."_s);
    auto* cancel = button("Cancel", u"Cancel"_s, u"Close without storing what was typed here."_s);
    save->setDefault(true);
    connect(save, &QPushButton::clicked, this, &EditLineDialog::save);
    connect(remove, &QPushButton::clicked, this, [this] {
        LineEntry removed = storedEntry(boxes());
        removed.quantity = "0";
        stored_ = removed;
        accept();
    });
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);

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
    try {
        stored_ = checkedEntry(boxes(), formats_);
    } catch (const Fault& fault) {
        prompts_.ask({fault.inWords() + ".", "Edit Line Item", Buttons::Ok, Icon::Exclamation});
        return;
    }
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
