#include "core/addresses/table_import.h"

#include "core/platform/amount_text.h"
#include "core/platform/code_page.h"
#include "core/platform/path_text.h"
#include "core/platform/record_file.h"
#include "core/platform/text.h"
#include "core/platform/utf8.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

namespace bramblet {
namespace {

constexpr const char* kTitle = "Import a Table";

using Headings = std::vector<std::vector<std::string_view>>;

/// What an address is made of, in the order of its lines.
enum AddressPart : std::size_t {
    kAddressName,
    kLine1,
    kLine2,
    kTown,
    kRegion,
    kPostalCode,
    kCountry,
    kPhone,
    kFax
};
const Headings kAddressHeadings{
    {"NAME", "COMPANY", "VENDOR", "SUPPLIER", "ORGANI", "FIRM", "SHIP TO", "DESTINATION"},
    {"ADDRESS", "STREET", "LINE 1"},
    {"ADDRESS 2", "ADDRESS2", "ADDRESS LINE 2", "STREET 2", "STREET2", "LINE 2", "SUITE"},
    {"TOWN", "CITY", "PLACE"},
    {"STATE", "REGION", "PROVINCE", "COUNTY"},
    {"POST", "ZIP"},
    {"COUNTRY"},
    {"PHONE", "TEL"},
    {"FAX"},
};

enum ItemPart : std::size_t { kItemDescription, kItemVendor, kItemCategory, kItemUnit, kItemCost };
const Headings kItemHeadings{
    {"DESC", "ITEM", "ARTICLE", "PRODUCT", "NAME"},
    {"VENDOR", "SUPPL", "MANUF", "BRAND"},
    {"CATEG", "GROUP", "CLASS", "TYPE"},
    {"UNIT OF", "UNIT", "UOM", "U/M", "MEASURE"},
    {"UNIT COST", "UNIT PRICE", "COST", "PRICE", "RATE"},
};

template <auto Member>
constexpr std::size_t kAddressWidth = AddressRow::fieldOf<Member>().width;
template <auto Member>
constexpr std::size_t kItemWidth = StockRow::fieldOf<Member>().width;

bool isAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

/// Only digits and what stands among them: a heading may have a digit in it.
bool isNumber(const std::string& cell) {
    return cell.find_first_of("0123456789") != std::string::npos &&
           cell.find_first_not_of("0123456789.,'-+ $\x80\xA3") == std::string::npos;
}

/// The text in the code page; counts what that lacks.
std::string decoded(std::string_view bytes, TableCoding coding, std::size_t& lost) {
    static const CodePage western = windows1252();
    std::string text;
    text.reserve(bytes.size());
    if (coding == TableCoding::Utf8 && bytes.starts_with(kUtf8Mark))
        bytes.remove_prefix(kUtf8Mark.size());
    while (!bytes.empty()) {
        Utf8Sequence sequence{1, western.unicode[static_cast<unsigned char>(bytes.front())]};
        if (coding == TableCoding::Utf8) {
            sequence = firstUtf8Sequence(bytes).value_or(Utf8Sequence{1, U'\uFFFD'});
        }
        bytes.remove_prefix(sequence.length);
        const auto byte = byteOf(sequence.character);
        if (!byte) ++lost;
        text.push_back(byte.value_or('?'));
    }
    return text;
}

/// The sign before the decimals of an amount; nothing when it may as well be between groups.
char decimalSignOf(const std::string& amount) {
    const auto sign = amount.find_last_of(".,");
    if (sign == std::string::npos) return 0;
    const auto first = amount.find_first_of(".,");
    if (amount[first] != amount[sign]) return amount[sign];
    if (first != sign) return amount[sign] == '.' ? ',' : '.';  // it comes twice: between groups
    std::size_t digits = 0;
    while (sign + 1 + digits < amount.size() && isDigit(amount[sign + 1 + digits]))
        ++digits;
    return digits == 3 ? '\0' : amount[sign];
}

/// Texts with something between those that are not empty.
std::string joined(std::initializer_list<std::string> texts, const char* between) {
    std::string all;
    for (const std::string& text : texts) {
        if (!text.empty()) all += (all.empty() ? "" : between) + text;
    }
    return all;
}

void addRemark(std::string& remark, const std::string& more) {
    remark += (remark.empty() ? "" : "; ") + more;
}

std::string counted(std::size_t count, const char* one, const char* many) {
    return std::to_string(count) + " " + (count == 1 ? one : many);
}

}  // namespace

TableImport::TableImport(const FileSystem& files, Commands& commands, const OpenOrder& open,
                         AddressBook& addresses, StockExchange& stock,
                         const RegionalFormats& formats)
    : files_(files.withoutRetry()),
      commands_(commands),
      open_(open),
      addresses_(addresses),
      stock_(stock),
      formats_(formats),
      addressRows_(formats),
      itemRows_(formats) {}

void TableImport::mu_ImportTable_Click() {
    commands_.onData([&] {
        const auto path = commands_.prompts().chooseFileToOpen(
            {kTitle, "", "", {{"Tables", "*.csv"}, {"All Files", "*.*"}}});
        if (!path) return;
        file_ = *path;
        const bool done = commands_.attemptOrAsk("The table cannot be shown: ", kTitle, [&] {
            read();
            knownNames_ = addresses_.knownNames();
            knownItems_ = stock_.knownItems();
        });
        if (!done) return;
        if (bytes_.find('\0') != std::string::npos)
            return commands_.tell(
                "This file is no table of text. In the program that it comes "
                "from, save the table as CSV first.",
                kTitle, Icon::Exclamation);
        split();
        if (table_.rows().size() > kMostRecords)
            return commands_.tell("This table has more than 32,767 rows.", kTitle,
                                  Icon::Exclamation);
        if (table_.rows().empty())
            return commands_.tell("This table is empty.", kTitle, Icon::Exclamation);
        commands_.open(&Screen::showTableImport);
    });
}

void TableImport::read() {
    bytes_ = files_.read(file_);
    const bool utf8 = bytes_.starts_with(kUtf8Mark) || isAscii(bytes_) || isUtf8(bytes_);
    coding_ = utf8 ? TableCoding::Utf8 : TableCoding::Windows1252;
    text_ = decoded(bytes_, coding_, lost_ = 0);
    separator_ = likelySeparator(text_);
    skipsKnown_ = true;
    const auto recognized = [&](const Headings& headings) {
        return SourceTable(cellsIn(text_.substr(0, text_.find('\n') + 1) + "-", separator_),
                           headings, isNumber)
            .chosen();
    };
    const bool items = recognized(kItemHeadings) > recognized(kAddressHeadings);
    kind_ = items ? TableKind::Items : TableKind::Vendors;
}

void TableImport::setKind(TableKind kind) {
    const bool sameColumns = isItems() == (kind == TableKind::Items);
    kind_ = kind;
    sameColumns ? rebuild() : guessSources();
}

void TableImport::setCoding(TableCoding coding) {
    coding_ = coding;
    text_ = decoded(bytes_, coding_, lost_ = 0);
    split();
}

void TableImport::setSeparator(char separator) {
    separator_ = separator;
    split();
}

void TableImport::setDecimalSign(char sign) {
    decimalSign_ = sign;
    rebuild();
}

void TableImport::choose(std::size_t taken, int source) {
    table_.choose(taken, source);
    if (isItems() && taken == kItemCost) guessDecimalSign();
    rebuild();
}

void TableImport::setHeaded(bool headed) {
    table_.setHeaded(headed);
    rebuild();
}

void TableImport::split() {
    table_ = SourceTable(cellsIn(text_, separator_), {}, isNumber);
    guessSources();
}

/// Without headings, the first column is the name or the description.
void TableImport::guessSources() {
    table_ = SourceTable(table_.rows(), isItems() ? kItemHeadings : kAddressHeadings, isNumber);
    if (!table_.headed()) table_.choose(0, 0);
    guessDecimalSign();
    rebuild();
}

/// By the amounts that leave no doubt; if there are none, that of the region.
void TableImport::guessDecimalSign() {
    decimalSign_ = formats_.decimalSeparator == "," ? ',' : '.';
    if (!isItems()) return;
    int commas = 0, points = 0;
    for (std::size_t row = table_.firstRow(); row < table_.rows().size(); ++row) {
        const char sign = decimalSignOf(cleanedNumber(text(row, kItemCost)));
        commas += sign == ',' ? 1 : 0;
        points += sign == '.' ? 1 : 0;
    }
    if (commas != points) decimalSign_ = commas > points ? ',' : '.';
}

void TableImport::rebuild() {
    left_ = known_ = tooLong_ = unread_ = 0;
    std::vector<PreviewedAddress> addresses;
    std::vector<PreviewedItem> items;
    std::unordered_set<std::string> names;
    KnownItems keys;
    ItemKey key;
    for (std::size_t row = table_.firstRow(); row < table_.rows().size(); ++row) {
        if (trimmed(withoutControls(text(row, 0))).empty()) {
            ++left_;
        } else if (isItems()) {
            PreviewedItem item = itemOf(row);
            key.of(item.item.record.Description, item.item.record.Vendor);
            if (!keys.insert(key).second) addRemark(item.remark, "twice in this table");
            items.push_back(std::move(item));
        } else {
            PreviewedAddress address = addressOf(row);
            if (!names.insert(upper(address.entry.name)).second)
                addRemark(address.remark, "twice in this table");
            addresses.push_back(std::move(address));
        }
    }
    addressRows_.show(std::move(addresses));
    itemRows_.show(std::move(items));
}

std::string TableImport::text(std::size_t row, std::size_t taken) const {
    return table_.text(row, taken);
}

/// Cuts a text as it is cut when it is stored, so that it is compared in that form.
void TableImport::fit(const char* field, std::string& text, std::size_t most, std::string& remark) {
    if (text.size() <= most) return;
    ++tooLong_;
    addRemark(remark, std::string(field) + " has " + std::to_string(text.size()) + " of " +
                          std::to_string(most) + " characters");
    text = trimmed(text.substr(0, most));
}

PreviewedAddress TableImport::addressOf(std::size_t row) {
    const auto line = [&](AddressPart part) { return joinedLines(text(row, part), "\r\n"); };
    const auto labelled = [&](const char* label, AddressPart part) {
        const std::string number = line(part);
        return number.empty() ? number : label + number;
    };
    PreviewedAddress result;
    result.entry.name = trimmed(withoutControls(text(row, kAddressName)));
    const std::string town = joined({line(kTown), line(kRegion), line(kPostalCode)}, " ");
    const std::string numbers = joined({labelled("Phone ", kPhone), labelled("Fax ", kFax)}, " ");
    result.entry.address = joined(
        {joined({line(kLine1), line(kLine2), town, line(kCountry)}, "\r\n"), numbers}, "\r\n\r\n");
    std::string cut;
    fit("Name", result.entry.name, kAddressWidth<&AddressRecord::Name>, cut);
    fit("Address", result.entry.address, kAddressWidth<&AddressRecord::Address>, cut);
    const std::string known = knownNames_.kindOf(result.entry.name);
    if (!known.empty()) {
        ++known_;
        addRemark(result.remark, "In the book as " + known);
    }
    if (!cut.empty()) addRemark(result.remark, cut);
    return result;
}

PreviewedItem TableImport::itemOf(std::size_t row) {
    const auto cell = [&](ItemPart part) { return trimmed(withoutControls(text(row, part))); };
    const auto isTaken = [&](ItemPart part) {
        return table_.source(part) != SourceTable::kNowhere;
    };
    PreviewedItem result;
    result.item = {{}, isTaken(kItemCategory), isTaken(kItemUnit), isTaken(kItemCost)};
    StockItemRecord& record = result.item.record;
    record.Description = cell(kItemDescription);
    record.Vendor = isTaken(kItemVendor) ? cell(kItemVendor) : trimmed(open_.order().ToCombo);
    record.Category = cell(kItemCategory);
    record.Unit = cell(kItemUnit);
    std::string cut;
    fit("Description", record.Description, kItemWidth<&StockItemRecord::Description>, cut);
    fit("Vendor", record.Vendor, kItemWidth<&StockItemRecord::Vendor>, cut);
    fit("Category", record.Category, kItemWidth<&StockItemRecord::Category>, cut);
    fit("Unit", record.Unit, kItemWidth<&StockItemRecord::Unit>, cut);
    if (knownItems_.contains(ItemKey().of(record.Description, record.Vendor))) {
        ++known_;
        addRemark(result.remark, "In the catalogue");
    }
    RegionalFormats formats = formats_;
    formats.decimalSeparator = decimalSign_;
    formats.groupSeparator = decimalSign_ == ',' ? "." : ",";
    const std::string cost = cell(kItemCost);
    const auto amount = amountIn(cost, formats);
    try {
        record.UnitCost = toCurrency(amount.value_or(0));
    } catch (const Fault&) {
        record.UnitCost = {};
    }
    if (!cost.empty() && (!amount || (record.UnitCost == Currency{} && *amount != 0))) {
        ++unread_;
        addRemark(result.remark, "\"" + cost + "\" is no cost");
    }
    if (!cut.empty()) addRemark(result.remark, cut);
    return result;
}

std::string TableImport::summary() const {
    std::string line = counted(static_cast<std::size_t>(rowCount()), "row", "rows");
    if (known_ > 0) {
        line += ", " + std::to_string(known_) +
                (isItems() ? " in the catalogue already" : " in the address book already");
    }
    if (left_ > 0) {
        line += "; " + std::to_string(left_) +
                (isItems() ? " without a description" : " without a name") + ", left out";
    }
    return line;
}

std::string TableImport::doubts() const {
    std::string lines;
    if (tooLong_ > 0) {
        lines +=
            counted(tooLong_, "text is too long and is cut", "texts are too long and are cut") +
            ": see the remarks. ";
    }
    if (unread_ > 0) {
        lines += counted(unread_, "cost cannot be read and counts as 0",
                         "costs cannot be read and count as 0") +
                 ". ";
    }
    if (lost_ > 0) {
        lines += counted(lost_, "character cannot be stored and becomes \"?\"",
                         "characters cannot be stored and become \"?\"") +
                 ".";
    }
    return trimmed(lines);
}

bool TableImport::Import_Click() {
    bool done = false;
    commands_.onData([&] {
        std::string result;
        done = commands_.attemptOrAsk(
            "The import ended early. Import the table again to have the rest. ", "Import Failed",
            [&] { result = isItems() ? importItems() : importAddresses(); }, Icon::Stop);
        if (done) commands_.tell(result, "Import Complete");
    });
    return done;
}

std::string TableImport::importAddresses() {
    std::vector<NameAndAddress> entries;
    for (int row = 0; row < addressRows_.rowCount(); ++row)
        entries.push_back(addressRows_.row(row).entry);
    return addresses_.importTable(kind_ == TableKind::Vendors ? kVendor : kDestination, entries,
                                  !skipsKnown_);
}

std::string TableImport::importItems() {
    std::vector<TableItem> items;
    for (int row = 0; row < itemRows_.rowCount(); ++row)
        items.push_back(itemRows_.row(row).item);
    return stock_.importTable(items, !skipsKnown_);
}

}  // namespace bramblet
