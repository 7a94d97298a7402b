#include "core/orders/pasted_lines.h"

#include "core/platform/amount_text.h"
#include "core/platform/fault.h"
#include "core/platform/text.h"

#include <algorithm>
#include <optional>

namespace bramblet {
namespace {

using Cells = std::vector<std::string>;

/// What stands in a line for which the table has nothing, in the order of PastedLines::kTaken.
constexpr std::array<const char*, 4> kOtherwise{"1", "ea", "", "0"};

/// The beginnings of headings, in the same order.
constexpr std::array<std::array<std::string_view, 5>, 4> kHeadings{{
    {"QUANT", "QTY", "COUNT", "NUMBER", "PIECES"},
    {"UNIT OF", "UNIT", "UOM", "U/M", "MEASURE"},
    {"DESC", "ITEM", "ARTICLE", "PRODUCT", "NAME"},
    {"UNIT COST", "UNIT PRICE", "COST", "PRICE", "RATE"},
}};

/// The cell that begins at `at`, which then stands behind it.
std::string nextCell(std::string_view text, std::size_t& at) {
    std::string cell;
    if (at < text.size() && text[at] == '"') {
        for (++at; at < text.size(); ++at) {
            if (text[at] == '"' && text.substr(at, 2) != "\"\"") break;
            if (text[at] == '"') ++at;
            cell.push_back(text[at]);
        }
        if (at < text.size()) ++at;
    }
    const auto end = std::min(text.find_first_of("\t\r\n", at), text.size());
    cell += text.substr(at, end - at);
    at = end;
    return trimmed(withoutControls(cell));
}

/// The amount that a cell names, as a line can hold it; nothing for words and negative amounts.
std::optional<double> amountIn(const std::string& cell, const RegionalFormats& formats) {
    try {
        if (cell.find('-') != std::string::npos ||
            cell.find_first_of("0123456789") == std::string::npos)
            return std::nullopt;
        return numberOf(cleanedNumber(cell), formats);
    } catch (const Fault&) {
        return std::nullopt;
    }
}

/// The heading's meaning, an index into PastedLines::kTaken; the longest match counts.
std::optional<std::size_t> meaningOf(const std::string& heading) {
    const std::string wanted = upper(heading);
    std::optional<std::size_t> meaning;
    std::size_t longest = 0;
    for (std::size_t taken = 0; taken < kHeadings.size(); ++taken) {
        for (const std::string_view start : kHeadings[taken]) {
            if (!wanted.starts_with(start) || start.size() <= longest) continue;
            longest = start.size();
            meaning = taken;
        }
    }
    return meaning;
}

/// What a column holds, below its heading.
struct SourceColumn {
    int number = 0;
    bool amounts = true;         ///< nothing but amounts
    std::size_t characters = 0;  ///< of all its texts
};

}  // namespace

std::vector<Cells> copiedCells(std::string_view text) {
    std::vector<Cells> rows;
    std::size_t columns = 0;
    for (std::size_t at = 0; at < text.size();) {
        Cells cells{nextCell(text, at)};
        while (at < text.size() && text[at] == '\t')
            cells.push_back(nextCell(text, ++at));
        if (text.substr(at, 2) == "\r\n") ++at;
        ++at;
        const bool blank =
            std::all_of(cells.begin(), cells.end(), [](const auto& cell) { return cell.empty(); });
        columns = std::max(columns, cells.size());
        if (!blank) rows.push_back(std::move(cells));
    }
    for (Cells& cells : rows)
        cells.resize(columns);
    return rows;
}

PastedLines::PastedLines(std::string_view clipboard, const RegionalFormats& formats)
    : LineTable(formats), formats_(formats), cells_(copiedCells(clipboard)) {
    sources_.fill(kNowhere);
    if (!cells_.empty()) guess();
    rebuild();
}

void PastedLines::choose(std::size_t taken, int source) {
    sources_[taken] = source;
    rebuild();
}

void PastedLines::setHeaded(bool headed) {
    headed_ = headed;
    rebuild();
}

std::vector<std::string> PastedLines::columns() const {
    std::vector<std::string> names;
    for (std::size_t column = 0; !cells_.empty() && column < cells_.front().size(); ++column) {
        std::string name;
        for (std::size_t rest = column + 1; rest > 0; rest = (rest - 1) / 26)
            name.insert(name.begin(), static_cast<char>('A' + (rest - 1) % 26));
        const auto first = std::find_if(cells_.begin(), cells_.end(),
                                        [&](const Cells& cells) { return !cells[column].empty(); });
        if (first != cells_.end()) name += ": " + (*first)[column];
        names.push_back(std::move(name));
    }
    return names;
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

/// By the headings, where there are some. Otherwise the longest texts are the descriptions, amounts
/// before them quantities, and amounts after them unit costs; other texts are units.
void PastedLines::guess() {
    const auto isAmount = [&](const std::string& cell) {
        return amountIn(cell, formats_).has_value();
    };
    const Cells& first = cells_.front();
    headed_ = cells_.size() > 1 && std::none_of(first.begin(), first.end(), isAmount) &&
              std::any_of(first.begin(), first.end(),
                          [](const auto& cell) { return meaningOf(cell).has_value(); });
    for (std::size_t column = 0; headed_ && column < first.size(); ++column) {
        const auto meaning = meaningOf(first[column]);
        if (meaning && sources_[*meaning] == kNowhere)
            sources_[*meaning] = static_cast<int>(column);
    }
    if (headed_) return;

    std::vector<SourceColumn> texts, amounts;
    for (std::size_t i = 0; i < first.size(); ++i) {
        SourceColumn column{static_cast<int>(i)};
        for (const Cells& cells : cells_) {
            column.characters += cells[i].size();
            column.amounts = column.amounts && (cells[i].empty() || isAmount(cells[i]));
        }
        if (column.characters == 0) continue;
        (column.amounts ? amounts : texts).push_back(column);
    }
    auto& [quantity, unit, description, unitCost] = sources_;
    const auto longest = std::max_element(
        texts.begin(), texts.end(),
        [](const SourceColumn& a, const SourceColumn& b) { return a.characters < b.characters; });
    if (longest != texts.end()) {
        description = longest->number;
        texts.erase(longest);
    }
    if (!texts.empty()) unit = texts.front().number;
    for (const SourceColumn& column : amounts) {
        const bool before = column.number < description || amounts.size() > 1;
        int& wanted = before && quantity == kNowhere ? quantity : unitCost;
        if (wanted == kNowhere) wanted = column.number;
    }
}

void PastedLines::rebuild() {
    total_ = 0;
    doubted_.clear();
    std::vector<OrderLine> lines;
    for (std::size_t row = headed_ ? 1 : 0; row < cells_.size(); ++row)
        lines.push_back(lineOf(cells_[row]));
    take(lines);
}

OrderLine PastedLines::lineOf(const Cells& cells) {
    std::array<std::string, kTaken.size()> texts;
    for (std::size_t taken = 0; taken < kTaken.size(); ++taken) {
        const int source = sources_[taken];
        std::string& text = texts[taken];
        if (source != kNowhere) text = cells[static_cast<std::size_t>(source)];
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
