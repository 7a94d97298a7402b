// What the user waits for, without the windows: each command as the program runs it, in data
// folders of three sizes. The yardsticks are in the two other files of this program. scripts/bench
// runs all of it; the names here are the ones that bench/report.py looks for.

#include "office.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <fstream>
#include <ranges>

namespace bramblet::bench {
namespace {

/// The rows that a large screen shows of a list.
constexpr int kScreenful = 40;

/// Makes the texts of the first rows of a list.
void makeCells(const Table& list, int rows) {
    for (int row = 0; row < std::min(rows, list.rowCount()); ++row) {
        for (int column = 0; column < list.columnCount(); ++column)
            benchmark::DoNotOptimize(list.cell(row, column));
    }
}

/// An office whose lists are full, with the long order.
Office& fullOffice() {
    static Office office({kFull, kFull, 5000, 10000});
    office.save(kLongOrder, 200);
    return office;
}

void listOrders(benchmark::State& state, bool allCells) {
    const int count = countOf(state);
    SavedOrders& orders = Office::withLists(count).program().savedOrders;
    for (auto _ : state) {
        orders.PopPOGrid();
        makeCells(orders, allCells ? count : kScreenful);
    }
    holds(state, orders.rowCount() == count && orders.number(0) == orderRow(count).number);
}
BENCHMARK_CAPTURE(listOrders, screenful, false)->Name("list_orders/bramblet")->Apply(atAllSizes);
BENCHMARK_CAPTURE(listOrders, all, true)->Name("list_orders_all/bramblet")->Apply(atAllSizes);

void nextNumber(benchmark::State& state) {
    const OrderIndex& index = Office::withLists(countOf(state)).program().index;
    double number = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(number = index.NextPONumber());
    holds(state, number == countOf(state) + 1);
}
BENCHMARK(nextNumber)->Name("next_number/bramblet")->Apply(atAllSizes);

/// How many bytes the process has read from files so far; 0 where the system does not tell.
double bytesRead() {
    std::ifstream counts("/proc/self/io");
    std::string name;
    double bytes = 0;
    counts >> name >> bytes;
    return bytes;
}

/// Saves the order that is shown.
void saveIn(Office& office, benchmark::State& state) {
    Program& program = office.program();
    double saves = program.settings.OrdersSavedCount;
    for (auto _ : state) {
        program.editor.SaveChanges_Click();
        ++saves;
    }
    holds(state, program.settings.OrdersSavedCount == saves);
}

void saveOrder(benchmark::State& state) {
    Office& office = Office::withLists(countOf(state));
    office.save(kLongOrder, 200);
    const double before = bytesRead();
    saveIn(office, state);
    // Everything else that is read here is small.
    const auto length = static_cast<double>(std::filesystem::file_size(office.file("po_data.dat")));
    state.counters["index_reads"] =
        (bytesRead() - before) / length / static_cast<double>(state.iterations());
}
BENCHMARK(saveOrder)->Name("save_order/bramblet")->Apply(atAllSizes);

void saveOrderWithHistories(benchmark::State& state) {
    saveIn(fullOffice(), state);
}
BENCHMARK(saveOrderWithHistories)->Name("save_order_full/bramblet")->Apply(onFullLists);

void listItems(benchmark::State& state, bool allCells) {
    const int count = countOf(state);
    StockList& stock = Office::withLists(count).program().stock;
    stock.VendorItemsCheck = false;
    for (auto _ : state) {
        stock.PopStockList();
        makeCells(stock, allCells ? count : kScreenful);
    }
    holds(state, stock.rowCount() == count);
}
BENCHMARK_CAPTURE(listItems, screenful, false)->Name("list_items/bramblet")->Apply(atAllSizes);
BENCHMARK_CAPTURE(listItems, all, true)->Name("list_items_all/bramblet")->Apply(atAllSizes);

void listVendorsItems(benchmark::State& state) {
    const int count = countOf(state);
    Program& program = Office::withLists(count).program();
    program.open.set(&Order::ToCombo, vendorName(1));
    program.stock.VendorItemsCheck = true;
    for (auto _ : state) {
        program.stock.PopStockList();
        makeCells(program.stock, kScreenful);
    }
    holds(state, program.stock.rowCount() == itemsOf(vendorName(1), count));
}
BENCHMARK(listVendorsItems)->Name("list_vendor/bramblet")->Apply(atAllSizes);

/// The list is newest first before each sorting.
void sortOrders(benchmark::State& state) {
    SavedOrders& orders = Office::withLists(countOf(state)).program().savedOrders;
    for (auto _ : state) {
        state.PauseTiming();
        orders.PopPOGrid();
        state.ResumeTiming();
        orders.sortBy(kVendorColumn);
    }
    holds(state, std::ranges::is_sorted(std::views::iota(0, orders.rowCount()), {},
                                        [&](int row) { return orders.cell(row, kVendorColumn); }));
}
BENCHMARK(sortOrders)->Name("sort_orders/bramblet")->Apply(atAllSizes);

void importItems(benchmark::State& state, bool known) {
    const int count = countOf(state);
    Office office({0, count, 0, 0});
    office.prompts.file = office.file("items.sid");
    writeFlushed(office.prompts.file, itemFile(count, known ? 1 : count + 1, 'i'));
    const std::string catalogue = itemFile(count);
    for (auto _ : state) {
        state.PauseTiming();
        writeFlushed(office.file("po_stock.dat"), catalogue);
        state.ResumeTiming();
        office.program().stockExchange.mu_ImportStockItems_Click();
    }
    holds(state, office.program().stock.rowCount() == (known ? count : 2 * count));
}
BENCHMARK_CAPTURE(importItems, known, true)->Name("import_known/bramblet")->Apply(atAllSizes);
BENCHMARK_CAPTURE(importItems, new, false)->Name("import_new/bramblet")->Apply(atAllSizes);

void openIn(Office& office, benchmark::State& state) {
    Program& program = office.program();
    for (auto _ : state)
        program.editor.POGrid_Click(kLongOrder);
    const Order& order = program.open.order();
    holds(state, order.lines.size() == 200 && order.SubTotalEd == "5,000.00");
}

void openOrder(benchmark::State& state) {
    openIn(officeOfLongOrder(), state);
}
BENCHMARK(openOrder)->Name("open_order/bramblet")->Arg(1)->Unit(benchmark::kMillisecond);

void openOrderWithLists(benchmark::State& state) {
    openIn(fullOffice(), state);
}
BENCHMARK(openOrderWithLists)->Name("open_order_full/bramblet")->Apply(onFullLists);

/// Into an empty folder, with nothing else waiting to be written.
void backUp(benchmark::State& state) {
    const int count = countOf(state);
    Backup& backup = officeWithDocuments(count).program().backup;
    const test::TemporaryFolder target;
    backup.mu_DataBackup_Click();
    backup.BackUpTarget = target.path();
    flushAll(target.path());
    bool done = false;
    for (auto _ : state)
        done = backup.RunBackup_Click();
    holds(state, done && std::filesystem::exists(target / (orderRow(count).number + ".htm")));
}
BENCHMARK(backUp)->Name("back_up/bramblet")->Apply(ofBackups);

}  // namespace
}  // namespace bramblet::bench
