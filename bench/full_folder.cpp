#include "full_folder.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <fstream>
#include <ranges>
#include <stdexcept>

namespace bramblet::bench {
namespace {

constexpr std::array kTowns{"Ashby",   "Brindle", "Corley", "Denholm", "Elstow",
                            "Farnley", "Girton",  "Hexham", "Ilkley",  "Jarrow",
                            "Kelso",   "Langton", "Marlow", "Norwell", "Oakham",
                            "Penrith", "Quorn",   "Ripley", "Selby",   "Thirsk"};
constexpr std::array kTrades{"Timber Ltd",       "Fixings",         "& Sons, Ironmongers",
                             "Paint Company",    "Glass",           "Plumbing Supplies",
                             "Tool Hire",        "Electrical",      "Builders' Merchants",
                             "Board and Veneer", "Hardware Stores", "Adhesives",
                             "Safety Equipment", "Steel",           "Office Supplies"};
constexpr std::array kThings{"Screw, brass, countersunk",
                             "Hinge, steel, 75 mm",
                             "PVA glue",
                             "Plywood, birch",
                             "Door handle, satin",
                             "Primer, white",
                             "Sanding disc, 120 grit",
                             "Cable, 3 core",
                             "Copper elbow",
                             "Masking tape",
                             "Gloves, nitrile",
                             "Drill bit, HSS"};
constexpr std::array kUnits{"ea", "box", "pail", "sheet", "m", "roll"};

/// Spreads numbers that follow one another over a range, in no visible order.
std::size_t scattered(int i, std::size_t range) {
    return static_cast<std::size_t>(i) * 7919 % 1000003 % range;
}

std::string text(std::string value, std::size_t width) {
    value.resize(width, ' ');
    return value;
}

template <class Value>
std::string number(Value value) {
    static_assert(std::endian::native == std::endian::little);
    std::string bytes(sizeof value, '\0');
    std::memcpy(bytes.data(), &value, sizeof value);
    return bytes;
}

std::string addressFile(int addresses) {
    std::string bytes;
    for (int i = 1; i <= addresses; ++i) {
        const std::string name =
            i <= 300 ? vendorName(i) : "Contact " + std::to_string(i) + ", " + vendorName(i);
        bytes += '1';
        bytes += i % 5 == 0 ? 'T' : 'V';
        bytes += number(static_cast<double>(i));
        bytes += text(name, 60);
        bytes += text(std::to_string(i) + " Mill Lane\r\n" + kTowns[scattered(i, kTowns.size())] +
                          "\r\nTel. 01632 960" + std::to_string(100 + i % 900),
                      500);
    }
    return bytes;
}

std::string historyFile(int lines) {
    std::string bytes;
    for (int i = 1; i <= lines; ++i)
        bytes += "Value " + std::to_string(i) + " that was typed here\r\n";
    return bytes;
}

void write(const std::filesystem::path& path, const std::string& bytes) {
    std::ofstream file(path, std::ios::binary);
    file << bytes;
    if (!file.flush()) throw std::runtime_error("not written: " + path.string());
}

}  // namespace

std::string vendorName(int i) {
    const std::size_t place = scattered(i, kTowns.size() * kTrades.size());
    return std::string(kTowns[place % kTowns.size()]) + ' ' + kTrades[place / kTowns.size()];
}

int itemsOf(const std::string& vendor, int items) {
    const auto numbers = std::views::iota(1, items + 1);
    return static_cast<int>(std::ranges::count(numbers, vendor, vendorName));
}

OrderRow orderRow(int i) {
    OrderRow row;
    row.status = i % 7 == 0 ? "R" : i % 3 == 0 ? "a" : "A";
    const std::string digits = std::to_string(i);
    row.number = std::string(6 - digits.size(), '0') + digits;
    row.job = "J-" + std::to_string(i % 500);
    row.orderDate = 40000 + i / 10;
    row.vendor = vendorName(i);
    row.shipTo = std::string(kTowns[scattered(i, kTowns.size())]) + " workshop";
    row.shipDate = row.orderDate + i % 21;
    row.subTotal = 10'000 * static_cast<std::int64_t>(scattered(i, 90000)) + 100 * (i % 100);
    row.discount = row.subTotal / 20 / 100 * 100;
    row.netTotal = row.subTotal - row.discount;
    row.salesTax = row.netTotal / 5 / 100 * 100;
    row.shipping = 10'000 * (i % 60);
    row.orderTotal = row.netTotal + row.salesTax + row.shipping;
    return row;
}

ItemRow itemRow(int i) {
    ItemRow row;
    row.category = "Category " + std::to_string(i % 40);
    row.number = i;
    row.description = std::string(kThings[scattered(i, kThings.size())]) + ", size " +
                      std::to_string(scattered(i, 1000003));
    row.unit = kUnits[static_cast<std::size_t>(i) % kUnits.size()];
    row.vendor = vendorName(i);
    row.unitCost = 1250 * (1 + i % 4000);
    row.onHand = 10'000 * (i % 50);
    return row;
}

std::string orderFile(int orders) {
    std::string bytes;
    bytes.reserve(static_cast<std::size_t>(orders) * kOrderSize);
    for (int i = 1; i <= orders; ++i) {
        const OrderRow row = orderRow(i);
        bytes += text(row.status, 1) + text(row.number, 6) + text(row.job, 12) +
                 number(row.orderDate) + text(row.vendor, 60) + text(row.shipTo, 60) +
                 number(row.shipDate) + number(row.orderTotal) + number(row.shipping) +
                 number(row.salesTax) + number(row.netTotal) + number(row.discount) +
                 number(row.subTotal);
    }
    return bytes;
}

std::string itemFile(int items, int first, char status) {
    std::string bytes;
    bytes.reserve(static_cast<std::size_t>(items) * kItemSize);
    for (int i = first; i < first + items; ++i) {
        const ItemRow row = itemRow(i);
        bytes += status + text(row.category, 30) + number(static_cast<double>(row.number)) +
                 text(row.description, 120) + text(row.unit, 20) + text(row.vendor, 60) +
                 text("", 60) + text("", 60) + number(row.unitCost) + number(row.onHand) +
                 text("", 8);
    }
    return bytes;
}

void fillFolder(const std::filesystem::path& folder, const FolderSize& size) {
    std::filesystem::create_directories(folder);
    write(folder / "po_data.dat", orderFile(size.orders));
    write(folder / "po_stock.dat", itemFile(size.items));
    write(folder / "po_addy.dat", addressFile(size.addresses));
    for (const char* box : {"by", "via", "fob", "ter", "com", "jno"})
        write(folder / (std::string(box) + "_field.dat"), historyFile(size.historyLines));
}

}  // namespace bramblet::bench
