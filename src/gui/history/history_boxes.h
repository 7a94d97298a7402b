// The boxes of the free-text fields: they pass what is done in them to the histories, and show what
// the order and the histories hold.
#pragma once

#include "core/history/field_histories.h"
#include "gui/platform/history_box.h"

#include <array>

namespace bramblet {

class HistoryBoxes {
  public:
    HistoryBoxes(FieldHistories& histories, const OpenOrder& open)
        : histories_(histories), open_(open) {}

    /// The box for a field that has a history.
    HistoryBox* make(OrderField field, const QString& accessibleName);

    /// Forgetting an entry of an address box deletes it from the address book.
    void bind(HistoryBox* box, AddressSide side);

    void refresh();

  private:
    struct Bound {
        HistoryBox* box;
        OrderField field;
        FieldHistory::Entries listed;
    };

    FieldHistories& histories_;
    const OpenOrder& open_;
    std::vector<Bound> boxes_;
};

}  // namespace bramblet
