// What reads files and texts that others may have written or damaged, each as a target that takes
// any bytes. A target throws std::logic_error when something does not hold that must hold whatever
// the bytes are; a fault that the program tells the user about is none.
#pragma once

#include <array>
#include <string_view>

namespace bramblet::test {

struct Target {
    std::string_view name;  ///< and the folder of its seeds
    void (*run)(std::string_view input);
};

extern const std::array<Target, 13> kTargets;

}  // namespace bramblet::test
