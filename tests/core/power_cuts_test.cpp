// The power fails after every call that changes files or flushes them, in everything that a user
// does, and the program is started on whatever the disk may hold then. With BRAMBLET_FAULTS naming
// a folder, the counts go there.

#include "support/power_cut.h"
#include "support/promises.h"

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>

namespace bramblet::test {
namespace {

/// Whether the user is told that another of ten copies is saved.
bool isReport(const Statement& statement) {
    return statement.call == "note" && statement.path.string().starts_with("making number");
}

/// The new documents, of those that had been reported saved, that are not there.
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
    const std::size_t end = usual.statements.size();
    const Disk disk(usual.start, usual.statements);
    ASSERT_EQ(disk.after(end), usual.after);
    Counts counts;
    std::set<Files> seen;
    Files reported = usual.before;
    for (std::size_t calls = usual.prepared + 1; calls <= end; ++calls) {
        const Statement& last = usual.statements[calls - 1];
        if (isReport(last)) reported = disk.after(calls);
        if (!matters(last) && calls < end) continue;
        for (const Files& state : disk.afterPowerCut(calls)) {
            const bool isNew = seen.insert(state).second;
            if (!isNew && calls < end) continue;
            SCOPED_TRACE("power cut after call " + std::to_string(calls));
            putBack(state);
            const auto [now, broken] = restarted(usual, true);
            EXPECT_EQ(broken, "");
            EXPECT_EQ(missing(reported, usual.before, now), "");
            const Result result = usual.resultOf(now);
            EXPECT_TRUE(calls < end || result == Result::Complete) << usual.difference(now);
            if (isNew) counts.add(result);
        }
    }
    if (const char* const folder = std::getenv("BRAMBLET_FAULTS")) {
        std::ofstream(std::string(folder) + "/cuts.md", std::ios::app)
            << "| " << work.name << " | " << seen.size() << " | " << counts.text() << " |\n";
    }
}

INSTANTIATE_TEST_SUITE_P(, PowerCuts, ::testing::ValuesIn(works()),
                         [](const auto& test) { return nameOf(test.param); });

}  // namespace
}  // namespace bramblet::test
