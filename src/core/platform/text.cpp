#include "core/platform/text.h"

#include "core/platform/code_page.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <unordered_map>

namespace bramblet {

std::string_view withoutEnds(std::string_view text, std::string_view dropped) {
    const auto isDropped = [dropped](char c) {
        return std::any_of(dropped.begin(), dropped.end(), [c](char each) { return each == c; });
    };
    while (!text.empty() && isDropped(text.back()))
        text.remove_suffix(1);
    while (!text.empty() && isDropped(text.front()))
        text.remove_prefix(1);
    return text;
}

std::string trimmed(std::string_view text) {
    return std::string(withoutEnds(text, " "));
}

std::string trimmedField(std::string_view field) {
    return std::string(withoutBlanks(field));
}

std::string withoutControls(std::string_view text) {
    std::string out(text);
    for (char& c : out) {
        if (static_cast<unsigned char>(c) < 0x20) c = ' ';
    }
    return out;
}

std::string joinedLines(std::string_view text, std::string_view between) {
    std::string joined;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find_first_of("\r\n", at), text.size());
        const std::string line = trimmed(withoutControls(text.substr(at, end - at)));
        if (!line.empty()) joined.append(joined.empty() ? "" : between).append(line);
        at = end + 1;
    }
    return joined;
}

std::optional<std::uint32_t> plainNumber(std::string_view text) {
    std::uint32_t number = 0;
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number);
    if (read.ec != std::errc{} || read.ptr != end) return std::nullopt;
    return number;
}

void makeUpper(std::string& text) {
    const CodePage& page = systemCodePage();
    for (char& c : text)
        c = static_cast<char>(page.upper[static_cast<unsigned char>(c)]);
}

std::string upper(std::string_view text) {
    std::string out(text);
    makeUpper(out);
    return out;
}

std::string fitted(std::string_view text, std::size_t width) {
    std::string out(text.substr(0, width));
    out.resize(width, ' ');
    return out;
}

std::string listedText(std::size_t shown, std::size_t count, const std::string& things, bool read) {
    const std::string some = shown == count ? "" : std::to_string(shown) + " of ";
    std::string listed = some + std::to_string(count) + " " + things + " listed";
    if (read) return listed;
    return count == 0 ? "The list could not be read" : listed + " before; now it could not be read";
}

std::u16string toUnicode(std::string_view text) {
    const CodePage& page = systemCodePage();
    std::u16string out;
    out.reserve(text.size());
    for (const char c : text)
        out.push_back(page.unicode[static_cast<unsigned char>(c)]);
    return out;
}

std::string fromUnicode(std::u16string_view text) {
    std::string out;
    out.reserve(text.size());
    for (const char32_t character : charactersOf(text))
        out.push_back(byteOf(character).value_or('?'));
    return out;
}

std::u32string charactersOf(std::u16string_view text) {
    const auto isHighHalf = [&](std::size_t i) { return text[i] >= 0xD800 && text[i] < 0xDC00; };
    const auto isLowHalf = [&](std::size_t i) { return text[i] >= 0xDC00 && text[i] < 0xE000; };
    std::u32string characters;
    characters.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (isHighHalf(i) && i + 1 < text.size() && isLowHalf(i + 1)) {
            const char32_t high = text[i] - 0xD800u;
            characters.push_back(0x10000 + (high << 10) + (text[++i] - 0xDC00u));
        } else {
            characters.push_back(isHighHalf(i) || isLowHalf(i) ? U'\uFFFD' : text[i]);
        }
    }
    return characters;
}

void appendUtf8(std::string& text, char32_t character) {
    constexpr std::array<char32_t, 4> kLead{0, 0xC0, 0xE0, 0xF0};
    std::size_t more = character < 0x80 ? 0 : character < 0x800 ? 1 : character < 0x10000 ? 2 : 3;
    text.push_back(static_cast<char>(kLead[more] | (character >> (6 * more))));
    while (more-- > 0)
        text.push_back(static_cast<char>(0x80 | ((character >> (6 * more)) & 0x3F)));
}

std::optional<char> byteOf(char32_t character) {
    if (character < 0x80) return static_cast<char>(character);
    static const auto bytes = [] {
        std::unordered_map<char32_t, char> map;
        const CodePage& page = systemCodePage();
        for (unsigned byte = 0x80; byte < 256; ++byte)
            map.emplace(page.unicode[byte], static_cast<char>(byte));
        return map;
    }();
    const auto found = bytes.find(character);
    return found == bytes.end() ? std::nullopt : std::optional(found->second);
}

}  // namespace bramblet
