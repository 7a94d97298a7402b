#include "core/stock/stock_file.h"

#include "core/platform/amount_text.h"
#include "core/platform/record_file.h"
#include "core/platform/text.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace bramblet {
namespace {

using File = RecordFile<StockItemRecord, kStockItemLayout>;

}  // namespace

int recordNumberOf(double tag) {
    const bool inRange = tag >= 1 && tag < std::numeric_limits<int>::max();  // false for a NaN
    return inRange ? static_cast<int>(std::nearbyint(tag)) : 0;
}

StockFile::StockFile(FileSystem files, std::filesystem::path path, const RegionalFormats& formats)
    : files_(std::move(files)), path_(std::move(path)), formats_(formats) {}

std::vector<StockItemRecord> StockFile::readAll() {
    std::vector<StockItemRecord> records = File(files_, path_).readAll();
    if (!records.empty()) buffer_ = records.back();
    return records;
}

double StockFile::GetNextTag() {
    double highest = 0;
    for (const auto& record : readAll())
        highest = std::max(highest, record.Tag);
    return highest + 1;
}

void StockFile::SaveNewStockItem(const StockItemBoxes& boxes) {
    const double tag = GetNextTag();
    fill(boxes, cleanedNumber(boxes.StockUnitCostEd));
    buffer_.Tag = tag;
    File file(files_, path_);
    file.append(buffer_);
    file.flush();
}

std::optional<StockItemRecord> StockFile::SaveChangedStockItem(double tag,
                                                               const StockItemBoxes& boxes) {
    File file(files_, path_);
    const std::vector<StockItemRecord> records = file.readAll();
    const auto match = std::find_if(records.begin(), records.end(),
                                    [tag](const auto& record) { return record.Tag == tag; });
    if (match == records.end()) return std::nullopt;
    buffer_ = *match;
    fill(boxes, trimmed(boxes.StockUnitCostEd));
    file.write(static_cast<int>(match - records.begin()) + 1, buffer_);
    file.flush();
    return *match;
}

StockItemRecord StockFile::markDeleted(int recordNumber) {
    return rewrite(recordNumber, [](StockItemRecord& record) { record.Status = kDeletedItem; });
}

StockItemRecord StockFile::setOnHand(int recordNumber, Currency quantity) {
    return rewrite(recordNumber, [quantity](StockItemRecord& record) { record.OnHand = quantity; });
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
    StockItemRecord before = file.read(recordNumber);
    buffer_ = before;
    change(buffer_);
    file.write(recordNumber, buffer_);
    file.flush();
    return before;
}

}  // namespace bramblet
