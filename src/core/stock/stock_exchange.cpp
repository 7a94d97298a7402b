#include "core/stock/stock_exchange.h"

#include "core/platform/path_text.h"
#include "core/platform/record_file.h"
#include "core/platform/save_target.h"
#include "core/platform/text.h"

#include <set>
#include <unordered_map>

namespace bramblet {
namespace {

using File = RecordFile<StockItemRecord, kStockItemLayout>;
constexpr std::size_t kSize = File::kSize;

const FileChoice::Filter kFilter{"Stock Item Data", "*.sid"};

/// What identifies an item: description and vendor, ignoring case.
std::string keyOf(const StockItemRecord& record) {
    return upper(trimmedField(record.Description)) + '\0' + upper(trimmedField(record.Vendor));
}

/// The records of an export file; nothing when the file is not one. In an export file every record
/// has the status of an exported item, and the length is a whole number of records.
std::optional<std::vector<StockItemRecord>> exportedRecords(const std::string& bytes) {
    if (bytes.size() % kSize != 0) return std::nullopt;
    std::vector<StockItemRecord> records;
    records.reserve(bytes.size() / kSize);
    for (std::size_t offset = 0; offset < bytes.size(); offset += kSize) {
        records.push_back(
            decodeRecord(kStockItemLayout, std::string_view(bytes).substr(offset, kSize)));
        if (records.back().Status != kExportedItem) return std::nullopt;
    }
    return records;
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
class NumberOutOfRange : public Fault {
  public:
    explicit NumberOutOfRange(const StockItemRecord& item)
        : Fault(FaultNumber::BadRecordNumber),
          words_("the item \"" + trimmedField(item.Description) + "\" of \"" +
                 trimmedField(item.Vendor) +
                 "\" cannot be replaced, the catalogue has no record of its number") {}

    std::string inWords() const override { return words_; }

  private:
    std::string words_;
};

/// The catalogue during an import. The first live item with a key is found at once, with the same
/// result as a search from the first record to the last.
class Merge {
  public:
    Merge(const FileSystem& files, const std::filesystem::path& path) : file_(files, path) {
        records_ = file_.readAll();
        for (int number = 1; number <= count(); ++number)
            enter(number);
    }

    /// Replaces the item that the record matches, or adds it. `record` is consumed.
    void take(StockItemRecord& record) {
        const auto found = numbers_.find(keyOf(record));
        if (found != numbers_.end() && !found->second.empty()) {
            const StockItemRecord& old = at(*found->second.begin());
            // The number comes from the tag; the two agree in every file that the program wrote.
            const int number = recordNumberOf(old.Tag);
            if (number < 1 || number > count()) throw NumberOutOfRange(old);
            record.Tag = old.Tag;
            record.Status = old.Status;
            put(number, record);
            replaced_.increase();
        } else {
            record.Tag = count() + 1;
            record.Status = kLiveItem;
            records_.emplace_back();
            put(count(), record);
            added_.increase();
        }
    }

    void finish() { file_.flush(); }

    std::string result() const {
        return "Added " + added_.text() + " new items.\r\nReplaced " + replaced_.text() +
               " existing items.";
    }

  private:
    int count() const { return static_cast<int>(records_.size()); }
    StockItemRecord& at(int number) { return records_[static_cast<std::size_t>(number) - 1]; }

    void enter(int number) {
        if (at(number).Status != kDeletedItem) numbers_[keyOf(at(number))].insert(number);
    }

    void put(int number, const StockItemRecord& record) {
        file_.write(number, record);
        const auto old = numbers_.find(keyOf(at(number)));
        if (old != numbers_.end()) old->second.erase(number);
        at(number) = record;
        enter(number);
    }

    File file_;
    std::vector<StockItemRecord> records_;
    /// The numbers of the live records with each key, lowest first.
    std::unordered_map<std::string, std::set<int>> numbers_;
    Count added_;
    Count replaced_;
};

}  // namespace

StockExchange::StockExchange(FileSystem files, Commands& commands, const OpenOrder& open,
                             StockList& list)
    : files_(std::move(files)), commands_(commands), open_(open), list_(list) {}

void StockExchange::mu_ExportStockItems_Click() {
    commands_.onData([&] {
        const auto path = commands_.prompts().chooseFileToSave(
            {"Export Stock Items", "", suggestedName(), {kFilter}});
        if (!path) return;
        commands_.attempt("The stock items were not exported: ", [&] { exportTo(*path); });
    });
}

void StockExchange::mu_ImportStockItems_Click() {
    commands_.onData([&] {
        const Message warning{
            "It is strongly suggested that you run a complete data backup before performing an "
            "import operation! If you have not just done that, please click \"Cancel\" and do that "
            "first.",
            "Have you run a backup today?", Buttons::OkCancel, Icon::Exclamation, Answer::Cancel};
        if (commands_.prompts().ask(warning) != Answer::Ok) return;
        const auto path =
            commands_.prompts().chooseFileToOpen({"Import Stock Items", "", "", {kFilter}});
        if (!path) return;
        const auto import = [&] { importFrom(*path); };
        if (!commands_.attempt("The import ended early: ", import)) list_.PopStockList();
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
    const std::vector<StockItemRecord> records = list_.file().readAll();
    std::string content;
    int exported = 0;
    for (int row = 0; row < list_.rowCount(); ++row) {
        const int number = recordNumberOf(list_.row(row).Tag);
        if (number < 1 || static_cast<std::size_t>(number) > records.size()) continue;
        StockItemRecord record = records[static_cast<std::size_t>(number) - 1];
        if (record.Status == kDeletedItem) continue;  // deleted elsewhere since it was listed
        record.Status = kExportedItem;
        content += encodeRecord(kStockItemLayout, record);
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
    auto records = exportedRecords(files_.withoutRetry().read(path));
    if (!records) {
        commands_.tell(
            "This file does not contain valid Stock Item data. Data must be created by version 1.5 "
            "or later of Quenmoor \"Bramblet\" or \"Hollowmere\". Simply re-naming an earlier "
            "version data file won't do.",
            "Import Failed", Icon::Stop);
        return;
    }
    Merge merge(files_, list_.file().path());
    {
        const int total = static_cast<int>(records->size());
        LongOperation operation(commands_.prompts(), "Importing stock items", total);
        for (int i = 0; i < total; ++i) {
            operation.reached(i);
            merge.take((*records)[static_cast<std::size_t>(i)]);
        }
    }
    merge.finish();
    list_.PopStockList();
    commands_.tell(merge.result(), "Finished");
}

}  // namespace bramblet
