#include "core/platform/path_text.h"

#include "core/platform/code_page.h"
#include "core/platform/sorting.h"
#include "core/platform/text.h"

#include <algorithm>
#include <array>
#include <tuple>
#include <utility>

namespace bramblet {
namespace {

#ifdef _WIN32
constexpr std::string_view kSeparators = "\\/";
#else
constexpr std::string_view kSeparators = "/";
#endif

bool isHighSurrogate(char16_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}
bool isLowSurrogate(char16_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}
bool isSurrogate(char32_t point) {
    return point >= 0xD800 && point < 0xE000;
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

void appendUtf16(std::u16string& out, char32_t point) {
    if (point < 0x10000) {
        out.push_back(static_cast<char16_t>(point));
    } else {
        out.push_back(static_cast<char16_t>(0xD800 + ((point - 0x10000) >> 10)));
        out.push_back(static_cast<char16_t>(0xDC00 + ((point - 0x10000) & 0x3FF)));
    }
}

/// The characters of UTF-16; half a surrogate pair becomes the replacement character.
std::u32string pointsOf(std::u16string_view text) {
    std::u32string points;
    points.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t point = text[i];
        if (isHighSurrogate(text[i]) && i + 1 < text.size() && isLowSurrogate(text[i + 1])) {
            point = 0x10000 + ((point - 0xD800) << 10) + (text[++i] - 0xDC00u);
        }
        points.push_back(isSurrogate(point) ? U'\uFFFD' : point);
    }
    return points;
}

std::string utf8Of(std::u16string_view text) {
    std::string out;
    out.reserve(text.size() * 2);
    for (const char32_t point : pointsOf(text))
        appendUtf8(out, point);
    return out;
}

struct Sequence {
    std::size_t length;
    char32_t point;
};

/// The UTF-8 sequence at the start of `text`; nothing when it is malformed or overlong.
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

/// UTF-16 of bytes. A UTF-8 sequence that `isOne` accepts becomes its character; every other byte
/// is one of the code page.
template <class Condition>
std::u16string decoded(std::string_view bytes, Condition isOne) {
    std::u16string out;
    out.reserve(bytes.size());
    while (!bytes.empty()) {
        const auto sequence = firstSequence(bytes);
        const bool taken = sequence && sequence->length > 1 && isOne(sequence->point);
        const std::size_t length = taken ? sequence->length : 1;
        if (taken) {
            appendUtf16(out, sequence->point);
        } else {
            out += toUnicode(bytes.substr(0, 1));
        }
        bytes.remove_prefix(length);
    }
    return out;
}

bool isUtf8(std::string_view text) {
    while (!text.empty()) {
        const auto sequence = firstSequence(text);
        if (!sequence) return false;
        text.remove_prefix(sequence->length);
    }
    return true;
}

bool isLacking(char32_t point) {
    return point >= 0x10000 || !byteOf(static_cast<char16_t>(point));
}

std::filesystem::path pathOfUtf8(const std::string& utf8) {
    return std::u8string(utf8.begin(), utf8.end());
}

template <class Char>
std::u16string unicodeOfNative(const std::basic_string<Char>& native) {
    if constexpr (sizeof(Char) == 1) {
        return decoded(native, [](char32_t) { return true; });
    } else {
        return {native.begin(), native.end()};
    }
}

}  // namespace

std::filesystem::path pathOfName(std::string_view name) {
    return pathOfUtf8(utf8Of(toUnicode(name)));
}

std::filesystem::path pathOfFolder(std::string_view text) {
    std::string utf8;
    for (;;) {
        const auto separator = text.find_first_of(kSeparators);
        const std::string_view component = text.substr(0, separator);
        utf8 += isUtf8(component) ? std::string(component) : utf8Of(toUnicode(component));
        if (separator == std::string_view::npos) return pathOfUtf8(utf8);
        utf8.push_back(text[separator]);
        text.remove_prefix(separator + 1);
    }
}

std::optional<std::string> folderText(const std::filesystem::path& folder) {
    const std::u16string unicode = unicodeOf(folder);
    for (const std::string& text : {fromUnicode(unicode), utf8Of(unicode)}) {
        if (pathOfFolder(text).native() == folder.native()) return text;
    }
    return std::nullopt;
}

std::u16string unicodeOf(const std::filesystem::path& path) {
    return unicodeOfNative(path.native());
}

std::string shown(const std::filesystem::path& path) {
    std::string out;
    for (const char32_t point : pointsOf(unicodeOf(path))) {
        if (isLacking(point)) {
            appendUtf8(out, point);
        } else {
            out.push_back(*byteOf(static_cast<char16_t>(point)));
        }
    }
    return out;
}

std::u16string messageToUnicode(std::string_view message) {
    return decoded(message, isLacking);
}

std::u16string withoutCase(const std::filesystem::path& path) {
    const CodePage& page = systemCodePage();
    std::u16string out = unicodeOf(path);
    for (char16_t& unit : out) {
        if (const auto byte = byteOf(unit))
            unit = page.unicode[page.upper[static_cast<unsigned char>(*byte)]];
    }
    return out;
}

bool endsInOneOf(const std::filesystem::path& name, std::span<const std::u16string_view> endings) {
    const std::u16string capitals = withoutCase(name);
    return std::any_of(endings.begin(), endings.end(),
                       [&](std::u16string_view ending) { return capitals.ends_with(ending); });
}

void sortWithoutCase(std::vector<std::filesystem::path>& names) {
    std::vector<std::pair<std::u16string, std::filesystem::path>> keyed;
    keyed.reserve(names.size());
    for (auto& name : names)
        keyed.emplace_back(sortKey(withoutCase(name)), std::move(name));
    std::sort(keyed.begin(), keyed.end(), [](const auto& a, const auto& b) {
        return std::tie(a.first, a.second.native()) < std::tie(b.first, b.second.native());
    });
    std::transform(keyed.begin(), keyed.end(), names.begin(),
                   [](auto& pair) { return std::move(pair.second); });
}

}  // namespace bramblet
