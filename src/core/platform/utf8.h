// UTF-8: how other programs, and file systems, write text.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace bramblet {

/// What a text in UTF-8 that others wrote may begin with, and what spreadsheets know it by.
inline constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

struct Utf8Sequence {
    std::size_t length;
    char32_t character;
};
/// The sequence at the start of `text`; nothing when it is malformed or overlong.
std::optional<Utf8Sequence> firstUtf8Sequence(std::string_view text);

bool isUtf8(std::string_view text);

std::string utf8Of(std::u16string_view text);

/// Appends a character as UTF-16.
void appendUtf16(std::u16string& out, char32_t character);

}  // namespace bramblet
