// What has to hold of the files whatever happens while the program works on them.
#pragma once

#include "support/odd_share.h"
#include "support/works.h"

#include <ostream>
#include <set>
#include <string>
#include <vector>

namespace bramblet::test {

enum class Result { Complete, AsBefore, Partly };

/// The course of a piece of work when nothing disturbs it.
struct Course {
    Files start;   ///< before it is prepared
    Files before;  ///< before it is done
    Files after;
    std::vector<Statement> statements;  ///< from the start on
    std::size_t prepared = 0;           ///< how many of them belong to the preparation
    std::set<std::string> told;

    /// How many calls of the work itself reach files.
    std::size_t calls() const;
    Result resultOf(const Files& now) const;
    /// Whether the user has been told something that is not told otherwise.
    bool isMoreTold(const WatchedDesk& desk) const;
    /// Which promises the files break; empty for none: each file is as before or as intended; of
    /// records and lines, each is; another desk's document is in its place or kept. `torn` allows
    /// what a power cut does to bytes that are being written in place.
    std::string broken(const Files& now, bool torn = false) const;
    /// The same for work that has been done again, and has added more.
    std::string brokenBy(const Files& now) const;
    /// What is not as intended, for a message.
    std::string difference(const Files& now) const;
};
Course course(const Work& work);

/// The program started on the files as they are, an hour later.
struct Restart {
    Files files;         ///< what the start made of them
    std::string broken;  ///< which promises are broken then, or after some more work
};
Restart restarted(const Course& course, bool torn = false);

/// How many files this process has open.
int openFiles();

class Counts {
  public:
    void add(Result result);
    std::string text() const;

  private:
    int complete_ = 0, asBefore_ = 0, partly_ = 0;
};

/// A work's name as part of a test's.
std::string nameOf(const Work& work);
inline void PrintTo(const Work& work, std::ostream* out) {
    *out << work.name;
}

}  // namespace bramblet::test
