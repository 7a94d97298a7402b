// The least that a piece of work can take, or what common tools take for it: a plain read of the
// file, the standard library's sort, libxml2's parser, and cp.

#include "core/platform/sorting.h"
#include "office.h"

#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <libxml/HTMLparser.h>

namespace bramblet::bench {
namespace {

/// Reads a whole file into a buffer that is large enough, without another buffer in between.
std::size_t readPlainly(const std::filesystem::path& path, std::string& buffer) {
    std::FILE* const file = std::fopen(path.c_str(), "rb");
    if (file == nullptr) return 0;
    std::setvbuf(file, nullptr, _IONBF, 0);
    const std::size_t length = std::fread(buffer.data(), 1, buffer.size(), file);
    std::fclose(file);
    return length;
}

/// One read of the file into memory that is already there, and one byte of each record touched.
void plainRead(benchmark::State& state, const char* name, std::size_t recordSize) {
    const auto path = Office::withLists(static_cast<int>(state.range(0))).file(name);
    std::string buffer(std::filesystem::file_size(path), '\0');
    for (auto _ : state) {
        const std::size_t length = readPlainly(path, buffer);
        unsigned sum = 0;
        for (std::size_t at = 0; at < length; at += recordSize)
            sum += static_cast<unsigned char>(buffer[at]);
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK_CAPTURE(plainRead, orders, "po_data.dat", kOrderSize)
    ->Name("read_orders/plain")
    ->Arg(kFull)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(plainRead, items, "po_stock.dat", kItemSize)
    ->Name("read_items/plain")
    ->Arg(kFull)
    ->Unit(benchmark::kMillisecond);

/// Sorts row numbers by keys made beforehand, from the same order as the program does.
void sortKeys(benchmark::State& state) {
    const int count = static_cast<int>(state.range(0));
    std::vector<decltype(sortKey(std::string()))> keys;
    for (int i = count; i > 0; --i)
        keys.push_back(sortKey(std::string(orderRow(i).vendor)));
    std::vector<std::size_t> rows(keys.size());
    for (auto _ : state) {
        std::iota(rows.begin(), rows.end(), std::size_t{0});
        std::stable_sort(rows.begin(), rows.end(),
                         [&](std::size_t a, std::size_t b) { return keys[a] < keys[b]; });
        benchmark::DoNotOptimize(rows.data());
    }
}
BENCHMARK(sortKeys)->Name("sort_orders/stable_sort")->Arg(kFull)->Unit(benchmark::kMillisecond);

/// Reads and parses the document; the fields have still to be found in the tree.
void parseHtml(benchmark::State& state) {
    const auto path = officeOfLongOrder().file(std::string(kLongOrder) + ".htm");
    std::string buffer(std::filesystem::file_size(path), '\0');
    for (auto _ : state) {
        const std::size_t length = readPlainly(path, buffer);
        const htmlDocPtr document =
            htmlReadMemory(buffer.data(), static_cast<int>(length), nullptr, nullptr,
                           HTML_PARSE_RECOVER | HTML_PARSE_NOERROR | HTML_PARSE_NOWARNING);
        if (document == nullptr) state.SkipWithError("libxml2 made no tree");
        xmlFreeDoc(document);
    }
}
BENCHMARK(parseHtml)->Name("open_order/libxml2")->Arg(1)->Unit(benchmark::kMillisecond);

void copyFolder(benchmark::State& state) {
    Office& office = officeWithDocuments(static_cast<int>(state.range(0)));
    const test::TemporaryFolder target;
    const std::string command = "cp -a '" + office.file("").string() + "' '" +
                                (target / "copy").string() + "' && sync -f '" +
                                target.path().string() + "'";
    for (auto _ : state) {
        std::filesystem::remove_all(target / "copy");
        flushAll(target.path());
        const auto start = std::chrono::steady_clock::now();
        const int result = std::system(command.c_str());
        const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
        state.SetIterationTime(taken.count());
        if (result != 0) state.SkipWithError("cp or sync failed");
    }
}
BENCHMARK(copyFolder)
    ->Name("back_up/cp")
    ->Arg(1000)
    ->Arg(5000)
    ->Iterations(1)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace bramblet::bench
