#include "core/orders/order_index.h"

#include "core/platform/amount_text.h"
#include "core/platform/record_file.h"
#include "core/platform/text.h"

namespace bramblet {
namespace {

using IndexFile = RecordFile<OrderIndexRecord, kOrderIndexLayout>;

IndexFile openIndex(const FileSystem& files, const std::filesystem::path& path) {
    return IndexFile(files, path, RecordCount::Rounded, kMostRecords);
}

/// The number of the first record with the order number; 0 when there is none.
int find(const std::vector<OrderIndexRecord>& records, const std::string& number) {
    const std::string wanted = trimmed(number);
    for (std::size_t i = 0; i < records.size(); ++i) {
        if (trimmedField(records[i].Number) == wanted) return static_cast<int>(i) + 1;
    }
    return 0;
}

/// The amounts of a record, each with the box it is read from and that box's label.
struct Amount {
    Currency OrderIndexRecord::*field;
    OrderField box;
    const char* label;
};
constexpr std::array kAmounts{
    Amount{&OrderIndexRecord::OrderTotal, &Order::OrderTotalEd, "Total"},
    Amount{&OrderIndexRecord::Shipping, &Order::ShippingEd, "Shipping"},
    Amount{&OrderIndexRecord::SalesTax, &Order::SalesTaxEd, "Sales Tax"},
    Amount{&OrderIndexRecord::NetTotal, &Order::NetTotalEd, "Total (Net)"},
    Amount{&OrderIndexRecord::Discount, &Order::DiscountEd, "Discount"},
    Amount{&OrderIndexRecord::SubTotal, &Order::SubTotalEd, "Sub Total"},
};

constexpr const char* kOrderDateLabel = "Order Date";
constexpr const char* kShipDateLabel = "On Site";

}  // namespace

OrderIndex::OrderIndex(FileSystem files, std::filesystem::path path, const RegionalFormats& formats,
                       Clock clock)
    : files_(std::move(files)),
      path_(std::move(path)),
      formats_(formats),
      clock_(std::move(clock)) {}

void OrderIndex::RecordData(const Order& order) const {
    if (trimmed(order.PONoEd) == kPendingNumber) return;
    const OrderIndexRecord record = recordOf(order);
    IndexFile index = openIndex(files_, path_);
    const int found = find(index.readAll(), order.PONoEd);
    index.write(found != 0 ? found : index.count() + 1, record);
    index.flush();
}

double OrderIndex::NextPONumber() const {
    double highest = 0;
    for (const auto& record : readAll()) {
        try {
            highest = std::max(highest, numberOf(cleanedNumber(record.Number), formats_));
        } catch (const Fault&) {
            continue;
        }
    }
    return highest + 1;
}

bool OrderIndex::markDeleted(const std::string& number) const {
    IndexFile index = openIndex(files_, path_);
    std::vector<OrderIndexRecord> records = index.readAll();
    const int found = find(records, number);
    if (found == 0) return false;
    OrderIndexRecord& record = records[static_cast<std::size_t>(found) - 1];
    record.Status = kDeletedOrder;
    index.write(found, record);
    index.flush();
    return true;
}

std::vector<OrderIndexRecord> OrderIndex::readAll() const {
    return openIndex(files_, path_).readAll();
}

OrderIndexRecord OrderIndex::recordOf(const Order& order) const {
    OrderIndexRecord record;
    record.Status = statusOf(order);
    record.Number = trimmed(order.PONoEd);
    record.Job = trimmed(order.JobNumberEd);
    record.OrderDate = dateOf(order.OrderDateEd, kOrderDateLabel);
    record.Vendor = trimmed(order.ToCombo);
    record.ShipTo = trimmed(order.ShipToCombo);
    record.ShipDate = dateOf(order.ShipDateEd, kShipDateLabel);
    for (const auto& amount : kAmounts) {
        const std::string& text = order.*amount.box;
        try {
            record.*amount.field = amountOf(cleanedNumber(text), formats_);
        } catch (const Fault& fault) {
            throw BoxFault(fault.number(), amount.label, text, "is not an amount");
        }
    }
    return record;
}

void OrderIndex::checkDates(const Order& order) const {
    dateOf(order.OrderDateEd, kOrderDateLabel);
    dateOf(order.ShipDateEd, kShipDateLabel);
}

bool OrderIndex::isDate(const std::string& text) const {
    return readDate(text).has_value();
}

/// Returns 0 for a blank text.
std::optional<double> OrderIndex::readDate(const std::string& text) const {
    const std::string date = trimmed(text);
    if (date.empty()) return 0;
    return parseDate(date, formats_, clock_.today());
}

double OrderIndex::dateOf(const std::string& text, const std::string& box) const {
    const auto days = readDate(text);
    if (!days) throw BoxFault(FaultNumber::TypeMismatch, box, trimmed(text), "is not a date");
    return *days;
}

}  // namespace bramblet
