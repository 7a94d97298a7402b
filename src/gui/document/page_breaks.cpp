#include "gui/document/page_breaks.h"

#include <QAbstractTextDocumentLayout>
#include <QTextBlock>
#include <QTextTable>

#include <algorithm>
#include <limits>
#include <optional>

namespace bramblet {
namespace {

/// Half the space between the texts of two rows; the line between them is in the middle.
constexpr double kRowMargin = 3;
/// Of a page's height, the most that headings may take to be repeated.
constexpr double kMostForHeadings = .25;

/// Something that a page end should not cut, from top to bottom, with the line above it.
struct Span {
    double top;
    double bottom;
    double lineLeft = 0;
    double lineRight = 0;
};

/// A table's row of headings, and where the table ends.
struct Headings {
    Span row;
    double tableEnd;
};

class Spans {
  public:
    explicit Spans(const QTextDocument& document) : layout_(*document.documentLayout()) {
        addRowsIn(document.rootFrame());
        addLines(document);
        sort(rows_);
        sort(lines_);
        separateRows();
        sort(blocks_);
        std::sort(headings_.begin(), headings_.end(),
                  [](const Headings& a, const Headings& b) { return a.row.top < b.row.top; });
    }

    /// The page behind one of this height that begins at `start` and ends as late as it may.
    Page pageBehind(double start, double height) const {
        Page page{start + height};
        for (const auto* spans : {&blocks_, &rows_, &lines_}) {
            while (const Span* cut = highestCut(*spans, start, page.from, height))
                page = {cut->top, 0, cut->lineLeft, cut->lineRight};
        }
        return page;
    }

    /// Repeats the headings of a table in whose rows the page begins.
    void addHeadings(Page& page, double height) const {
        const auto isBefore = [&](const Headings& table) { return table.row.bottom <= page.from; };
        const auto behind = std::partition_point(headings_.begin(), headings_.end(), isBefore);
        if (behind == headings_.begin()) return;
        const Headings& table = *(behind - 1);
        const double needed = table.row.bottom - table.row.top;
        if (table.tableEnd <= page.from || needed > kMostForHeadings * height) return;
        page.headingsFrom = table.row.top;
        page.headingsTo = table.row.bottom;
    }

  private:
    /// Of the spans that fit a page and would be cut at `at`, the one that begins first.
    static const Span* highestCut(const std::vector<Span>& spans, double start, double at,
                                  double height) {
        const auto beginsBehind = [](double place, const Span& span) { return place < span.top; };
        auto span =
            std::upper_bound(spans.begin(), spans.end(), qMax(start, at - height), beginsBehind);
        for (; span != spans.end() && span->top < at; ++span) {
            if (span->bottom > at && span->bottom - span->top <= height) return &*span;
        }
        return nullptr;
    }

    static void sort(std::vector<Span>& spans) {
        std::stable_sort(spans.begin(), spans.end(),
                         [](const Span& a, const Span& b) { return a.top < b.top; });
    }

    /// The last row of a table and the first row of another close below must not both be cut.
    void separateRows() {
        for (std::size_t i = 1; i < rows_.size(); ++i) {
            Span& upper = rows_[i - 1];
            Span& lower = rows_[i];
            const bool overlap =
                lower.top > upper.top && lower.top < upper.bottom && lower.bottom > upper.bottom;
            if (overlap) upper.bottom = lower.top = (lower.top + upper.bottom) / 2;
        }
        sort(rows_);
    }

    void addRowsIn(QTextFrame* frame) {
        for (QTextFrame* child : frame->childFrames()) {
            addRowsIn(child);
            if (const auto* table = qobject_cast<QTextTable*>(child)) addRows(*table);
        }
    }

    void addRows(const QTextTable& table) {
        const std::size_t first = rows_.size();
        std::optional<double> end;
        for (int row = 0; row < table.rows(); ++row) {
            Span span = textOf(table, row);
            const double textEnd = span.bottom;
            span.top = end ? (*end + span.top) / 2 : span.top - kRowMargin;
            span.bottom += kRowMargin;
            if (end) rows_.back().bottom = span.top;
            rows_.push_back(span);
            end = textEnd;
        }
        addBlocks(table, first);
    }

    /// The table's headings with its next row, and its totals.
    void addBlocks(const QTextTable& table, std::size_t first) {
        const double left = rows_[first].lineLeft;
        const Span& last = rows_.back();
        const bool inCell = table.parentFrame()->parentFrame() != nullptr;
        if (table.format().headerRowCount() > 0 && first + 1 < rows_.size() && !inCell) {
            headings_.push_back({rows_[first], last.bottom - kRowMargin});
            blocks_.push_back(rows_[first]);
            blocks_.back().bottom = rows_[first + 1].bottom;
        }
        // The lines of totals begin farther right than those of other rows.
        std::size_t totals = rows_.size();
        while (totals > first && rows_[totals - 1].lineLeft > left)
            --totals;
        if (totals == rows_.size()) return;
        blocks_.push_back(rows_[totals]);
        blocks_.back().bottom = last.bottom;
    }

    /// From the top of a row's texts to the end of the longest, and across the cells with a line
    /// above.
    Span textOf(const QTextTable& table, int row) const {
        Span span{std::numeric_limits<double>::max(), 0};
        for (int column = 0; column < table.columns(); ++column) {
            const QTextTableCell cell = table.cellAt(row, column);
            const auto first = cell.firstCursorPosition().block();
            const auto last = cell.lastCursorPosition().block();
            const QRectF place = layout_.blockBoundingRect(first);
            span.top = qMin(span.top, place.top());
            span.bottom = qMax(span.bottom, layout_.blockBoundingRect(last).bottom());
            if (cell.format().toTableCellFormat().topBorder() == 0) continue;
            if (span.lineRight == 0) span.lineLeft = place.left() - kRowMargin;
            span.lineRight = place.right() + kRowMargin;
        }
        return span;
    }

    void addLines(const QTextDocument& document) {
        for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
            const QPointF place = layout_.blockBoundingRect(block).topLeft();
            for (int i = 0; i < block.layout()->lineCount(); ++i) {
                const QRectF line = block.layout()->lineAt(i).rect().translated(place);
                lines_.push_back({line.top(), line.bottom(), 0, 0});
            }
        }
    }

    const QAbstractTextDocumentLayout& layout_;
    // All from top to bottom.
    std::vector<Span> rows_;
    std::vector<Span> lines_;
    std::vector<Span> blocks_;  ///< of rows that belong together
    std::vector<Headings> headings_;
};

}  // namespace

std::vector<Page> pagesOf(const QTextDocument& document, double height, double runningHead) {
    const Spans spans(document);
    const double end = document.size().height();
    std::vector<Page> pages{{}};
    double room = height;
    while (pages.back().from + room < end) {
        Page next = spans.pageBehind(pages.back().from, room);
        spans.addHeadings(next, height);
        pages.back().to = next.from;
        room = height - runningHead - next.headingsHeight();
        pages.push_back(next);
    }
    pages.back().to = end;
    return pages;
}

}  // namespace bramblet
