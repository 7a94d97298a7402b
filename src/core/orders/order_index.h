// The order index "po_data.dat": one short record per order, from which the list of saved orders is
// made and new order numbers are drawn.
#pragma once

#include "core/document/order.h"
#include "core/platform/clock.h"
#include "core/platform/currency.h"
#include "core/platform/file_system.h"
#include "core/platform/fixed_record.h"
#include "core/platform/regional_formats.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace bramblet {

/// 203 bytes on disk. Dates are day counts from 30 December 1899; 0 stands for no date.
struct OrderIndexRecord {
    std::string Status;  ///< "A" purchase order, "R" requisition, lower case received, "D" deleted
    std::string Number, Job;
    double OrderDate = 0;
    std::string Vendor, ShipTo;
    double ShipDate = 0;
    Currency OrderTotal, Shipping, SalesTax, NetTotal, Discount, SubTotal;
};

inline constexpr std::array kOrderIndexLayout{
    textField<&OrderIndexRecord::Status>(0, 1),    textField<&OrderIndexRecord::Number>(1, 6),
    textField<&OrderIndexRecord::Job>(7, 12),      numberField<&OrderIndexRecord::OrderDate>(19),
    textField<&OrderIndexRecord::Vendor>(27, 60),  textField<&OrderIndexRecord::ShipTo>(87, 60),
    numberField<&OrderIndexRecord::ShipDate>(147), numberField<&OrderIndexRecord::OrderTotal>(155),
    numberField<&OrderIndexRecord::Shipping>(163), numberField<&OrderIndexRecord::SalesTax>(171),
    numberField<&OrderIndexRecord::NetTotal>(179), numberField<&OrderIndexRecord::Discount>(187),
    numberField<&OrderIndexRecord::SubTotal>(195),
};
static_assert(recordSize(kOrderIndexLayout) == 203);

inline constexpr const char* kDeletedOrder = "D";
/// The characters of an order's number that the list holds.
inline constexpr std::size_t kIndexNumberWidth = kOrderIndexLayout[1].width;

using OrderRecords = Records<kOrderIndexLayout>;
using OrderRow = RecordView<kOrderIndexLayout>;

/// Each operation opens the file, does its work and closes it. All throw Fault: FileError for the
/// file, Overflow when it holds more than 32,767 records.
class OrderIndex {
  public:
    OrderIndex(FileSystem files, std::filesystem::path path, const RegionalFormats& formats,
               Clock clock);

    /// Writes the record of an order: in place of the first one with its number, or at the end. An
    /// order without a number is not written. Throws BoxFault for a date or an amount that cannot
    /// be read; the file is then unchanged. Returns all records as they are now, if one was
    /// written.
    std::optional<OrderRecords> RecordData(const Order& order) const;

    /// Throws BoxFault for a date that `RecordData` could not read.
    void checkDates(const Order& order) const;
    /// Whether a text can be read as a date, or is blank.
    bool isDate(const std::string& text) const;

    /// One more than the highest number in the file, deleted orders included. Letters in a number
    /// are skipped; one that still cannot be read as a number is ignored.
    double NextPONumber() const;

    /// Marks the first record with the number as deleted. Returns it as it was, or nothing when
    /// there is none.
    std::optional<OrderIndexRecord> markDeleted(const std::string& number) const;
    /// Takes that back: the first record with the number gets the status that it had, or if there
    /// is none by now, the record joins the others. False if the order is listed already.
    bool bringBack(const OrderIndexRecord& deleted) const;

    OrderRecords readAll() const;
    /// The same without waiting for a file that somebody holds.
    OrderRecords readAtOnce() const;
    /// The file's size and time stamp; nothing when it cannot be looked at at once.
    std::optional<os::FileStatus> glance() const { return files_.glance(path_); }

    /// The file's bytes, whatever they are; none when it is missing.
    std::string content() const;
    /// The records in such bytes, with room for more.
    static OrderRecords recordsIn(std::string content, std::size_t more);
    /// Puts these records in place of the file's.
    void replaceAll(const OrderRecords& records) const;

    /// Puts an order's status and boxes into its record, those that `isTold` accepts (null is the
    /// status); the record's other bytes stay. A date typed without a year takes that of the date
    /// which it replaces, if there is one. Throws BoxFault for a date or an amount that cannot be
    /// read.
    void enter(const Order& order, const std::function<bool(OrderField box)>& isTold,
               OrderIndexRecord& record) const;

  private:
    std::optional<double> readDate(const std::string& text, double replaced) const;
    double dateOf(const std::string& text, const std::string& box, double replaced) const;

    FileSystem files_;
    std::filesystem::path path_;
    const RegionalFormats& formats_;
    Clock clock_;
};

}  // namespace bramblet
