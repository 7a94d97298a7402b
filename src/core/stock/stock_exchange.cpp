#include "core/stock/stock_exchange.h"

#include "core/platform/path_text.h"
#include "core/platform/record_file.h"
#include "core/platform/save_target.h"
#include "core/platform/text.h"

#include <algorithm>
#include <string>
#include <unordered_map>

namespace bramblet {
namespace {

using File = RecordFile<kStockItemLayout>;
using Item = StockItemRecord;
constexpr std::size_t kSize = File::kSize;

const FileChoice::Filter kFilter{"Stock Item Data", "*.sid"};

/// Whether these are the bytes of an export file: every record has the status of an exported item,
/// and the length is a whole number of records.
bool isExport(const std::string& bytes) {
    if (bytes.size() % kSize != 0) return false;
    for (std::size_t offset = 0; offset < bytes.size(); offset += kSize) {
        const StockRow record(bytes.data() + offset);
        if (record.field<&Item::Status>() != kExportedItem) return false;
    }
    return true;
}

/// A 16-bit count.
class Count {
  public:
    void increase() {
        if (value_ == kMostRecords) throw Fault(FaultNumber::Overflow);
        ++value_;
    }
    std::string text() const { return std::to_string(value_); }

  private:
    int value_ = 0;
};

/// An item whose number, which says where it is to be replaced, does not exist in the catalogue.
Fault numberOutOfRange(const StockRow& item) {
    return Fault(FaultNumber::BadRecordNumber,
                 "the item \"" + std::string(item.get<&Item::Description>()) + "\" of \"" +
                     std::string(item.get<&Item::Vendor>()) +
                     "\" cannot be replaced, the catalogue has no record of its number");
}

/// The catalogue during an import. The first live item with a key is found at once, with the same
/// result as a search from the first record to the last. Records are written in runs, each with one
/// call.
class Merge {
  public:
    /// `most` is the number of records that may come.
    Merge(const FileSystem& files, const std::filesystem::path& path, std::size_t most)
        : file_(files, path), old_(file_.readAll()) {
        numbers_.reserve(old_.size() + most);
        new_.reserve(most * kSize);
        for (int number = 1; number <= count(); ++number)
            enter(number, key_.of(at(number)).hash());
    }

    /// Replaces the item that the record matches, or adds it.
    void take(const StockRow& item) {
        const std::size_t hash = key_.of(item).hash();
        record_ = item.bytes();
        if (const int first = firstOf(hash); first != 0) {
            const StockRow found = at(first);
            // The number comes from the tag; the two agree in every file that the program wrote.
            const double tag = found.get<&Item::Tag>();
            const int number = recordNumberOf(tag);
            if (number < 1 || number > count()) throw numberOutOfRange(found);
            StockRow::set<&Item::Tag>(record_.data(), tag);
            StockRow::set<&Item::Status>(record_.data(), found.field<&Item::Status>());
            replace(number, hash);
            replaced_.increase();
        } else {
            StockRow::set<&Item::Tag>(record_.data(), count() + 1.0);
            StockRow::set<&Item::Status>(record_.data(), kLiveItem);
            new_ += record_;
            enter(count(), hash);
            write(count());
            added_.increase();
        }
    }

    /// Takes an item of a table: of one that is there already, what the table does not have stays,
    /// or all of it, unless `replaces`.
    void take(const TableItem& item, bool replaces) {
        const std::string given = encodeRecord(kStockItemLayout, item.record);
        const int first = firstOf(key_.of(StockRow(given.data())).hash());
        if (first == 0) return take(StockRow(given.data()));
        if (!replaces) return ++skipped_, void();
        StockItemRecord merged = at(first).record();
        merged.Description = item.record.Description;
        if (item.hasCategory) merged.Category = item.record.Category;
        if (item.hasUnit) merged.Unit = item.record.Unit;
        if (item.hasUnitCost) merged.UnitCost = item.record.UnitCost;
        const std::string bytes = encodeRecord(kStockItemLayout, merged);
        take(StockRow(bytes.data()));
    }

    /// Writes what has been taken so far.
    void writeRun() {
        if (!run_.empty()) file_.write(runStart_, run_);
        run_.clear();
    }
    void finish() {
        writeRun();
        file_.flush();
    }

    std::string result() const {
        return "Added " + added_.text() + " new items.\r\nReplaced " + replaced_.text() +
               " existing items.";
    }
    int skipped() const { return skipped_; }

  private:
    int count() const { return static_cast<int>(old_.size() + new_.size() / kSize); }
    StockRow at(int number) const {
        const std::size_t place = static_cast<std::size_t>(number) - 1;
        if (place < old_.size()) return old_[place];
        return StockRow(new_.data() + (place - old_.size()) * kSize);
    }

    void enter(int number, std::size_t hash) {
        if (at(number).field<&Item::Status>() != kDeletedItem) numbers_.emplace(hash, number);
    }

    /// The lowest number of a live item with `key_`; 0 when there is none.
    int firstOf(std::size_t hash) {
        int lowest = 0;
        const auto [begin, end] = numbers_.equal_range(hash);
        for (auto entry = begin; entry != end; ++entry) {
            const int number = entry->second;
            if ((lowest == 0 || number < lowest) && other_.of(at(number)) == key_) lowest = number;
        }
        return lowest;
    }

    /// Puts `record_` in place of another one.
    void replace(int number, std::size_t hash) {
        const auto [begin, end] = numbers_.equal_range(other_.of(at(number)).hash());
        const auto isIt = [number](const auto& entry) { return entry.second == number; };
        if (const auto entry = std::find_if(begin, end, isIt); entry != end) numbers_.erase(entry);
        const std::size_t place = static_cast<std::size_t>(number) - 1;
        if (place < old_.size()) {
            old_.put(place, record_);
        } else {
            new_.replace((place - old_.size()) * kSize, kSize, record_);
        }
        enter(number, hash);
        write(number);
    }

    void write(int number) {
        constexpr std::size_t kLongestRun = 1 << 20;
        const bool follows = number == runStart_ + static_cast<int>(run_.size() / kSize);
        if (!follows || run_.size() > kLongestRun) writeRun();
        if (run_.empty()) runStart_ = number;
        run_ += record_;
    }

    File file_;
    StockRecords old_;  ///< those that were there
    std::string new_;   ///< the bytes of those that have come
    /// The numbers of the live records, by the hash of their key.
    std::unordered_multimap<std::size_t, int> numbers_;
    std::string record_;  ///< the one being taken
    ItemKey key_;         ///< its key
    ItemKey other_;       ///< of one that it is compared with
    std::string run_;     ///< the bytes that are still to be written, from record `runStart_` on
    int runStart_ = 1;
    Count added_;
    Count replaced_;
    int skipped_ = 0;
};

}  // namespace

StockExchange::StockExchange(FileSystem files, Commands& commands, const OpenOrder& open,
                             StockList& list)
    : files_(std::move(files)), commands_(commands), open_(open), list_(list) {}

void StockExchange::mu_ExportStockItems_Click() {
    commands_.onData([&] {
        const auto chosen = commands_.prompts().chooseFileToSave(
            {"Export Stock Items", "", suggestedName(), {kFilter}});
        if (!chosen) return;
        commands_.attempt("The stock items were not exported: ", [&] { exportTo(chosen->path); });
    });
}

void StockExchange::mu_ImportStockItems_Click() {
    const FileChoice choice{"Import Stock Items", "", "", {kFilter}};
    import([&] { return commands_.prompts().chooseFileToOpen(choice);
});
}  // namespace bramblet

void StockExchange::offerImport(const std::filesystem::path& path) {
    import([&] { return path;
});
}

void StockExchange::import(const Choose& choose) {
    commands_.onData([&] {
        const Message warning{
            "It is strongly suggested that you run a complete data backup before performing an "
            "import operation! If you have not just done that, please click \"Cancel\" and do that "
            "first.",
            "Have you run a backup today?", Buttons::OkCancel, Icon::Exclamation, Answer::Cancel};
        if (commands_.prompts().ask(warning) != Answer::Ok) return;
        const auto path = choose();
        if (!path) return;
        const auto step = [&] { importFrom(*path); };
        if (!commands_.attempt("The import ended early: ", step)) list_.PopStockList();
    });
}

std::string StockExchange::suggestedName() const {
    const std::string vendor = trimmed(open_.order().ToCombo);
    if (!list_.VendorItemsCheck || vendor.empty()) return "Stock Items";
    return madePlainFileName(vendor);
}

bool StockExchange::isCatalogue(const std::filesystem::path& path) const {
    return files_.isSameFile(path, list_.file().path());
}

void StockExchange::exportTo(const std::filesystem::path& path) {
    if (isCatalogue(path)) {
        commands_.say("The catalogue cannot be exported to its own file");
        return;
    }
    const FileSystem target = files_.withoutRetry();
    if (!mayReplace(target, path, commands_.prompts())) return;
    const StockRecords records = list_.file().readAll();
    std::string content;
    int exported = 0;
    for (const StockRow& item : list_.listed()) {
        const int number = recordNumberOf(item.get<&Item::Tag>());
        if (number < 1 || static_cast<std::size_t>(number) > records.size()) continue;
        std::string record(records[static_cast<std::size_t>(number) - 1].bytes());
        // It may have been deleted elsewhere since it was listed.
        if (StockRow(record.data()).field<&Item::Status>() == kDeletedItem) continue;
        StockRow::set<&Item::Status>(record.data(), kExportedItem);
        content += record;
        ++exported;
    }
    target.replace(path, content);
    commands_.tell(shown(path) + " contains " + std::to_string(exported) +
                       " stock item records.\r\n\r\nThese can be imported into any other "
                       "\"Bramblet\" or \"Hollowmere\" installation (version 1.5 or higher).",
                   "Finished");
}

void StockExchange::importFrom(const std::filesystem::path& path) {
    if (isCatalogue(path)) {
        commands_.say("The catalogue cannot be imported into itself");
        return;
    }
    const std::string bytes = files_.withoutRetry().read(path);
    if (!isExport(bytes)) {
        commands_.tell(
            "This file does not contain valid Stock Item data. Data must be created by version 1.5 "
            "or later of Quenmoor \"Bramblet\" or \"Hollowmere\". Simply re-naming an earlier "
            "version data file won't do.",
            "Import Failed", Icon::Stop);
        return;
    }
    const std::size_t count = bytes.size() / kSize;
    Merge merge(files_, list_.file().path(), count);
    takeAll(merge, count, [&](std::size_t i) { merge.take(StockRow(bytes.data() + i * kSize)); });
    list_.PopStockList();
    commands_.tell(merge.result(), "Finished");
}

template <class Merge, class Take>
void StockExchange::takeAll(Merge& merge, std::size_t count, Take take) {
    try {
        LongOperation operation(commands_.prompts(), "Importing stock items",
                                static_cast<int>(count));
        for (std::size_t i = 0; i < count; ++i) {
            operation.reached(static_cast<int>(i));
            take(i);
        }
    } catch (...) {
        merge.writeRun();  // what came before the item that could not be taken
        throw;
    }
    merge.finish();
}

KnownItems StockExchange::knownItems() const {
    KnownItems known;
    const StockRecords items = list_.file().readItemsAtOnce("");
    known.reserve(items.size());
    for (const StockRow item : items)
        known.insert(ItemKey().of(item));
    return known;
}

std::string StockExchange::importTable(const std::vector<TableItem>& items, bool replaces) {
    std::string result;
    try {
        Merge merge(files_, list_.file().path(), items.size());
        takeAll(merge, items.size(), [&](std::size_t i) { merge.take(items[i], replaces); });
        result = merge.result();
        if (!replaces) {
            result +=
                "\r\nSkipped " + std::to_string(merge.skipped()) + " items that the catalogue has.";
        }
    } catch (const Fault&) {
        list_.PopStockList();
        throw;
    }
    list_.PopStockList();
    return result;
}

}  // namespace bramblet
