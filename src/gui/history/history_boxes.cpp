#include "gui/history/history_boxes.h"

#include "gui/platform/qt_text.h"

#include <algorithm>

namespace bramblet {

HistoryBox* HistoryBoxes::make(OrderField field, const QString& accessibleName,
                               const QString& tip) {
    const auto facts =
        std::find_if(kHistories.begin(), kHistories.end(),
                     [&](const HistoryFacts& history) { return history.field == field; });
    auto* box = new HistoryBox(facts->box, accessibleName, tip);
    const std::size_t place = lists_.size();
    lists_.push_back({box, field, nullptr});
    for (const auto needed : {&HistoryBox::focused, &HistoryBox::opening})
        QObject::connect(box, needed, box, [this, place] { fillList(place); });
    texts_.bind(
        box, [this, field] { return open_.order().*field; },
        [this, field](const std::string& text) { histories_.Change(field, text); });
    box->offerToForget();
    connectTo(box, field);
    QObject::connect(box, &HistoryBox::opening, box, [this] { histories_.DropDown(); });
    return box;
}

void HistoryBoxes::bind(HistoryBox* box, AddressSide side) {
    box->offerToForget(
        [this, side](const QString& entry) { return histories_.mayDelete(side, fromQt(entry)); });
    connectTo(box, side);
}

/// `place` is what the histories know the box by: its field, or its side of the address book.
template <class Place>
void HistoryBoxes::connectTo(HistoryBox* box, Place place) {
    QObject::connect(box, &HistoryBox::focused, box, [this, place] { histories_.GotFocus(place); });
    QObject::connect(box, &HistoryBox::forget, box, [this, place](const QString& entry) {
        histories_.GotFocus(place);
        histories_.CurrentHistoryText = fromQt(entry);
        histories_.RemoveHistoryEntry();
    });
}

void HistoryBoxes::refresh() {
    for (std::size_t place = 0; place < lists_.size(); ++place) {
        if (lists_[place].entries) fillList(place);
    }
    texts_.refresh();
}

void HistoryBoxes::fillList(std::size_t place) {
    Listed& list = lists_[place];
    if (list.entries == histories_.entries(list.field)) return;
    list.entries = histories_.entries(list.field);
    list.box->setEntries(*list.entries);
}

}  // namespace bramblet
