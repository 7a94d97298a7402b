#include "core/document/display_style.h"

#include "core/platform/sorting.h"
#include "core/platform/text.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace bramblet {
namespace {

constexpr double kLongest = 1000;
// The font sizes 1 to 7 in pixels.
constexpr std::array<double, 7> kFontPixels{10, 13, 16, 18, 24, 32, 48};

/// How a value is kept within bounds.
enum class Kind { Length, Space, Count, Word };

struct Known {
    std::string_view element;
    std::string_view attribute;
    Kind kind;
};
constexpr std::array kKnown{
    Known{"table", "width", Kind::Length},      Known{"table", "border", Kind::Space},
    Known{"table", "cellspacing", Kind::Space}, Known{"table", "cellpadding", Kind::Space},
    Known{"table", "align", Kind::Word},        Known{"table", "bgcolor", Kind::Word},
    Known{"tr", "bgcolor", Kind::Word},         Known{"td", "width", Kind::Length},
    Known{"td", "align", Kind::Word},           Known{"td", "valign", Kind::Word},
    Known{"td", "bgcolor", Kind::Word},         Known{"td", "colspan", Kind::Count},
    Known{"td", "rowspan", Kind::Count},        Known{"p", "align", Kind::Word},
    Known{"div", "align", Kind::Word},          Known{"h1", "align", Kind::Word},
    Known{"h2", "align", Kind::Word},           Known{"h3", "align", Kind::Word},
    Known{"hr", "width", Kind::Length},         Known{"img", "width", Kind::Length},
    Known{"img", "height", Kind::Length},       Known{"img", "align", Kind::Word},
};

constexpr std::array<std::string_view, 7> kDeclarations{
    "background-color", "color",      "font-family",     "font-style",
    "font-weight",      "text-align", "text-decoration",
};

/// Letters, digits, and what colours and lists of fonts need: nothing that could end a value or
/// call for a file.
bool isPlainValue(const std::string& value) {
    constexpr std::string_view kAllowed =
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789#%., -";
    return !value.empty() && value.find_first_not_of(kAllowed) == std::string::npos;
}

std::string bounded(const std::string& value, Kind kind, const DisplayScale& scale) {
    constexpr double kMostSpace = 50;
    constexpr double kMostCells = 40;
    const double number = std::max(0.0, leadingNumber(value));
    if (kind == Kind::Word) return isPlainValue(value) ? value : "";
    if (kind == Kind::Count)
        return std::to_string(static_cast<int>(std::clamp(number, 1.0, kMostCells)));
    if (number == 0) return kind == Kind::Space ? "0" : "";
    if (kind == Kind::Space) return std::to_string(scale.pixels(std::min(number, kMostSpace)));
    if (!value.ends_with('%')) return std::to_string(scale.pixels(number));
    return std::to_string(static_cast<int>(std::min(number, 100.0))) + "%";
}

/// Those declarations of a style attribute that are known.
std::string knownDeclarations(std::string_view style) {
    std::string known;
    while (!style.empty()) {
        const std::string_view declaration = style.substr(0, style.find(';'));
        style.remove_prefix(std::min(declaration.size() + 1, style.size()));
        const auto colon = declaration.find(':');
        if (colon == std::string_view::npos) continue;
        const std::string name = trimmed(declaration.substr(0, colon));
        const std::string value = trimmed(declaration.substr(colon + 1));
        const bool isKnown =
            std::find(kDeclarations.begin(), kDeclarations.end(), name) != kDeclarations.end();
        if (isKnown && isPlainValue(value))
            known.append(name).append(":").append(value).append(";");
    }
    return known;
}

std::string fontDeclarations(const Tag& tag, const DisplayScale& scale) {
    std::string style;
    if (tag.has("size"))
        style += "font-size:" + std::to_string(scale.fontPixels(tag.attribute("size"))) + "px;";
    const std::string colour = tag.attribute("color");
    if (isPlainValue(colour)) style += "color:" + colour + ";";
    const std::string face = tag.attribute("face");
    if (isPlainValue(face)) style += "font-family:" + face + ";";
    return style;
}

}  // namespace

int DisplayScale::pixels(double length) const {
    return std::max(1, static_cast<int>(std::lround(std::clamp(length, 0.0, kLongest) * zoom)));
}

int DisplayScale::fontPixels(double size) const {
    const double nearest = std::clamp(size, 1.0, static_cast<double>(kFontPixels.size()));
    return pixels(kFontPixels[static_cast<std::size_t>(nearest) - 1]);
}

int DisplayScale::fontPixels(const std::string& size) const {
    const bool up = size.starts_with('+');
    const double number = leadingNumber(up ? std::string_view(size).substr(1) : size);
    return fontPixels(up || size.starts_with('-') ? baseSize + number : number);
}

std::string shownAttributes(const Tag& tag, const DisplayScale& scale,
                            const std::string& declarations) {
    std::string out;
    const std::string_view element = tag.is("th") ? "td" : tag.element->name;
    for (const Known& known : kKnown) {
        if (known.element != element || !tag.has(known.attribute)) continue;
        const std::string value = bounded(tag.attribute(known.attribute), known.kind, scale);
        if (!value.empty()) out += " " + std::string(known.attribute) + "=" + attributeValue(value);
    }
    std::string style = tag.is("font") ? fontDeclarations(tag, scale) : "";
    style += knownDeclarations(tag.attribute("style")) + declarations;
    if (!style.empty()) out += " style=" + attributeValue(style);
    return out;
}

bool isHarmlessLink(const std::string& target) {
    const std::string start = upper(std::string_view(target).substr(0, 8));
    return start.starts_with("HTTP://") || start.starts_with("HTTPS://") ||
           start.starts_with("MAILTO:");
}

std::string attributeValue(std::string_view text) {
    std::string out = "\"";
    for (const char c : text)
        out += c == '"' ? "&quot;" : c == '<' ? "&lt;" : std::string(1, c);
    return out + '"';
}

}  // namespace bramblet
