// Text in the core: single-byte strings in the system's ANSI code page, so that one char is one
// byte is one column of a record. Conversion to and from Unicode happens only at the windows' edge.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace bramblet {

inline bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// The number that a text of digits and nothing else stands for; nothing above 4,294,967,295.
std::optional<std::uint32_t> plainNumber(std::string_view text);

/// The text without those characters at its ends that are among `dropped`.
std::string_view withoutEnds(std::string_view text, std::string_view dropped);

/// The text without the blanks at both ends. Only blanks: tabs and line breaks stay.
std::string trimmed(std::string_view text);

/// The value of a record's text field, without blanks or zero bytes at either end, so that a field
/// that was never assigned (all zero bytes) reads as empty.
inline std::string_view withoutBlanks(std::string_view field) {
    constexpr std::string_view kMany = "        ";  // most of a field is blanks at its end
    while (field.ends_with(kMany))
        field.remove_suffix(kMany.size());
    const auto isBlank = [](char c) { return c == ' ' || c == '\0'; };
    while (!field.empty() && isBlank(field.back()))
        field.remove_suffix(1);
    while (!field.empty() && isBlank(field.front()))
        field.remove_prefix(1);
    return field;
}
std::string trimmedField(std::string_view field);

/// The text with a blank for every control character, as the boxes of the windows hold it.
std::string withoutControls(std::string_view text);

/// The lines of a text without those that are blank, each trimmed, with `between` between them.
std::string joinedLines(std::string_view text, std::string_view between);

/// Upper case by the letters of the code page (é becomes É).
std::string upper(std::string_view text);
void makeUpper(std::string& text);

/// The text at exactly `width` bytes: cut when longer, padded with blanks when shorter.
std::string fitted(std::string_view text, std::size_t width);

/// The text under a list: "12 orders listed", "3 of 12 orders listed" when only those are shown, or
/// that the entries are old or there are none because the file could not be `read`.
std::string listedText(std::size_t shown, std::size_t count, const std::string& things, bool read);

/// UTF-16 of a code page text.
std::u16string toUnicode(std::string_view text);

/// Code page text of UTF-16; a character that the code page lacks becomes "?".
std::string fromUnicode(std::u16string_view text);

/// The characters of UTF-16; half a surrogate pair becomes the replacement character.
std::u32string charactersOf(std::u16string_view text);

/// Appends a character as UTF-8.
void appendUtf8(std::string& text, char32_t character);

/// The byte of a character; nothing when the code page lacks it.
std::optional<char> byteOf(char32_t character);

}  // namespace bramblet
