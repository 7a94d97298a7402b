#include "gui/history/history_boxes.h"

#include "gui/platform/qt_text.h"

#include <QLineEdit>

#include <algorithm>

namespace bramblet {

HistoryBox* HistoryBoxes::make(OrderField field, const QString& accessibleName) {
    const auto facts =
        std::find_if(kHistories.begin(), kHistories.end(),
                     [&](const HistoryFacts& history) { return history.field == field; });
    auto* box = new HistoryBox(facts->box, accessibleName);
    boxes_.push_back({box, field, nullptr});
    QObject::connect(
        box->lineEdit(), &QLineEdit::textEdited, box,
        [this, field](const QString& text) { histories_.Change(field, fromQt(text)); });
    QObject::connect(box, &QComboBox::textActivated, box,
                     [this, field](const QString& text) { histories_.Click(field, fromQt(text)); });
    box->onFocus = [this, field] { histories_.GotFocus(field); };
    box->onDropDown = [this] { histories_.DropDown(); };
    box->setForget([this, field](const QString& entry) {
        histories_.GotFocus(field);
        histories_.CurrentHistoryText = fromQt(entry);
        histories_.RemoveHistoryEntry();
    });
    return box;
}

void HistoryBoxes::bind(HistoryBox* box, AddressSide side) {
    box->onFocus = [this, side] { histories_.GotFocus(side); };
    const auto forget = [this, side](const QString& entry) {
        histories_.GotFocus(side);
        histories_.CurrentHistoryText = fromQt(entry);
        histories_.RemoveHistoryEntry();
    };
    box->setForget(forget, [this, side](const QString& entry) {
        return histories_.mayDelete(side, fromQt(entry));
    });
}

void HistoryBoxes::refresh() {
    for (auto& bound : boxes_) {
        if (bound.listed != histories_.entries(bound.field)) {
            bound.listed = histories_.entries(bound.field);
            bound.box->setEntries(*bound.listed);
        }
        bound.box->showText(open_.order.*bound.field);
    }
}

}  // namespace bramblet
