#include "core/document/markup.h"

#include "core/document/order_markers.h"

#include <algorithm>
#include <array>

namespace bramblet {
namespace {

/// What the writer emits, and what people type into boxes to format text.
constexpr std::array kElements{
    Element{"html", Role::Page},     Element{"head", Role::Page},
    Element{"body", Role::Page},     Element{"basefont", Role::Page},
    Element{"table", Role::Table},   Element{"tr", Role::Row},
    Element{"td", Role::Cell},       Element{"th", Role::Cell},
    Element{"tbody", Role::Nothing}, Element{"thead", Role::Nothing},
    Element{"tfoot", Role::Nothing}, Element{"nobr", Role::Nothing},
    Element{"a", Role::Inline},      Element{"b", Role::Inline},
    Element{"big", Role::Inline},    Element{"em", Role::Inline},
    Element{"font", Role::Inline},   Element{"i", Role::Inline},
    Element{"s", Role::Inline},      Element{"small", Role::Inline},
    Element{"span", Role::Inline},   Element{"strike", Role::Inline},
    Element{"strong", Role::Inline}, Element{"sub", Role::Inline},
    Element{"sup", Role::Inline},    Element{"tt", Role::Inline},
    Element{"u", Role::Inline},      Element{"blockquote", Role::Block},
    Element{"center", Role::Block},  Element{"div", Role::Block},
    Element{"h1", Role::Block},      Element{"h2", Role::Block},
    Element{"h3", Role::Block},      Element{"h4", Role::Block},
    Element{"h5", Role::Block},      Element{"h6", Role::Block},
    Element{"li", Role::Block},      Element{"ol", Role::Block},
    Element{"p", Role::Block},       Element{"pre", Role::Block},
    Element{"ul", Role::Block},      Element{"br", Role::Single},
    Element{"hr", Role::Single},     Element{"img", Role::Single},
};

/// Attributes that stand without a value. Any other word shows that text was meant: "<A grade>".
constexpr std::array<std::string_view, 4> kFlags{"border", "compact", "noshade", "nowrap"};

constexpr std::string_view kBlanks = " \t\r\n";

bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool isNameCharacter(char c) {
    return isLetter(c) || (c >= '0' && c <= '9') || c == '-';
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
        tag.closing = text_.substr(at_).starts_with('/');
        if (tag.closing) ++at_;
        if (at_ == text_.size() || !isLetter(text_[at_])) return std::nullopt;
        tag.element = elementNamed(takeName());
        if (tag.element == nullptr) return std::nullopt;
        while (!takeEnd()) {
            if (tag.closing || !takeAttribute(tag)) return std::nullopt;
        }
        const bool lacksItsUse = (tag.is("a") && !tag.closing && !tag.attribute("href")) ||
                                 (tag.is("img") && !tag.attribute("src"));
        if (lacksItsUse) return std::nullopt;
        return tag;
    }

    /// The position after the tag, once it is read.
    std::size_t end() const { return at_; }

  private:
    std::string takeName() {
        const auto start = at_;
        while (at_ < text_.size() && isNameCharacter(text_[at_]))
            ++at_;
        return lower(text_.substr(start, at_ - start));
    }

    /// Skips ">" or "/>", with blanks before it.
    bool takeEnd() {
        skipBlanks();
        const std::string_view rest = text_.substr(at_);
        const std::size_t size = rest.starts_with('>') ? 1 : rest.starts_with("/>") ? 2 : 0;
        at_ += size;
        return size > 0;
    }

    bool takeAttribute(Tag& tag) {
        const bool apart = kBlanks.find(text_[at_ - 1]) != std::string_view::npos ||
                           text_[at_ - 1] == '"' || text_[at_ - 1] == '\'';
        const std::string name = takeName();
        if (!apart || name.empty()) return false;
        std::string value;
        if (text_.substr(at_).starts_with('=')) {
            ++at_;
            if (!takeValue(value)) return false;
        } else if (std::find(kFlags.begin(), kFlags.end(), name) == kFlags.end()) {
            return false;
        }
        tag.attributes.emplace_back(name, value);
        return true;
    }

    /// A value ends on its line and contains no "<"; in quotes it may contain anything else.
    bool takeValue(std::string& value) {
        const std::string_view rest = text_.substr(at_);
        const bool quoted = rest.starts_with('"') || rest.starts_with('\'');
        const std::string_view ends = !quoted          ? " \t\r\n<>\""
                                      : rest[0] == '"' ? "\"\r\n<"
                                                       : "'\r\n<";
        const std::size_t start = quoted ? 1 : 0;
        const auto end = rest.find_first_of(ends, start);
        if (end == std::string_view::npos || rest[end] == '<') return false;
        if (quoted ? rest[end] != rest[0] : rest[end] == '"') return false;
        value = rest.substr(start, end - start);
        at_ += end + start;
        return true;
    }

    void skipBlanks() { at_ = std::min(text_.find_first_not_of(kBlanks, at_), text_.size()); }

    std::string_view text_;
    std::size_t at_ = 1;
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
    const std::string opening = markerOpening(kMarkersBeforeStatus.front().tag);
    if (document.substr(0, end).find(opening) == std::string_view::npos) return 0;
    return end + endLine.size();
}

}  // namespace

const Element* elementNamed(std::string_view name) {
    const auto* const found =
        std::find_if(kElements.begin(), kElements.end(),
                     [&](const Element& element) { return element.name == name; });
    return found == kElements.end() ? nullptr : found;
}

std::optional<std::string> Tag::attribute(std::string_view name) const {
    const auto found = std::find_if(attributes.begin(), attributes.end(),
                                    [&](const auto& given) { return given.first == name; });
    if (found == attributes.end()) return std::nullopt;
    return found->second;
}

std::string Tag::word(std::string_view name) const {
    return lower(attribute(name).value_or(""));
}

std::size_t MarkupReader::Next::from(std::string_view text, std::size_t at) {
    if (place != std::string_view::npos && (place < at || place == 0))
        place = text.find(wanted, at);
    return place;
}

MarkupReader::MarkupReader(std::string_view document)
    : text_(document), at_(endOfMarkers(document)) {}

std::optional<Piece> MarkupReader::next() {
    while (at_ < text_.size()) {
        if (text_[at_] != '<') return take(text_.find('<', at_));
        if (skipComment()) continue;
        if (auto piece = takeTag()) return piece;
        return take(text_.find('<', at_ + 1));
    }
    return std::nullopt;
}

/// A comment that begins within a line has to end there: what was typed into a box must not hide
/// what follows it.
bool MarkupReader::skipComment() {
    if (const auto declaration = endOfDeclaration(rest())) {
        at_ += declaration;
        return true;
    }
    if (!rest().starts_with("<!--")) return false;
    const bool startsLine = at_ == 0 || text_[at_ - 1] == '\n';
    const auto lineEnd = lineEnd_.from(text_, at_);
    // The marker of a line item has no "-->" of its own.
    if (startsLine && rest().starts_with(kItemOpening)) {
        at_ = std::min(lineEnd, text_.size());
        return true;
    }
    const auto end = commentEnd_.from(text_, at_);
    if (end == std::string_view::npos || (!startsLine && end > lineEnd)) return false;
    at_ = end + commentEnd_.wanted.size();
    return true;
}

std::optional<Piece> MarkupReader::takeTag() {
    TagReader reader(rest());
    auto tag = reader.read();
    if (!tag) return std::nullopt;
    Piece piece = take(at_ + reader.end());
    piece.tag = std::move(tag);
    return piece;
}

/// Takes the text up to `end`, which is then read.
Piece MarkupReader::take(std::size_t end) {
    const Piece piece{text_.substr(at_, end - at_), std::nullopt};
    at_ += piece.text.size();
    return piece;
}

}  // namespace bramblet
