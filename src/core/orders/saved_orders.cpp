#include "core/orders/saved_orders.h"

#include "core/platform/amount_text.h"
#include "core/platform/dates.h"
#include "core/platform/text.h"

#include <algorithm>

namespace bramblet {
namespace {

using Record = OrderIndexRecord;
using IndexColumn = Column<Record>;

template <auto Field>
constexpr IndexColumn text(ColumnLook look, const char* exported) {
    IndexColumn column{look};
    column.text = [](const Record& record, const RegionalFormats&) {
        return trimmedField(record.*Field);
    };
    column.exported = exported;
    return column;
}

constexpr IndexColumn number(ColumnLook look, const char* exported) {
    IndexColumn column = text<&Record::Number>(look, exported);
    column.number = [](const Record& record) { return leadingNumber(trimmedField(record.Number)); };
    return column;
}

template <auto Field>
constexpr IndexColumn date(const char* heading, const char* exported) {
    IndexColumn column{{heading, 11}};
    column.text = [](const Record& record, const RegionalFormats& formats) {
        return record.*Field == 0 ? std::string() : shortDateText(record.*Field, formats);
    };
    column.exported = exported;
    return column;
}

constexpr IndexColumn amount(const char* heading, int characters, Currency Record::*field,
                             const char* exported) {
    IndexColumn column{{heading, characters, false, Align::Right}};
    column.amount = field;
    column.amountText = [](Currency value, const RegionalFormats& formats) {
        return currencyText(value, formats);
    };
    column.exported = exported;
    return column;
}

}  // namespace

constexpr std::array<IndexColumn, kSavedOrderColumns> kOrderColumnTable{
    number({"Number", 11}, "Number"),
    text<&Record::Job>({"Job", 13, true}, "Job"),
    date<&Record::OrderDate>("Date", "Order Date"),
    text<&Record::Vendor>({"Vendor", 24, true}, "Vendor"),
    text<&Record::ShipTo>({"Ship To", 24, true}, "Ship To"),
    date<&Record::ShipDate>("Ship Date", "Ship Date"),
    amount("Order Total", 14, &Record::OrderTotal, "Total"),
    amount("Shipping", 12, &Record::Shipping, "Shipping"),
    amount("Sales Tax", 12, &Record::SalesTax, "Tax"),
    amount("Net", 14, &Record::NetTotal, "Net"),
    amount("Discount", 12, &Record::Discount, "Discount"),
    amount("Sub Total", 14, &Record::SubTotal, "List"),
    text<&Record::Status>({"Status", 7, false, Align::Centre}, nullptr),
};

SavedOrders::SavedOrders(Commands& commands, const OrderIndex& index,
                         const RegionalFormats& formats)
    : ListTable(formats), commands_(commands), index_(index) {
    for (const IndexColumn& column : kOrderColumnTable)
        shown_.push_back(&column);
}

void SavedOrders::PopPOGrid() {
    // What is shown changes in one go: reading may have to wait, and the windows stay live
    // meanwhile.
    read_ = commands_.attempt(
        "The list of saved orders was not read: ", [&] { rows_ = index_.readAll(); }, Loss::List);
    if (read_) collectNumbers();
    std::erase_if(rows_, [this](const auto& record) { return !isListed(record); });
    sort(&kOrderColumnTable[kNumberColumn], true);
    commands_.changed(&Views::savedOrders);
}

void SavedOrders::ViewExisting_Click() {
    commands_.onData([&] {
        PopPOGrid();
        commands_.screen().showSavedOrders();
    });
}

void SavedOrders::ListCheck_Click(bool SavedOrders::*filter, bool checked) {
    this->*filter = checked;
    commands_.onData([&] { PopPOGrid(); });
}

void SavedOrders::sortBy(int column) {
    sortByHeading(column);
    commands_.changed(&Views::savedOrders);
}

/// Open requisitions, and received orders of both kinds.
Table::Mark SavedOrders::mark(int row) const {
    const std::string status = cell(row, kStatusColumn);
    if (status == "R") return Mark::Requisition;
    return status == "a" || status == "r" ? Mark::Received : Mark::None;
}

int SavedOrders::rowOf(const std::string& orderNumber) const {
    const auto row = std::find_if(rows_.begin(), rows_.end(), [&](const Record& record) {
        return trimmedField(record.Number) == orderNumber;
    });
    return row == rows_.end() ? -1 : static_cast<int>(row - rows_.begin());
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

}  // namespace bramblet
