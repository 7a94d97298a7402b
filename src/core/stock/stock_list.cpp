#include "core/stock/stock_list.h"

#include "core/platform/amount_text.h"
#include "core/platform/text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <unordered_set>

namespace bramblet {
namespace {

using Item = StockItemRecord;
using ItemColumn = Column<StockRow>;

template <auto Field>
constexpr ItemColumn amount(const char* heading, int characters, int decimals,
                            std::string (*amountText)(Currency, const RegionalFormats&)) {
    ItemColumn column = amountColumn<StockRow, Field>(heading, characters, amountText);
    column.decimals = decimals;
    column.number = [](const StockRow& row) { return toDouble(row.get<Field>()); };
    return column;
}

std::string costText(Currency cost, const RegionalFormats& formats) {
    return exactText(cost, formats);
}

std::string quantityText(Currency quantity, const RegionalFormats& formats) {
    return generalText(toDouble(quantity), formats);
}

/// Out of sight.
constexpr ItemColumn fileNumber() {
    ItemColumn column{{"File Number", 0, false, Align::Right}};
    column.text = [](const StockRow& row, const RegionalFormats&) {
        return tagText(row.get<&Item::Tag>());
    };
    column.number = [](const StockRow& row) {
        const double tag = row.get<&Item::Tag>();
        return std::isnan(tag) ? 0 : tag;
    };
    return column;
}

/// In the order of StockColumn.
constexpr std::array kColumns{
    textColumn<StockRow, &Item::Category>({"Category", 12, true}),
    textColumn<StockRow, &Item::Vendor>({"Vendor", 16, true}),
    textColumn<StockRow, &Item::Unit>({"Unit", 8}),
    textColumn<StockRow, &Item::Description>({"Description", 30, true}),
    amount<&Item::UnitCost>("Unit Cost", 12, 2, costText),
    amount<&Item::OnHand>("On Hand", 10, 0, quantityText),
    fileNumber(),
};

const ItemColumn& facts(StockColumn column) {
    return kColumns[static_cast<std::size_t>(column)];
}

/// The distinct values met, in the order in which they were met.
class Distinct {
  public:
    explicit Distinct(std::vector<std::string>& values) : values_(values) {}

    void add(std::string_view value) {
        if (known_.insert(value).second) values_.emplace_back(value);
    }

  private:
    std::vector<std::string>& values_;
    std::unordered_set<std::string_view> known_;
};

}  // namespace

StockList::StockList(FileSystem files, Commands& commands, Undo& undo, const Settings& settings,
                     const OpenOrder& open, const RegionalFormats& formats)
    : RecordList(formats),
      commands_(commands),
      undo_(undo),
      settings_(settings),
      open_(open),
      file_(std::move(files), commands.folder().file("po_stock.dat"), formats) {}

void StockList::VendorItemsCheck_Click(bool checked) {
    VendorItemsCheck = checked;
    commands_.onData([&] { PopStockList(); });
}

void StockList::PopStockList() {
    // What is shown changes in one go: reading may have to wait, and the windows stay live
    // meanwhile. The items now listed stay when the catalogue cannot be read.
    if (commands_.folder().DataPathOK()) {
        reread(file_.glance(), [&](StockRecords& items) {
            return commands_.attempt(
                "The list of stock items was not read: ",
                [&] { items = file_.readItems(vendorListed()); }, Loss::List);
        });
    }
    refill();
}

void StockList::lookForNews() {
    if (holdNews(file_.glance(), [this] { return file_.readItemsAtOnce(vendorListed()); }))
        refill();
}

/// The vendor whose items alone are listed; empty when all are.
std::string StockList::vendorListed() const {
    return VendorItemsCheck ? trimmed(open_.order().ToCombo) : std::string();
}

void StockList::refill() {
    shown_.clear();
    for (const ItemColumn& column : kColumns) {
        if (&column != &facts(StockColumn::OnHand) || isOn(settings_.UseQuantities))
            shown_.push_back(&column);
    }
    list([](const StockRow&) { return true; });
    entries_.reset();
    commands_.changed(&Views::stockList);
}

const StockList::Entries& StockList::entries() const {
    if (!entries_) {
        entries_.emplace();
        Distinct categories(entries_->categories);
        Distinct vendors(entries_->vendors);
        Distinct units(entries_->units);
        for (const StockRow item : records_) {
            categories.add(item.get<&Item::Category>());
            vendors.add(item.get<&Item::Vendor>());
            units.add(item.get<&Item::Unit>());
        }
    }
    return *entries_;
}

bool StockList::showsOnHand() const {
    return std::find(shown_.begin(), shown_.end(), &facts(StockColumn::OnHand)) != shown_.end();
}

std::string StockList::text(int row, StockColumn column) const {
    return facts(column).textOf(this->row(row), formats_);
}

int StockList::rowOf(const std::string& fileNumber) const {
    const double tag = leadingNumber(fileNumber);
    const auto row = std::find_if(rows_.begin(), rows_.end(), [tag](const StockRow& item) {
        return item.get<&Item::Tag>() == tag;
    });
    return row == rows_.end() ? -1 : static_cast<int>(row - rows_.begin());
}

void StockList::sortBy(int column) {
    if (column >= columnCount()) return;
    sortByHeading(column);
    commands_.changed(&Views::stockList);
}

void StockList::find(const std::string& typed) {
    seek(typed);
    commands_.changed(&Views::stockList);
}

void StockList::StockGrid_Click(int row) {
    if (row < 0 || row >= rowCount()) return;
    picked_ = this->row(row).record();
    boxes.StockCatCombo = text(row, StockColumn::Category);
    boxes.StockVendorCombo = text(row, StockColumn::Vendor);
    boxes.StockUnitCombo = text(row, StockColumn::Unit);
    boxes.StockDescriptionEd = text(row, StockColumn::Description);
    boxes.StockUnitCostEd = text(row, StockColumn::UnitCost);
    fileOrderTag_ = text(row, StockColumn::FileNumber);
    commands_.changed(&Views::stockItem);
}

void StockList::SaveNewStockItem_Click() {
    commands_.onData([&] {
        bool saved = false;
        change("The new item was not saved: ", [&] {
            picked_ = file_.SaveNewStockItem(boxes);
            fileOrderTag_ = tagText(picked_.Tag);
            saved = true;
        });
        if (!saved) return;
        const int row = rowOf(fileOrderTag_);
        StockGrid_Click(row);  // which shows it as it is stored
        if (row < 0)
            commands_.sayDone("Item " + fileOrderTag_ + " is saved; it is not among those listed.");
    });
}

void StockList::SaveChangedStockItem_Click() {
    commands_.onData([&] {
        change("The item was not saved: ", [&] {
            const auto before = file_.SaveChangedStockItem(leadingNumber(fileOrderTag_), boxes);
            if (!before) {
                commands_.say("No item of the catalogue has the number " + fileOrderTag_ +
                              "; nothing was changed");
                return;
            }
            tellIfNotPicked(*before, "it has been replaced by the item shown");
            picked_.Description = boxes.StockDescriptionEd;
            picked_.Vendor = boxes.StockVendorCombo;
        });
    });
}

void StockList::DeleteStockItem_Click() {
    commands_.onData([&] {
        const Message question{"Delete stock item: \r\n\r\n" + pickedInWords(), "Confirm",
                               Buttons::YesNo, Icon::Question, Answer::No};
        if (commands_.prompts().ask(question) != Answer::Yes) return;
        const int record = pickedRecord();
        std::optional<StockItemRecord> deleted;
        change("The item was not deleted: ", [&] {
            deleted = file_.markDeleted(record);
            tellIfNotPicked(*deleted, "that one has been deleted, not the item shown");
        });
        if (!deleted || deleted->Status == kDeletedItem) return;
        undo_.offer(
            deletionOf(called("stock item", trimmedField(deleted->Description)),
                       [this, record, item = *deleted] { return bringBack(record, item); }));
    });
}

bool StockList::bringBack(int recordNumber, const StockItemRecord& item) {
    const double tag = file_.bringBack(recordNumber, item);
    PopStockList();
    commands_.sayDone("\"" + trimmedField(item.Description) + "\" is back in the catalogue" +
                      (tag == item.Tag ? ""
                                       : " under the number " + tagText(tag) +
                                             ": its own has gone to another item"));
    return true;
}

void StockList::ItemsPopOnHand_Click(int row) {
    commands_.onData([&] {
        const bool shown = row >= 0 && row < rowCount() && isOn(settings_.UseQuantities);
        const auto answer =
            commands_.prompts().input("Specify quantity on hand:\r\n\r\n" + pickedInWords(),
                                      "On Hand", shown ? text(row, StockColumn::OnHand) : "");
        if (!answer || answer->empty()) return;
        change("The quantity was not stored: ", [&] {
            const Currency quantity = amountOf(cleanedNumber(*answer), formats_);
            const StockItemRecord before = file_.setOnHand(pickedRecord(), quantity);
            tellIfNotPicked(before, "its quantity has been changed from " +
                                        quantityText(before.OnHand, formats_) +
                                        ", not that of the item shown");
        });
    });
}

bool StockList::editsPicked() const {
    return trimmedField(picked_.Description) == trimmed(boxes.StockDescriptionEd);
}

int StockList::pickedRecord() const {
    return recordNumberOf(leadingNumber(fileOrderTag_));
}

std::string StockList::pickedInWords() const {
    return trimmed(boxes.StockCatCombo) + "\r\n" + trimmed(boxes.StockVendorCombo) + "\r\n" +
           trimmed(boxes.StockDescriptionEd);
}

void StockList::tellIfNotPicked(const StockItemRecord& record, const std::string& done) {
    if (isSameItem(record, picked_)) return;
    commands_.say("Number " + fileOrderTag_ + " in the file of the catalogue is \"" +
                  trimmedField(record.Description) + "\" of \"" + trimmedField(record.Vendor) +
                  "\": " + done);
}

void StockList::change(const std::string& failure, const Commands::Body& change) {
    commands_.attempt(failure, change);
    PopStockList();
}

}  // namespace bramblet
