// Showing another order: an empty one, or the one that a document holds.
#pragma once

#include "core/orders/order_workplace.h"

#include <filesystem>
#include <string>

namespace bramblet {

class OrderOpening : private OrderWorkplace {
  public:
    explicit OrderOpening(const OrderWorkplace& workplace) : OrderWorkplace(workplace) {}

    /// Empties the order as the clear command does, but without marking it as changed.
    void clearOrder();
    /// An empty order of the number and kind shown.
    Order clearedOrder() const;

    // After telling the user what went wrong, these leave the order as it is.
    void LoadOrder(const std::string& orderNumber);
    /// Shows a state of an order that has been kept (order_documents.h).
    void loadKept(const std::filesystem::path& path);

  private:
    void show(const std::string& document, const std::string& name);
};

}  // namespace bramblet
