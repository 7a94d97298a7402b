// Where the pages of a laid-out document end when it is printed.
#pragma once

#include <vector>

class QTextDocument;

namespace bramblet {

/// A place between two pages, and the part of the line between two table rows there that has to be
/// drawn again at the top of the second page (`left` = `right` if there is none). In pixels from
/// the top and the left of the document.
struct PageBreak {
    double at = 0;
    double left = 0;
    double right = 0;
};

/// The beginning of each page of at most this height, and the end of the last one. Pages break
/// between table rows and, where a row is higher than a page, between lines of text.
std::vector<PageBreak> pageBreaks(const QTextDocument& document, double height);

}  // namespace bramblet
