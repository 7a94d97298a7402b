#include "platform/text.h"

#include "platform/code_page.h"

#include <algorithm>
#include <optional>
#include <unordered_map>

namespace bramblet {
namespace {

#ifdef _WIN32
constexpr std::string_view kPathSeparators = "\\/";
#else
constexpr std::string_view kPathSeparators = "/";
#endif

std::string withoutEnds(std::string_view text, std::string_view dropped) {
    const auto first = text.find_first_not_of(dropped);
    if (first == std::string_view::npos) return {};
    const auto last = text.find_last_not_of(dropped);
    return std::string(text.substr(first, last - first + 1));
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

bool isHighSurrogate(char16_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}
bool isLowSurrogate(char16_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}
bool isSurrogate(char32_t point) {
    return point >= 0xD800 && point < 0xE000;
}

bool inCodePage(std::u16string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char16_t unit) { return byteOf(unit).has_value(); });
}

void appendUtf8(std::string& out, char32_t point) {
    const auto put = [&out](char32_t byte) { out.push_back(static_cast<char>(byte)); };
    if (point < 0x80) {
        put(point);
    } else if (point < 0x800) {
        put(0xC0 | (point >> 6));
        put(0x80 | (point & 0x3F));
    } else if (point < 0x10000) {
        put(0xE0 | (point >> 12));
        put(0x80 | ((point >> 6) & 0x3F));
        put(0x80 | (point & 0x3F));
    } else {
        put(0xF0 | (point >> 18));
        put(0x80 | ((point >> 12) & 0x3F));
        put(0x80 | ((point >> 6) & 0x3F));
        put(0x80 | (point & 0x3F));
    }
}

std::string utf8Of(std::u16string_view text) {
    std::string out;
    out.reserve(text.size() * 2);
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t point = text[i];
        if (isHighSurrogate(text[i]) && i + 1 < text.size() && isLowSurrogate(text[i + 1])) {
            point = 0x10000 + ((point - 0xD800) << 10) + (text[++i] - 0xDC00u);
        }
        appendUtf8(out, isSurrogate(point) ? U'\uFFFD' : point);
    }
    return out;
}

struct Sequence {
    std::size_t length;
    char32_t point;
};

/// The UTF-8 sequence at the start of `text`; none when it is malformed or overlong.
std::optional<Sequence> firstSequence(std::string_view text) {
    const auto lead = static_cast<unsigned char>(text.front());
    if (lead < 0x80) return Sequence{1, lead};
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || text.size() < length) return std::nullopt;
    char32_t point = lead & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if ((byte & 0xC0) != 0x80) return std::nullopt;
        point = (point << 6) | (byte & 0x3Fu);
    }
    constexpr std::array<char32_t, 5> kSmallest{0, 0, 0x80, 0x800, 0x10000};
    if (point < kSmallest[length] || point > 0x10FFFF || isSurrogate(point)) return std::nullopt;
    return Sequence{length, point};
}

/// UTF-16 of well-formed UTF-8 that holds more than ASCII; none for any other text.
std::optional<std::u16string> fromUtf8(std::string_view text) {
    std::u16string out;
    bool ascii = true;
    while (!text.empty()) {
        const auto sequence = firstSequence(text);
        if (!sequence) return std::nullopt;
        ascii = ascii && sequence->length == 1;
        if (sequence->point < 0x10000) {
            out.push_back(static_cast<char16_t>(sequence->point));
        } else {
            out.push_back(static_cast<char16_t>(0xD800 + ((sequence->point - 0x10000) >> 10)));
            out.push_back(static_cast<char16_t>(0xDC00 + ((sequence->point - 0x10000) & 0x3FF)));
        }
        text.remove_prefix(sequence->length);
    }
    if (ascii) return std::nullopt;
    return out;
}

}  // namespace

std::string trimmed(std::string_view text) {
    return withoutEnds(text, " ");
}

std::string trimmedField(std::string_view field) {
    using namespace std::string_view_literals;
    return withoutEnds(field, " \0"sv);
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

std::u16string pathToUnicode(std::string_view text) {
    if (auto unicode = fromUtf8(text)) return *unicode;
    return toUnicode(text);
}

std::string pathFromUnicode(std::u16string_view text) {
    return inCodePage(text) ? fromUnicode(text) : utf8Of(text);
}

std::string pathToUtf8(std::string_view path) {
    std::string out;
    for (;;) {
        const auto separator = path.find_first_of(kPathSeparators);
        out += utf8Of(pathToUnicode(path.substr(0, separator)));
        if (separator == std::string_view::npos) return out;
        out.push_back(path[separator]);
        path.remove_prefix(separator + 1);
    }
}

}  // namespace bramblet
