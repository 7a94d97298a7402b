// The single-byte code page in which the data files are written: Windows-1252, or on Windows the
// system's own if that is single-byte.
#pragma once

#include <array>
#include <cstdint>

namespace bramblet {

struct CodePage {
    std::array<char16_t, 256> unicode;    ///< UTF-16 code unit of each byte
    std::array<std::uint8_t, 256> upper;  ///< the byte of each byte's upper-case counterpart
};

/// Windows-1252; its five unassigned bytes stand for the control characters of the same number, so
/// that every byte survives conversion to Unicode and back.
CodePage windows1252();

/// The code page of this machine.
const CodePage& systemCodePage();

}  // namespace bramblet
