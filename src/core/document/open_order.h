// The order on the screen. It changes only through itself: so it always knows whether there is
// something to save, and the screen always shows what it holds.
#pragma once

#include "core/document/order.h"
#include "core/platform/regional_formats.h"
#include "core/settings/commands.h"

#include <cstddef>
#include <string>

namespace bramblet {

class OpenOrder {
  public:
    /// `taxFreight` tells whether shipping is taxed.
    OpenOrder(Commands& commands, bool taxFreight, const RegionalFormats& formats);

    const Order& order() const { return order_; }
    bool isPending() const;
    /// Whether the order shown differs from what was last saved; never so while it has no number.
    bool OrderDirty() const { return dirty_; }
    /// Whether the order holds work that ending now would lose, with a number or without.
    bool isUnsaved() const { return dirty_ || touched_; }
    /// Whether it is a kept state of an order: what stands under its number is another.
    bool isKeptState() const { return keptState_; }
    bool SaveChangesEnabled() const { return worthSaving_; }
    bool Save_POEnabled() const { return copyable_; }
    /// Whether the number box takes typing.
    bool numberUnlocked() const { return numberUnlocked_; }
    /// The number under which the order was opened or last saved, even if that failed; empty when
    /// neither has happened.
    const std::string& storedNumber() const { return storedNumber_; }
    /// Whether a save has met a date that cannot be read and that is still there.
    bool dateRefused() const { return dateRefused_; }

    /// How the order stands. Two that are equal have nothing between them.
    struct State {
        Order order;
        bool dirty, touched, worthSaving, dateRefused;
        std::size_t showing;
        bool operator==(const State&) const = default;
    };
    State state() const { return {order_, dirty_, touched_, worthSaving_, dateRefused_, showing_}; }
    /// Whether the order is still the one that stood like that.
    bool isStill(const State& state) const { return showing_ == state.showing; }

    // What the user does to a box; marks an order that has a number as changed, if it changes it.
    void set(OrderField field, const std::string& text);
    void set(OrderKind kind);
    void setReceived(bool received);
    void MarkOrderChanged();

    // What picking an address and every change to the lines do: there is now something to save,
    // even in an order without a number (which still never counts as changed).
    void setLines(std::vector<OrderLine> lines);
    void markWorthSaving();

    // What the program does; marks nothing.
    /// Puts a text into a box: trimmed, looked up, or the order's number.
    void fill(OrderField field, const std::string& text);
    /// Shows another order.
    void replace(Order order);
    /// Shows the order as it stood before.
    void bringBack(const State& state);
    void unlockNumber();
    void refuseDates(bool refused);
    /// An attempt to save under the order's present number is under way.
    void markStored();
    /// After a save or a load: nothing to save.
    void markSaved();
    /// After a load of a kept state: it can be saved, though nothing has changed.
    void markKeptState();
    void allowCopies();

    /// Totals the order; a changed total counts as an edit. Returns false after telling the user
    /// why it could not be totalled.
    bool recompute();

  private:
    void markChanged();
    void changed() { commands_.changed(&Views::order); }

    Commands& commands_;
    bool taxFreight_;
    const RegionalFormats& formats_;
    Order order_;
    bool dirty_ = false;
    bool touched_ = false;  ///< its texts or lines by the user, since it is shown or saved
    bool keptState_ = false;
    bool worthSaving_ = false;
    bool copyable_ = false;
    bool numberUnlocked_ = false;
    bool dateRefused_ = false;
    std::size_t showing_ = 0;  ///< how many orders have been shown before
    std::string storedNumber_;
};

}  // namespace bramblet
