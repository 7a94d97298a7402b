// Storing the order shown: the numbers it can be given, its entry in the list and its document.
#pragma once

#include "core/orders/kept_orders.h"
#include "core/orders/order_workplace.h"

#include <filesystem>
#include <optional>
#include <string>

namespace bramblet {

class OrderSaving : private OrderWorkplace {
  public:
    explicit OrderSaving(const OrderWorkplace& workplace) : OrderWorkplace(workplace) {}

    /// Whether both date boxes hold a date or are blank.
    bool datesAreReadable() const;

    // Each of these returns nothing or false after telling the user what went wrong.
    bool checkDates();
    std::optional<std::string> nextNumber();
    /// Whether what the boxes hold is remembered for the next orders.
    enum class Histories { Remember, LeaveAlone };
    /// Under its own number.
    bool write(Histories histories);
    /// Under another number, which it keeps unless it cannot be totalled.
    bool saveAs(const std::string& number, Histories histories);

    /// Keeps the order without asking. Throws FileError.
    void keepUnsaved(const KeptOrders& kept) const;
    /// Writes its document. Throws Fault.
    void MakeSnap(const std::filesystem::path& path);

  private:
    bool writeFiles(const std::filesystem::path& path, Histories histories);
    std::string unsavedDocument() const;
};

}  // namespace bramblet
