// Where the pages of a laid-out document end when it is printed.
#pragma once

#include <vector>

class QTextDocument;

namespace bramblet {

/// A place between two pages, and the part of the line between two rows of a table there that has
/// to be drawn once more at the top of the second page (`left` = `right` when there is none).
/// Pixels from the top and the left of the document.
struct PageBreak {
    double at = 0;
    double left = 0;
    double right = 0;
};

/// The beginning of each page of at most this height, and the end of the last one. Pages break
/// between the rows of tables and, where a row is higher than a page, between lines of text.
std::vector<PageBreak> pageBreaks(const QTextDocument& document, double height);

}  // namespace bramblet
