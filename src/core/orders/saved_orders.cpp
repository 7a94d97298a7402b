#include "core/orders/saved_orders.h"

#include "core/platform/amount_text.h"
#include "core/platform/sorting.h"
#include "core/platform/text.h"

#include <algorithm>

namespace bramblet {
namespace {

/// The amount that a column shows; null for the other columns.
Currency OrderIndexRecord::*amountIn(int column) {
    switch (column) {
        case kOrderTotalColumn:
            return &OrderIndexRecord::OrderTotal;
        case kShippingColumn:
            return &OrderIndexRecord::Shipping;
        case kSalesTaxColumn:
            return &OrderIndexRecord::SalesTax;
        case kNetColumn:
            return &OrderIndexRecord::NetTotal;
        case kDiscountColumn:
            return &OrderIndexRecord::Discount;
        case kSubTotalColumn:
            return &OrderIndexRecord::SubTotal;
        default:
            return nullptr;
    }
}

}  // namespace

SavedOrders::SavedOrders(const OrderIndex& index, const DataFolder& folder,
                         const RegionalFormats& formats, Prompts& prompts)
    : index_(index), folder_(folder), formats_(formats), prompts_(prompts) {}

void SavedOrders::PopPOGrid() {
    // What is shown changes in one go: reading may have to wait, and the windows stay live
    // meanwhile.
    try {
        rows_ = index_.readAll();
        read_ = true;
        collectNumbers();
    } catch (const Fault& fault) {
        read_ = false;
        prompts_.say("The list of saved orders was not read: " + fault.inWords(), Loss::List);
    }
    std::erase_if(rows_, [this](const auto& record) { return !isListed(record); });
    sortColumn_ = kNumberColumn;
    descending_ = true;
    sort();
    onChange();
}

void SavedOrders::ListCheck_Click(bool SavedOrders::*filter, bool checked) {
    const Prompts::Command command(prompts_);
    this->*filter = checked;
    if (folder_.available(prompts_)) PopPOGrid();
}

bool SavedOrders::ViewExisting_Click() {
    const Prompts::Command command(prompts_);
    if (!folder_.available(prompts_)) return false;
    PopPOGrid();
    return true;
}

void SavedOrders::sortByHeading(int column) {
    const bool initialOrder = sortColumn_ == kNumberColumn && descending_;
    descending_ = column == sortColumn_ && !initialOrder && !descending_;
    sortColumn_ = column;
    sort();
    onChange();
}

std::string SavedOrders::cell(int row, int column) const {
    return cellOf(rows_[static_cast<std::size_t>(row)], column);
}

std::string SavedOrders::widest(int column) const {
    const auto amount = amountIn(column);
    if (amount == nullptr || rows_.empty()) return {};
    const auto [least, most] =
        std::minmax_element(rows_.begin(), rows_.end(), [&](const auto& a, const auto& b) {
            return (a.*amount).tenThousandths < (b.*amount).tenThousandths;
        });
    std::string low = cellOf(*least, column);
    std::string high = cellOf(*most, column);
    return low.size() > high.size() ? low : high;
}

int SavedOrders::rowOf(const std::string& orderNumber) const {
    for (int row = 0; row < rowCount(); ++row) {
        if (trimmedField(rows_[static_cast<std::size_t>(row)].Number) == orderNumber) return row;
    }
    return -1;
}

void SavedOrders::collectNumbers() {
    numbers_.clear();
    for (const auto& record : rows_) {
        const bool deleted = trimmedField(record.Status) == kDeletedOrder;
        numbers_.push_back(
            {trimmedField(record.Number), deleted ? NumberUse::TakenByDeleted : NumberUse::Taken});
    }
}

NumberUse SavedOrders::useOf(const std::string& orderNumber) const {
    const auto known =
        std::find_if(numbers_.begin(), numbers_.end(),
                     [&](const KnownNumber& entry) { return entry.number == orderNumber; });
    return known == numbers_.end() ? NumberUse::Free : known->use;
}

std::string SavedOrders::countText() const {
    return listedText(rows_.size(), "orders", read_);
}

bool SavedOrders::isListed(const OrderIndexRecord& record) const {
    const std::string status = trimmedField(record.Status);
    if (status == kDeletedOrder) return false;
    if (status == "A") return ListCheckPO;
    if (status == "R") return ListCheckRE;
    if (status == "a" || status == "r") return ListCheckRecd;
    return true;
}

std::string SavedOrders::cellOf(const OrderIndexRecord& record, int column) const {
    if (const auto amount = amountIn(column)) return currencyText(record.*amount, formats_);
    const auto date = [this](double days) {
        return days == 0 ? std::string() : shortDateText(days, formats_);
    };
    switch (column) {
        case kNumberColumn:
            return trimmedField(record.Number);
        case kJobColumn:
            return trimmedField(record.Job);
        case kDateColumn:
            return date(record.OrderDate);
        case kVendorColumn:
            return trimmedField(record.Vendor);
        case kShipToColumn:
            return trimmedField(record.ShipTo);
        case kShipDateColumn:
            return date(record.ShipDate);
        case kStatusColumn:
            return trimmedField(record.Status);
        default:
            return {};
    }
}

void SavedOrders::sort() {
    if (sortColumn_ == kNumberColumn) {
        sortRows(rows_, descending_, [this](const auto& record) {
            return leadingNumber(cellOf(record, kNumberColumn));
        });
    } else {
        sortRows(rows_, descending_,
                 [this](const auto& record) { return sortKey(cellOf(record, sortColumn_)); });
    }
}

}  // namespace bramblet
