#include "core/orders/spending.h"

#include "core/platform/amount_text.h"
#include "core/platform/dates.h"
#include "core/platform/path_text.h"
#include "core/platform/save_target.h"
#include "core/platform/text.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace bramblet {
namespace {

using Record = OrderIndexRecord;

constexpr const char* kTitle = "Spending";
constexpr std::size_t kMostVendors = 10;  // with a bar of their own
constexpr std::size_t kMostMonths = 24;
constexpr int kLongestGap = 12;  // months; a longer one is left out, or a mistyped year would count
constexpr int kMonths = 12;      // in a year

constexpr Column<Spent> nameColumn(const char* heading) {
    Column<Spent> column{{heading, 30, true}};
    column.text = [](const Spent& row, const RegionalFormats&) { return row.name; };
    return column;
}

constexpr Column<Spent> monthColumn() {
    Column<Spent> column = nameColumn("Month");
    column.number = [](const Spent& row) { return static_cast<double>(row.month); };
    return column;
}

constexpr Column<Spent> ordersColumn() {
    Column<Spent> column{{"Orders", 8, false, Align::Right}};
    column.text = [](const Spent& row, const RegionalFormats&) {
        return std::to_string(row.orders);
    };
    column.number = [](const Spent& row) { return static_cast<double>(row.orders); };
    return column;
}

constexpr Column<Spent> totalColumn() {
    Column<Spent> column{{"Total", 14, false, Align::Right}};
    column.amount = [](const Spent& row) { return row.total; };
    column.amountText = [](Currency total, const RegionalFormats& formats) {
        return currencyText(total, formats);
    };
    column.number = [](const Spent& row) { return toDouble(row.total); };
    return column;
}

constexpr std::array kVendorColumns{nameColumn("Vendor"), ordersColumn(), totalColumn()};
constexpr std::array kMonthColumns{monthColumn(), ordersColumn(), totalColumn()};

bool isPurchase(const OrderRow& order) {
    const auto status = order.get<&Record::Status>();
    return status == "A" || status == "a";
}

/// Counted from the year 0; 0 when the order has no date.
int monthOf(const OrderRow& order, const RegionalFormats& formats) {
    const double date = order.get<&Record::OrderDate>();
    if (date == 0 || shortDateText(date, formats).empty()) return 0;
    const CivilDate day = toCivilDate(static_cast<DayCount>(date));
    return day.year * kMonths + day.month - 1;
}

std::string keyOf(SpendingPart part, const OrderRow& order, const RegionalFormats& formats) {
    if (part == SpendingPart::ByMonth) return std::to_string(monthOf(order, formats));
    return upper(std::string(order.get<&Record::Vendor>()));
}

std::string monthName(int month, const RegionalFormats& formats) {
    if (month == 0) return "(no date)";
    return formats.monthNames[static_cast<std::size_t>(month % kMonths)] + " " +
           std::to_string(month / kMonths);
}

std::string counted(int orders, const std::string& one, const std::string& many) {
    return std::to_string(orders) + " " + (orders == 1 ? one : many);
}

bool isLarger(const Spent& a, const Spent& b) {
    return a.total > b.total;
}
bool isLater(const Spent& a, const Spent& b) {
    return a.month > b.month;
}

}  // namespace

SpendingTable::SpendingTable(const RegionalFormats& formats, SpendingPart part)
    : ListTable(formats, part == SpendingPart::ByVendor ? kVendorColumns : kMonthColumns) {}

void SpendingTable::take(std::vector<Spent> rows) {
    rows_ = std::move(rows);
    sorting_ = {};
}

int SpendingTable::rowOf(const std::string& key) const {
    const auto row = std::find_if(rows_.begin(), rows_.end(),
                                  [&](const Spent& spent) { return spent.key == key; });
    return row == rows_.end() ? -1 : static_cast<int>(row - rows_.begin());
}

Spending::Spending(const FileSystem& files, Commands& commands, SavedOrders& orders,
                   const RegionalFormats& formats)
    : files_(files),
      commands_(commands),
      orders_(orders),
      formats_(formats),
      tables_{SpendingTable(formats, SpendingPart::ByVendor),
              SpendingTable(formats, SpendingPart::ByMonth)} {}

void Spending::mu_Spending_Click() {
    commands_.onData([&] {
        bool any = false;
        const bool added = commands_.attemptOrAsk("The orders listed cannot be added up: ", kTitle,
                                                  [&] { any = addUp(); });
        if (!added) return;
        if (any) return commands_.open(&Screen::showSpending);
        commands_.tell("No purchase orders are listed, so there is nothing to add up.", kTitle);
    });
}

/// False when there is nothing to add up. Throws Fault.
bool Spending::addUp() {
    int counts = 0;
    int others = 0;
    Currency total;
    Currency otherTotal;
    for (int row = 0; row < orders_.rowCount(); ++row) {
        const OrderRow& order = orders_.row(row);
        const bool counting = isPurchase(order);
        ++(counting ? counts : others);
        Currency& sum = counting ? total : otherTotal;
        sum = sum + order.get<&Record::OrderTotal>();
    }
    if (counts == 0) return false;
    summary_ = counted(counts, "purchase order", "purchase orders") +
               ", received or not: " + currencyText(total, formats_) + ", with tax and shipping.";
    explanation_ = "Only what is listed counts: " + orders_.countText() + ".";
    if (others > 0) {
        explanation_ += " " +
                        counted(others, "requisition or request for quote (",
                                "requisitions and requests for quote (") +
                        currencyText(otherTotal, formats_) + ") not counted.";
    }
    note_.clear();
    makeVendorBars();
    makeMonthBars();
    return true;
}

std::vector<Spent> Spending::grouped(SpendingPart part) const {
    std::vector<Spent> groups;
    std::unordered_map<std::string, std::size_t> places;
    for (int row = 0; row < orders_.rowCount(); ++row) {
        const OrderRow& order = orders_.row(row);
        if (!isPurchase(order)) continue;
        std::string key = keyOf(part, order, formats_);
        const auto [known, isNew] = places.try_emplace(key, groups.size());
        if (isNew && part == SpendingPart::ByMonth) {
            const int month = monthOf(order, formats_);
            groups.push_back({std::move(key), monthName(month, formats_), month, 0, {}});
        } else if (isNew) {
            std::string name(order.get<&Record::Vendor>());
            if (name.empty()) name = "(no vendor)";
            groups.push_back({std::move(key), std::move(name), 0, 0, {}});
        }
        Spent& group = groups[known->second];
        ++group.orders;
        group.total = group.total + order.get<&Record::OrderTotal>();
    }
    std::stable_sort(groups.begin(), groups.end(),
                     part == SpendingPart::ByVendor ? isLarger : isLater);
    return groups;
}

SpendingBar Spending::barOf(const Spent& spent) const {
    const std::string amount = currencyText(spent.total, formats_);
    return {spent.name,
            amount,
            spent.name + ": " + amount + ", " + counted(spent.orders, "order", "orders"),
            0,
            false,
            {spent.key}};
}

void Spending::makeVendorBars() {
    std::vector<Spent> vendors = grouped(SpendingPart::ByVendor);
    std::vector<SpendingBar>& bars = bars_[place(SpendingPart::ByVendor)];
    bars.clear();
    // A single other one has its own bar as well.
    const bool all = vendors.size() <= kMostVendors + 1;
    const std::size_t shown = all ? vendors.size() : kMostVendors;
    std::vector<Currency> totals;
    SpendingBar rest;
    for (std::size_t i = 0; i < shown; ++i) {
        bars.push_back(barOf(vendors[i]));
        totals.push_back(vendors[i].total);
        rest.keys.push_back(vendors[i].key);
    }
    if (!all) {
        Spent others{"", "Others (" + std::to_string(vendors.size() - shown) + ")", 0, 0, {}};
        for (std::size_t i = shown; i < vendors.size(); ++i) {
            others.orders += vendors[i].orders;
            others.total = others.total + vendors[i].total;
        }
        SpendingBar bar = barOf(others);
        bar.others = true;
        bar.keys = std::move(rest.keys);
        bars.push_back(std::move(bar));
        totals.push_back(others.total);
    }
    measure(bars, totals);
    tables_[place(SpendingPart::ByVendor)].take(std::move(vendors));
}

void Spending::makeMonthBars() {
    std::vector<Spent> months = grouped(SpendingPart::ByMonth);
    std::vector<SpendingBar>& bars = bars_[place(SpendingPart::ByMonth)];
    bars.clear();
    std::vector<Currency> totals;
    std::size_t shown = 0;
    for (; shown < months.size() && bars.size() < kMostMonths; ++shown) {
        const Spent& month = months[shown];
        const int gap = shown == 0 || month.month == 0 ? 0 : months[shown - 1].month - month.month;
        for (int empty = 1; gap <= kLongestGap && empty < gap && bars.size() < kMostMonths;
             ++empty) {
            const int between = months[shown - 1].month - empty;
            bars.push_back(
                barOf({std::to_string(between), monthName(between, formats_), 0, 0, {}}));
            totals.emplace_back();
        }
        if (bars.size() == kMostMonths) break;
        bars.push_back(barOf(month));
        totals.push_back(month.total);
    }
    if (shown < months.size()) {
        note_ = counted(static_cast<int>(months.size() - shown), "earlier month is",
                        "earlier months are") +
                " in the table only.";
    }
    measure(bars, totals);
    tables_[place(SpendingPart::ByMonth)].take(std::move(months));
}

void Spending::measure(std::vector<SpendingBar>& bars, const std::vector<Currency>& totals) const {
    const Currency longest = *std::max_element(totals.begin(), totals.end());
    if (longest <= Currency{}) return;
    for (std::size_t i = 0; i < bars.size(); ++i)
        bars[i].length = std::max(0.0, toDouble(totals[i]) / toDouble(longest));
}

void Spending::listOrders(SpendingPart part, const SpendingBar& bar) {
    const std::unordered_set<std::string> keys(bar.keys.begin(), bar.keys.end());
    commands_.onData([&] {
        orders_.showOnly(bar.name, [this, part, keys, others = bar.others](const OrderRow& order) {
            return isPurchase(order) && keys.contains(keyOf(part, order, formats_)) != others;
        });
        commands_.screen().showSavedOrders();
    });
}

void Spending::listOrders(SpendingPart part, int row) {
    if (row < 0 || row >= table(part).rowCount()) return;
    listOrders(part, barOf(table(part).row(row)));
}

std::optional<std::filesystem::path> Spending::pictureTarget() {
    std::optional<std::filesystem::path> path;
    commands_.run([&] {
        const auto chosen = commands_.prompts().chooseFileToSave(
            {"Save Picture", "", "Spending.png", {{"PNG", "*.png"}}});
        if (!chosen) return;
        commands_.attemptOrAsk(
            "The picture was not saved to " + shown(chosen->path) + ": ", kTitle, [&] {
                if (mayReplace(files_.withoutRetry(), chosen->path, commands_.prompts()))
                    path = chosen->path;
            });
    });
    return path;
}

void Spending::savePicture(const std::filesystem::path& path, const std::string& png) {
    commands_.run([&] {
        const bool saved =
            commands_.attemptOrAsk("The picture was not saved to " + shown(path) + ": ", kTitle,
                                   [&] { files_.withoutRetry().replace(path, png); });
        if (saved) commands_.sayDone("The picture is saved as " + shown(path));
    });
}

void Spending::printed(bool good) {
    if (good) return;
    commands_.run([&] {
        commands_.tell("The charts were not printed: the printer could not be used.", kTitle,
                       Icon::Exclamation);
    });
}

}  // namespace bramblet
