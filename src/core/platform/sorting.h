// Sorting the rows of a list by one of its columns, with each row's key made only once.
#pragma once

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <string>
#include <string_view>
#include <vector>

namespace bramblet {

/// Reorders `rows` by `keyOf(row)`; rows with equal keys keep their order.
template <class Row, class KeyOf>
void sortRows(std::vector<Row>& rows, bool descending, KeyOf keyOf) {
    using Key = decltype(keyOf(rows.front()));
    std::vector<Key> keys;
    keys.reserve(rows.size());
    for (const auto& row : rows)
        keys.push_back(keyOf(row));

    std::vector<std::size_t> order(rows.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
        return descending ? keys[b] < keys[a] : keys[a] < keys[b];
    });

    std::vector<Row> sorted;
    sorted.reserve(rows.size());
    for (const std::size_t i : order)
        sorted.push_back(std::move(rows[i]));
    rows = std::move(sorted);
}

/// The number at the start of a text; 0 when there is none.
double leadingNumber(std::string_view text);

/// What a text is sorted by: its letters without case or accents, so that "Ábel" comes next to
/// "abc" and not after "z"; texts that differ only in accents are then ordered by those.
std::u16string sortKey(std::string_view text);

/// The same for letters that are already upper case.
std::u16string sortKey(std::u16string_view letters);

}  // namespace bramblet
