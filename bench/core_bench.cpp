// How long the core takes with the largest files that its formats allow.
//
//     cmake --preset release -DBRAMBLET_BENCH=ON && cmake --build --preset release
//     build/release/bench/core_bench

#include "core/app/program.h"
#include "core/document/document_reader.h"
#include "core/document/document_writer.h"
#include "core/document/totals.h"
#include "core/platform/record_file.h"
#include "support/recording_desktop.h"
#include "support/temporary_folder.h"

#include <benchmark/benchmark.h>

namespace bramblet {
namespace {

using test::TemporaryFolder;
using test::writeFile;

/// Says yes to everything and chooses one file.
class Agreeable : public Prompts {
  public:
    std::filesystem::path file;
    Answer ask(const Message& message) override {
        return message.buttons == Buttons::OkCancel || message.buttons == Buttons::Ok ? Answer::Ok
                                                                                      : Answer::Yes;
    }
    std::optional<std::filesystem::path> chooseFileToOpen(const FileChoice&) override {
        return file;
    }
};

/// A data folder with full files, and the program on it.
class FullOffice {
  public:
    FullOffice() {
        path_ = Program::homeFolderIn(documents_.path()) / "po_data";
        FileSystem().createFolders(path_);
        writeFile(path_ / "po_data.dat", orders());
        writeFile(path_ / "po_stock.dat", items(kLiveItem, 1));
        program_ = std::make_unique<Program>(
            Environment{desktop_, documents_.path(), {}, {[] { return 46085; }, [] {}}, nullptr},
            prompts_);
        program_->start();
    }

    static std::string orders() {
        std::string bytes;
        for (int i = 1; i <= kMostRecords; ++i) {
            OrderIndexRecord record;
            record.Status = i % 7 == 0 ? "R" : "A";
            std::string number = std::to_string(i);
            record.Number = std::string(6 - number.size(), '0') + number;
            record.Job = "J-" + std::to_string(i % 500);
            record.OrderDate = 40000 + i / 10;
            record.Vendor = "Vendor number " + std::to_string(i * 7919 % 300);
            record.ShipTo = "Destination " + std::to_string(i % 20);
            record.OrderTotal = record.SubTotal = Currency{i * 12345};
            bytes += encodeRecord(kOrderIndexLayout, record);
        }
        return bytes;
    }

    static std::string items(const char* status, int first) {
        std::string bytes;
        for (int i = first; i < first + kMostRecords; ++i) {
            StockItemRecord record = decodeRecord(kStockItemLayout, "");
            record.Status = status;
            record.Category = "Category " + std::to_string(i % 40);
            record.Tag = i;
            record.Description = "Item " + std::to_string(i * 7919 % 1000003) + " of the catalogue";
            record.Unit = "ea";
            record.Vendor = "Vendor number " + std::to_string(i % 300);
            record.UnitCost = Currency{i * 125};
            bytes += encodeRecord(kStockItemLayout, record);
        }
        return bytes;
    }

    Program& program() { return *program_; }
    Agreeable& prompts() { return prompts_; }
    std::filesystem::path file(const std::string& name) const { return path_ / name; }

  private:
    TemporaryFolder documents_;
    Agreeable prompts_;
    test::RecordingDesktop desktop_;
    std::filesystem::path path_;
    std::unique_ptr<Program> program_;
};

void listOrders(benchmark::State& state) {
    FullOffice office;
    for (auto _ : state)
        office.program().savedOrders.PopPOGrid();
}
BENCHMARK(listOrders)->Unit(benchmark::kMillisecond);

void sortOrdersByVendor(benchmark::State& state) {
    FullOffice office;
    for (auto _ : state)
        office.program().savedOrders.sortBy(kVendorColumn);
}
BENCHMARK(sortOrdersByVendor)->Unit(benchmark::kMillisecond);

void sortOrdersByTotal(benchmark::State& state) {
    FullOffice office;
    for (auto _ : state)
        office.program().savedOrders.sortBy(kOrderTotalColumn);
}
BENCHMARK(sortOrdersByTotal)->Unit(benchmark::kMillisecond);

void nextNumber(benchmark::State& state) {
    FullOffice office;
    for (auto _ : state)
        benchmark::DoNotOptimize(office.program().index.NextPONumber());
}
BENCHMARK(nextNumber)->Unit(benchmark::kMillisecond);

void saveAnOrder(benchmark::State& state) {
    FullOffice office;
    office.program().open.set(&Order::PONoEd, "020000");
    for (auto _ : state)
        office.program().editor.SaveChanges_Click();
}
BENCHMARK(saveAnOrder)->Unit(benchmark::kMillisecond);

void listStock(benchmark::State& state) {
    FullOffice office;
    for (auto _ : state)
        office.program().stock.PopStockList();
}
BENCHMARK(listStock)->Unit(benchmark::kMillisecond);

void listOneVendorsStock(benchmark::State& state) {
    FullOffice office;
    office.program().open.set(&Order::ToCombo, "Vendor number 7");
    office.program().stock.VendorItemsCheck = true;
    for (auto _ : state)
        office.program().stock.PopStockList();
}
BENCHMARK(listOneVendorsStock)->Unit(benchmark::kMillisecond);

void sortStockByDescription(benchmark::State& state) {
    FullOffice office;
    for (auto _ : state)
        office.program().stock.sortBy(static_cast<int>(StockColumn::Description));
}
BENCHMARK(sortStockByDescription)->Unit(benchmark::kMillisecond);

void pickAnItem(benchmark::State& state) {
    FullOffice office;
    for (auto _ : state)
        office.program().lines.StockGrid_DblClick(office.program().stock, 20000);
}
BENCHMARK(pickAnItem)->Unit(benchmark::kMicrosecond)->Iterations(1000);

/// 32,767 items into 32,767: all of them known, or all of them new.
void importStock(benchmark::State& state) {
    const bool known = state.range(0) == 0;
    for (auto _ : state) {
        state.PauseTiming();
        auto office = std::make_unique<FullOffice>();
        office->prompts().file = office->file("items.sid");
        writeFile(office->prompts().file,
                  FullOffice::items(kExportedItem, known ? 1 : 1 + kMostRecords));
        state.ResumeTiming();
        office->program().stockExchange.mu_ImportStockItems_Click();
        state.PauseTiming();
        office.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(importStock)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->Iterations(3);

Order longOrder() {
    Order order;
    for (int i = 0; i < 200; ++i) {
        order.lines.push_back({"2", "", "", "ea",
                               "A line of the order, number " + std::to_string(i), "12.50", "25.00",
                               "special"});
    }
    return order;
}

void totalUp200Lines(benchmark::State& state) {
    Order order = longOrder();
    for (auto _ : state)
        TotalUp(order, false, {});
}
BENCHMARK(totalUp200Lines)->Unit(benchmark::kMicrosecond);

void writeDocumentOf200Lines(benchmark::State& state) {
    const Order order = longOrder();
    const Settings settings = defaultSettings("/");
    for (auto _ : state) {
        benchmark::DoNotOptimize(orderDocument(order, {settings, false, RegionalFormats{}}));
    }
}
BENCHMARK(writeDocumentOf200Lines)->Unit(benchmark::kMicrosecond);

void readDocumentOf200Lines(benchmark::State& state) {
    const Settings settings = defaultSettings("/");
    const RegionalFormats formats;
    const std::string document = orderDocument(longOrder(), {settings, false, formats});
    for (auto _ : state) {
        Order order;
        benchmark::DoNotOptimize(readMarkers(document, order));
    }
}
BENCHMARK(readDocumentOf200Lines)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace bramblet
