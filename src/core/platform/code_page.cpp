#include "core/platform/code_page.h"

namespace bramblet {
namespace {

// Windows-1252 differs from Latin-1 only in these 32 bytes, 0x80 to 0x9F.
constexpr std::array<char16_t, 32> kHighControls{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

std::uint8_t upper1252(unsigned byte) {
    const bool plainLetter = byte >= 'a' && byte <= 'z';
    const bool accentedLetter =
        byte >= 0xE0 && byte <= 0xFE && byte != 0xF7;                       // 0xF7: division sign
    const bool addedLetter = byte == 0x9A || byte == 0x9C || byte == 0x9E;  // s and z, caron; oe
    if (byte == 0xFF) return 0x9F;                                          // y with diaeresis
    const unsigned distance = plainLetter || accentedLetter ? 0x20 : addedLetter ? 0x10 : 0;
    return static_cast<std::uint8_t>(byte - distance);
}

}  // namespace

CodePage windows1252() {
    CodePage page{};
    for (unsigned byte = 0; byte < 256; ++byte) {
        const bool special = byte >= 0x80 && byte <= 0x9F;
        page.unicode[byte] = special ? kHighControls[byte - 0x80] : static_cast<char16_t>(byte);
        page.upper[byte] = upper1252(byte);
    }
    return page;
}

}  // namespace bramblet
