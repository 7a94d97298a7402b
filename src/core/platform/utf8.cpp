#include "core/platform/utf8.h"

#include "core/platform/text.h"

#include <array>

namespace bramblet {

void appendUtf16(std::u16string& out, char32_t character) {
    if (character < 0x10000) {
        out.push_back(static_cast<char16_t>(character));
    } else {
        out.push_back(static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10)));
        out.push_back(static_cast<char16_t>(0xDC00 + ((character - 0x10000) & 0x3FF)));
    }
}

std::string utf8Of(std::u16string_view text) {
    std::string out;
    out.reserve(text.size() * 2);
    for (const char32_t character : charactersOf(text))
        appendUtf8(out, character);
    return out;
}

std::optional<Utf8Sequence> firstUtf8Sequence(std::string_view text) {
    const auto lead = static_cast<unsigned char>(text.front());
    if (lead < 0x80) return Utf8Sequence{1, lead};
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || text.size() < length) return std::nullopt;
    char32_t character = lead & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if ((byte & 0xC0) != 0x80) return std::nullopt;
        character = (character << 6) | (byte & 0x3Fu);
    }
    constexpr std::array<char32_t, 5> kSmallest{0, 0, 0x80, 0x800, 0x10000};
    const bool surrogate = character >= 0xD800 && character < 0xE000;
    if (character < kSmallest[length] || character > 0x10FFFF || surrogate) return std::nullopt;
    return Utf8Sequence{length, character};
}

bool isUtf8(std::string_view text) {
    while (!text.empty()) {
        const auto sequence = firstUtf8Sequence(text);
        if (!sequence) return false;
        text.remove_prefix(sequence->length);
    }
    return true;
}

}  // namespace bramblet
