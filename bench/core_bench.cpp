// What the user waits for, without the windows: each command as the program runs it, in data
// folders of three sizes. The yardsticks are in the two other files of this program. scripts/bench
// runs all of it; the names here are the ones that bench/report.py looks for.

#include "office.h"

#include <benchmark/benchmark.h>
#include <chrono>
#include <fstream>

namespace bramblet::bench {
namespace {

/// The rows that a large screen shows of a list.
constexpr int kScreenful = 40;

int countOf(const benchmark::State& state) {
    return static_cast<int>(state.range(0));
}

void atAllSizes(benchmark::internal::Benchmark* benchmark) {
    for (const int size : kSizes)
        benchmark->Arg(size);
    benchmark->Unit(benchmark::kMillisecond);
}

/// Makes the texts of the first rows of a list.
void makeCells(const Table& list, int rows) {
    for (int row = 0; row < std::min(rows, list.rowCount()); ++row) {
        for (int column = 0; column < list.columnCount(); ++column)
            benchmark::DoNotOptimize(list.cell(row, column));
    }
}

/// Everything is only worth measuring as long as it is right.
bool holds(benchmark::State& state, bool right) {
    if (!right) state.SkipWithError("The result is wrong");
    return right;
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

/// How many bytes the process has read from files so far; nothing where the system does not tell.
std::optional<double> bytesRead() {
    std::ifstream counts("/proc/self/io");
    std::string name;
    double bytes = 0;
    if (!(counts >> name >> bytes)) return std::nullopt;
    return bytes;
}

void saveIn(Office& office, benchmark::State& state) {
    office.save(kLongOrder, 200);
    const auto before = bytesRead();
    for (auto _ : state)
        office.program().editor.SaveChanges_Click();
    const auto after = bytesRead();
    if (!before || !after) return;
    // Everything else that is read here is small.
    const auto length = static_cast<double>(std::filesystem::file_size(office.file("po_data.dat")));
    state.counters["index_reads"] =
        (*after - *before) / length / static_cast<double>(state.iterations());
}

void saveOrder(benchmark::State& state) {
    saveIn(Office::withLists(countOf(state)), state);
}
BENCHMARK(saveOrder)->Name("save_order/bramblet")->Apply(atAllSizes);

void saveOrderWithHistories(benchmark::State& state) {
    static Office office({kFull, kFull, 5000, 10000});
    saveIn(office, state);
}
BENCHMARK(saveOrderWithHistories)
    ->Name("save_order_full/bramblet")
    ->Arg(kFull)
    ->Unit(benchmark::kMillisecond);

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
    const int rows = program.stock.rowCount();
    holds(state, rows > 0 && rows < count / 100);
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
    const int last = orders.rowCount() - 1;
    holds(state, orders.cell(0, kVendorColumn) < orders.cell(last, kVendorColumn));
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
    static Office office({kFull, kFull, 5000, 10000});
    office.save(kLongOrder, 200);
    openIn(office, state);
}
BENCHMARK(openOrderWithLists)
    ->Name("open_order_full/bramblet")
    ->Arg(kFull)
    ->Unit(benchmark::kMillisecond);

/// Into an empty folder, with nothing else waiting to be written.
void backUp(benchmark::State& state) {
    const int count = countOf(state);
    Office& office = officeWithDocuments(count);
    Backup& backup = office.program().backup;
    const test::TemporaryFolder target;
    for (auto _ : state) {
        std::filesystem::remove_all(target.path());
        std::filesystem::create_directories(target.path());
        flushAll(target.path());
        backup.mu_DataBackup_Click();
        backup.BackUpTarget = target.path();
        const auto start = std::chrono::steady_clock::now();
        const bool done = backup.RunBackup_Click();
        const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
        state.SetIterationTime(taken.count());
        if (!holds(state,
                   done && std::filesystem::exists(target / (orderRow(count).number + ".htm"))))
            break;
    }
}
BENCHMARK(backUp)
    ->Name("back_up/bramblet")
    ->Arg(1000)
    ->Arg(5000)
    ->Iterations(1)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace bramblet::bench
