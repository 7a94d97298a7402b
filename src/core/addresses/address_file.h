// The address book's file "po_addy.dat": vendors and ship-to destinations in one file of
// fixed-length records.
#pragma once

#include "core/platform/file_system.h"
#include "core/platform/fixed_record.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace bramblet {

/// 570 bytes on disk.
struct AddressRecord {
    std::string Active;  ///< always "1"; never tested
    std::string Kind;    ///< kVendor or kDestination; records of any other kind are skipped
    double Tag = 0;      ///< the address number; imported records repeat one
    std::string Name;
    std::string Address;  ///< lines separated by CR LF
};

inline constexpr std::array kAddressLayout{
    textField<&AddressRecord::Active>(0, 1),     textField<&AddressRecord::Kind>(1, 1),
    numberField<&AddressRecord::Tag>(2),         textField<&AddressRecord::Name>(10, 60),
    textField<&AddressRecord::Address>(70, 500),
};
static_assert(recordSize(kAddressLayout) == 570);

using AddressRecords = Records<kAddressLayout>;
using AddressRow = RecordView<kAddressLayout>;

inline constexpr const char* kVendor = "V";
inline constexpr const char* kDestination = "T";

/// What an import provides for one address.
struct NameAndAddress {
    std::string name;
    std::string address;
};

/// A record's name as it is listed and as the boxes hold it: imported names may contain control
/// characters, which become blanks there.
std::string listedName(const AddressRow& record);

/// What a removal has taken out of the file.
struct RemovedAddress {
    std::size_t place;  ///< among all records, from 0
    AddressRecord record;
    bool sharedNumber;  ///< with a record that stayed
};
using RemovedAddresses = std::vector<RemovedAddress>;

/// Each operation opens the file, does its work and closes it, and throws FileError. A name stands
/// for the records stored under it, or if there are none, those listed under it.
class AddressFile {
  public:
    /// `path` ends in "po_addy.dat".
    AddressFile(FileSystem files, std::filesystem::path path);

    AddressRecords readAll();
    /// The same for a mere look: without waiting for a file that somebody holds, and without effect
    /// on the number that an import gives.
    AddressRecords readAtOnce() const;

    /// The first of `records` with exactly this name, whatever its kind; nothing when there is
    /// none.
    std::optional<AddressRecord> findNamed(const AddressRecords& records, const std::string& name);

    /// The number for a new address: the highest in the file, of either kind, plus one.
    double GetNextAddyTag();

    /// Appends a record under the next number, which is returned; a blank name appends nothing.
    std::optional<double> append(const std::string& kind, const std::string& name,
                                 const std::string& address);

    /// The first record whose name is the same apart from letter case, whatever its kind: the one
    /// that `rewrite` replaces.
    std::optional<AddressRecord> findToRewrite(const std::string& name);

    /// Rewrites the first record whose name is the same apart from letter case, whatever its kind,
    /// keeping its number; appends one if there is none. Returns the number as `append` does.
    std::optional<double> rewrite(const std::string& kind, const std::string& name,
                                  const std::string& address);

    enum class Renaming { Done, Gone, Taken };
    /// Gives the first record of this kind and exactly this name another name and changes nothing
    /// else of it. Nothing is changed if there is no such record any more, unless one has the new
    /// name by now, or if another one, of whatever kind, has that name apart from letter case.
    Renaming rename(const std::string& kind, const std::string& name, const std::string& newName);

    /// Appends entries as they are, without checking for duplicates, each under the number of the
    /// record last read or written: an import gives no numbers. `reached` is told the count before
    /// each entry, and at the end.
    void import(const std::string& kind, const std::vector<NameAndAddress>& entries,
                const std::function<void(int)>& reached);

    struct Merged {
        int added = 0, replaced = 0, skipped = 0;
    };
    /// Appends the entries whose names the file does not have, regardless of case, under numbers of
    /// their own. Others are skipped; or, if `replaces`, the first record of that name and kind
    /// gets the address. Of entries with one name, the first is taken, or with `replaces`, the
    /// last.
    Merged merge(const std::string& kind, const std::vector<NameAndAddress>& entries,
                 bool replaces);

    /// Copies the file without the records of exactly this name, whatever their kind, and returns
    /// those. The copy has a name of its own until it takes the file's place, and is removed if
    /// that fails. Faults are thrown at once, without waiting.
    RemovedAddresses removeNamed(const std::string& name);

    /// Puts removed records back to their places among what the file holds now. If there are other
    /// records of their name by now, they get one with a number after it, and an address number
    /// that has been given to another is replaced by the next. Returns their name.
    std::string putBack(const RemovedAddresses& removed);

    /// Deals with a copy "po_addy.tmp" left behind by an earlier version of the program. It is
    /// removed, so that what was deleted does not come back at that version's next delete; but if
    /// it is all that is left of the book, it takes the book's place, and true is returned. A copy
    /// that another desk may be writing, one written to in the ten minutes before `now`, is left
    /// alone. `now` is in nanoseconds since 1970 by the clock of the folder. Throws FileError.
    bool clearLeftover(std::int64_t now) const;

  private:
    void fill(const std::string& kind, const std::string& name, const std::string& address);

    FileSystem files_;
    std::filesystem::path path_;
    /// The one record buffer of all address work: what an operation does not set keeps the value of
    /// the record last read.
    AddressRecord buffer_;
};

}  // namespace bramblet
