#include "core/document/markup.h"

#include "core/document/order_markers.h"
#include "core/platform/text.h"

#include <algorithm>
#include <array>

namespace bramblet {
namespace {

/// What the writer emits, and what people type into boxes to format text.
constexpr Element kElements[]{
    {"html", Role::Page},        {"head", Role::Page},     {"body", Role::Page},
    {"basefont", Role::Page},    {"table", Role::Table},   {"tr", Role::Row},
    {"td", Role::Cell},          {"th", Role::Cell},       {"tbody", Role::Nothing},
    {"thead", Role::Nothing},    {"tfoot", Role::Nothing}, {"nobr", Role::Nothing},
    {"a", Role::Inline},         {"b", Role::Inline},      {"big", Role::Inline},
    {"em", Role::Inline},        {"font", Role::Inline},   {"i", Role::Inline},
    {"s", Role::Inline},         {"small", Role::Inline},  {"span", Role::Inline},
    {"strike", Role::Inline},    {"strong", Role::Inline}, {"sub", Role::Inline},
    {"sup", Role::Inline},       {"tt", Role::Inline},     {"u", Role::Inline},
    {"blockquote", Role::Block}, {"center", Role::Block},  {"div", Role::Block},
    {"h1", Role::Block},         {"h2", Role::Block},      {"h3", Role::Block},
    {"h4", Role::Block},         {"h5", Role::Block},      {"h6", Role::Block},
    {"li", Role::Block},         {"ol", Role::Block},      {"p", Role::Block},
    {"pre", Role::Block},        {"ul", Role::Block},      {"br", Role::Single},
    {"hr", Role::Single},        {"img", Role::Single}};

/// Attributes that stand without a value. Any other word shows that text was meant: "<A grade>".
constexpr std::array<std::string_view, 4> kFlags{"border", "compact", "noshade", "nowrap"};

constexpr std::string_view kBlanks = " \t\r\n";

bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool isNameCharacter(char c) {
    return isLetter(c) || isDigit(c) || c == '-';
}

std::string lower(std::string_view text) {
    std::string out(text);
    for (char& c : out) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return out;
}

/// Reads one tag, starting at its "<".
class TagReader {
  public:
    explicit TagReader(std::string_view text) : text_(text) {}

    /// Nothing when this is not a tag of the dialect.
    std::optional<Tag> read() {
        Tag tag;
        tag.closing = text_.substr(position_).starts_with('/');
        if (tag.closing) ++position_;
        if (position_ == text_.size() || !isLetter(text_[position_])) return std::nullopt;
        tag.element = elementNamed(takeName());
        if (tag.element == nullptr) return std::nullopt;
        while (!takeEnd()) {
            if (tag.closing || !takeAttribute(tag)) return std::nullopt;
        }
        const bool lacksItsUse =
            (tag.is("a") && !tag.closing && !tag.has("href")) || (tag.is("img") && !tag.has("src"));
        if (lacksItsUse) return std::nullopt;
        return tag;
    }

    /// The position after the tag, once it is read.
    std::size_t end() const { return position_; }

  private:
    std::string takeName() {
        const auto start = position_;
        while (position_ < text_.size() && isNameCharacter(text_[position_]))
            ++position_;
        return lower(text_.substr(start, position_ - start));
    }

    /// Skips ">" or "/>", with blanks before it.
    bool takeEnd() {
        position_ = std::min(text_.find_first_not_of(kBlanks, position_), text_.size());
        const std::string_view rest = text_.substr(position_);
        const std::size_t size = rest.starts_with('>') ? 1 : rest.starts_with("/>") ? 2 : 0;
        position_ += size;
        return size > 0;
    }

    bool takeAttribute(Tag& tag) {
        constexpr std::string_view kApart = " \t\r\n\"'";
        const bool apart = kApart.find(text_[position_ - 1]) != std::string_view::npos;
        const std::string name = takeName();
        if (!apart || name.empty()) return false;
        std::string value;
        if (text_.substr(position_).starts_with('=')) {
            ++position_;
            if (!takeValue(value)) return false;
        } else if (std::find(kFlags.begin(), kFlags.end(), name) == kFlags.end()) {
            return false;
        }
        tag.attributes.emplace(name, value);
        return true;
    }

    /// A value ends on its line and contains no "<"; in quotes it may contain anything else.
    bool takeValue(std::string& value) {
        const std::string_view rest = text_.substr(position_);
        const bool quoted = rest.starts_with('"') || rest.starts_with('\'');
        const std::string ends = quoted ? rest[0] + std::string("\r\n<") : " \t\r\n<>\"";
        const std::size_t start = quoted ? 1 : 0;
        const auto end = rest.find_first_of(ends, start);
        if (end == std::string_view::npos || rest[end] == '<') return false;
        if (quoted ? rest[end] != rest[0] : rest[end] == '"') return false;
        value = rest.substr(start, end - start);
        position_ += end + start;
        return true;
    }

    std::string_view text_;
    std::size_t position_ = 1;
};

/// The end of a declaration ("<!DOCTYPE ...>", "<?xml ...>"); 0 when this is not one.
std::size_t endOfDeclaration(std::string_view text) {
    const std::string start = lower(text.substr(0, 9));
    if (!start.starts_with("<!doctype") && !start.starts_with("<?xml")) return 0;
    const auto end = text.find_first_of("<>", 1);
    return end != std::string_view::npos && text[end] == '>' ? end + 1 : 0;
}

/// Where the form begins: after the line that ends the markers. Marker values may contain anything,
/// even "-->", so they are not read as comments.
std::size_t endOfMarkers(std::string_view document) {
    const std::string endLine = "\n" + std::string(kEndOfMarkers);
    const auto end = document.find(endLine);
    if (end == std::string_view::npos) return 0;
    const std::string opening = markerOpening(kOrderMarkers[0].tag);
    if (document.substr(0, end).find(opening) == std::string_view::npos) return 0;
    return end + endLine.size();
}

}  // namespace

const Element* elementNamed(std::string_view name) {
    for (const Element& element : kElements) {
        if (element.name == name) return &element;
    }
    return nullptr;
}

std::string Tag::attribute(std::string_view name) const {
    const auto found = attributes.find(name);
    return found == attributes.end() ? "" : found->second;
}

std::string Tag::word(std::string_view name) const {
    return lower(attribute(name));
}

std::size_t MarkupReader::Next::from(std::string_view text, std::size_t position) {
    if (place != std::string_view::npos && (place < position || place == 0))
        place = text.find(wanted, position);
    return place;
}

MarkupReader::MarkupReader(std::string_view document)
    : text_(document), position_(endOfMarkers(document)) {}

std::optional<Piece> MarkupReader::next() {
    while (position_ < text_.size()) {
        if (text_[position_] != '<') return take(text_.find('<', position_));
        if (skipComment()) continue;
        if (auto piece = takeTag()) return piece;
        return take(text_.find('<', position_ + 1));
    }
    return std::nullopt;
}

/// A comment that begins within a line has to end there: what was typed into a box must not hide
/// what follows it.
bool MarkupReader::skipComment() {
    if (const auto declaration = endOfDeclaration(rest())) {
        position_ += declaration;
        return true;
    }
    if (!rest().starts_with("<!--")) return false;
    const bool startsLine = position_ == 0 || text_[position_ - 1] == '\n';
    const auto lineEnd = lineEnd_.from(text_, position_);
    // The marker of a line item has no "-->" of its own.
    if (startsLine && rest().starts_with(kItemOpening)) {
        position_ = std::min(lineEnd, text_.size());
        return true;
    }
    const auto end = commentEnd_.from(text_, position_);
    if (end == std::string_view::npos || (!startsLine && end > lineEnd)) return false;
    position_ = end + commentEnd_.wanted.size();
    return true;
}

std::optional<Piece> MarkupReader::takeTag() {
    TagReader reader(rest());
    auto tag = reader.read();
    if (!tag) return std::nullopt;
    Piece piece = take(position_ + reader.end());
    piece.tag = std::move(tag);
    return piece;
}

/// Takes the text up to `end`, which is then read.
Piece MarkupReader::take(std::size_t end) {
    Piece piece{text_.substr(position_, end - position_)};
    position_ += piece.text.size();
    return piece;
}

}  // namespace bramblet
