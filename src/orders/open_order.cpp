#include "orders/open_order.h"

#include "platform/text.h"

namespace bramblet {

bool OpenOrder::isPending() const {
    return trimmed(order.PONoEd) == kPendingNumber;
}

void OpenOrder::MarkOrderChanged() {
    if (isPending()) return;
    SaveChangesEnabled = true;
    OrderDirty = true;
}

void OpenOrder::markWorthSaving() {
    SaveChangesEnabled = true;
    MarkOrderChanged();
}

void OpenOrder::markSaved() {
    SaveChangesEnabled = false;
    OrderDirty = false;
}

}  // namespace bramblet
