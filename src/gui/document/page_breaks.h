// Which part of a laid-out document stands on which page when it is printed.
#pragma once

#include <vector>

class QTextDocument;

namespace bramblet {

/// The part of the document on one page, in pixels from the top and the left of the document.
struct Page {
    double from = 0;
    double to = 0;
    /// The part of the line between two table rows at `from` that has to be drawn again at the top
    /// of the page: `lineLeft` = `lineRight` if there is none.
    double lineLeft = 0;
    double lineRight = 0;
    /// The headings of the table that goes on at `from`, to be drawn again above it: both 0 if
    /// there are none.
    double headingsFrom = 0;
    double headingsTo = 0;

    double headingsHeight() const { return headingsTo - headingsFrom; }
};

/// Divides a document into pages of at most this height. From the second page on, `runningHead` of
/// it and what repeated headings take are left free at the top. Pages break between table rows and,
/// where a row is higher than a page, between lines of text. Headings stay with the row below them,
/// and totals stay together, as far as there is room on a page.
std::vector<Page> pagesOf(const QTextDocument& document, double height, double runningHead);

}  // namespace bramblet
