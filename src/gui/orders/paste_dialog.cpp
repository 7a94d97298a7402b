#include "gui/orders/paste_dialog.h"

#include "gui/platform/boxes.h"
#include "gui/platform/column_choices.h"
#include "gui/platform/grid_view.h"
#include "gui/platform/loss_hint.h"
#include "gui/platform/qt_text.h"

#include <QApplication>
#include <QClipboard>
#include <QDialog>

namespace bramblet {
namespace {

constexpr int kLeastLines = 10;

/// In the order of PastedLines::kTaken.
constexpr std::array<ColumnChoice, PastedLines::kTaken.size()> kChoices{{
    {"PasteQuantity", "&Quantity", "1 each time"},
    {"PasteUnit", "&Unit", "\"ea\" each time"},
    {"PasteDescription", "&Description", "empty"},
    {"PasteUnitCost", "Unit &Cost", "0 each time"},
}};

class PasteDialog : public QDialog {
  public:
    PasteDialog(PastedLines& lines, QWidget* parent) : QDialog(parent), lines_(lines) {
        setObjectName(u"PasteLines"_s);
        setWindowTitle(u"Paste Lines"_s);
        doubts_->setWordWrap(true);
        headed_->setChecked(lines_.table().headed());
        connect(headed_, &QCheckBox::toggled, this, [this](bool headed) {
            lines_.setHeaded(headed);
            refresh();
        });
        add_->setDefault(true);
        auto* cancel = button("Cancel", u"Cancel"_s, u"Close this window and add nothing."_s,
                              [this] { reject(); });
        auto* explanation = new QLabel(
            u"These lines are on the clipboard. Which column of the table holds what?"_s);
        explanation->setWordWrap(true);
        setLayout(column(10, {explanation, makeChoices(), headed_, grow(grid_), doubts_,
                              row(-1, {grow(summary_), add_, cancel})}));
        resize(fontMetrics().averageCharWidth() * 110, fontMetrics().lineSpacing() * 28);
        refresh();
        add_->setFocus();
    }

  private:
    QLayout* makeChoices() {
        return columnChoices(lines_.table(), kChoices, static_cast<int>(kChoices.size()),
                             [this](std::size_t taken, int source) {
                                 lines_.choose(taken, source);
                                 refresh();
                             });
    }

    void refresh() {
        grid_->refresh();
        summary_->setText(toQt(lines_.summary()));
        const QString lost = lossIn(QApplication::clipboard()->text());
        QStringList doubts{messageToQt(lines_.doubts()), lost};
        doubts.removeAll(QString());
        doubts_->setText(doubts.join(u'\n'));
        doubts_->setVisible(!doubts.isEmpty());
        add_->setEnabled(lines_.rowCount() > 0);
    }

    PastedLines& lines_;
    QCheckBox* headed_ = button<QCheckBox>("PasteHeaded", u"The first row holds &headings"_s,
                                           u"Headings do not become a line of the order."_s);
    GridView* grid_ = new GridView("PasteGrid", u"Lines to be added"_s,
                                   u"The lines as they would be added."_s, lines_, kLeastLines);
    QPushButton* add_ =
        button("PasteAdd", u"&Add to the order"_s,
               u"Add these lines to the order, as one-time items."_s, [this] { accept(); });
    QLabel* doubts_ = namedLabel("PasteDoubts");
    QLabel* summary_ = namedLabel("PasteSummary");
};

}  // namespace

bool showPasteDialog(PastedLines& lines, QWidget* parent) {
    return PasteDialog(lines, parent).exec() == QDialog::Accepted;
}

}  // namespace bramblet
