// The least that a piece of work can take, or what common tools take for it: a plain read of the
// file, the standard library's sort, libxml2's parser, and cp.

#include "core/platform/sorting.h"
#include "office.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <libxml/HTMLparser.h>
#include <numeric>
#include <vector>

namespace bramblet::bench {
namespace {

/// One read of the file into memory that is already there, and one byte of each record touched.
void plainRead(benchmark::State& state, const char* name, std::size_t recordSize) {
    const auto count = countOf(state);
    const auto path = Office::withLists(count).file(name);
    std::string buffer(std::filesystem::file_size(path), '\0');
    std::size_t length = 0;
    for (auto _ : state) {
        length = readInto(buffer, path);
        unsigned sum = 0;
        for (std::size_t at = 0; at < length; at += recordSize)
            sum += static_cast<unsigned char>(buffer[at]);
        benchmark::DoNotOptimize(sum);
    }
    holds(state, length == static_cast<std::size_t>(count) * recordSize);
}
BENCHMARK_CAPTURE(plainRead, orders, "po_data.dat", kOrderSize)
    ->Name("read_orders/plain")
    ->Apply(onFullLists);
BENCHMARK_CAPTURE(plainRead, items, "po_stock.dat", kItemSize)
    ->Name("read_items/plain")
    ->Apply(onFullLists);

/// Sorts row numbers by keys made beforehand, from the same order as the program does.
void sortKeys(benchmark::State& state) {
    std::vector<decltype(sortKey(std::string()))> keys;
    for (int i = countOf(state); i > 0; --i)
        keys.push_back(sortKey(orderRow(i).vendor));
    std::vector<std::size_t> rows(keys.size());
    for (auto _ : state) {
        std::iota(rows.begin(), rows.end(), std::size_t{0});
        std::stable_sort(rows.begin(), rows.end(),
                         [&](std::size_t a, std::size_t b) { return keys[a] < keys[b]; });
        benchmark::DoNotOptimize(rows.data());
    }
    holds(state, std::ranges::is_sorted(rows, {}, [&](std::size_t row) { return keys[row]; }));
}
BENCHMARK(sortKeys)->Name("sort_orders/stable_sort")->Apply(onFullLists);

/// Reads and parses the document; the fields have still to be found in the tree.
void parseHtml(benchmark::State& state) {
    const auto path = officeOfLongOrder().file(std::string(kLongOrder) + ".htm");
    std::string buffer(std::filesystem::file_size(path), '\0');
    for (auto _ : state) {
        const std::size_t length = readInto(buffer, path);
        const htmlDocPtr document =
            htmlReadMemory(buffer.data(), static_cast<int>(length), nullptr, nullptr,
                           HTML_PARSE_RECOVER | HTML_PARSE_NOERROR | HTML_PARSE_NOWARNING);
        holds(state, document != nullptr);
        xmlFreeDoc(document);
    }
}
BENCHMARK(parseHtml)->Name("open_order/libxml2")->Arg(1)->Unit(benchmark::kMillisecond);

void copyFolder(benchmark::State& state) {
    Office& office = officeWithDocuments(countOf(state));
    const test::TemporaryFolder target;
    const std::string command = "cp -a '" + office.file("").string() + "' '" +
                                (target / "copy").string() + "' && sync -f '" +
                                target.path().string() + "'";
    flushAll(target.path());
    int result = 0;
    for (auto _ : state)
        result = std::system(command.c_str());
    holds(state, result == 0);
}
BENCHMARK(copyFolder)->Name("back_up/cp")->Apply(ofBackups);

}  // namespace
}  // namespace bramblet::bench
