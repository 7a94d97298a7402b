#include "core/platform/code_page_windows.h"

#include <optional>
#include <windows.h>

namespace bramblet {
namespace {

// Bytes that the page does not assign are given private characters, so that they survive unchanged.
constexpr char16_t kUnassigned = 0xF700;

std::array<char16_t, 256> unicodeOf(unsigned number) {
    std::array<char16_t, 256> unicode{};
    for (unsigned byte = 0; byte < 256; ++byte) {
        const char text = static_cast<char>(byte);
        wchar_t unit = 0;
        const int count = ::MultiByteToWideChar(number, 0, &text, 1, &unit, 1);
        bool taken = count != 1;
        for (unsigned other = 0; other < byte; ++other)
            taken = taken || unicode[other] == static_cast<char16_t>(unit);
        unicode[byte] = static_cast<char16_t>(taken ? kUnassigned + byte : unit);
    }
    return unicode;
}

/// The byte of a character; nothing when the page lacks it.
std::optional<std::uint8_t> byteOf(char16_t unit, const std::array<char16_t, 256>& unicode) {
    for (unsigned byte = 0; byte < 256; ++byte) {
        if (unicode[byte] == unit) return static_cast<std::uint8_t>(byte);
    }
    return std::nullopt;
}

}  // namespace

CodePage codePage(unsigned number) {
    constexpr unsigned kWindows1252 = 1252;
    CPINFO information{};
    const bool singleByte = ::GetCPInfo(number, &information) && information.MaxCharSize == 1;
    if (!singleByte || number == kWindows1252) return windows1252();

    CodePage page{};
    page.unicode = unicodeOf(number);
    for (unsigned byte = 0; byte < 256; ++byte) {
        const auto unit = static_cast<wchar_t>(page.unicode[byte]);
        wchar_t capital = unit;
        ::LCMapStringW(LOCALE_INVARIANT, LCMAP_UPPERCASE, &unit, 1, &capital, 1);
        page.upper[byte] = byteOf(static_cast<char16_t>(capital), page.unicode)
                               .value_or(static_cast<std::uint8_t>(byte));
    }
    return page;
}

const CodePage& systemCodePage() {
    static const CodePage page = codePage(::GetACP());
    return page;
}

}  // namespace bramblet
