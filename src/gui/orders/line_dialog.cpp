#include "gui/orders/line_dialog.h"

#include "gui/platform/boxes.h"
#include "gui/platform/history_box.h"
#include "gui/platform/loss_hint.h"
#include "gui/platform/qt_text.h"
#include "gui/stock/last_paid_line.h"

#include <QDialog>
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

class EditLineDialog : public QDialog {
  public:
    EditLineDialog(const LineEntry& entry, const std::string& caption,
                   const std::vector<std::string>& units, const std::string& order,
                   PaidReader& reader, const RegionalFormats& formats, Commands& commands,
                   QWidget* parent)
        : QDialog(parent),
          formats_(formats),
          commands_(commands),
          description_(new QPlainTextEdit(linesToQt(entry.description))),
          quantity_(
              amountBox("QEd", entry.quantity, u"How many are ordered; 0 removes the line."_s)),
          unitCost_(amountBox("UCEd", entry.unitCost,
                              u"What one unit costs; \"567.45 / 23\" is worked out."_s)),
          total_(amountBox("LineTotalEd", {},
                           u"What the line costs. Type it, and the unit cost follows."_s)) {
        setObjectName(u"EditLineItem"_s);
        setWindowTitle(toQt(caption));
        description_->setObjectName(u"Text1"_s);
        description_->setTabChangesFocus(true);
        description_->setToolTip(
            u"What is ordered; it is printed on one line or more as it needs."_s);
        description_->installEventFilter(this);
        description_->setMinimumWidth(fontMetrics().averageCharWidth() * 62);
        description_->setFixedHeight(
            qMax(fontMetrics().lineSpacing() * 4 + 14, description_->minimumSizeHint().height()));
        description_->selectAll();
        unit_->setEntries(units);
        showText(unit_->lineEdit(), toQt(entry.unit));

        auto* lastPaid = new LastPaidLine(
            u"LastPaid"_s, u"Us&e"_s, reader,
            [this, entry, order] { return goodsOf(boxes(), entry, order); },
            [this](const PaidPrice& price) { takePrice(price); });
        connect(description_, &QPlainTextEdit::textChanged, lastPaid, &LastPaidLine::refresh);
        connect(unit_, &QComboBox::currentTextChanged, lastPaid, &LastPaidLine::refresh);
        lastPaid->refresh();

        connect(quantity_, &QLineEdit::textEdited, this, &EditLineDialog::follow);
        connect(unitCost_, &QLineEdit::textEdited, this, [this] {
            totalTyped_ = false;
            follow();
        });
        connect(unitCost_, &QLineEdit::editingFinished, this, &EditLineDialog::divide);
        connect(total_, &QLineEdit::textEdited, this, [this] {
            totalTyped_ = true;
            follow();
        });
        follow();

        auto* save = button("Save", u"&Save"_s, u"Store the line."_s, [this] { this->save(); });
        auto* remove = button("Del", u"De&lete"_s, u"Remove the line from the order."_s,
                              [this] { this->remove(); });
        auto* cancel =
            button("Cancel", u"Cancel"_s, u"Close without storing what was typed here."_s,
                   [this] { reject(); });
        save->setDefault(true);
        auto* amounts = row(6, {boxLabel(u"&Quantity"_s, quantity_), grow(quantity_, 2), gap(10),
                                boxLabel(u"&Unit"_s, unit_), grow(unit_, 3), gap(10),
                                boxLabel(u"Unit &Cost"_s, unitCost_), grow(unitCost_, 3), gap(10),
                                boxLabel(u"Line &Total"_s, total_), grow(total_, 3)});
        setLayout(
            column(8, {boxLabel(u"&Description"_s, description_), description_, amounts, lastPaid,
                       spring(), gap(6), row(-1, {remove, spring(), save, cancel})}));
        setTabOrder(cancel, remove);
    }

    /// What Save or Delete stored; empty until then.
    const std::optional<LineEntry>& stored() const { return stored_; }

  private:
    LineEntry boxes() const {
        return {fromQt(quantity_->text()), fromQt(unit_->currentText()),
                fromQt(description_->toPlainText()), fromQt(unitCost_->text())};
    }

    /// The unit cost and the line total: the one that was not typed last follows the other.
    void follow() {
        const LineEntry typed = boxes();
        if (totalTyped_) {
            const auto cost = unitCostFor(fromQt(total_->text()), typed.quantity, formats_);
            if (!cost.empty()) showText(unitCost_, toQt(cost));
            return;
        }
        try {
            const auto quotient = quotientIn(typed.unitCost, formats_);
            showText(total_,
                     toQt(lineTotal(typed.quantity, quotient.empty() ? typed.unitCost : quotient,
                                    formats_)));
        } catch (const Fault&) {
            showText(total_, {});
        }
    }

    void takePrice(const PaidPrice& price) {
        unitCost_->setText(toQt(price.cost));
        if (!price.unit.empty()) unit_->setEditText(toQt(price.unit));
        totalTyped_ = false;
        follow();
    }

    void divide() {
        const auto quotient = quotientIn(fromQt(unitCost_->text()), formats_);
        if (!quotient.empty()) showText(unitCost_, toQt(quotient));
    }

    void save() {
        divide();
        const auto check = [this] { stored_ = checkedEntry(boxes(), formats_); };
        if (commands_.attemptOrAsk("", "Edit Line Item", check)) accept();
    }

    void remove() {
        stored_ = storedEntry(boxes());
        stored_->quantity = "0";
        accept();
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        // A description is one line on paper, however long it is: Enter stores, as in the other
        // boxes.
        if (watched == description_ && event->type() == QEvent::KeyPress) {
            const auto* key = static_cast<QKeyEvent*>(event);
            if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
                save();
                return true;
            }
        }
        return QDialog::eventFilter(watched, event);
    }

    const RegionalFormats& formats_;
    Commands& commands_;
    QPlainTextEdit* description_;
    QLineEdit* quantity_;
    HistoryBox* unit_ = new HistoryBox("DescriptionUnitCombo", u"Unit"_s,
                                       u"The unit of measure, for example ea or box."_s);
    QLineEdit* unitCost_;
    QLineEdit* total_;
    bool totalTyped_ = false;  ///< later than the unit cost
    std::optional<LineEntry> stored_;
};

}  // namespace

std::optional<LineEntry> showLineDialog(const LineEntry& entry, const std::string& caption,
                                        const std::vector<std::string>& units,
                                        const std::string& order, PaidReader& reader,
                                        const RegionalFormats& formats, Commands& commands,
                                        LossHint& lossHint, QWidget* parent) {
    EditLineDialog dialog(entry, caption, units, order, reader, formats, commands, parent);
    lossHint.watch(dialog);
    dialog.exec();
    return dialog.stored();
}

}  // namespace bramblet
