// The boxes of the free-text fields: they pass what is done in them to the histories, and show what
// the order and the histories hold.
#pragma once

#include "core/history/field_histories.h"
#include "gui/platform/boxes.h"
#include "gui/platform/history_box.h"

#include <vector>

namespace bramblet {

class HistoryBoxes {
  public:
    HistoryBoxes(FieldHistories& histories, const OpenOrder& open)
        : histories_(histories), open_(open) {}

    /// The box for a field that has a history.
    HistoryBox* make(OrderField field, const QString& accessibleName, const QString& tip);

    /// Forgetting an entry of an address box deletes it from the address book.
    void bind(HistoryBox* box, AddressSide side);

    void refresh();

  private:
    void fillList(std::size_t place);
    template <class Place>
    void connectTo(HistoryBox* box, Place place);

    FieldHistories& histories_;
    const OpenOrder& open_;
    BoundBoxes texts_;
    struct Listed {
        HistoryBox* box;
        OrderField field;
        FieldHistory::Entries entries;  ///< null until the list is needed for the first time
    };
    std::vector<Listed> lists_;
};

}  // namespace bramblet
