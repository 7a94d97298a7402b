#include "core/platform/source_table.h"

#include "core/platform/text.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace bramblet {
namespace {

using Headings = std::vector<std::vector<std::string_view>>;

/// The cell that begins at `at`, which then stands behind it. Its line breaks stay.
std::string nextCell(std::string_view text, char separator, std::size_t& at) {
    std::string cell;
    if (at < text.size() && text[at] == '"') {
        for (++at; at < text.size(); ++at) {
            if (text[at] == '"' && text.substr(at, 2) != "\"\"") break;
            if (text[at] == '"') ++at;
            cell.push_back(text[at]);
        }
        if (at < text.size()) ++at;
    }
    const std::array ends{separator, '\r', '\n'};
    const auto end = std::min(text.find_first_of({ends.data(), ends.size()}, at), text.size());
    cell += text.substr(at, end - at);
    at = end;
    return std::string(withoutEnds(cell, " \t\r\n"));
}

/// The heading's meaning, a place in `headings`; the longest match counts.
std::optional<std::size_t> meaningOf(const std::string& heading, const Headings& headings) {
    const std::string wanted = upper(heading);
    std::optional<std::size_t> meaning;
    std::size_t longest = 0;
    for (std::size_t taken = 0; taken < headings.size(); ++taken) {
        for (const std::string_view start : headings[taken]) {
            if (!wanted.starts_with(start) || start.size() <= longest) continue;
            longest = start.size();
            meaning = taken;
        }
    }
    return meaning;
}

}  // namespace

std::vector<Cells> cellsIn(std::string_view text, char separator) {
    std::vector<Cells> rows;
    std::size_t columns = 0;
    for (std::size_t at = 0; at < text.size();) {
        Cells cells{nextCell(text, separator, at)};
        while (at < text.size() && text[at] == separator)
            cells.push_back(nextCell(text, separator, ++at));
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

char likelySeparator(std::string_view text) {
    constexpr std::size_t kEnough = 10'000;  // characters
    std::string_view start = text.substr(0, kEnough);
    if (start.size() < text.size()) start = start.substr(0, start.rfind('\n') + 1);
    char likely = ',';
    std::pair<std::size_t, std::size_t> best;
    for (const char separator : {'\t', ';', ','}) {
        std::size_t filled = 0, width = 0;
        for (const Cells& row : cellsIn(start, separator)) {
            const auto texts = static_cast<std::size_t>(std::count_if(
                row.begin(), row.end(), [](const auto& cell) { return !cell.empty(); }));
            if (texts > 1) ++filled;
            width = row.size();
        }
        if (filled > 0 && std::pair(filled, width) > best) {
            best = {filled, width};
            likely = separator;
        }
    }
    return likely;
}

SourceTable::SourceTable(std::vector<Cells> rows, const Headings& headings,
                         const std::function<bool(const std::string& cell)>& isAmount)
    : rows_(std::move(rows)), sources_(headings.size(), kNowhere) {
    if (rows_.size() < 2) return;
    const Cells& first = rows_.front();
    if (std::any_of(first.begin(), first.end(), isAmount)) return;
    for (std::size_t column = 0; column < first.size(); ++column) {
        const auto meaning = meaningOf(first[column], headings);
        if (!meaning) continue;
        headed_ = true;
        if (sources_[*meaning] == kNowhere) sources_[*meaning] = static_cast<int>(column);
    }
}

std::size_t SourceTable::chosen() const {
    return static_cast<std::size_t>(
        std::count_if(sources_.begin(), sources_.end(), [](int s) { return s != kNowhere; }));
}

std::string SourceTable::text(std::size_t row, std::size_t taken) const {
    const int source = sources_[taken];
    return source == kNowhere ? std::string() : rows_[row][static_cast<std::size_t>(source)];
}

std::vector<std::string> SourceTable::columns() const {
    std::vector<std::string> names;
    for (std::size_t column = 0; !rows_.empty() && column < rows_.front().size(); ++column) {
        std::string name;
        for (std::size_t rest = column + 1; rest > 0; rest = (rest - 1) / 26)
            name.insert(name.begin(), static_cast<char>('A' + (rest - 1) % 26));
        const auto first = std::find_if(rows_.begin(), rows_.end(),
                                        [&](const Cells& cells) { return !cells[column].empty(); });
        if (first != rows_.end()) name += ": " + withoutControls((*first)[column]);
        names.push_back(std::move(name));
    }
    return names;
}

}  // namespace bramblet
