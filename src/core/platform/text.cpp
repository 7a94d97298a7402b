#include "core/platform/text.h"

#include "core/platform/code_page.h"

#include <algorithm>
#include <optional>
#include <unordered_map>

namespace bramblet {
namespace {

std::string withoutEnds(std::string_view text, std::string_view dropped) {
    const auto first = text.find_first_not_of(dropped);
    if (first == std::string_view::npos) return {};
    const auto last = text.find_last_not_of(dropped);
    return std::string(text.substr(first, last - first + 1));
}

bool isHighSurrogate(char16_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}
bool isLowSurrogate(char16_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

}  // namespace

std::string trimmed(std::string_view text) {
    return withoutEnds(text, " ");
}

std::string trimmedField(std::string_view field) {
    using namespace std::string_view_literals;
    return withoutEnds(field, " \0"sv);
}

std::string withoutControls(std::string_view text) {
    std::string out(text);
    for (char& c : out) {
        if (static_cast<unsigned char>(c) < 0x20) c = ' ';
    }
    return out;
}

std::string upper(std::string_view text) {
    const CodePage& page = systemCodePage();
    std::string out(text);
    for (char& c : out)
        c = static_cast<char>(page.upper[static_cast<unsigned char>(c)]);
    return out;
}

std::string fitted(std::string_view text, std::size_t width) {
    std::string out(text.substr(0, width));
    out.resize(width, ' ');
    return out;
}

std::optional<char> byteOf(char16_t unit) {
    if (unit < 0x80) return static_cast<char>(unit);
    static const auto bytes = [] {
        std::unordered_map<char16_t, char> map;
        const CodePage& page = systemCodePage();
        for (unsigned byte = 0x80; byte < 256; ++byte) {
            map.emplace(page.unicode[byte], static_cast<char>(byte));
        }
        return map;
    }();
    const auto found = bytes.find(unit);
    if (found == bytes.end()) return std::nullopt;
    return found->second;
}

std::string listedText(std::size_t count, const std::string& things, bool read) {
    const std::string listed = std::to_string(count) + " " + things + " listed";
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
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool pair =
            isHighSurrogate(text[i]) && i + 1 < text.size() && isLowSurrogate(text[i + 1]);
        out.push_back(pair ? '?' : byteOf(text[i]).value_or('?'));
        if (pair) ++i;
    }
    return out;
}

}  // namespace bramblet
