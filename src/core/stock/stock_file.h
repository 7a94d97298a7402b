// The catalogue's file "po_stock.dat": goods that are ordered again and again, in fixed-length
// records that never move.
#pragma once

#include "core/platform/currency.h"
#include "core/platform/file_system.h"
#include "core/platform/fixed_record.h"
#include "core/platform/regional_formats.h"

#include <filesystem>
#include <optional>
#include <string>

namespace bramblet {

/// 383 bytes on disk, in an export file too.
struct StockItemRecord {
    std::string Status;  ///< "1" live, kDeletedItem, or kExportedItem in an export file
    std::string Category;
    double Tag = 0;  ///< the item's number: the "File Number" of the list
    std::string Description;
    std::string Unit;
    std::string Vendor;          ///< the name as the vendor list has it
    std::string Spare1, Spare2;  ///< carried along
    Currency UnitCost;
    Currency OnHand;
    std::string Spare3;  ///< carried along
};

inline constexpr std::array kStockItemLayout{
    textField<&StockItemRecord::Status>(0, 1),    textField<&StockItemRecord::Category>(1, 30),
    numberField<&StockItemRecord::Tag>(31),       textField<&StockItemRecord::Description>(39, 120),
    textField<&StockItemRecord::Unit>(159, 20),   textField<&StockItemRecord::Vendor>(179, 60),
    textField<&StockItemRecord::Spare1>(239, 60), textField<&StockItemRecord::Spare2>(299, 60),
    numberField<&StockItemRecord::UnitCost>(359), numberField<&StockItemRecord::OnHand>(367),
    textField<&StockItemRecord::Spare3>(375, 8),
};
static_assert(recordSize(kStockItemLayout) == 383);

using StockRecords = Records<kStockItemLayout>;
using StockRow = RecordView<kStockItemLayout>;

inline constexpr const char* kLiveItem = "1";
inline constexpr const char* kDeletedItem = "D";
inline constexpr const char* kExportedItem = "i";

/// An item's number read as its record's number; 0, which no record has, when it cannot be one.
int recordNumberOf(double tag);

/// Whether two records are of the same item, in whatever state.
bool isSameItem(const StockItemRecord& a, const StockItemRecord& b);

/// The boxes of the item editor.
struct StockItemBoxes {
    std::string StockCatCombo, StockVendorCombo, StockUnitCombo, StockDescriptionEd,
        StockUnitCostEd;
};

/// Each operation opens the file, does its work and closes it. All throw Fault.
class StockFile {
  public:
    StockFile(FileSystem files, std::filesystem::path path, const RegionalFormats& formats);

    const std::filesystem::path& path() const { return path_; }

    StockRecords readAll();
    /// The live items of a vendor, or all live ones if `vendor` is empty.
    StockRecords readItems(const std::string& vendor) { return readItems(files_, vendor); }
    /// The same without waiting for a file that somebody holds.
    StockRecords readItemsAtOnce(const std::string& vendor) {
        return readItems(files_.withoutRetry(), vendor);
    }
    /// The file's size and time stamp; nothing when it cannot be looked at at once.
    std::optional<os::FileStatus> glance() const { return files_.glance(path_); }

    /// The number for a new item: the highest in the file, deleted items included, plus one.
    double GetNextTag();

    /// Appends an item. What the boxes do not give (quantity on hand, spare fields) is taken from
    /// the last record in the file. Returns its record.
    StockItemRecord SaveNewStockItem(const StockItemBoxes& boxes);

    /// Rewrites the first record with a number, deleted or not; it is live afterwards. Returns the
    /// record as it was, or nothing when there is none. The unit cost must be a number as it
    /// stands: it is not cleaned here.
    std::optional<StockItemRecord> SaveChangedStockItem(double tag, const StockItemBoxes& boxes);

    /// The next two take the item's number as the record's number, and return the record as it was:
    /// where two desks have given the same number, it is another item's.
    StockItemRecord markDeleted(int recordNumber);
    StockItemRecord setOnHand(int recordNumber, Currency quantity);

    /// Takes back that an item was marked as deleted. If its record is another item's by now, it
    /// joins the others under the next number. Returns its number.
    double bringBack(int recordNumber, const StockItemRecord& item);

  private:
    StockRecords readItems(const FileSystem& files, const std::string& vendor);
    void fill(const StockItemBoxes& boxes, const std::string& unitCost);
    template <class Change>
    StockItemRecord rewrite(int recordNumber, Change change);
    bool revive(int recordNumber, const StockItemRecord& item);

    FileSystem files_;
    std::filesystem::path path_;
    const RegionalFormats& formats_;
    /// The one record buffer of all stock work: fields that an operation does not set keep the
    /// values of the record last read.
    StockItemRecord buffer_ = decodeRecord(kStockItemLayout, "");
};

}  // namespace bramblet
