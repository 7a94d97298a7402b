#include "platform/sorting.h"

#include <charconv>
#include <cmath>

namespace bramblet {

double leadingNumber(std::string_view text) {
    const auto start = text.find_first_not_of(' ');
    if (start == std::string_view::npos) return 0;
    text.remove_prefix(start);
    double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
    return std::isfinite(value) ? value : 0;
}

}  // namespace bramblet
