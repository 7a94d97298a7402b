// The boxes of the free-text fields: what happens in one goes to the histories, and what the order
// and the histories hold is shown.
#pragma once

#include "core/history/field_histories.h"
#include "gui/platform/history_box.h"

#include <array>

namespace bramblet {

class HistoryBoxes {
  public:
    HistoryBoxes(FieldHistories& histories, const OpenOrder& open)
        : histories_(histories), open_(open) {}

    /// The box for a field of the histories.
    HistoryBox* make(OrderField field, const QString& accessibleName);

    /// In an address box, forgetting deletes from the address book.
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
