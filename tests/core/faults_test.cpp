// Every call that reaches a file fails once, in each of several ways, in everything that a user
// does. With BRAMBLET_FAULTS naming a file, all ways are tried, and the counts are added to it.

#include "support/odd_share.h"
#include "support/promises.h"

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
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
    return isOneOf(statement,
                   {"create", "pwrite", "fsync", "mkdir", "link", "rename", "renameat2"});
}
bool isWrite(const Statement& statement) {
    return statement.call == "pwrite";
}
/// Whether there are file systems that cannot do it at all.
bool isLuxury(const Statement& statement) {
    return isOneOf(statement,
                   {"fsync", "syncfs", "utimensat", "chmod", "chown", "renameat2", "link"});
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

class Faults : public ::testing::TestWithParam<Work> {};

TEST_P(Faults, AtEveryCall) {
    const Work& work = GetParam();
    const char* const table = std::getenv("BRAMBLET_FAULTS");
    const Course usual = course(work);
    const auto calls = usual.calls();
    ASSERT_GT(calls, 0U);
    // Ten copies are ten times the same: each of its calls is met in one of them.
    const std::size_t step = calls > 300 && table == nullptr ? 7 : 1;
    std::string row = std::string("| ") + work.name + " | " + std::to_string(calls);
    for (const Way& way : kWays) {
        if (!way.quick && table == nullptr) continue;
        Counts counts;
        for (std::size_t at = 1;; at += step) {
            putBack(filesOf(work.office));
            WatchedDesk desk;
            work.prepare(desk);
            desk.forgetTold();
            const int files = openFiles();
            bool struck = false;
            {
                Watch watch(way.failure, at);
                work.act(desk);
                struck = watch.struck();
            }
            if (!struck) break;
            SCOPED_TRACE(std::string(work.name) + ", " + way.name + " at " + std::to_string(at));
            const Files now = filesNow();
            const bool told = usual.isMoreTold(desk);
            const Result result = usual.resultOf(now);
            counts.add(result);
            EXPECT_EQ(usual.broken(now), "");
            EXPECT_EQ(openFiles(), files);
            EXPECT_TRUE(told || result == Result::Complete) << usual.difference(now);
            EXPECT_TRUE(!way.harmless || (!told && result == Result::Complete)) << desk.told();
            desk.forgetTold();
            work.act(desk);
            EXPECT_FALSE(usual.isMoreTold(desk)) << desk.told();
            if (work.adds)
                EXPECT_EQ(usual.brokenBy(filesNow()), "");
            else
                EXPECT_EQ(usual.resultOf(filesNow()), Result::Complete)
                    << usual.difference(filesNow());
            if (way.ends) {
                desk.close();
                putBack(now);
                EXPECT_EQ(restarted(usual).broken, "");
            }
        }
        row += " | " + counts.text();
    }
    if (table != nullptr) std::ofstream(table, std::ios::app) << row << " |\n";
}

INSTANTIATE_TEST_SUITE_P(, Faults, ::testing::ValuesIn(works()),
                         [](const auto& test) { return nameOf(test.param); });

}  // namespace
}  // namespace bramblet::test
