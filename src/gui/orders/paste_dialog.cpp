#include "gui/orders/paste_dialog.h"

#include "gui/platform/boxes.h"
#include "gui/platform/grid_view.h"
#include "gui/platform/qt_text.h"

#include <QComboBox>
#include <QDialog>

namespace bramblet {
namespace {

constexpr int kLeastLines = 10;

/// For what a line takes from the table, in the order of PastedLines::kTaken.
struct Choice {
    const char *name, *caption, *otherwise;
};
constexpr std::array<Choice, PastedLines::kTaken.size()> kChoices{{
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
        headed_->setChecked(lines_.headed());
        connect(headed_, &QCheckBox::toggled, this, [this](bool headed) {
            lines_.setHeaded(headed);
            refresh();
        });
        auto* add =
            button("PasteAdd", u"&Add to the order"_s,
                   u"Add these lines to the order, as one-time items."_s, [this] { accept(); });
        add->setDefault(true);
        auto* cancel = button("Cancel", u"Cancel"_s, u"Close this window and add nothing."_s,
                              [this] { reject(); });
        auto* explanation = new QLabel(
            u"These lines are on the clipboard. Which column of the table holds what?"_s);
        explanation->setWordWrap(true);
        setLayout(column(10, {explanation, makeChoices(), headed_, grow(grid_), doubts_,
                              row(-1, {grow(summary_), add, cancel})}));
        resize(fontMetrics().averageCharWidth() * 110, fontMetrics().lineSpacing() * 28);
        refresh();
        add->setFocus();
    }

  private:
    QLayout* makeChoices() {
        auto* choices = row(12, {});
        const auto columns = lines_.columns();
        for (std::size_t taken = 0; taken < kChoices.size(); ++taken) {
            const Choice& choice = kChoices[taken];
            auto* box = new QComboBox;
            box->setObjectName(QLatin1String(choice.name));
            box->setToolTip(u"The column of the table that holds it."_s);
            box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
            box->setMinimumContentsLength(12);
            box->addItem(u"none: "_s + QLatin1String(choice.otherwise));
            for (const std::string& name : columns)
                box->addItem(messageToQt(name));
            box->setCurrentIndex(lines_.source(taken) + 1);
            connect(box, &QComboBox::activated, this, [this, taken](int index) {
                lines_.choose(taken, index - 1);
                refresh();
            });
            grow(column(2, {boxLabel(QLatin1String(choice.caption), box), box})).addTo(*choices);
        }
        return choices;
    }

    void refresh() {
        grid_->refresh();
        summary_->setText(toQt(lines_.summary()));
        doubts_->setText(messageToQt(lines_.doubts()));
        doubts_->setVisible(!doubts_->text().isEmpty());
    }

    PastedLines& lines_;
    QCheckBox* headed_ = button<QCheckBox>("PasteHeaded", u"The first row holds &headings"_s,
                                           u"Headings do not become a line of the order."_s);
    GridView* grid_ = new GridView("PasteGrid", u"Lines to be added"_s,
                                   u"The lines as they would be added."_s, lines_, kLeastLines);
    QLabel* doubts_ = namedLabel("PasteDoubts");
    QLabel* summary_ = namedLabel("PasteSummary");
};

}  // namespace

bool showPasteDialog(PastedLines& lines, QWidget* parent) {
    return PasteDialog(lines, parent).exec() == QDialog::Accepted;
}

}  // namespace bramblet
