// The order on the screen with its changed flag: what every command that touches the order works
// on, and what the windows watch.
#pragma once

#include "core/document/order.h"

#include <functional>

namespace bramblet {

/// The main window's caption when no command has anything else to say there.
inline constexpr const char* kUsualCaption = "Bramblet";

class OpenOrder {
  public:
    /// Called after every change of the order or of the state below.
    std::function<void()> onChange = [] {};

    Order order;

    /// Whether the order shown differs from what was last saved; never so while it has no number.
    bool OrderDirty = false;
    bool SaveChangesEnabled = false;
    bool Save_POEnabled = false;
    /// Whether the number box takes typing.
    bool numberUnlocked = false;
    /// The number under which the order was opened or last saved, even if that failed; empty when
    /// neither has happened.
    std::string storedNumber;
    /// Whether a save has met a date that cannot be read and that is still there.
    bool dateRefused = false;
    /// The main window's caption.
    std::string caption = kUsualCaption;

    /// Shows a caption until the next command or edit.
    void showCaption(const std::string& wanted);

    bool isPending() const;

    /// What every edit of a field does: marks an order that has a number as changed.
    void MarkOrderChanged();

    /// What picking an address and every change to the lines do: there is now something to save,
    /// even in an order without a number (which still never counts as changed).
    void markWorthSaving();

    /// After a save or a load: nothing to save.
    void markSaved();
};

}  // namespace bramblet
