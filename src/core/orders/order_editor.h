// The commands on the order shown: new, save, save as a copy, clear, open, and what goes with them.
#pragma once

#include "core/orders/order_opening.h"
#include "core/orders/order_saving.h"

#include <filesystem>
#include <string>

namespace bramblet {

class OrderEditor : private OrderWorkplace {
  public:
    explicit OrderEditor(const OrderWorkplace& workplace)
        : OrderWorkplace(workplace), opening_(workplace), saving_(workplace) {}

    void SaveChanges_Click();
    void NewPO_Click();
    void Save_PO_Click();
    void Clear_Click();
    /// "make 10 copies"
    void make10_Click();
    /// Unlocks the number box after a question.
    void unlockNumber();
    void TotalUp_Click();
    /// A click on a row of the saved orders: offers to save this order, then opens that one.
    void POGrid_Click(const std::string& orderNumber);
    /// Offers to save this order, then opens a state of an order that has been kept
    /// (order_documents.h).
    void openKeptOrder();
    /// "Delete Order" of the saved orders' pop-up menu.
    void POPop_delete_Click(const std::string& orderNumber);

    /// The user has typed into a box.
    void edit(OrderField field, const std::string& text);
    void chooseKind(OrderKind kind);
    void MarkReceivedCheck_Click(bool received);
    /// A day of the calendar was clicked: its date goes into the box in the short form.
    void MonthView1_DateClick(OrderField box, DayCount day);
    /// The day the calendar opens at for a box: the box's own date, or today.
    DayCount calendarStart(OrderField box) const;
    /// Whether a date box holds a date or is blank.
    bool isDate(OrderField box) const { return index_.isDate(open_.order().*box); }

    /// Empties the order as the clear command does, but without marking it as changed.
    void clearOrder() { opening_.clearOrder(); }

    /// Asks whether to save a changed order, and does so; the question calls its number the "Order"
    /// or "Bramblet" number, as `named` says.
    enum class Offer { GoOn, Cancelled, NotSaved };
    Offer offerToSave(const std::string& named, const std::string& title);

    /// Picks the names typed into the name boxes; done before the order is shown or saved.
    void pickTypedNames() { addresses_.pickTypedNames(); }
    /// Keeps what is unsaved of the order shown, without asking. Throws FileError.
    void keepUnsaved(const KeptOrders& kept) const;
    /// Writes the document of the order shown. Throws Fault.
    void MakeSnap(const std::filesystem::path& path) { saving_.MakeSnap(path); }

  private:
    using Histories = OrderSaving::Histories;

    bool confirm(const std::string& question);
    void relistUnless(bool saved);
    void tellOfNumber();
    std::string doubtAboutNumber() const;
    void markReceived(bool received);
    bool unclear(const OpenOrder::State& before, const AddressBook::Standing& addresses,
                 const OpenOrder::State& after);
    bool bringBackOrder(const OrderIndexRecord& deleted);

    OrderOpening opening_;
    OrderSaving saving_;
    bool numberDoubted_ = false;  ///< whether the status line warns against the number typed
};

}  // namespace bramblet
