// Made-up orders and their documents.
#pragma once

#include "core/document/document_writer.h"
#include "core/document/totals.h"

#include <string>
#include <utility>
#include <vector>

namespace bramblet::test {

inline Order orderWith(const std::vector<std::pair<OrderField, std::string>>& texts) {
    Order order;
    for (const auto& [field, text] : texts)
        order.*field = text;
    return order;
}

/// An order of many lines, some with long descriptions.
inline std::string longDocument(int lines) {
    Order order = orderWith({{&Order::PONoEd, "000200"}});
    for (int i = 1; i <= lines; ++i) {
        const std::string number = std::to_string(i);
        const std::string more = i % 7 == 0 ? " with a description of many words that goes on" : "";
        order.lines.push_back({"1", "", "", "ea", "Item-" + number + "-" + more + more + more,
                               "1.00", "1.00", "special"});
    }
    Settings settings;
    settings.SigLineSpace = 23;
    settings.DescriptionLineLength = 65;
    settings.FontName = "DejaVu Sans";
    settings.FormWidth = "640";
    settings.UseTopGraphic = "N";
    settings.IDText1 = "Larkfield Joinery";
    TotalUp(order, false, {});
    return orderDocument(order, {settings, false, {}});
}

/// How often a part occurs in a text.
inline std::size_t count(const std::string& text, const std::string& part) {
    std::size_t found = 0;
    for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++found;
    return found;
}

}  // namespace bramblet::test
