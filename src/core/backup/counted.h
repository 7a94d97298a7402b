// Counts in the words of the backup window.
#pragma once

#include <cstddef>
#include <string>

namespace bramblet {

/// "1 file", "12 files".
inline std::string counted(std::size_t count, const std::string& one) {
    return std::to_string(count) + " " + one + (count == 1 ? "" : "s");
}

}  // namespace bramblet
