// Sorting the rows of a list by one of its columns, with each row's key made only once.
#pragma once

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace bramblet {

/// Reorders `rows` by `keyOf(row)`; rows with equal keys keep their order.
template <class Row, class KeyOf>
void sortRows(std::vector<Row>& rows, bool descending, KeyOf keyOf) {
    using Key = decltype(keyOf(rows.front()));
    std::vector<Key> keys;
    keys.reserve(rows.size());
    for (const Row& row : rows)
        keys.push_back(keyOf(row));

    std::vector<std::uint32_t> order(rows.size());
    std::iota(order.begin(), order.end(), 0U);
    const auto before = [&](std::uint32_t a, std::uint32_t b) {
        return descending ? keys[b] < keys[a] : keys[a] < keys[b];
    };
    // A file is often in the very order that is wanted, or in the opposite one.
    const auto notAfter = [&](std::uint32_t a, std::uint32_t b) { return !before(b, a); };
    if (std::adjacent_find(order.begin(), order.end(), notAfter) == order.end()) {
        std::reverse(order.begin(), order.end());
    } else if (!std::is_sorted(order.begin(), order.end(), before)) {
        std::stable_sort(order.begin(), order.end(), before);
    }

    std::vector<Row> sorted;
    sorted.reserve(rows.size());
    for (const std::uint32_t place : order)
        sorted.push_back(std::move(rows[place]));
    rows = std::move(sorted);
}

/// The number at the start of a text; 0 when there is none.
double leadingNumber(std::string_view text);

/// What a text is sorted by: its letters without case or accents, so that "Ábel" comes next to
/// "abc" and not after "z"; texts that differ only in accents are then ordered by those. The key is
/// in UTF-8, whose bytes sort like the letters.
std::string sortKey(std::string text);

/// The same for letters that are already upper case.
std::string sortKey(std::u16string_view letters);

}  // namespace bramblet
