#include "document/display_html.h"

#include "platform/sorting.h"
#include "platform/text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace bramblet {
namespace {

constexpr int kUsualWidth = 640;
constexpr int kBaseSize = 1;
// Pixels of the font sizes 1 to 7.
constexpr std::array<double, 7> kFontPixels{10, 13, 16, 18, 24, 32, 48};

/// One tag: its name in upper case ("/TD" for a closing one) and its text between the brackets.
struct Tag {
    std::string name;
    std::string_view text;

    /// The value of an attribute, without its quotes; none when the tag has no such one.
    std::optional<std::string> attribute(const std::string& wanted) const {
        const std::string upperText = upper(text);
        auto at = upperText.find(" " + wanted + "=");
        if (at == std::string::npos) return std::nullopt;
        at += wanted.size() + 2;
        const bool quoted = at < text.size() && text[at] == '"';
        if (quoted) ++at;
        const auto end = text.find_first_of(quoted ? "\"" : " \"", at);
        return std::string(text.substr(at, end - std::min(end, at)));
    }
};

class Translation {
  public:
    Translation(std::string_view document, double zoom) : rest_(document), zoom_(zoom) {}

    DisplayPage run() {
        page_.width = scaled(kUsualWidth);
        page_.fontSize = scaled(pixelsOf(kBaseSize));
        while (!rest_.empty()) {
            const auto open = rest_.find('<');
            page_.html += rest_.substr(0, open);
            if (open == std::string_view::npos) break;
            rest_.remove_prefix(open);
            takeMarkup();
        }
        return std::move(page_);
    }

  private:
    void takeMarkup() {
        if (rest_.starts_with("<!--")) {
            const auto end = rest_.find("-->");
            rest_.remove_prefix(end == std::string_view::npos ? rest_.size() : end + 3);
            return;
        }
        const auto end = rest_.find('>');
        if (end == std::string_view::npos) {
            page_.html += "&lt;";
            rest_.remove_prefix(1);
            return;
        }
        const std::string_view text = rest_.substr(1, end - 1);
        const Tag tag{upper(text.substr(0, text.find_first_of(" \t\r\n"))), text};
        rest_.remove_prefix(end + 1);
        translate(tag);
    }

    void translate(const Tag& tag) {
        if (tag.name == "BASEFONT") {
            page_.fontFace = tag.attribute("FACE").value_or("");
            base_ = static_cast<int>(leadingNumber(tag.attribute("SIZE").value_or("")));
            page_.fontSize = scaled(pixelsOf(base_));
        } else if (tag.name == "FONT") {
            page_.html += "<span style=\"font-size:" + std::to_string(sizeOf(tag)) + "px\">";
        } else if (tag.name == "/FONT") {
            page_.html += "</span>";
        } else if (tag.name == "TABLE") {
            openTable(tag);
        } else if (tag.name == "TR") {
            whiteRow_ = upper(tag.attribute("BORDERCOLOR").value_or("")) == "WHITE";
            pass(tag);
        } else if (tag.name == "TD") {
            openCell(tag);
        } else if (tag.name == "/TABLE") {
            bordered_ = false;
            pass(tag);
        } else {
            pass(tag);
        }
    }

    void pass(const Tag& tag) {
        // A line end before one of these would show as a blank at the line's right end.
        if (tag.name == "/TD" || tag.name == "BR") dropBlanksAtEnd();
        page_.html += "<" + std::string(tag.text) + ">";
    }

    void dropBlanksAtEnd() {
        const auto last = page_.html.find_last_not_of(" \t\r\n");
        page_.html.erase(last == std::string::npos ? 0 : last + 1);
    }

    /// The frame table holds all of the form; its width is that of the page.
    void openTable(const Tag& tag) {
        constexpr std::string_view kFrameCell = "<tr><td>";
        const bool frame = !framed_ && tag.attribute("BORDER") == "0";
        if (frame && rest_.starts_with(kFrameCell)) {
            framed_ = true;
            const double width = leadingNumber(tag.attribute("WIDTH").value_or(""));
            if (width > 0) page_.width = scaled(width);
            rest_.remove_prefix(kFrameCell.size());
            const auto close = rest_.rfind("</td></tr></table>");
            if (close != std::string_view::npos) rest_ = rest_.substr(0, close);
            return;
        }
        bordered_ = tag.attribute("BORDER") == "1";
        if (!bordered_) return pass(tag);
        page_.html += "<table width=\"100%\" border=\"0\" cellspacing=\"0\" cellpadding=\"" +
                      std::to_string(scaled(2)) + "\" style=\"border-collapse:collapse\">";
    }

    void openCell(const Tag& tag) {
        const bool empty = rest_.starts_with("</td>");
        if (!bordered_ || whiteRow_ || empty) return pass(tag);
        page_.html += "<" + std::string(tag.text) + " style=\"border:" + std::to_string(scaled(1)) +
                      "px solid " + kLineColour + "\">";
    }

    int sizeOf(const Tag& tag) const {
        const std::string size = tag.attribute("SIZE").value_or("");
        const bool relative = size.starts_with('-') || size.starts_with('+');
        const auto number = static_cast<int>(
            leadingNumber(size.starts_with('+') ? std::string_view(size).substr(1) : size));
        return scaled(pixelsOf(relative ? base_ + number : number));
    }

    static double pixelsOf(int size) {
        return kFontPixels[static_cast<std::size_t>(std::clamp(size, 1, 7) - 1)];
    }

    int scaled(double length) const {
        return std::max(1, static_cast<int>(std::lround(length * zoom_)));
    }

    std::string_view rest_;
    double zoom_;
    DisplayPage page_;
    int base_ = kBaseSize;
    bool framed_ = false;
    bool bordered_ = false;
    bool whiteRow_ = false;
};

}  // namespace

DisplayPage displayPage(std::string_view document, double zoom) {
    return Translation(document, zoom).run();
}

}  // namespace bramblet
