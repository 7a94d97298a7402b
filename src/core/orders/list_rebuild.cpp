#include "core/orders/list_rebuild.h"

#include "core/document/document_reader.h"
#include "core/platform/path_text.h"
#include "core/platform/record_file.h"
#include "core/platform/text.h"

#include <algorithm>
#include <array>
#include <unordered_map>
#include <utility>

namespace bramblet {
namespace {

using Record = OrderIndexRecord;

constexpr const char* kTitle = "Rebuild Order List";
constexpr const char* kCutOff = "the list ends in the middle of a record";
constexpr const char* kPendingDocument = "po";

/// Thrown to leave a comparison that the user has stopped.
struct Stopped {};

constexpr std::array kColumns{
    [] {
        Column<Finding> column{{"Number", 11}};
        column.text = [](const Finding& row, const RegionalFormats&) { return row.number; };
        column.number = [](const Finding& row) { return leadingNumber(row.number); };
        return column;
    }(),
    [] {
        Column<Finding> column{{"Finding", 60, true}};
        column.text = [](const Finding& row, const RegionalFormats&) { return row.words; };
        return column;
    }(),
};

bool comesBefore(const std::string& a, const std::string& b) {
    return std::pair(leadingNumber(a), a) < std::pair(leadingNumber(b), b);
}

/// The numbers of the orders whose documents are among the files, in their order. A file with a
/// name that the program would not give to a document is none.
std::vector<std::string> documentNumbers(const std::vector<std::filesystem::path>& names) {
    constexpr std::array<std::u16string_view, 1> kEnding{u".HTM"};
    std::vector<std::string> numbers;
    for (const auto& name : names) {
        if (!endsInOneOf(name, kEnding)) continue;
        const auto& native = name.native();
        const std::filesystem::path stem = native.substr(0, native.size() - kEnding[0].size());
        std::string number = fromUnicode(unicodeOf(stem));
        const bool named = isPlainFileName(number, ".htm") && trimmed(number) == number &&
                           pathOfName(number) == stem;
        if (named && number != kPendingDocument) numbers.push_back(std::move(number));
    }
    std::sort(numbers.begin(), numbers.end(), comesBefore);
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
    return numbers;
}

bool fitsInList(const std::string& number) {
    return number.size() <= kIndexNumberWidth;
}

bool isDeleted(const OrderRow& record) {
    return record.get<&Record::Status>() == kDeletedOrder;
}

/// The records of the list by their numbers, and which of them have a document. Of several records
/// with one number, the first counts.
class ListedOrders {
  public:
    explicit ListedOrders(const OrderRecords& records)
        : records_(records), documented_(records.size()) {
        places_.reserve(records.size());
        for (std::size_t place = 0; place < records.size(); ++place)
            places_.emplace(records[place].get<&Record::Number>(), place);
    }

    /// The place of the order whose document has been found, which is listed under as much of its
    /// number as the list holds; nothing when it is not listed.
    std::optional<std::size_t> found(const std::string& number) {
        const auto listed = places_.find(trimmed(number.substr(0, kIndexNumberWidth)));
        if (listed == places_.end()) return std::nullopt;
        documented_[listed->second] = true;
        return listed->second;
    }

    std::vector<std::string> withoutDocument() const {
        std::vector<std::string> numbers;
        for (const auto& [number, place] : places_) {
            if (!documented_[place] && !isDeleted(records_[place])) numbers.push_back(number);
        }
        return numbers;
    }

  private:
    const OrderRecords& records_;
    std::vector<bool> documented_;
    std::unordered_map<std::string, std::size_t> places_;
};

/// The headings of the columns in which the list shows two records differently.
std::string differences(const OrderRow& a, const OrderRow& b, const RegionalFormats& formats) {
    std::string headings;
    for (const auto& column : kOrderColumnTable) {
        const bool same = column.amount != nullptr
                              ? column.amount(a) == column.amount(b)
                              : column.text(a, formats) == column.text(b, formats);
        if (!same) headings += (headings.empty() ? "" : ", ") + std::string(column.heading);
    }
    return headings;
}

/// What is said of one, and of several.
struct Wording {
    const char *one, *many;
};
/// In the order of the kinds of findings.
constexpr std::array kCounted{
    Wording{"order is missing in the list", "orders are missing in the list"},
    Wording{"order differs from its document", "orders differ from their documents"},
    Wording{"order has no document", "orders have no document"},
    Wording{"document cannot be read", "documents cannot be read"},
    Wording{"document has too long a number", "documents have too long a number"},
};
constexpr Wording kUndocumented{"order of the list has no document",
                                "orders of the list have no document"};
constexpr Wording kUnlisted{"document is not in the list", "documents are not in the list"};

/// Nothing is said of none.
std::string counted(std::size_t count, const Wording& wording) {
    return count == 0 ? ""
                      : std::to_string(count) + " " + (count == 1 ? wording.one : wording.many);
}

std::string joined(const std::string& a, const std::string& b) {
    return a + (a.empty() || b.empty() ? "" : ", ") + b;
}

}  // namespace

// A document in use is reported; it is not waited for.
ListRebuild::ListRebuild(const FileSystem& files, Commands& commands, const OrderIndex& index,
                         SavedOrders& savedOrders, const OrderDocuments& documents,
                         const RegionalFormats& formats)
    : ListTable(formats, kColumns),
      files_(files.withoutRetry()),
      commands_(commands),
      index_(index),
      savedOrders_(savedOrders),
      documents_(documents) {}

void ListRebuild::mu_RebuildOrderList_Click() {
    commands_.onData([&] {
        try {
            const bool compared = commands_.attemptOrAsk(
                "The list of orders cannot be compared with the documents: ", kTitle,
                [&] { compare(); });
            if (!compared) return;
        } catch (const Stopped&) {
            commands_.sayDone("Stopped; the list of orders is as it was");
            return;
        }
        if (!rows_.empty()) return commands_.open(&Screen::showRebuild);
        commands_.tell("The list of orders agrees with the documents. There is nothing to change.",
                       kTitle);
    });
}

/// The list is read first: whatever is saved after that changes it, and will be noticed.
void ListRebuild::compare() {
    LongOperation reading(commands_.prompts(), "Reading the order documents", 1);
    const auto step = [&](std::size_t done, std::size_t total) {
        if (!reading.mayGoOn(static_cast<int>(done), static_cast<int>(total))) throw Stopped{};
    };
    rows_.clear();
    content_ = index_.content();
    const auto numbers =
        documentNumbers(files_.fileNames(commands_.folder().DataPath(), [&] { step(0, 1); }));
    fresh_ = OrderIndex::recordsIn(content_, numbers.size());
    ListedOrders listed(fresh_);
    for (std::size_t done = 0; done < numbers.size(); ++done) {
        step(done, numbers.size());
        const std::string& number = numbers[done];
        if (fitsInList(number)) {
            compareWith(number, listed.found(number));
        } else {
            add(Finding::TooLong, number, "cannot be listed: its number is too long");
        }
    }
    if (fresh_.size() > kMostRecords) throw Fault(FaultNumber::Overflow);
    for (const auto& number : listed.withoutDocument())
        add(Finding::Undocumented, number, "has no document");
    if (content_.size() % OrderRow::kSize != 0) add(Finding::CutOff, "", kCutOff);
    std::sort(rows_.begin(), rows_.end(),
              [](const Finding& a, const Finding& b) { return comesBefore(a.number, b.number); });
    sort({&kColumns[0], false});
}

void ListRebuild::compareWith(const std::string& number, std::optional<std::size_t> place) {
    if (place && isDeleted(fresh_[*place])) return;
    const auto unreadable = [&](const std::string& why) {
        add(Finding::Unreadable, number, "cannot be read: " + why);
    };
    Record record;
    record.Status = statusOf(Order{});
    if (place) record = fresh_[*place].record();
    try {
        Order order;
        const std::string document = files_.read(commands_.folder().documentPath(number));
        const MarkersFound found = readMarkers(document, order, StoredTotals::Take);
        const std::string told = trimmed(order.PONoEd);
        if (told == kPendingNumber) return unreadable("its document holds no order");
        if (told != number) return unreadable("its document is that of order " + told);
        index_.enter(
            order, [&](OrderField box) { return found.has(box); }, record);
    } catch (const Fault& fault) {
        return unreadable(fault.inWords());
    }
    const std::string bytes = encodeRecord(kOrderIndexLayout, record);
    if (!place) {
        add(Finding::Missing, number, "is missing in the list");
        fresh_.put(fresh_.size(), bytes);
        return;
    }
    const std::string headings = differences(fresh_[*place], OrderRow(bytes.data()), formats_);
    if (headings.empty()) return;
    add(Finding::Differing, number, "differs: " + headings);
    fresh_.put(*place, bytes);
}

void ListRebuild::add(Finding::Kind kind, const std::string& number, const std::string& words) {
    rows_.push_back({kind, number, words});
}

std::size_t ListRebuild::count(Finding::Kind kind) const {
    return static_cast<std::size_t>(std::count_if(
        rows_.begin(), rows_.end(), [&](const Finding& row) { return row.kind == kind; }));
}

std::string ListRebuild::summary() const {
    std::string line;
    for (std::size_t kind = 0; kind < kCounted.size(); ++kind)
        line = joined(line, counted(count(static_cast<Finding::Kind>(kind)), kCounted[kind]));
    return joined(line, count(Finding::CutOff) == 0 ? "" : kCutOff);
}

void ListRebuild::Rebuild_Click() {
    commands_.onData([&] {
        const std::size_t added = count(Finding::Missing);
        const std::size_t changed = count(Finding::Differing);
        std::string kept;
        bool outdated = false;
        const bool done =
            commands_.attemptOrAsk("The list of orders was not rebuilt: ", kTitle, [&] {
                outdated = index_.content() != content_;
                if (outdated) return;
                kept = keep();
                index_.replaceAll(fresh_);
            });
        if (outdated) {
            commands_.tell(
                "Somebody has changed the list of orders in the meantime, so it was not rebuilt. "
                "Please choose the command again.",
                kTitle, Icon::Exclamation);
            return savedOrders_.PopPOGrid();
        }
        if (!done) return;
        savedOrders_.take(std::exchange(fresh_, OrderRecords()));
        rows_.clear();
        commands_.sayDone("The list of orders is rebuilt: " + std::to_string(added) + " added, " +
                          std::to_string(changed) + " changed" +
                          (kept.empty() ? "" : "; the former list is " + kept));
    });
}

/// Keeps the list as it is and returns its new name; nothing for an empty list.
std::string ListRebuild::keep() const {
    if (content_.empty()) return {};
    // A start removes it, should the program die before it is moved.
    const std::filesystem::path passing = commands_.folder().file("~bramblet-list.tmp");
    files_.replace(passing, content_);
    const auto kept = documents_.keep(passing, "po_data", ".dat");
    if (!kept) throw FileError(FaultNumber::FileNotFound, passing);
    return "kept/" + shown(kept->filename());
}

void ListRebuild::tellOfStrays(const std::vector<std::filesystem::path>& names) {
    const OrderRecords* const records = savedOrders_.records();
    if (std::exchange(looked_, true) || records == nullptr) return;
    std::size_t unlisted = 0;
    ListedOrders listed(*records);
    for (const auto& number : documentNumbers(names)) {
        if (!listed.found(number) && fitsInList(number)) ++unlisted;
    }
    const std::string strays = joined(counted(listed.withoutDocument().size(), kUndocumented),
                                      counted(unlisted, kUnlisted));
    if (strays.empty()) return;
    commands_.screen().showHint(strays + ": Data > Rebuild Order List from Documents shows which");
}

}  // namespace bramblet
