#include "core/platform/code_page_windows.h"

#include <algorithm>
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
        const auto& known = page.unicode;
        const auto found = std::find(known.begin(), known.end(), static_cast<char16_t>(capital));
        page.upper[byte] =
            static_cast<std::uint8_t>(found == known.end() ? byte : found - known.begin());
    }
    return page;
}

const CodePage& systemCodePage() {
    static const CodePage page = codePage(::GetACP());
    return page;
}

}  // namespace bramblet
