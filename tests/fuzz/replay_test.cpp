// Every seed, and every input that fuzzing has found a fault with, goes through its target.

#include "fuzz/targets.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace bramblet::test {
namespace {

class Replay : public ::testing::TestWithParam<Target> {};

TEST_P(Replay, Seeds) {
    const auto folder = std::filesystem::path(BRAMBLET_FUZZ_SEEDS) / GetParam().name;
    int seeds = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        ++seeds;
        EXPECT_NO_THROW(GetParam().run(contentOf(entry.path()))) << entry.path();
    }
    EXPECT_GT(seeds, 0);
}

INSTANTIATE_TEST_SUITE_P(Fuzz, Replay, ::testing::ValuesIn(kTargets),
                         [](const auto& target) { return std::string(target.param.name); });

}  // namespace
}  // namespace bramblet::test
