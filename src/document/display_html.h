// The order document as the viewer shows and prints it: the same content, with its old-fashioned
// markup (base font, font sizes, bordered tables) put into the terms of Qt's text engine.
#pragma once

#include <string>
#include <string_view>

namespace bramblet {

/// Of the lines of bordered tables.
inline constexpr const char* kLineColour = "#444444";

/// A document ready to be laid out. Lengths are pixels of 1/96 inch.
struct DisplayPage {
    std::string html;      ///< code page text
    std::string fontFace;  ///< the base font's
    int fontSize = 0;      ///< of text without a size of its own
    int width = 0;         ///< of the form
};

/// Translates a document, at `zoom` times its size. The markers are dropped, the frame table
/// becomes the page's width, cells of bordered tables get lines unless they are empty or their row
/// is marked with a white border. Everything else, text and tags, passes as it stands.
DisplayPage displayPage(std::string_view document, double zoom);

}  // namespace bramblet
