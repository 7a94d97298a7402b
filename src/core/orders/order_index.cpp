#include "core/orders/order_index.h"

#include "core/platform/amount_text.h"
#include "core/platform/record_file.h"
#include "core/platform/text.h"

#include <algorithm>
#include <array>

namespace bramblet {
namespace {

using IndexFile = RecordFile<kOrderIndexLayout>;

IndexFile openIndex(const FileSystem& files, const std::filesystem::path& path) {
    return IndexFile(files, path, RecordCount::Rounded, kMostRecords);
}

/// The place of the first record with the order number; the end when there is none.
std::size_t find(const OrderRecords& records, const std::string& number) {
    return records.placeOf([wanted = trimmed(number)](const OrderRow& record) {
        return record.get<&OrderIndexRecord::Number>() == wanted;
    });
}

/// Records of other programs may hold letters in their numbers; they are skipped. Throws Fault.
double numberIn(std::string_view text, const RegionalFormats& formats) {
    if (const auto number = plainNumber(text)) return *number;
    return numberOf(cleanedNumber(text), formats);
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

std::optional<OrderRecords> OrderIndex::RecordData(const Order& order) const {
    if (trimmed(order.PONoEd) == kPendingNumber) return std::nullopt;
    const std::string record = encodeRecord(kOrderIndexLayout, recordOf(order));
    for (;;) {
        IndexFile index = openIndex(files_, path_);
        OrderRecords records = index.readAll();
        const std::size_t place = find(records, order.PONoEd);
        if (index.hasGrown()) continue;  // another desk's order stands where this one would
        index.write(static_cast<int>(place) + 1, record);
        index.flush();
        records.put(place, record);
        return records;
    }
}

double OrderIndex::NextPONumber() const {
    double highest = 0;
    openIndex(files_, path_).forEach([&](const OrderRow& record) {
        try {
            const auto number = record.get<&OrderIndexRecord::Number>();
            highest = std::max(highest, numberIn(number, formats_));
        } catch (const Fault&) {
            return;
        }
    });
    return highest + 1;
}

bool OrderIndex::markDeleted(const std::string& number) const {
    IndexFile index = openIndex(files_, path_);
    const OrderRecords records = index.readAll();
    const std::size_t place = find(records, number);
    if (place == records.size()) return false;
    OrderIndexRecord record = records[place].record();
    record.Status = kDeletedOrder;
    index.write(static_cast<int>(place) + 1, encodeRecord(kOrderIndexLayout, record));
    index.flush();
    return true;
}

OrderRecords OrderIndex::readAll() const {
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
