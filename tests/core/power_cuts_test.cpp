// The power fails after every call that changes files or flushes them, in everything that a user
// does, and the program is started on whatever the disk may hold then. With BRAMBLET_FAULTS naming
// a file, the counts are added to it.

#include "support/power_cut.h"
#include "support/promises.h"

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>

namespace bramblet::test {
namespace {

/// Whether all orders that had been reported saved are there: those with a document.
std::string missing(const Files& reported, const Files& before, const Files& now) {
    std::string names;
    for (const auto& [path, content] : reported) {
        const bool isNew = !before.contains(path) && path.ends_with(".htm") && !isPassing(path);
        if (isNew && (!now.contains(path) || now.at(path) != content)) names += path + "; ";
    }
    return names;
}

class PowerCuts : public ::testing::TestWithParam<Work> {};

TEST_P(PowerCuts, AfterEveryCall) {
    const Work& work = GetParam();
    const Course usual = course(work);
    const Disk disk(usual.start, usual.statements);
    ASSERT_EQ(disk.after(usual.statements.size()), usual.after);
    Counts counts;
    std::set<Files> seen;
    Files reported = usual.before;
    for (std::size_t calls = usual.prepared + 1; calls <= usual.statements.size(); ++calls) {
        const Statement& last = usual.statements[calls - 1];
        const bool isEnd = calls == usual.statements.size();
        if (last.call == "note" && last.path.string().starts_with("making number"))
            reported = disk.after(calls);
        if (!matters(last) && !isEnd) continue;
        for (const Files& state : disk.afterPowerCut(calls)) {
            if (!isEnd && !seen.insert(state).second) continue;
            SCOPED_TRACE(std::string(work.name) + ", power cut at " + std::to_string(calls));
            putBack(state);
            const auto [now, broken] = restarted(usual, true);
            EXPECT_EQ(broken, "");
            EXPECT_EQ(missing(reported, usual.before, now), "");
            const Result result = usual.resultOf(now);
            counts.add(result);
            EXPECT_TRUE(!isEnd || result == Result::Complete) << usual.difference(now);
        }
    }
    if (const char* const table = std::getenv("BRAMBLET_FAULTS"))
        std::ofstream(table, std::ios::app)
            << "| " << work.name << " | " << counts.text() << " |\n";
}

INSTANTIATE_TEST_SUITE_P(, PowerCuts, ::testing::ValuesIn(works()),
                         [](const auto& test) { return nameOf(test.param); });

}  // namespace
}  // namespace bramblet::test
