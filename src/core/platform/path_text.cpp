#include "core/platform/path_text.h"

#include "core/platform/code_page.h"
#include "core/platform/sorting.h"
#include "core/platform/text.h"

#include <algorithm>
#include <array>
#include <utility>

namespace bramblet {
namespace {

#ifdef _WIN32
constexpr std::string_view kSeparators = "\\/";
#else
constexpr std::string_view kSeparators = "/";
#endif

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

struct Sequence {
    std::size_t length;
    char32_t character;
};

/// The UTF-8 sequence at the start of `text`; nothing when it is malformed or overlong.
std::optional<Sequence> firstSequence(std::string_view text) {
    const auto lead = static_cast<unsigned char>(text.front());
    if (lead < 0x80) return Sequence{1, lead};
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
    return Sequence{length, character};
}

/// UTF-16 of bytes. A UTF-8 sequence that `isOne` accepts becomes its character; every other byte
/// is one of the code page.
std::u16string decoded(std::string_view bytes, bool (*isOne)(char32_t character)) {
    std::u16string out;
    out.reserve(bytes.size());
    while (!bytes.empty()) {
        const auto sequence = firstSequence(bytes);
        if (sequence && sequence->length > 1 && isOne(sequence->character)) {
            appendUtf16(out, sequence->character);
            bytes.remove_prefix(sequence->length);
        } else {
            out += toUnicode(bytes.substr(0, 1));
            bytes.remove_prefix(1);
        }
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
    for (const char32_t character : charactersOf(unicodeOf(path))) {
        if (const auto byte = byteOf(character)) {
            out.push_back(*byte);
        } else {
            appendUtf8(out, character);
        }
    }
    return out;
}

std::u16string messageToUnicode(std::string_view message) {
    return decoded(message, [](char32_t character) { return !byteOf(character); });
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
    sortRows(names, false, [](const std::filesystem::path& name) {
        return std::pair(sortKey(withoutCase(name)), name.native());
    });
}

}  // namespace bramblet
