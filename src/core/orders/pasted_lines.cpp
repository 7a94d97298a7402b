#include "core/orders/pasted_lines.h"

#include "core/platform/amount_text.h"
#include "core/platform/fault.h"
#include "core/platform/text.h"

#include <algorithm>
#include <optional>

namespace bramblet {
namespace {

/// What stands in a line for which the table has nothing, in the order of PastedLines::kTaken.
constexpr std::array<const char*, 4> kOtherwise{"1", "ea", "", "0"};

/// The beginnings of headings, in the same order.
const std::vector<std::vector<std::string_view>> kHeadings{
    {"QUANT", "QTY", "COUNT", "NUMBER", "PIECES"},
    {"UNIT OF", "UNIT", "UOM", "U/M", "MEASURE"},
    {"DESC", "ITEM", "ARTICLE", "PRODUCT", "NAME"},
    {"UNIT COST", "UNIT PRICE", "COST", "PRICE", "RATE"},
};

/// What a column holds, below its heading.
struct SourceColumn {
    int number = 0;
    bool amounts = true;         ///< nothing but amounts
    std::size_t characters = 0;  ///< of all its texts
};

}  // namespace

PastedLines::PastedLines(std::string_view clipboard, const RegionalFormats& formats)
    : LineTable(formats), table_(cellsIn(clipboard, '\t'), kHeadings, [&](const std::string& cell) {
          return amountIn(cell, formats).has_value();
      }) {
    if (!table_.headed()) guess();
    rebuild();
}

void PastedLines::choose(std::size_t taken, int source) {
    table_.choose(taken, source);
    rebuild();
}

void PastedLines::setHeaded(bool headed) {
    table_.setHeaded(headed);
    rebuild();
}

std::string PastedLines::summary() const {
    return std::to_string(rowCount()) + (rowCount() == 1 ? " line, " : " lines, ") +
           standardText(total_, formats_) + " in all";
}

std::string PastedLines::doubts() const {
    constexpr std::size_t kMostNamed = 3;
    if (doubted_.empty()) return {};
    std::string line = doubted_.size() == 1 ? "One amount cannot be read and counts as 0: "
                                            : std::to_string(doubted_.size()) +
                                                  " amounts cannot be read and count as 0: ";
    for (std::size_t i = 0; i < std::min(doubted_.size(), kMostNamed); ++i)
        line += (i == 0 ? "\"" : ", \"") + doubted_[i] + "\"";
    return line + (doubted_.size() > kMostNamed ? " ..." : "");
}

/// Where there are no headings, the longest texts are the descriptions, amounts before them
/// quantities, and amounts after them unit costs; other texts are units.
void PastedLines::guess() {
    std::vector<SourceColumn> texts, amounts;
    const std::size_t columns = table_.rows().empty() ? 0 : table_.rows().front().size();
    for (std::size_t i = 0; i < columns; ++i) {
        SourceColumn column{static_cast<int>(i)};
        for (const Cells& cells : table_.rows()) {
            column.characters += cells[i].size();
            column.amounts =
                column.amounts && (cells[i].empty() || amountIn(cells[i], formats_).has_value());
        }
        if (column.characters == 0) continue;
        (column.amounts ? amounts : texts).push_back(column);
    }
    constexpr std::size_t kQuantities = 0, kUnits = 1, kDescriptions = 2, kUnitCosts = 3;
    const auto longest = std::max_element(
        texts.begin(), texts.end(),
        [](const SourceColumn& a, const SourceColumn& b) { return a.characters < b.characters; });
    if (longest != texts.end()) {
        table_.choose(kDescriptions, longest->number);
        texts.erase(longest);
    }
    if (!texts.empty()) table_.choose(kUnits, texts.front().number);
    for (const SourceColumn& column : amounts) {
        const bool before = column.number < table_.source(kDescriptions) || amounts.size() > 1;
        const bool quantity = before && table_.source(kQuantities) == SourceTable::kNowhere;
        const std::size_t wanted = quantity ? kQuantities : kUnitCosts;
        if (table_.source(wanted) == SourceTable::kNowhere) table_.choose(wanted, column.number);
    }
}

void PastedLines::rebuild() {
    total_ = 0;
    doubted_.clear();
    std::vector<OrderLine> lines;
    for (std::size_t row = table_.firstRow(); row < table_.rows().size(); ++row)
        lines.push_back(lineOf(row));
    take(lines);
}

OrderLine PastedLines::lineOf(std::size_t row) {
    std::array<std::string, kTaken.size()> texts;
    for (std::size_t taken = 0; taken < kTaken.size(); ++taken) {
        std::string& text = texts[taken];
        text = trimmed(withoutControls(table_.text(row, taken)));
        const bool amount = kTaken[taken] == kQuantity || kTaken[taken] == kUnitCost;
        if (amount && !text.empty() && !amountIn(text, formats_)) {
            doubted_.push_back(text);
            text = "0";
        }
        if (text.empty()) text = kOtherwise[taken];
    }
    OrderLine line = specialLine(storedEntry({texts[0], texts[1], texts[2], texts[3]}));
    try {
        line[kLineTotal] = lineTotal(line[kQuantity], line[kUnitCost], formats_);
        total_ += numberOf(line[kLineTotal], formats_);
    } catch (const Fault&) {
        doubted_.push_back(texts[0] + " x " + texts[3]);
    }
    return line;
}

}  // namespace bramblet
