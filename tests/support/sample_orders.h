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

inline OrderLine lineOf(const std::string& description) {
    return {"1", "", "", "ea", description, "1.00", "1.00", "special"};
}

/// A form with a company's name, in a font that is on every machine.
inline Settings formOf(const std::string& company) {
    Settings settings;
    settings.SigLineSpace = 23;
    settings.DescriptionLineLength = 65;
    settings.FontName = "DejaVu Sans";
    settings.FormWidth = "640";
    settings.UseTopGraphic = "N";
    settings.IDText1 = company;
    return settings;
}

inline std::string documentOf(Order order, const Settings& settings) {
    TotalUp(order, false, {});
    return orderDocument(order, {settings, false, {}});
}

/// An order of many lines, some with long descriptions.
inline std::string longDocument(int lines) {
    Order order = orderWith({{&Order::PONoEd, "000200"}});
    for (int i = 1; i <= lines; ++i) {
        const std::string number = std::to_string(i);
        const std::string more = i % 7 == 0 ? " with a description of many words that goes on" : "";
        order.lines.push_back(lineOf("Item-" + number + "-" + more + more + more));
    }
    return documentOf(std::move(order), formOf("Larkfield Joinery"));
}

/// How often a part occurs in a text.
inline std::size_t count(const std::string& text, const std::string& part) {
    std::size_t found = 0;
    for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++found;
    return found;
}

}  // namespace bramblet::test
