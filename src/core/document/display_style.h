// Attributes of the document's tags, kept within bounds for the display.
#pragma once

#include "core/document/markup.h"

#include <string>

namespace bramblet {

/// What lengths and sizes depend on.
struct DisplayScale {
    double zoom = 1;
    int baseSize = 1;  ///< of the base font, 1 to 7

    /// A length in pixels at this zoom: at least one.
    int pixels(double length) const;
    /// One of the font sizes 1 to 7 in pixels; sizes outside that range count as the nearest.
    int fontPixels(double size) const;
    /// The same for "3", "+1" or "-2", the last two relative to the base font.
    int fontPixels(const std::string& size) const;
};

/// The attributes of a tag that the display knows, written as HTML: " width=\"7%\"". `declarations`
/// are added to its style.
std::string shownAttributes(const Tag& tag, const DisplayScale& scale,
                            const std::string& declarations = {});

/// Whether a link leads to the web or to a mail address.
bool isHarmlessLink(const std::string& target);

/// A text quoted as the value of an attribute.
std::string attributeValue(std::string_view text);

}  // namespace bramblet
