// The order document's own small dialect of HTML, taken apart: what is markup, and what is only
// text that contains a "<". Nothing in the document is escaped, so "Tube <50 mm" and "<b>Tube</b>"
// have to be told apart here.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace bramblet {

/// What an element means to the layout.
enum class Role {
    Page,    ///< the document's own frame around the form: html, head, body, base font
    Inline,  ///< within a line
    Block,   ///< starts a line of its own
    Single,  ///< has no content
    Table,
    Row,
    Cell,
    Nothing,  ///< known, but without effect
};

struct Element {
    std::string_view name;  ///< in lower case
    Role role;
};

/// One tag of the dialect.
struct Tag {
    const Element* element = nullptr;
    bool closing = false;
    std::map<std::string, std::string, std::less<>> attributes{};  ///< names in lower case

    bool is(std::string_view name) const { return element->name == name; }
    bool has(std::string_view name) const { return attributes.contains(name); }
    /// An attribute's value; empty when there is no such attribute.
    std::string attribute(std::string_view name) const;
    /// The same in lower case.
    std::string word(std::string_view name) const;
};

/// A stretch of the document as it stands: a tag, or text.
struct Piece {
    std::string_view text;
    std::optional<Tag> tag = std::nullopt;
};

/// The element with this name in lower case; null for names not in the dialect.
const Element* elementNamed(std::string_view name);

/// Reads a document from after its markers to its end, leaving out comments. A "<" opens a tag only
/// if the whole tag belongs to the dialect: a known name, then attributes, then ">". The time taken
/// is proportional to the document's length, whatever it contains.
class MarkupReader {
  public:
    explicit MarkupReader(std::string_view document);

    /// The next piece; nothing at the end.
    std::optional<Piece> next();

    /// What has not been read yet, and a way to skip the beginning of it.
    std::string_view rest() const { return text_.substr(position_); }
    void skip(std::size_t count) { position_ += count; }

  private:
    /// The position of the next `wanted`, found once and kept until it is passed.
    struct Next {
        std::string_view wanted;
        std::size_t place = 0;

        std::size_t from(std::string_view text, std::size_t position);
    };

    bool skipComment();
    std::optional<Piece> takeTag();
    Piece take(std::size_t end);

    std::string_view text_;
    std::size_t position_ = 0;
    Next lineEnd_{"\n"};
    Next commentEnd_{"-->"};
};

}  // namespace bramblet
