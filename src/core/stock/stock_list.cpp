#include "core/stock/stock_list.h"

#include "core/platform/amount_text.h"
#include "core/platform/sorting.h"
#include "core/platform/text.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <unordered_set>

namespace bramblet {
namespace {

/// The distinct values met, in the order in which they were met.
class Distinct {
  public:
    explicit Distinct(std::vector<std::string>& values) : values_(values) { values_.clear(); }

    void add(const std::string& value) {
        if (known_.insert(value).second) values_.push_back(value);
    }

  private:
    std::vector<std::string>& values_;
    std::unordered_set<std::string> known_;
};

bool isNumeric(StockColumn column) {
    return column == StockColumn::UnitCost || column == StockColumn::OnHand ||
           column == StockColumn::FileNumber;
}

}  // namespace

StockList::StockList(FileSystem files, const DataFolder& folder, const Settings& settings,
                     const OpenOrder& open, const RegionalFormats& formats, Prompts& prompts)
    : folder_(folder),
      settings_(settings),
      open_(open),
      formats_(formats),
      prompts_(prompts),
      file_(std::move(files), folder.file("po_stock.dat"), formats) {}

void StockList::VendorItemsCheck_Click(bool checked) {
    const Prompts::Command command(prompts_);
    VendorItemsCheck = checked;
    if (folder_.available(prompts_)) PopStockList();
}

void StockList::PopStockList() {
    // What is shown changes in one go: reading may have to wait, and the windows stay live
    // meanwhile.
    const std::vector<StockItemRecord> listed = records();
    columns_ = {StockColumn::Category, StockColumn::Vendor, StockColumn::Unit,
                StockColumn::Description, StockColumn::UnitCost};
    if (isOn(settings_.UseQuantities)) columns_.push_back(StockColumn::OnHand);
    columns_.push_back(StockColumn::FileNumber);
    list(listed);
    onListChange();
}

/// The records of the catalogue in file order; those now listed when it cannot be read.
std::vector<StockItemRecord> StockList::records() {
    if (!folder_.DataPathOK()) return {};
    try {
        auto records = file_.readAll();
        read_ = true;
        sortColumn_.reset();
        return records;
    } catch (const Fault& fault) {
        read_ = false;
        prompts_.say("The list of stock items was not read: " + fault.inWords(), Loss::List);
        return rows_;
    }
}

std::string StockList::cell(int row, StockColumn column) const {
    return textIn(rows_[static_cast<std::size_t>(row)], column);
}

std::string StockList::widest(StockColumn column) const {
    const bool onHand = column == StockColumn::OnHand;
    if (!onHand && column != StockColumn::UnitCost) return {};
    const auto field = onHand ? &StockItemRecord::OnHand : &StockItemRecord::UnitCost;
    const std::int64_t lastShown = onHand ? 10000 : 100;  // of the decimals always shown
    std::int64_t most = 0;
    bool moreDecimals = false;
    for (const auto& record : rows_) {
        const std::int64_t amount = (record.*field).tenThousandths;
        most = std::max(most, amount);
        moreDecimals = moreDecimals || amount % lastShown != 0;
    }
    constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max() - 9999;
    if (moreDecimals) most = std::min(most, kMost) / 10000 * 10000 + 9999;
    StockItemRecord widest;
    widest.*field = Currency{most};
    return textIn(widest, column);
}

int StockList::rowOf(const std::string& fileNumber) const {
    const double tag = leadingNumber(fileNumber);
    const auto row = std::find_if(rows_.begin(), rows_.end(),
                                  [tag](const auto& record) { return record.Tag == tag; });
    return row == rows_.end() ? -1 : static_cast<int>(row - rows_.begin());
}

std::string StockList::countText() const {
    return listedText(rows_.size(), "stock items", read_);
}

void StockList::sortByHeading(StockColumn column) {
    descending_ = sortColumn_ == column && !descending_;
    sortColumn_ = column;
    if (isNumeric(column)) {
        sortRows(rows_, descending_, [&](const auto& record) { return numberIn(record, column); });
    } else {
        sortRows(rows_, descending_,
                 [&](const auto& record) { return sortKey(textIn(record, column)); });
    }
    onListChange();
}

void StockList::StockGrid_Click(int row) {
    if (row < 0 || row >= rowCount()) return;
    boxes.StockCatCombo = cell(row, StockColumn::Category);
    boxes.StockVendorCombo = cell(row, StockColumn::Vendor);
    boxes.StockUnitCombo = cell(row, StockColumn::Unit);
    boxes.StockDescriptionEd = cell(row, StockColumn::Description);
    boxes.StockUnitCostEd = cell(row, StockColumn::UnitCost);
    fileOrderTag_ = cell(row, StockColumn::FileNumber);
    picked_ = item(row);
    onPick();
}

void StockList::SaveNewStockItem_Click() {
    const Prompts::Command command(prompts_);
    if (!folder_.available(prompts_)) return;
    change("The new item was not saved: ", [&] { file_.SaveNewStockItem(boxes); });
}

void StockList::SaveChangedStockItem_Click() {
    const Prompts::Command command(prompts_);
    if (!folder_.available(prompts_)) return;
    change("The item was not saved: ", [&] {
        const auto before = file_.SaveChangedStockItem(leadingNumber(fileOrderTag_), boxes);
        if (!before) {
            prompts_.say("No item of the catalogue has the number " + fileOrderTag_ +
                         "; nothing was changed");
            return;
        }
        tellIfNotPicked(*before, "it has been replaced by the item shown");
        picked_.Description = boxes.StockDescriptionEd;
        picked_.Vendor = boxes.StockVendorCombo;
    });
}

void StockList::DeleteStockItem_Click() {
    const Prompts::Command command(prompts_);
    if (!folder_.available(prompts_)) return;
    const Message question{"Delete stock item: \r\n\r\n" + pickedInWords(), "Confirm",
                           Buttons::YesNo, Icon::Question, Answer::No};
    if (prompts_.ask(question) != Answer::Yes) return;
    change("The item was not deleted: ", [&] {
        tellIfNotPicked(file_.markDeleted(pickedRecord()),
                        "that one has been deleted, not the item shown");
    });
}

void StockList::ItemsPopOnHand_Click(int row) {
    const Prompts::Command command(prompts_);
    if (!folder_.available(prompts_)) return;
    const bool shown = row >= 0 && row < rowCount() && isOn(settings_.UseQuantities);
    const auto answer = prompts_.input("Specify quantity on hand:\r\n\r\n" + pickedInWords(),
                                       "On Hand", shown ? cell(row, StockColumn::OnHand) : "");
    if (!answer || answer->empty()) return;
    change("The quantity was not stored: ", [&] {
        const Currency quantity = amountOf(cleanedNumber(*answer), formats_);
        const StockItemRecord before = file_.setOnHand(pickedRecord(), quantity);
        tellIfNotPicked(before, "its quantity has been changed from " +
                                    textIn(before, StockColumn::OnHand) +
                                    ", not that of the item shown");
    });
}

void StockList::list(const std::vector<StockItemRecord>& records) {
    const std::string vendor = VendorItemsCheck ? trimmed(open_.order.ToCombo) : std::string();
    Distinct categories(entries_.categories);
    Distinct vendors(entries_.vendors);
    Distinct units(entries_.units);
    rows_.clear();
    for (const auto& record : records) {
        if (record.Status == kDeletedItem) continue;
        const std::string itemVendor = trimmedField(record.Vendor);
        if (!vendor.empty() && itemVendor != vendor) continue;
        categories.add(trimmedField(record.Category));
        vendors.add(itemVendor);
        units.add(trimmedField(record.Unit));
        rows_.push_back(record);
    }
}

double StockList::numberIn(const StockItemRecord& record, StockColumn column) const {
    if (column == StockColumn::FileNumber) return std::isnan(record.Tag) ? 0 : record.Tag;
    return toDouble(column == StockColumn::OnHand ? record.OnHand : record.UnitCost);
}

std::string StockList::textIn(const StockItemRecord& record, StockColumn column) const {
    switch (column) {
        case StockColumn::Category:
            return trimmedField(record.Category);
        case StockColumn::Vendor:
            return trimmedField(record.Vendor);
        case StockColumn::Unit:
            return trimmedField(record.Unit);
        case StockColumn::Description:
            return trimmedField(record.Description);
        case StockColumn::UnitCost:
            return exactText(record.UnitCost, formats_);
        case StockColumn::OnHand:
            return generalText(toDouble(record.OnHand), formats_);
        case StockColumn::FileNumber:
            return tagText(record.Tag);
    }
    return {};
}

int StockList::pickedRecord() const {
    return recordNumberOf(leadingNumber(fileOrderTag_));
}

std::string StockList::pickedInWords() const {
    return trimmed(boxes.StockCatCombo) + "\r\n" + trimmed(boxes.StockVendorCombo) + "\r\n" +
           trimmed(boxes.StockDescriptionEd);
}

void StockList::tellIfNotPicked(const StockItemRecord& record, const std::string& done) {
    const auto differs = [&](std::string StockItemRecord::*field) {
        return trimmedField(record.*field) != trimmedField(picked_.*field);
    };
    const bool isPicked = record.Tag == leadingNumber(fileOrderTag_) &&
                          !differs(&StockItemRecord::Description) &&
                          !differs(&StockItemRecord::Vendor);
    if (isPicked) return;
    prompts_.say("Number " + fileOrderTag_ + " in the file of the catalogue is \"" +
                 trimmedField(record.Description) + "\" of \"" + trimmedField(record.Vendor) +
                 "\": " + done);
}

template <class Change>
void StockList::change(const std::string& failure, Change change) {
    try {
        change();
    } catch (const Fault& fault) {
        prompts_.say(failure + fault.inWords());
    }
    PopStockList();
}

}  // namespace bramblet
