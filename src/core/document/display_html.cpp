#include "core/document/display_html.h"

#include "core/document/display_builder.h"
#include "core/platform/file_system.h"
#include "core/platform/sorting.h"

#include <algorithm>

namespace bramblet {
namespace {

constexpr double kUsualWidth = 640;
constexpr double kLeastWidth = 100;
constexpr double kMostWidth = 1000;

constexpr std::size_t kPictureLength = 40;  // in characters of a paragraph
constexpr std::size_t kMostFillers = 200;
constexpr std::size_t kLongestFiller = 200;  // characters

/// The document's tags, each translated for the display.
class Translation {
  public:
    Translation(std::string_view document, double zoom)
        : reader_(document), scale_{zoom, 1}, builder_(scale_) {
        page_.width = scale_.pixels(kUsualWidth);
        page_.fontSize = scale_.fontPixels(scale_.baseSize);
    }

    DisplayPage run() {
        while (auto piece = reader_.next()) {
            if (piece->tag) {
                translate(*piece->tag, piece->text);
            } else {
                builder_.addText(piece->text);
            }
        }
        page_.html = builder_.finished();
        return std::move(page_);
    }

  private:
    void translate(const Tag& tag, std::string_view text) {
        const Role role = tag.element->role;
        if (role == Role::Page) return takePage(tag, text);
        if (role == Role::Nothing) return;
        if (role == Role::Single) return tag.closing ? void() : addSingle(tag);
        if (tag.closing) return builder_.close(tag);
        if (role == Role::Table) return openTable(tag);
        if (role == Role::Row) return openRow(tag, text);
        const bool empty = reader_.rest().starts_with("</td>");
        return role == Role::Cell ? builder_.openCell(tag, empty) : openText(tag);
    }

    /// Within the form these are not tags.
    void takePage(const Tag& tag, std::string_view text) {
        if (tag.closing) return;
        if (framed_) return builder_.addText(text);
        if (tag.is("basefont")) {
            page_.fontFace = tag.attribute("face");
            scale_.baseSize =
                static_cast<int>(std::clamp(leadingNumber(tag.attribute("size")), 1.0, 7.0));
            page_.fontSize = scale_.fontPixels(scale_.baseSize);
        } else if (tag.is("head") && !headed_) {
            headed_ = true;
            const auto end = reader_.rest().find("</head>");
            if (end != std::string_view::npos) reader_.skip(end);
        }
    }

    void openText(const Tag& tag) {
        if (takeHeading(tag)) return;
        if (tag.is("a")) {
            const std::string target = tag.attribute("href");
            const std::string link = "<a href=" + attributeValue(target) + ">";
            return builder_.openText(*tag.element, isHarmlessLink(target) ? link : "");
        }
        const std::string name(tag.is("font") ? "span" : tag.element->name);
        builder_.openText(*tag.element, "<" + name + shownAttributes(tag, scale_) + ">");
    }

    /// Keeps "<font size="6"><b>PURCHASE ORDER</b></font><br>" on one line in any font.
    bool takeHeading(const Tag& tag) {
        constexpr std::string_view kStart = "<b>";
        constexpr std::string_view kEnd = "</b></font><br>";
        constexpr double kLeastSize = 5;
        const std::string size = tag.attribute("size");
        const bool large = tag.is("font") && leadingNumber(size) >= kLeastSize;
        std::string_view rest = reader_.rest();
        if (!page_.heading.empty() || !large || !rest.starts_with(kStart)) return false;
        rest.remove_prefix(kStart.size());
        const auto length = std::min(rest.find('<'), rest.size());
        if (!rest.substr(length).starts_with(kEnd)) return false;
        page_.heading = rest.substr(0, length);
        page_.headingSize = scale_.fontPixels(size);

        const Element& block = *elementNamed("div");
        builder_.openText(block, "<div style=\"white-space:nowrap\">");
        builder_.openText(*tag.element, "<span" + shownAttributes(tag, scale_) + ">");
        builder_.openText(*elementNamed("b"), "<b>");
        builder_.addText(page_.heading);
        builder_.close(Tag{&block, true, {}});
        builder_.openText(block, "<div>");  // otherwise the next text would join the heading's line
        reader_.skip(kStart.size() + length + kEnd.size());
        page_.number = numberIn(reader_.rest());
        return true;
    }

    /// What stands in bold on the line under the heading: "<b>No: 000123</b>".
    static std::string numberIn(std::string_view rest) {
        constexpr std::string_view kStart = "<b>";
        constexpr std::size_t kLongest = 200;
        rest.remove_prefix(std::min(rest.find_first_not_of("\r\n"), rest.size()));
        if (!rest.starts_with(kStart)) return {};
        rest = rest.substr(kStart.size(), kLongest);
        return std::string(rest.substr(0, rest.find("</b>")));
    }

    void addSingle(const Tag& tag) {
        if (tag.is("br")) return builder_.addBreak();
        if (tag.is("hr")) return builder_.addBlock("<hr" + shownAttributes(tag, scale_) + ">");
        const std::string name = tag.attribute("src");
        const bool plain = isPlainFileName(name);
        const std::string picture = "<img src=" + attributeValue(plain ? asAddress(name) : "") +
                                    shownAttributes(tag, scale_) + ">";
        const bool topGraphic = framed_ && !page_.topGraphic && page_.heading.empty();
        if (!plain && !topGraphic) return;
        builder_.addSingle(picture, kPictureLength);
        if (!topGraphic) return;
        page_.topGraphic = {name, plain, builder_.html().size() - picture.size(), picture.size()};
    }

    static std::string asAddress(const std::string& name) {
        std::string address;
        for (const char c : name)
            address += c == '#' ? "%23" : c == '?' ? "%3F" : c == '&' ? "&amp;" : std::string(1, c);
        return address;
    }

    void openTable(const Tag& tag) {
        if (takeFrame(tag)) return;
        const bool lined = tag.attribute("border") == "1";
        const std::string attributes =
            lined ? " width=\"100%\" border=\"0\" cellspacing=\"0\" cellpadding=\"" +
                        std::to_string(scale_.pixels(2)) + "\" style=\"border-collapse:collapse\""
                  : shownAttributes(tag, scale_);
        builder_.openTable(*tag.element, "<table" + attributes + ">", lined);
    }

    /// The frame table holds the whole form; its width is that of the page.
    bool takeFrame(const Tag& tag) {
        constexpr std::string_view kFrameCell = "<tr><td>";
        if (framed_ || tag.attribute("border") != "0") return false;
        if (!reader_.rest().starts_with(kFrameCell)) return false;
        reader_.skip(kFrameCell.size());
        framed_ = true;
        const std::string width = tag.attribute("width");
        double pixels = leadingNumber(width);
        if (width.ends_with('%')) pixels *= kUsualWidth / 100;
        if (pixels > 0) page_.width = scale_.pixels(std::clamp(pixels, kLeastWidth, kMostWidth));
        return true;
    }

    void openRow(const Tag& tag, std::string_view text) {
        const bool white = tag.word("bordercolor") == "white";
        if (white) shortenFillers(text);
        const std::string_view rest = reader_.rest();
        const auto content = std::min(rest.find_first_not_of("\r\n"), rest.size());
        builder_.openRow(tag, !white, rest.substr(content).starts_with("<td width="));
    }

    /// When there are very many equal filler rows, turns the first ones into one high row.
    void shortenFillers(std::string_view opening) {
        constexpr std::string_view kEnd = "</tr>";
        const std::string_view rest = reader_.rest();
        auto end = rest.substr(0, kLongestFiller).find(kEnd);
        if (end == std::string_view::npos) return;
        end = std::min(rest.find_first_not_of("\r\n", end + kEnd.size()), rest.size());
        const std::string row = std::string(opening) + std::string(rest.substr(0, end));
        if (!isFiller(row)) return;
        std::size_t rows = 0;
        while (rest.substr(end + rows * row.size()).starts_with(row))
            ++rows;
        if (rows <= kMostFillers) return;
        reader_.skip((rows - kMostFillers) * row.size());
        constexpr double kLineHeight = 1.2;
        constexpr double kHighest = 1e6;
        const double height = kLineHeight * page_.fontSize + 2 * scale_.pixels(2);
        builder_.addHeight(std::min(height * static_cast<double>(rows - kMostFillers), kHighest));
    }

    /// Whether a row contains nothing but colons.
    static bool isFiller(std::string row) {
        row.erase(0, row.find('>') + 1);
        for (const std::string_view part : {"<td>", "</td>", "</tr>"}) {
            for (auto place = row.find(part); place != std::string::npos; place = row.find(part))
                row.erase(place, part.size());
        }
        return row.find_first_not_of(": \t\r\n") == std::string::npos;
    }

    MarkupReader reader_;
    DisplayScale scale_;
    DisplayBuilder builder_;
    DisplayPage page_;
    bool headed_ = false;  ///< the document's head has been passed
    bool framed_ = false;  ///< the frame table has been passed
};

}  // namespace

DisplayPage displayPage(std::string_view document, double zoom) {
    return Translation(document, zoom).run();
}

}  // namespace bramblet
