#include "fuzz/targets.h"

#include "core/document/display_html.h"
#include "core/document/display_style.h"
#include "core/document/markup.h"
#include "core/document/order_markers.h"
#include "core/history/field_history.h"
#include "core/orders/csv_export.h"
#include "core/orders/pasted_lines.h"
#include "core/platform/amount_text.h"
#include "core/platform/dates.h"
#include "core/platform/path_text.h"
#include "core/platform/sorting.h"
#include "fuzz/desk.h"
#include "support/merged_stock.h"
#include "support/regions.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace bramblet::test {
namespace {

using enum AddressSide;

constexpr int kMostRows = 4;  ///< of a list, for what is done with one row after the other

std::string_view takeFront(std::string_view& text, std::size_t count) {
    const std::string_view front = text.substr(0, count);
    text.remove_prefix(front.size());
    return front;
}

/// A file of records after one more has been appended to those that it held.
void checkAppended(std::string_view before, std::string_view after, std::size_t count,
                   std::size_t size) {
    mustHold(after.size() == std::max(before.size(), (count + 1) * size), "one record is added");
    const std::string_view kept = before.substr(0, count * size);
    mustHold(after.starts_with(kept), "the records before a new one stay as they are");
}

/// A file after some bytes of one of its records have been changed.
void checkChanged(std::string before, const std::string& after, std::size_t offset,
                  std::size_t length) {
    mustHold(before.size() == after.size(), "a change of a record keeps the length of the file");
    before.replace(offset, length, after, offset, length);
    mustHold(before == after, "a change of a record leaves the others as they are");
}

/// A list sorted by every column, with all its cells.
template <class List>
void lookThrough(List& list) {
    for (int column = 0; column < list.columnCount(); ++column) {
        list.sortBy(column);
        list.widest(column);
        for (int row = 0; row < list.rowCount(); ++row)
            list.cell(row, column);
    }
    for (int row = 0; row < list.rowCount(); ++row)
        list.mark(row);
}

/// Saves the order shown, opens it, and saves it again. A number that names no file is refused, and
/// so is an amount that cannot be read.
void checkSaving(Desk& desk) {
    desk->editor.SaveChanges_Click();
    if (desk->settings.OrdersSavedCount == 0) return;
    const Order saved = desk->open.order();
    const auto file = desk->commands.folder().documentPath(saved.PONoEd).filename();
    const std::string document = desk.stored(file);
    desk->editor.POGrid_Click(saved.PONoEd);
    mustHold(trimmed(desk->open.order().PONoEd) == trimmed(saved.PONoEd), "a saved order is found");
    mustHold(desk->open.order().lines.size() == saved.lines.size(), "a saved order has its lines");
    desk->editor.SaveChanges_Click();
    mustHold(desk.stored(file) == document, "an order opened and saved again stays as it is");
}

void settings(std::string_view input) {
    constexpr std::size_t kSize = recordSize(kSettingsLayout);
    for (const char* const name : {"po15.cfg", "po14.cfg"}) {
        const TemporaryFolder home;
        writeFile(home / name, std::string(input));
        YesMan prompts;
        const SettingsFile file({}, home.path());
        const Settings settings = file.LoadConfig(prompts);
        const auto folder = pathOfFolder(settings.DataDirectory);
        const auto text = folderText(folder);
        mustHold(!text || pathOfFolder(*text) == folder, "a folder's text names that folder");
        for (const auto field : {&Settings::WindowTop, &Settings::FormWidth})
            mustHold(std::isfinite(leadingNumber(settings.*field)), "a number is finite");

        file.SaveConfig(settings);
        const std::string saved = contentOf(home / "po15.cfg");
        mustHold(encodeRecord(kSettingsLayout, file.LoadConfig(prompts)) == saved.substr(0, kSize),
                 "settings read again are the same");
        if (input.size() < kSize || name != std::string_view("po15.cfg")) continue;
        std::string expected(input.substr(0, kSize));
        expected.replace(908, kFolderWidth, saved, 908, kFolderWidth);
        mustHold(saved == expected, "settings that are read and written stay as they are");
    }
}

void orders(std::string_view input) {
    constexpr std::size_t kSize = RecordView<kOrderIndexLayout>::kSize;
    Desk desk("po_data.dat", input);
    const OrderRecords records = desk->index.readAll();
    const std::size_t count = (input.size() + kSize / 2) / kSize;
    mustHold(records.size() == count, "the records are those of the file");
    for (std::size_t i = 0; i < count; ++i) {
        const std::string_view whole = input.substr(i * kSize, kSize);
        mustHold(records[i].bytes().starts_with(whole), "a record is what stands in the file");
    }
    lookThrough(desk->savedOrders);
    ordersAsCsv(records, {});

    const int rows = std::min(desk->savedOrders.rowCount(), kMostRows);
    for (int row = 0; row < rows; ++row) {
        const std::string number = desk->savedOrders.number(row);
        desk->editor.POGrid_Click(number);
        desk->viewer.MakeOrder_Click();
    }
    mustHold(desk.stored("po_data.dat") == input, "looking at orders changes no record");

    desk->editor.NewPO_Click();
    std::string before = desk.stored("po_data.dat");
    checkAppended(input, before, count, kSize);
    for (const OrderRow record : records)
        mustHold(record.get<&OrderIndexRecord::Number>() != desk->open.order().PONoEd,
                 "a new number is new");

    if (count == 0) return desk.checkAround();
    desk->index.markDeleted(std::string(records[0].get<&OrderIndexRecord::Number>()));
    checkChanged(before, desk.stored("po_data.dat"), 0, 1);
    desk.checkAround();
}

void addresses(std::string_view input) {
    constexpr std::size_t kSize = RecordView<kAddressLayout>::kSize;
    Desk desk("po_addy.dat", input);
    const auto path = desk.data("po_addy.dat");
    AddressFile file({}, path);
    const AddressRecords records = file.readAll();
    mustHold(records.size() == input.size() / kSize, "the records are those of the file");
    for (const AddressSide side : kAddressSides) {
        const auto names = desk->addresses.shown(side).names;
        mustHold(names.size() <= records.size(), "no more names are listed than there are records");
        for (const std::string& name : names) {
            desk->addresses.Combo_Change(side, name);
            desk->addresses.Combo_Click(side);
        }
    }
    mustHold(contentOf(path) == input, "picking addresses does not change them");
    const double next = file.GetNextAddyTag();
    mustHold(file.append(kVendor, "New", "") == next, "a new address gets the next number");
    std::string before = contentOf(path);
    checkAppended(input, before, records.size(), kSize);

    for (std::size_t i = 0; i < std::min<std::size_t>(records.size(), kMostRows); ++i) {
        const std::string name = listedName(records[i]);
        const auto found = file.findNamed(file.readAll(), name);
        if (name.empty() || !found) {
            mustHold(name.empty() || i > 0, "an address that is listed is found");
            continue;
        }
        before = contentOf(path);
        file.rewrite(kVendor, name, "1 New Street");
        const std::string after = contentOf(path);
        mustHold(after.size() == before.size(), "an address is rewritten in its place");
        file.removeNamed(name);
        const std::size_t left = contentOf(path).size();
        mustHold(left % kSize == 0 && left < after.size(), "a deleted address is gone");
    }
    desk.checkAround();
}

void stock(std::string_view input) {
    constexpr std::size_t kSize = RecordView<kStockItemLayout>::kSize;
    Desk desk("po_stock.dat", input);
    const auto content = [&] { return desk.stored("po_stock.dat"); };
    StockFile file({}, desk.data("po_stock.dat"), desk->formats());
    const StockRecords records = file.readAll();
    mustHold(records.size() == input.size() / kSize, "the records are those of the file");

    desk->settings.UseQuantities = "Y";
    desk->stock.PopStockList();
    lookThrough(desk->stock);
    desk->stock.entries();
    for (int row = 0; row < std::min(desk->stock.rowCount(), kMostRows); ++row) {
        desk->stock.StockGrid_Click(row);
        desk->lines.StockGrid_DblClick(desk->stock, row);
        desk->lines.StockGrid_DblClick(desk->stock, row);
    }
    checkSaving(desk);
    mustHold(content() == input, "picking items does not change them");

    if (records.empty()) return desk.checkAround();
    std::string before = content();
    const auto attempt = [&](auto step) {
        try {
            step();
        } catch (const Fault&) {
            mustHold(content() == before, "a change that fails changes nothing");
        }
    };
    const double tag = records[0].get<&StockItemRecord::Tag>();
    const auto place = static_cast<std::size_t>(std::max(recordNumberOf(tag), 1)) - 1;
    attempt([&] {
        file.setOnHand(recordNumberOf(tag), Currency{70000});
        checkChanged(before, content(), place * kSize + 367, 8);
    });
    before = content();
    attempt([&] {
        file.markDeleted(recordNumberOf(tag));
        checkChanged(before, content(), place * kSize, 1);
    });
    before = content();
    attempt([&] {
        file.SaveChangedStockItem(tag, {"C", "V", "U", "D", "1"});
        checkChanged(before, content(), 0, std::isnan(tag) ? 0 : kSize);
    });
    before = content();
    const std::size_t count = before.size() / kSize;
    file.SaveNewStockItem({"C", "V", "U", "D", "1"});
    checkAppended(before, content(), count, kSize);
    desk.checkAround();
}

/// The first byte tells how many of the records are those of the catalogue; the others are a `.sid`
/// file.
void catalogues(std::string_view input) {
    constexpr std::size_t kSize = StockRow::kSize;
    if (input.empty()) return;
    const auto count = static_cast<unsigned char>(takeFront(input, 1)[0]) % 8u;
    const std::string before(takeFront(input, count * kSize));
    Desk desk("po_stock.dat", before);
    desk.choose(input);
    desk->stockExchange.mu_ImportStockItems_Click();
    bool valid = input.size() % kSize == 0;
    for (std::size_t i = 0; valid && i < input.size(); i += kSize)
        valid = input.substr(i, 1) == kExportedItem;
    mustHold(desk.stored("po_stock.dat") == (valid ? mergedByScanning(before, input) : before),
             "an import does to the catalogue what it says");
    desk.checkAround();
}

void contacts(std::string_view input) {
    constexpr std::size_t kSize = AddressRow::kSize;
    constexpr std::size_t kContact = 1047;
    Desk desk("", "");
    desk.choose(input);
    desk->contactImport.mu_ImportKettleby_Click();
    desk->contactImport.selectFile();
    if (!desk->contactImport.importEnabled()) return desk.checkAround();
    desk->contactImport.ImportKettlebyVendors_Click();
    const std::string added = desk.stored("po_addy.dat");
    mustHold(added.size() % kSize == 0, "whole addresses are added");
    mustHold(added.size() / kSize <= (input.size() + kContact / 2) / kContact,
             "no more addresses are added than there are contacts");
    for (std::size_t i = 0; i < added.size(); i += kSize)
        mustHold(!AddressRow(added.data() + i).get<&AddressRecord::Name>().empty(),
                 "every address has a name");
    desk->contactImport.ImportKettlebyVendors_Click();
    mustHold(desk.stored("po_addy.dat") == added + added, "a second import adds the same again");
    desk.checkAround();
}

/// The first byte chooses what is made of a table, which is the rest; it is also pasted.
void tables(std::string_view input) {
    if (input.empty()) return;
    const auto choices = static_cast<unsigned char>(takeFront(input, 1)[0]);
    const PastedLines pasted(input, enUS());
    for (int row = 0; row < pasted.rowCount(); ++row)
        mustHold(amountIn(pasted.row(row)[kUnitCost], enUS()).has_value(),
                 "a pasted line has a cost");
    Desk desk("", "");
    desk.choose(input);
    TableImport& table = desk->tableImport;
    table.mu_ImportTable_Click();
    const auto& rows = table.table().rows();
    if (rows.empty()) return desk.checkAround();
    table.setKind(static_cast<TableKind>(choices % 3));
    table.setCoding(static_cast<TableCoding>(choices / 4 % 2));
    table.setSkipsKnown(choices / 8 % 2 == 0);
    if (choices / 16 % 2 == 0 && !rows.empty()) table.choose(0, 0);
    if (!table.mayImport()) return desk.checkAround();
    const bool skips = table.skipsKnown();
    mustHold(table.Import_Click(), "rows that are shown can be imported");
    const std::string addresses = desk.stored("po_addy.dat"), items = desk.stored("po_stock.dat");
    mustHold(addresses.size() % AddressRow::kSize == 0, "whole addresses are added");
    mustHold(items.size() % StockRow::kSize == 0, "whole items are added");
    mustHold(
        (addresses.size() / AddressRow::kSize) + (items.size() / StockRow::kSize) <= rows.size(),
        "no more is added than the table has rows");
    table.setSkipsKnown(skips);
    mustHold(!table.mayImport() || table.Import_Click(), "a table can be imported again");
    mustHold(desk.stored("po_addy.dat").size() == addresses.size() &&
                 desk.stored("po_stock.dat").size() == items.size(),
             "what is there already is not added again");
    desk.checkAround();
}

/// The first line is the value that is remembered and forgotten, the rest is the file.
void history(std::string_view input) {
    const std::string value(takeFront(input, input.find('\n')));
    const TemporaryFolder folder;
    const auto path = folder / "by_field.dat";
    writeFile(path, std::string(input));
    FieldHistory history(path);
    history.remember({}, "");
    const auto before = history.entries();
    mustHold(contentOf(path) == input, "reading the values changes nothing");

    history.remember({}, value);
    const std::string remembered = contentOf(path);
    mustHold(remembered.starts_with(input), "the values before a new one stay as they are");
    history.remember({}, value);
    mustHold(contentOf(path) == remembered, "a value is remembered once");
    const auto isValue = [&](const std::string& entry) { return trimmed(entry) == trimmed(value); };
    const auto& entries = *history.entries();
    const bool oneLine = value.find('\r') == std::string::npos;
    mustHold(
        trimmed(value).empty() || !oneLine || std::any_of(entries.begin(), entries.end(), isValue),
        "a value is listed once it is remembered");

    history.forget({}, value);
    history.remember({}, "");
    std::vector<std::string> others = *before;
    if (oneLine) std::erase_if(others, isValue);
    mustHold(!oneLine || *history.entries() == others, "only the value forgotten is gone");
}

/// What follows `name="` in a tag, up to the next quote.
std::string valueIn(std::string_view tag, const std::string& name) {
    const std::string opening = " " + name + "=\"";
    const auto place = tag.find(opening);
    if (place == std::string_view::npos) return {};
    tag.remove_prefix(place + opening.size());
    return std::string(tag.substr(0, tag.find('"')));
}

/// Checks that every tag of a page is one of the few that the display uses, closed in order, and
/// leads nowhere but to the web, to a mail address or to a picture of the data folder. Returns what
/// is no tag.
std::string checkedText(std::string_view html) {
    constexpr int kMostTables = 4;
    std::vector<std::string> open;
    std::string text;
    for (;;) {
        text += takeFront(html, html.find('<'));
        if (html.empty()) break;
        std::size_t end = 1;
        for (bool quoted = false; end < html.size() && (quoted || html[end] != '>'); ++end)
            quoted = quoted != (html[end] == '"');
        mustHold(end < html.size(), "every tag ends");
        const std::string tag(takeFront(html, end + 1));
        const bool closing = tag[1] == '/';
        const std::size_t start = closing ? 2 : 1;
        const std::string name = tag.substr(start, tag.find_first_of(" >") - start);
        const Element* const element = elementNamed(name);
        mustHold(element != nullptr, tag + " is known");
        if (closing) {
            mustHold(!open.empty() && open.back() == name, tag + " closes what is open");
            open.pop_back();
        } else if (element->role != Role::Single) {
            open.push_back(name);
        }
        const std::string source = valueIn(tag, "src");
        mustHold(source.find_first_of("/\\:") == std::string::npos, "pictures have plain names");
        mustHold(name != "a" || closing || isHarmlessLink(valueIn(tag, "href")),
                 "links are harmless");
        mustHold(std::count(open.begin(), open.end(), "table") <= kMostTables,
                 "tables are not nested deep");
    }
    mustHold(open.empty(), "every tag is closed");
    return text;
}

/// Whether a page's text has everything in it that is text in its document, apart from the
/// document's head and the colons of filler rows.
bool hasTextOf(std::string_view document, const std::string& shown) {
    MarkupReader reader(document);
    std::size_t place = 0;
    while (const auto piece = reader.next()) {
        if (piece->tag && piece->tag->is("head")) return true;
        if (piece->tag) continue;
        for (const char c : piece->text) {
            if (static_cast<unsigned char>(c) <= ' ' || c == ':') continue;
            place = shown.find(c == '<' ? '&' : c, place);
            if (place++ == std::string::npos) return false;
        }
    }
    return true;
}

void display(std::string_view input) {
    constexpr std::size_t kMostPerByte = 30;
    for (const double zoom : {1.0, 3.0}) {
        const DisplayPage page = displayPage(input, zoom);
        mustHold(page.html.size() <= kMostPerByte * input.size(),
                 "a page is not much longer than its document");
        mustHold(page.width >= 100 * zoom && page.width <= 1000 * zoom, "a page has a usual width");
        mustHold(page.fontSize > 0, "letters can be seen");
        if (const auto& graphic = page.topGraphic) {
            const std::string tag = page.html.substr(graphic->place, graphic->length);
            mustHold(tag.starts_with("<img ") && tag.ends_with(">"),
                     "the top graphic is where it is said to be");
        }
        mustHold(hasTextOf(input, checkedText(page.html)), "no text is lost");
    }
}

void documents(std::string_view input) {
    Desk desk("000001.htm", input);
    desk->editor.POGrid_Click("000001");
    const Order opened = desk->open.order();
    mustHold(opened.lines.size() <= input.size() / kItemOpening.size(),
             "the lines are those of the document");
    mustHold(desk.stored("000001.htm") == input, "opening an order does not change it");
    if (const auto& graphic = displayPage(input, 1).topGraphic)
        mustHold(desk->viewer.picture(graphic->name).empty(), "other pictures are not shown");
    desk->viewer.MakeOrder_Click();
    checkedText(displayPage(desk->viewer.document(), 1).html);
    checkSaving(desk);
    desk.checkAround();
}

void numbers(std::string_view input) {
    std::string text(input);
    mustHold(cleanedNumber(CleanNumber(text)) == cleanedNumber(input),
             "a clean number stays as it is");
    mustHold(std::isfinite(leadingNumber(input)), "a leading number is finite");
    for (const RegionalFormats& formats : {enUS(), enGB(), deDE(), frFR(), enIN(), jaJP()}) {
        currencyText(input, formats);
        try {
            const double number = numberOf(input, formats);
            mustHold(std::isfinite(number), "a number is finite");
            const Currency amount = amountOf(input, formats);
            constexpr std::int64_t kKeptByDoubles = 1'000'000'000'000'000;
            if (std::abs(amount.tenThousandths) >= kKeptByDoubles) continue;
            mustHold(amountOf(exactText(amount, formats), formats) == amount,
                     "an amount that is written can be read");
            mustHold(amountOf(generalText(amount, formats), formats) == amount,
                     "an amount that is written can be read");
            const std::string standard = standardText(amount, formats);
            mustHold(standardText(amountOf(standard, formats), formats) == standard,
                     "an amount that is shown can be read");
            if (amount >= Currency{})
                mustHold(numberOf(currencyText(amount, formats), formats) >= 0,
                         "an amount with its sign can be read");
        } catch (const Fault&) {
            continue;
        }
    }
}

void dates(std::string_view input) {
    for (const RegionalFormats& formats : {enUS(), enGB(), deDE(), frFR(), enIN(), jaJP()}) {
        const auto day = parseDate(input, formats, 46085);
        if (!day) continue;
        const std::string shown = shortDateText(*day, formats);
        mustHold(!shown.empty() && parseDate(shown, formats, 46085) == day,
                 "a date that is written can be read");
        mustHold(toDayCount(toCivilDate(*day)) == day, "a day has one date");
    }
    double days = 0;
    if (input.size() != sizeof days) return;
    std::copy(input.begin(), input.end(), reinterpret_cast<char*>(&days));
    const std::string shown = shortDateText(days, {});
    mustHold(shown.empty() || parseDate(shown, {}, 46085) == std::trunc(days),
             "any day that is written can be read");
}

void names(std::string_view input) {
    mustHold(isPlainFileName(madePlainFileName(std::string(input))), "a name is made plain");
    mustHold(fromUnicode(toUnicode(input)) == input, "a text survives Unicode");
    sortKey(std::string(input));
    const TemporaryFolder folder;
    const DataFolder data(folder / "data");
    try {
        const auto path = data.documentPath(std::string(input));
        mustHold(path.lexically_normal().parent_path() == folder / "data",
                 "a document is in the data folder");
        FileSystem().createFolders(data.DataPath());
        FileSystem().touch(path);
        mustHold(FileSystem().fileNames(data.DataPath()) == std::vector{path.filename()},
                 "a document has its own name");
    } catch (const FileError& error) {
        mustHold(error.number() == FaultNumber::BadFileName,
                 "a file system accepts every plain name");
    }
}

}  // namespace

constexpr std::array<Target, 13> kTargets{{
    {"settings", settings},
    {"orders", orders},
    {"addresses", addresses},
    {"stock", stock},
    {"catalogues", catalogues},
    {"contacts", contacts},
    {"tables", tables},
    {"history", history},
    {"documents", documents},
    {"display", display},
    {"numbers", numbers},
    {"dates", dates},
    {"names", names},
}};

}  // namespace bramblet::test
