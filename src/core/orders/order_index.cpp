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

/// The texts and the amounts of a record, each with the box it is read from; the label names the
/// box in complaints.
struct Text {
    std::string OrderIndexRecord::*field;
    OrderField box;
};
constexpr std::array kTexts{
    Text{&OrderIndexRecord::Number, &Order::PONoEd},
    Text{&OrderIndexRecord::Job, &Order::JobNumberEd},
    Text{&OrderIndexRecord::Vendor, &Order::ToCombo},
    Text{&OrderIndexRecord::ShipTo, &Order::ShipToCombo},
};
struct Date {
    double OrderIndexRecord::*field;
    OrderField box;
    const char* label;
};
constexpr std::array kDates{
    Date{&OrderIndexRecord::OrderDate, &Order::OrderDateEd, "Order Date"},
    Date{&OrderIndexRecord::ShipDate, &Order::ShipDateEd, "On Site"},
};
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

}  // namespace

OrderIndex::OrderIndex(FileSystem files, std::filesystem::path path, const RegionalFormats& formats,
                       Clock clock)
    : files_(std::move(files)),
      path_(std::move(path)),
      formats_(formats),
      clock_(std::move(clock)) {}

std::optional<OrderRecords> OrderIndex::RecordData(const Order& order) const {
    if (trimmed(order.PONoEd) == kPendingNumber) return std::nullopt;
    OrderIndexRecord entered;
    enter(
        order, [](OrderField) { return true; }, entered);
    const std::string record = encodeRecord(kOrderIndexLayout, entered);
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

std::optional<OrderIndexRecord> OrderIndex::markDeleted(const std::string& number) const {
    IndexFile index = openIndex(files_, path_);
    const OrderRecords records = index.readAll();
    const std::size_t place = find(records, number);
    if (place == records.size()) return std::nullopt;
    OrderIndexRecord record = records[place].record();
    record.Status = kDeletedOrder;
    index.write(static_cast<int>(place) + 1, encodeRecord(kOrderIndexLayout, record));
    index.flush();
    return records[place].record();
}

bool OrderIndex::bringBack(const OrderIndexRecord& deleted) const {
    for (;;) {
        IndexFile index = openIndex(files_, path_);
        const OrderRecords records = index.readAll();
        const std::size_t place = find(records, trimmedField(deleted.Number));
        OrderIndexRecord record = deleted;
        if (place < records.size()) {
            record = records[place].record();
            if (record.Status != kDeletedOrder) return false;
            record.Status = deleted.Status;
        }
        if (index.hasGrown()) continue;  // another desk's order stands where this one would
        index.write(static_cast<int>(place) + 1, encodeRecord(kOrderIndexLayout, record));
        index.flush();
        return true;
    }
}

OrderRecords OrderIndex::readAll() const {
    return openIndex(files_, path_).readAll();
}

OrderRecords OrderIndex::readAtOnce() const {
    return openIndex(files_.withoutRetry(), path_).readAll();
}

std::string OrderIndex::content() const {
    try {
        return files_.read(path_);
    } catch (const FileError& error) {
        if (error.number() != FaultNumber::FileNotFound) throw;
        return {};
    }
}

OrderRecords OrderIndex::recordsIn(std::string content, std::size_t more) {
    const std::size_t count = recordCount(content.size(), OrderRow::kSize, RecordCount::Rounded);
    content.resize(count * OrderRow::kSize, '\0');
    OrderRecords records(count + more);
    for (std::size_t place = 0; place < content.size(); place += OrderRow::kSize)
        records.add(content.data() + place);
    return records;
}

void OrderIndex::replaceAll(const OrderRecords& records) const {
    files_.replace(path_, records.bytes());
}

void OrderIndex::enter(const Order& order, const std::function<bool(OrderField box)>& isTold,
                       OrderIndexRecord& record) const {
    if (isTold(nullptr)) record.Status = statusOf(order);
    for (const auto& [field, box] : kTexts) {
        if (isTold(box)) record.*field = trimmed(order.*box);
    }
    for (const auto& [field, box, label] : kDates) {
        if (isTold(box)) record.*field = dateOf(order.*box, label, record.*field);
    }
    for (const auto& [field, box, label] : kAmounts) {
        if (!isTold(box)) continue;
        const std::string& text = order.*box;
        try {
            record.*field = amountOf(cleanedNumber(text), formats_);
        } catch (const Fault& fault) {
            throw BoxFault(fault.number(), label, text, "is not an amount");
        }
    }
}

void OrderIndex::checkDates(const Order& order) const {
    for (const auto& [field, box, label] : kDates)
        dateOf(order.*box, label, 0);
}

bool OrderIndex::isDate(const std::string& text) const {
    return readDate(text, 0).has_value();
}

/// Returns 0 for a blank text.
std::optional<double> OrderIndex::readDate(const std::string& text, double replaced) const {
    const std::string date = trimmed(text);
    if (date.empty()) return 0;
    const bool hasYear = replaced != 0 && !shortDateText(replaced, formats_).empty();
    return parseDate(date, formats_, hasYear ? static_cast<DayCount>(replaced) : clock_.today());
}

double OrderIndex::dateOf(const std::string& text, const std::string& box, double replaced) const {
    const auto days = readDate(text, replaced);
    if (!days) throw BoxFault(FaultNumber::TypeMismatch, box, trimmed(text), "is not a date");
    return *days;
}

}  // namespace bramblet
