#include "core/platform/path_text.h"

#include "core/platform/code_page.h"
#include "core/platform/sorting.h"
#include "core/platform/text.h"
#include "core/platform/utf8.h"

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

/// UTF-16 of bytes. A UTF-8 sequence that `isOne` accepts becomes its character; every other byte
/// is one of the code page.
std::u16string decoded(std::string_view bytes, bool (*isOne)(char32_t character)) {
    std::u16string out;
    out.reserve(bytes.size());
    while (!bytes.empty()) {
        const auto sequence = firstUtf8Sequence(bytes);
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
