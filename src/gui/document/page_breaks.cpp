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

/// Something that a page end should not cut, from top to bottom, with the line above it.
struct Span {
    double top;
    double bottom;
    double lineLeft = 0;
    double lineRight = 0;
};

class Spans {
  public:
    explicit Spans(const QTextDocument& document) : layout_(*document.documentLayout()) {
        addRowsIn(document.rootFrame());
        addLines(document);
        sort(rows_);
        sort(lines_);
        separateRows();
    }

    /// The latest place at which a page of this height that begins at `start` may end.
    PageBreak pageEnd(double start, double height) const {
        PageBreak end{start + height};
        for (const auto* spans : {&rows_, &lines_}) {
            while (const Span* cut = highestCut(*spans, start, end.at, height))
                end = {cut->top, cut->lineLeft, cut->lineRight};
        }
        return end;
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
    // Both from top to bottom.
    std::vector<Span> rows_;
    std::vector<Span> lines_;
};

}  // namespace

std::vector<PageBreak> pageBreaks(const QTextDocument& document, double height) {
    const Spans spans(document);
    const double end = document.size().height();
    std::vector<PageBreak> breaks{{}};
    while (breaks.back().at + height < end) {
        breaks.push_back(spans.pageEnd(breaks.back().at, height));
    }
    breaks.push_back({end});
    return breaks;
}

}  // namespace bramblet
