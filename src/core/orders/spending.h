// What the orders listed come to, by vendor and by month: the numbers, and the bars that show them.
#pragma once

#include "core/orders/saved_orders.h"
#include "core/platform/file_system.h"
#include "core/platform/list_table.h"
#include "core/settings/commands.h"

#include <array>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace bramblet {

/// The orders of one vendor, or of one month.
struct Spent {
    std::string key;   ///< what its orders have in common
    std::string name;  ///< of the vendor or the month
    int month = 0;     ///< counted from the year 0; 0 for a vendor, or without a date
    int orders = 0;
    Currency total;
};

struct SpendingBar {
    std::string name;
    std::string amount;
    std::string words;  ///< all of it, for example "Acme Steel: $120.00, 3 orders"
    double length = 0;  ///< 1 for the longest
    bool others = false;
    std::vector<std::string>
        keys;  ///< of what it stands for, or, of others, of all that it does not
};

enum class SpendingPart { ByVendor, ByMonth };
inline constexpr std::array kSpendingParts{SpendingPart::ByVendor, SpendingPart::ByMonth};

/// The numbers of one part.
class SpendingTable : public ListTable<Spent> {
  public:
    SpendingTable(const RegionalFormats& formats, SpendingPart part);
    /// Takes over the rows in the order in which they come.
    void take(std::vector<Spent> rows);
    void sortBy(int column) { sort(sortingOf(column)); }
    std::string key(int row) const override { return this->row(row).key; }
    int rowOf(const std::string& key) const override;
};

class Spending {
  public:
    Spending(const FileSystem& files, Commands& commands, SavedOrders& orders,
             const RegionalFormats& formats);

    /// Adds up the purchase orders among the orders listed, and opens the window.
    void mu_Spending_Click();

    /// What has been added up, and what has not.
    const std::string& summary() const { return summary_; }
    const std::string& explanation() const { return explanation_; }
    SpendingTable& table(SpendingPart part) { return tables_[place(part)]; }
    /// The largest vendors and all others; the last months, those as well in which nothing was
    /// ordered.
    const std::vector<SpendingBar>& bars(SpendingPart part) const { return bars_[place(part)]; }
    /// What the bars leave out; mostly nothing.
    const std::string& note() const { return note_; }

    /// Narrows the list of saved orders to those that make up a bar, or a row of the table.
    void listOrders(SpendingPart part, const SpendingBar& bar);
    void listOrders(SpendingPart part, int row);

    /// Where the user wants a picture saved; nothing when the user changes his mind.
    std::optional<std::filesystem::path> pictureTarget();
    void savePicture(const std::filesystem::path& path, const std::string& png);
    /// A print job has ended.
    void printed(bool good);

  private:
    static std::size_t place(SpendingPart part) { return static_cast<std::size_t>(part); }
    bool addUp();
    std::vector<Spent> grouped(SpendingPart part) const;
    void makeVendorBars();
    void makeMonthBars();
    SpendingBar barOf(const Spent& spent) const;
    void measure(std::vector<SpendingBar>& bars, const std::vector<Currency>& totals) const;

    const FileSystem& files_;
    Commands& commands_;
    SavedOrders& orders_;
    const RegionalFormats& formats_;
    std::array<SpendingTable, kSpendingParts.size()> tables_;
    std::array<std::vector<SpendingBar>, kSpendingParts.size()> bars_;
    std::string summary_, explanation_, note_;
};

}  // namespace bramblet
