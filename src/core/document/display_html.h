// The order document as the viewer shows and prints it: the same content, with its old-fashioned
// markup (base font, font sizes, bordered tables) translated for Qt's text engine, and with nothing
// in it that would take that engine hours or gigabytes.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace bramblet {

/// Colour of the lines in bordered tables.
inline constexpr const char* kLineColour = "#444444";

/// A document ready to be laid out. Lengths are in pixels of 1/96 inch.
struct DisplayPage {
    /// The picture that replaces the company lines.
    struct TopGraphic {
        std::string name;       ///< as given in the document
        bool plain = false;     ///< whether it is a plain name in the data folder
        std::size_t place = 0;  ///< of its tag in `html`
        std::size_t length = 0;
    };

    std::string html;      ///< code page text
    std::string fontFace;  ///< of the base font
    int fontSize = 0;      ///< of text without a size of its own
    int width = 0;         ///< of the form
    std::optional<TopGraphic> topGraphic;
    std::string heading;  ///< "PURCHASE ORDER", bold, kept on one line
    int headingSize = 0;
    std::string number;  ///< of the order as printed under the heading, "No: 000123"; may be empty
};

/// Translates a document, at `zoom` times its size, into well-formed HTML. The markers are dropped,
/// the frame table becomes the page's width, and cells of bordered tables get lines unless they are
/// empty or their row is marked with a white border. The first row of such a table is marked as its
/// headings if it gives the columns their widths. Anything that is not a tag of the dialect
/// (markup.h) is text. Of tags, only what is known to be harmless gets through: lengths within
/// bounds, pictures by plain names, links to the web and to mail addresses, tables nested four
/// deep.
DisplayPage displayPage(std::string_view document, double zoom);

}  // namespace bramblet
