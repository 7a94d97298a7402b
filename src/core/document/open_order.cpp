#include "core/document/open_order.h"

#include "core/platform/text.h"

namespace bramblet {

void OpenOrder::showCaption(const std::string& wanted) {
    if (caption == wanted) return;
    caption = wanted;
    onChange();
}

bool OpenOrder::isPending() const {
    return trimmed(order.PONoEd) == kPendingNumber;
}

void OpenOrder::MarkOrderChanged() {
    caption = kUsualCaption;
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
    storedNumber = isPending() ? std::string() : trimmed(order.PONoEd);
}

}  // namespace bramblet
