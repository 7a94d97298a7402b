// Every call that reaches a file fails once, in each of several ways, in everything that a user
// does. With BRAMBLET_FAULTS naming a folder, all ways are tried, and the counts go there.

#include "support/odd_share.h"
#include "support/promises.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <initializer_list>
#include <optional>
#include <string_view>

namespace bramblet::test {
namespace {

bool isAny(const Statement&) {
    return true;
}
bool isOneOf(const Statement& statement, std::initializer_list<std::string_view> calls) {
    return std::find(calls.begin(), calls.end(), statement.call) != calls.end();
}
bool needsRoom(const Statement& statement) {
    return isOneOf(statement, {"create", "pwrite", "fsync", "mkdir", "link", "rename", "renameat2",
                               "exchange"});
}
bool isWrite(const Statement& statement) {
    return statement.call == "pwrite";
}
/// Whether there are file systems that cannot do it at all.
bool isLuxury(const Statement& statement) {
    return isOneOf(statement, {"fsync", "syncfs", "utimensat", "chmod", "chown", "renameat2",
                               "exchange", "link"});
}

struct Way {
    const char* name;
    Failure failure;
    bool quick;         ///< whether it belongs to the usual tests
    bool ends = false;  ///< whether the program, or the power, is gone afterwards
    bool harmless = false;
};
const std::vector<Way> kWays{
    {"held for a moment", {EACCES, isAny}, false},
    {"I/O error", {EIO, isAny}, true},
    {"disk full", {ENOSPC, needsRoom}, false},
    {"disk full from then on", {ENOSPC, needsRoom, true}, false},
    {"half written, then full", {ENOSPC, isWrite, false, true}, true},
    {"gone from then on", {EIO, isAny, true}, true, true},
    {"not supported", {EOPNOTSUPP, isLuxury, true}, true, false, true},
};

class Faults : public ::testing::TestWithParam<Work> {
  protected:
    const Work& work = GetParam();
    const Course usual = course(work);

    /// Makes call number `at` of those that fail in this way do so, and checks what comes of it;
    /// nothing when there are fewer calls.
    std::optional<Result> fail(const Way& way, std::size_t at) const {
        putBack(filesOf(work.office));
        WatchedDesk desk;
        work.prepare(desk);
        desk.forgetTold();
        const int files = openFiles();
        {
            const Watch watch(way.failure, at);
            work.act(desk);
            if (!watch.struck()) return std::nullopt;
        }
        SCOPED_TRACE(std::string(way.name) + " at " + std::to_string(at));
        EXPECT_EQ(openFiles(), files);
        const Files now = filesNow();
        const Result result = usual.resultOf(now);
        const bool told = usual.isMoreTold(desk);
        EXPECT_EQ(usual.broken(now), "");
        EXPECT_TRUE(told || result == Result::Complete) << usual.difference(now);
        EXPECT_TRUE(!way.harmless || (!told && result == Result::Complete)) << desk.told();
        doAgain(desk);
        if (way.ends) {
            desk.close();
            putBack(now);
            EXPECT_EQ(restarted(usual).broken, "");
        }
        return result;
    }

  private:
    void doAgain(WatchedDesk& desk) const {
        desk.forgetTold();
        work.act(desk);
        EXPECT_FALSE(usual.isMoreTold(desk)) << desk.told();
        const Files now = filesNow();
        if (work.adds) {
            EXPECT_EQ(usual.brokenBy(now), "");
        } else {
            EXPECT_TRUE(usual.resultOf(now) == Result::Complete) << usual.difference(now);
        }
    }
};

TEST_P(Faults, AtEveryCall) {
    const char* const folder = std::getenv("BRAMBLET_FAULTS");
    const std::size_t calls = usual.calls();
    ASSERT_GT(calls, 0U);
    // Ten copies are ten times the same: each of its calls is met in one of them.
    const std::size_t step = calls > 300 && folder == nullptr ? 7 : 1;
    std::string row = std::string("| ") + work.name + " | " + std::to_string(calls);
    for (const Way& way : kWays) {
        if (!way.quick && folder == nullptr) continue;
        Counts counts;
        std::size_t at = 1;
        while (const auto result = fail(way, at)) {
            counts.add(*result);
            at += step;
        }
        row += " | " + counts.text();
    }
    if (folder != nullptr)
        std::ofstream(std::string(folder) + "/faults.md", std::ios::app) << row << " |\n";
}

INSTANTIATE_TEST_SUITE_P(, Faults, ::testing::ValuesIn(works()),
                         [](const auto& test) { return nameOf(test.param); });

}  // namespace
}  // namespace bramblet::test
