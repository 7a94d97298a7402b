// Data folders filled to any size, always with the same content. The bytes are written here as
// docs/formats.md describes them, not by the program that is measured.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace bramblet::bench {

/// The most records that the list of orders can hold.
inline constexpr int kFull = 32767;
inline constexpr std::size_t kOrderSize = 203;
inline constexpr std::size_t kItemSize = 383;

/// One order of the list. Dates are days since 30 December 1899, amounts ten-thousandths.
struct OrderRow {
    std::string status, number, job;
    double orderDate = 0;
    std::string vendor, shipTo;
    double shipDate = 0;
    std::int64_t orderTotal = 0, shipping = 0, salesTax = 0, netTotal = 0, discount = 0,
                 subTotal = 0;
};
struct ItemRow {
    std::string category;
    int number = 0;
    std::string description, unit, vendor;
    std::int64_t unitCost = 0, onHand = 0;
};

/// Order and item number `i`, counting from 1.
OrderRow orderRow(int i);
ItemRow itemRow(int i);
/// One of the 300 vendors of orders and items.
std::string vendorName(int i);
/// How many of the first `items` items are of this vendor.
int itemsOf(const std::string& vendor, int items);

/// The content of "po_data.dat" with this many orders.
std::string orderFile(int orders);
/// The content of "po_stock.dat" with items `first` and following; in a file for another
/// installation the status is "i".
std::string itemFile(int items, int first = 1, char status = '1');

struct FolderSize {
    int orders = 0;
    int items = 0;
    int addresses = 0;
    int historyLines = 0;  ///< of each of the six
};

/// Creates the folder and writes its lists.
void fillFolder(const std::filesystem::path& folder, const FolderSize& size);

}  // namespace bramblet::bench
