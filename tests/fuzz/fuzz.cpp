// Runs one target, named by the first argument; the others are libFuzzer's.

#include "fuzz/targets.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

const bramblet::test::Target* target = nullptr;

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* count, char*** arguments) {
    using bramblet::test::kTargets;
    const std::string_view name = *count > 1 ? (*arguments)[1] : "";
    target = std::find_if(kTargets.begin(), kTargets.end(),
                          [name](const auto& candidate) { return candidate.name == name; });
    if (target == kTargets.end()) {
        std::fputs("The first argument names one of these targets:\n", stderr);
        for (const auto& known : kTargets)
            std::fprintf(stderr, "%s\n", known.name.data());
        std::exit(1);
    }
    std::rotate(*arguments + 1, *arguments + 2, *arguments + *count);
    --*count;
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    target->run({reinterpret_cast<const char*>(bytes), size});
    return 0;
}
