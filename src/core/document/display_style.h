// Attributes of the document's tags, put into bounds for the display.
#pragma once

#include "core/document/markup.h"

#include <string>

namespace bramblet {

/// What lengths and sizes depend on.
struct DisplayScale {
    double zoom = 1;
    int baseSize = 1;  ///< the base font's, 1 to 7

    /// Pixels of a length at this zoom: at least one.
    int pixels(double length) const;
    /// Pixels of one of the font sizes 1 to 7; sizes outside count as the nearest.
    int fontPixels(double size) const;
    /// Of "3", "+1" or "-2", the last two relative to the base font.
    int fontPixels(const std::string& size) const;
};

/// The attributes of a tag that the display knows, written as HTML: " width=\"7%\"".
/// `declarations` is added to its style.
std::string shownAttributes(const Tag& tag, const DisplayScale& scale,
                            const std::string& declarations = {});

/// Whether a link leads to the web or to a mail address.
bool isHarmlessLink(const std::string& target);

/// A text as the value of an attribute.
std::string attributeValue(std::string_view text);

}  // namespace bramblet
