#include "core/document/display_builder.h"

#include "core/document/display_html.h"
#include "core/platform/sorting.h"

#include <algorithm>
#include <cmath>

namespace bramblet {
namespace {

// Bounds for documents that nobody would write. Layout time is multiplied by each level of nested
// tables, and grows with the square of paragraph lengths and with the number of cells.
constexpr int kMostTables = 4;  // nested
constexpr std::size_t kMostOpen = 100;
constexpr int kMostColumns = 40;
constexpr int kMostCells = 50'000;
constexpr std::size_t kLongParagraph = 4000;  // characters
constexpr std::size_t kLongestWord = 500;     // beyond a long paragraph
constexpr std::size_t kLineLength = 20;       // that a line break counts for

constexpr std::string_view kBlanks = " \t\r\n";

int cellsOf(const Tag& tag, std::string_view attribute) {
    constexpr double kMost = kMostColumns;
    return static_cast<int>(std::clamp(leadingNumber(tag.word(attribute)), 1.0, kMost));
}

/// What closes what: an element is looked for up to the cell, row or table that it stands in.
int rankOf(Role role) {
    return role == Role::Table ? 3 : role == Role::Row ? 2 : role == Role::Cell ? 1 : 0;
}

}  // namespace

std::string DisplayBuilder::finished() {
    closeDownTo(0);
    return std::move(html_);
}

void DisplayBuilder::addText(std::string_view text) {
    if (isBetweenCells() && text.find_first_not_of(kBlanks) == std::string_view::npos) return;
    ensureCell();
    for (std::size_t i = 0; i < text.size(); ++i) {
        addCharacter(text[i]);
        // The document has no "<br>" after an address line that ends in ">".
        const std::string_view next = text.substr(i + 1, 1);
        if (text[i] == '>' && (next == "\r" || next == "\n")) html_ += "<br>";
    }
}

void DisplayBuilder::addCharacter(char c) {
    const bool blank = kBlanks.find(c) != std::string_view::npos;
    lengthen(1, blank);
    const bool control = static_cast<unsigned char>(c) < ' ' && !blank;
    html_ += c == '<' ? "&lt;" : control ? " " : std::string(1, c);
}

void DisplayBuilder::addSingle(std::string_view html, std::size_t length) {
    ensureCell();
    lengthen(length, true);
    html_ += html;
}

void DisplayBuilder::addBreak() {
    ensureCell();
    dropBlanksAtEnd();  // a line end here would show as a blank at the line's right end
    run_ += kLineLength;
    if (run_ > kLongParagraph) return divide();  // which starts a line, too
    html_ += "<br>";
}

void DisplayBuilder::addBlock(std::string_view html) {
    ensureCell();
    closeParagraph("p");
    html_ += html;
    run_ = 0;
}

void DisplayBuilder::openText(const Element& element, const std::string& opening) {
    ensureCell();
    if (stack_.size() >= kMostOpen) return;
    if (element.role == Role::Block) {
        closeParagraph(element.name == "li" ? "li" : "p");
        run_ = 0;
    }
    push({&element, opening});
}

void DisplayBuilder::openTable(const Element& element, const std::string& opening, bool lined) {
    ensureCell();
    closeParagraph("p");
    if (stack_.size() >= kMostOpen) return;
    const bool tooMany = std::count_if(stack_.begin(), stack_.end(), isTable) >= kMostTables;
    push({&element, tooMany || cells_ > kMostCells ? "" : opening, lined});
}

void DisplayBuilder::openRow(const Tag& tag, bool lined, bool headings) {
    const auto table = findOpen(isTable);
    if (!table || leavesOut(tag)) return;
    closeDownTo(*table + 1);
    addRow(tag, lined, headings);
}

void DisplayBuilder::openCell(const Tag& tag, bool empty) {
    const auto table = findOpen(isTable);
    if (!table) return addText(" ");
    if (leavesOut(tag)) return;
    const int columns = cellsOf(tag, "colspan");
    const bool inRow = stack_.size() > *table + 1;
    if (!inRow || stack_[*table + 1].cells + columns > kMostColumns) {
        closeDownTo(*table + 1);
        addRow(Tag{elementNamed("tr"), false, {}}, true);
    }
    closeDownTo(*table + 2);
    Open& row = stack_.back();
    row.cells += columns;
    const int longer = std::max(0, row.cells - stack_[*table].cells);
    stack_[*table].cells += longer;
    cells_ += longer + columns * (cellsOf(tag, "rowspan") - 1);
    if (row.opening.empty()) {
        html_ += ' ';
        return push({tag.element, ""});
    }
    push({tag.element, "<" + std::string(tag.element->name) +
                           shownAttributes(tag, scale_, cellStyle(row, empty)) + ">"});
}

void DisplayBuilder::close(const Tag& tag) {
    const int rank = rankOf(tag.element->role);
    if ((rank == 1 || rank == 2) && leavesOut(tag)) return;
    const auto open = findOpen([&](const Open& candidate) {
        const int its = rankOf(candidate.element->role);
        return its > rank || (its == rank && (rank > 0 || candidate.element == tag.element));
    });
    if (open && rankOf(stack_[*open].element->role) == rank) closeDownTo(*open);
}

void DisplayBuilder::lengthen(std::size_t length, bool mayDivide) {
    run_ += length;
    if (run_ > kLongParagraph && (mayDivide || run_ > kLongParagraph + kLongestWord)) divide();
}

/// Continues in a new paragraph, with the same formats, as far as these take up no more room than a
/// paragraph: otherwise a page could be thousands of times as long as its document.
void DisplayBuilder::divide() {
    const auto cell = findOpen(isCell);
    const std::size_t first = cell ? *cell + 1 : 0;
    std::vector<Open> again(stack_.begin() + static_cast<std::ptrdiff_t>(first), stack_.end());
    closeDownTo(first);
    run_ = 0;
    push({elementNamed("div"), "<div>"});
    std::size_t room = kLongParagraph;
    for (Open& open : again) {
        if (open.element->role != Role::Inline) continue;
        if (open.opening.size() > room) open.opening.clear();
        room -= open.opening.size();
        push(std::move(open));
    }
}

/// Paragraphs, and entries of one list, do not nest.
void DisplayBuilder::closeParagraph(std::string_view name) {
    const auto open = findOpen([&](const Open& candidate) {
        const std::string_view its = candidate.element->name;
        const bool listAround = name == "li" && (its == "ul" || its == "ol");
        return its == name || isCell(candidate) || listAround;
    });
    if (open && stack_[*open].element->name == name) closeDownTo(*open);
}

/// Beyond the greatest number of cells, tags of rows and cells are left out and only keep texts
/// apart.
bool DisplayBuilder::leavesOut(const Tag& tag) {
    if (cells_ <= kMostCells || isBetweenCells()) return false;
    html_ += tag.is("tr") && !tag.closing ? "<br>" : " ";
    return true;
}

void DisplayBuilder::addRow(const Tag& tag, bool lined, bool headings) {
    const Open& table = stack_.back();
    const bool first = table.cells == 0;
    cells_ += table.cells;  // a short row is filled up with empty cells
    const bool shown = !table.opening.empty();
    lined = lined && table.lined;
    headings = headings && shown && lined && first;
    if (headings) html_ += "<thead>";
    push({tag.element, shown ? "<tr" + shownAttributes(tag, scale_) + ">" : "", lined, headings});
}

std::string DisplayBuilder::cellStyle(const Open& row, bool empty) {
    std::string style;
    if (row.lined && !empty)
        style = "border:" + std::to_string(scale_.pixels(1)) + "px solid " + kLineColour;
    if (addedHeight_ > 0)
        style += "padding-bottom:" + std::to_string(std::lround(addedHeight_)) + "px";
    addedHeight_ = 0;
    return style;
}

void DisplayBuilder::ensureCell() {
    if (isBetweenCells()) openCell(Tag{elementNamed("td"), false, {}}, false);
}

bool DisplayBuilder::isBetweenCells() const {
    return !stack_.empty() && rankOf(stack_.back().element->role) > 1;
}

/// The innermost open element for which `matches` holds, as an index into the stack.
template <class Matches>
std::optional<std::size_t> DisplayBuilder::findOpen(Matches matches) const {
    const auto found = std::find_if(stack_.rbegin(), stack_.rend(), matches);
    if (found == stack_.rend()) return std::nullopt;
    return static_cast<std::size_t>(std::distance(found, stack_.rend())) - 1;
}

void DisplayBuilder::push(Open open) {
    if (isCell(open)) run_ = 0;
    html_ += open.opening;
    stack_.push_back(std::move(open));
}

void DisplayBuilder::closeDownTo(std::size_t count) {
    const auto first = stack_.begin() + static_cast<std::ptrdiff_t>(count);
    if (std::any_of(first, stack_.end(), isCell)) dropBlanksAtEnd();
    for (; stack_.size() > count; stack_.pop_back()) {
        const std::string& opening = stack_.back().opening;
        if (opening.empty()) continue;
        html_ += "</" + opening.substr(1, opening.find_first_of(" >") - 1) + ">";
        if (stack_.back().headings) html_ += "</thead>";
    }
}

void DisplayBuilder::dropBlanksAtEnd() {
    html_.erase(html_.find_last_not_of(kBlanks) + 1);
}

}  // namespace bramblet
