// What the import of a `.sid` file makes of a catalogue, found out in the slowest way: with a
// search of the whole file for each record.
#pragma once

#include "core/stock/stock_file.h"

#include <string>
#include <string_view>

namespace bramblet::test {

/// Both are bytes of records. Ends where an item that is to be replaced has a number that no record
/// has.
inline std::string mergedByScanning(std::string catalogue, std::string_view imported) {
    using Item = StockItemRecord;
    constexpr std::size_t kSize = StockRow::kSize;
    const auto same = [](const StockRow& a, const StockRow& b) {
        return upper(a.get<&Item::Description>()) == upper(b.get<&Item::Description>()) &&
               upper(a.get<&Item::Vendor>()) == upper(b.get<&Item::Vendor>());
    };
    for (; !imported.empty(); imported.remove_prefix(kSize)) {
        std::string item(imported.substr(0, kSize));
        const int count = static_cast<int>(catalogue.size() / kSize);
        const auto record = [&](int number) {
            return StockRow(catalogue.data() + static_cast<std::size_t>(number - 1) * kSize);
        };
        const auto matches = [&](int number) {
            return record(number).field<&Item::Status>() != kDeletedItem &&
                   same(record(number), StockRow(item.data()));
        };
        int number = 1;
        while (number <= count && !matches(number))
            ++number;
        const bool found = number <= count;
        const double tag = found ? record(number).get<&Item::Tag>() : number;
        const std::string status(found ? record(number).field<&Item::Status>() : kLiveItem);
        if (found) number = recordNumberOf(tag);
        if (number < 1 || number > count + (found ? 0 : 1)) break;
        StockRow::set<&Item::Tag>(item.data(), tag);
        StockRow::set<&Item::Status>(item.data(), status);
        const std::size_t place = static_cast<std::size_t>(number - 1) * kSize;
        catalogue.resize(std::max(catalogue.size(), place + kSize));
        catalogue.replace(place, kSize, item);
    }
    return catalogue;
}

}  // namespace bramblet::test
