// What was last paid for goods. The orders' documents tell it: they are read one at a time, the
// newest first, once somebody asks, and what they tell is kept in memory only.
#pragma once

#include "core/document/order.h"
#include "core/orders/saved_orders.h"
#include "core/platform/file_system.h"
#include "core/platform/regional_formats.h"
#include "core/platform/screen.h"
#include "core/settings/data_folder.h"
#include "core/stock/stock_list.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace bramblet {

/// What a price is wanted for.
struct Goods {
    std::string fileNumber;  ///< of the stock item; empty for anything else
    std::string description;
    std::string unit;
    std::string order = {};   ///< the order being written, whose own prices are no news
    std::string vendor = {};  ///< whom it needs no words to name
};

/// The goods in the line dialog, which has been opened with `before`. They are no longer the stock
/// item once they are called something else.
Goods goodsOf(const LineEntry& typed, const LineEntry& before, const std::string& order);
/// The goods in the editor of stock items.
Goods goodsOf(const StockList& stock);

/// A price in a purchase order, open or received.
struct PaidPrice {
    std::string cost;
    std::string unit;   ///< what it is the price of, if that is another unit than the goods have
    std::string words;  ///< for example "12.50 per box, Acme Steel, 3/4/2026"
    std::string order;  ///< its number
};

class LastPaid {
  public:
    LastPaid(const FileSystem& files, const DataFolder& folder, const SavedOrders& orders,
             const RegionalFormats& formats);

    /// The last prices known so far, newest first, and only a few of them. Goods are the same if
    /// they have the same file number, or the same description whatever its case and blanks.
    std::vector<PaidPrice> of(const Goods& goods) const;

    /// Whether there may be documents that have not been read, or that have been saved since.
    bool hasMore() const;
    /// Looks at one more document, and reads it if it is new; whether that told anything. Neither
    /// waits nor complains. When the files cannot be reached it stops, until the list of orders
    /// has been read anew.
    bool readNext();

    /// Takes the prices of an order that has just been saved and listed, without its document.
    void saved(const Order& order);

  private:
    /// What is known of the document of the order at the same place in the list.
    struct Known {
        std::string number;
        std::optional<os::FileStatus> state;  ///< of the document when it was read
        std::uint32_t reading = 0;            ///< what was read before that no longer holds
    };
    struct Paid {
        std::uint32_t place;  ///< of the order in the list
        std::uint32_t reading;
        std::size_t description;  ///< its key
        const std::string* unit;
        double cost;
    };
    enum class Look { Nothing, New, Refused, Unreachable };

    Look lookAt(std::size_t place);
    void enter(std::size_t place, const std::vector<OrderLine>& lines);
    void enter(std::size_t key, const Paid& paid);
    bool holds(const Paid& paid) const;
    bool isNewer(const Paid& a, const Paid& b) const;
    const OrderRow& recordOf(const Paid& paid) const;
    PaidPrice priceOf(const Paid& paid, const Goods& goods, bool renamed) const;

    FileSystem files_;
    const DataFolder& folder_;
    const SavedOrders& orders_;
    const RegionalFormats& formats_;
    std::unordered_map<std::size_t, std::vector<Paid>> paid_;
    std::vector<Known> known_;
    std::set<std::string> units_;
    std::uint32_t readings_ = 0;
    bool begun_ = false;
    std::optional<os::FileStatus> list_;  ///< as it was when the documents were last gone through
    std::size_t next_ = 0;                ///< how many are left of that
    int refused_ = 0;                     ///< documents one after the other
};

}  // namespace bramblet
