#include "core/orders/saved_orders.h"

#include "core/platform/amount_text.h"
#include "core/platform/dates.h"
#include "core/platform/text.h"

#include <algorithm>

namespace bramblet {
namespace {

using Record = OrderIndexRecord;
using IndexColumn = Column<OrderRow>;

template <auto Field>
constexpr IndexColumn text(ColumnLook look, const char* exported) {
    IndexColumn column = textColumn<OrderRow, Field>(look);
    column.exported = exported;
    return column;
}

constexpr IndexColumn number(ColumnLook look, const char* exported) {
    IndexColumn column = text<&Record::Number>(look, exported);
    column.number = [](const OrderRow& row) { return leadingNumber(row.get<&Record::Number>()); };
    return column;
}

template <auto Field>
constexpr IndexColumn date(const char* heading, const char* exported) {
    IndexColumn column{{heading, 11}};
    column.text = [](const OrderRow& row, const RegionalFormats& formats) {
        const double day = row.get<Field>();
        return day == 0 ? std::string() : shortDateText(day, formats);
    };
    column.day = [](const OrderRow& row) { return row.get<Field>(); };
    column.exported = exported;
    return column;
}

std::string totalText(Currency total, const RegionalFormats& formats) {
    return currencyText(total, formats);
}

template <auto Field>
constexpr IndexColumn amount(const char* heading, int characters, const char* exported) {
    IndexColumn column = amountColumn<OrderRow, Field>(heading, characters, totalText);
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
    amount<&Record::OrderTotal>("Order Total", 14, "Total"),
    amount<&Record::Shipping>("Shipping", 12, "Shipping"),
    amount<&Record::SalesTax>("Sales Tax", 12, "Tax"),
    amount<&Record::NetTotal>("Net", 14, "Net"),
    amount<&Record::Discount>("Discount", 12, "Discount"),
    amount<&Record::SubTotal>("Sub Total", 14, "List"),
    text<&Record::Status>({"Status", 7, false, Align::Centre}, nullptr),
};

SavedOrders::SavedOrders(Commands& commands, const OrderIndex& index,
                         const RegionalFormats& formats)
    : RecordList(formats), commands_(commands), index_(index) {
    for (const IndexColumn& column : kOrderColumnTable)
        shown_.push_back(&column);
    usual_ = {&kOrderColumnTable[kNumberColumn], true};
    sorting_ = usual_;
}

void SavedOrders::PopPOGrid() {
    // What is shown changes in one go: reading may have to wait, and the windows stay live
    // meanwhile.
    reread(index_.glance(), [&](OrderRecords& records) {
        return commands_.attempt(
            "The list of saved orders was not read: ", [&] { records = index_.readAll(); },
            Loss::List);
    });
    refill();
}

void SavedOrders::lookForNews() {
    if (holdNews(index_.glance(), [this] { return index_.readAtOnce(); })) refill();
}

void SavedOrders::take(OrderRecords records) {
    hold(std::move(records));
    refill();
}

void SavedOrders::refill() {
    list([this](const OrderRow& record) { return isListed(record); });
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

void SavedOrders::find(const std::string& typed) {
    seek(typed);
    commands_.changed(&Views::savedOrders);
}

void SavedOrders::showOnly(const std::string& name, std::function<bool(const OrderRow&)> only) {
    shownOnly_ = name;
    showOnlyThose(std::move(only));
    commands_.changed(&Views::savedOrders);
}

void SavedOrders::showAll() {
    showOnly({}, nullptr);
}

/// Open requisitions, and received orders of both kinds.
Table::Mark SavedOrders::mark(int row) const {
    const std::string status = cell(row, kStatusColumn);
    if (status == "R") return Mark::Requisition;
    return status == "a" || status == "r" ? Mark::Received : Mark::None;
}

std::string SavedOrders::markText(int row) const {
    const std::string status = cell(row, kStatusColumn);
    if (status == "R") return "Requisition";
    if (status == "a") return "Purchase order, received";
    return status == "r" ? "Requisition, received" : "";
}

std::string SavedOrders::sumsText() const {
    std::string sums;
    for (int column = kOrderTotalColumn; column <= kSubTotalColumn; ++column) {
        if (column != kOrderTotalColumn) sums += "\r\n";
        sums += std::string(look(column).heading) + ": " + sumText(column);
    }
    return sums;
}

int SavedOrders::rowOf(const std::string& orderNumber) const {
    const auto row = std::find_if(rows_.begin(), rows_.end(), [&](const OrderRow& record) {
        return record.get<&Record::Number>() == orderNumber;
    });
    return row == rows_.end() ? -1 : static_cast<int>(row - rows_.begin());
}

NumberUse SavedOrders::useOf(const std::string& orderNumber) const {
    for (const OrderRow record : records_) {
        if (record.get<&Record::Number>() != orderNumber) continue;
        const bool deleted = record.get<&Record::Status>() == kDeletedOrder;
        return deleted ? NumberUse::TakenByDeleted : NumberUse::Taken;
    }
    return NumberUse::Free;
}

bool SavedOrders::isListed(const OrderRow& record) const {
    const std::string_view status = record.field<&Record::Status>();
    if (status == kDeletedOrder) return false;
    if (status == "A") return ListCheckPO;
    if (status == "R") return ListCheckRE;
    if (status == "a" || status == "r") return ListCheckRecd;
    return true;
}

}  // namespace bramblet
