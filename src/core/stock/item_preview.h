// Stock items that are about to be imported from a table, as they are shown before.
#pragma once

#include "core/platform/list_table.h"
#include "core/platform/text.h"
#include "core/stock/stock_file.h"

#include <functional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

namespace bramblet {

/// What identifies an item: description and vendor, ignoring case. One that is used again and again
/// needs no new memory.
class ItemKey {
  public:
    ItemKey& of(std::string_view description, std::string_view vendor) {
        text_ = description;
        text_ += '\0';
        text_ += vendor;
        makeUpper(text_);
        return *this;
    }
    ItemKey& of(const StockRow& item) {
        return of(item.get<&StockItemRecord::Description>(), item.get<&StockItemRecord::Vendor>());
    }
    std::size_t hash() const { return std::hash<std::string>()(text_); }
    bool operator==(const ItemKey& other) const = default;

    struct Hash {
        std::size_t operator()(const ItemKey& key) const { return key.hash(); }
    };

  private:
    std::string text_;
};
using KnownItems = std::unordered_set<ItemKey, ItemKey::Hash>;

/// An item of a table, and which of its fields besides description and vendor the table has.
struct TableItem {
    StockItemRecord record;
    bool hasCategory = false, hasUnit = false, hasUnitCost = false;
};

struct PreviewedItem {
    TableItem item;
    std::string remark;
};

class ItemPreview : public Preview<PreviewedItem> {
  public:
    explicit ItemPreview(const RegionalFormats& formats);
};

}  // namespace bramblet
