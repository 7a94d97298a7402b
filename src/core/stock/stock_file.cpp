#include "core/stock/stock_file.h"

#include "core/platform/amount_text.h"
#include "core/platform/record_file.h"
#include "core/platform/text.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace bramblet {
namespace {

using File = RecordFile<kStockItemLayout>;

/// Whether an item is not the vendor's; nothing is, if `vendor` is empty.
bool isOfAnother(const StockRow& item, const std::string& vendor) {
    if (vendor.empty()) return false;
    const std::string_view field = item.field<&StockItemRecord::Vendor>();
    const bool indented = withoutBlanks(field.substr(0, 1)).empty();
    if (!indented && !field.starts_with(vendor)) return true;  // so for most, at a glance
    return withoutBlanks(field) != vendor;
}

}  // namespace

int recordNumberOf(double tag) {
    const bool inRange = tag >= 1 && tag < std::numeric_limits<int>::max();  // false for a NaN
    return inRange ? static_cast<int>(std::nearbyint(tag)) : 0;
}

bool isSameItem(const StockItemRecord& a, const StockItemRecord& b) {
    const auto agrees = [&](std::string StockItemRecord::*field) {
        return trimmedField(a.*field) == trimmedField(b.*field);
    };
    return a.Tag == b.Tag && agrees(&StockItemRecord::Description) &&
           agrees(&StockItemRecord::Vendor);
}

StockFile::StockFile(FileSystem files, std::filesystem::path path, const RegionalFormats& formats)
    : files_(std::move(files)), path_(std::move(path)), formats_(formats) {}

StockRecords StockFile::readAll() {
    StockRecords records = File(files_, path_).readAll();
    if (!records.empty()) buffer_ = records.back().record();
    return records;
}

StockRecords StockFile::readItems(const FileSystem& files, const std::string& vendor) {
    const File file(files, path_);
    StockRecords records = file.readThose([&](const StockRow& item) {
        return item.field<&StockItemRecord::Status>() != kDeletedItem && !isOfAnother(item, vendor);
    });
    if (file.count() > 0) buffer_ = decodeRecord(kStockItemLayout, file.read(file.count()));
    return records;
}

double StockFile::GetNextTag() {
    double highest = 0;
    for (const StockRow record : readAll())
        highest = std::max(highest, record.get<&StockItemRecord::Tag>());
    return highest + 1;
}

StockItemRecord StockFile::SaveNewStockItem(const StockItemBoxes& boxes) {
    const double tag = GetNextTag();
    fill(boxes, cleanedNumber(boxes.StockUnitCostEd));
    buffer_.Tag = tag;
    File file(files_, path_);
    file.append(encodeRecord(kStockItemLayout, buffer_));
    file.flush();
    return buffer_;
}

std::optional<StockItemRecord> StockFile::SaveChangedStockItem(double tag,
                                                               const StockItemBoxes& boxes) {
    File file(files_, path_);
    const StockRecords records = file.readAll();
    const std::size_t place = records.placeOf(
        [tag](const StockRow& item) { return item.get<&StockItemRecord::Tag>() == tag; });
    if (place == records.size()) return std::nullopt;
    buffer_ = records[place].record();
    fill(boxes, trimmed(boxes.StockUnitCostEd));
    file.write(static_cast<int>(place) + 1, encodeRecord(kStockItemLayout, buffer_));
    file.flush();
    return records[place].record();
}

StockItemRecord StockFile::markDeleted(int recordNumber) {
    return rewrite(recordNumber, [](StockItemRecord& record) { record.Status = kDeletedItem; });
}

StockItemRecord StockFile::setOnHand(int recordNumber, Currency quantity) {
    return rewrite(recordNumber, [quantity](StockItemRecord& record) { record.OnHand = quantity; });
}

double StockFile::bringBack(int recordNumber, const StockItemRecord& item) {
    if (revive(recordNumber, item)) return item.Tag;
    const double tag = GetNextTag();
    buffer_ = item;
    buffer_.Tag = tag;
    File file(files_, path_);
    file.append(encodeRecord(kStockItemLayout, buffer_));
    file.flush();
    return tag;
}

/// Makes an item live where it was; false if that place is not its own any more.
bool StockFile::revive(int recordNumber, const StockItemRecord& item) {
    File file(files_, path_);
    if (recordNumber > file.count()) return false;
    StockItemRecord there = decodeRecord(kStockItemLayout, file.read(recordNumber));
    if (!isSameItem(there, item)) return false;
    if (there.Status != kDeletedItem) return true;  // another desk has done so
    there.Status = item.Status;
    file.write(recordNumber, encodeRecord(kStockItemLayout, there));
    file.flush();
    return true;
}

void StockFile::fill(const StockItemBoxes& boxes, const std::string& unitCost) {
    try {
        buffer_.UnitCost = amountOf(unitCost, formats_);
    } catch (const Fault& fault) {
        throw BoxFault(fault.number(), "Unit Cost", unitCost, "is not an amount");
    }
    buffer_.Category = trimmed(boxes.StockCatCombo);
    buffer_.Description = trimmed(boxes.StockDescriptionEd);
    buffer_.Status = kLiveItem;
    buffer_.Unit = trimmed(boxes.StockUnitCombo);
    buffer_.Vendor = trimmed(boxes.StockVendorCombo);
}

template <class Change>
StockItemRecord StockFile::rewrite(int recordNumber, Change change) {
    File file(files_, path_);
    const StockItemRecord before = decodeRecord(kStockItemLayout, file.read(recordNumber));
    buffer_ = before;
    change(buffer_);
    file.write(recordNumber, encodeRecord(kStockItemLayout, buffer_));
    file.flush();
    return before;
}

}  // namespace bramblet
