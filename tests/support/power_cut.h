// What a disk may hold when the power fails: what has been flushed is there; of the rest, anything
// may be missing or cut short, whatever came later.
#pragma once

#include "support/odd_share.h"
#include "support/works.h"

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace bramblet::test {

class Disk {
  public:
    /// A disk with these files, on which these calls are made.
    Disk(const Files& before, const std::vector<Statement>& statements);

    /// The files if the power never fails, after so many of the calls.
    Files after(std::size_t calls) const;
    /// What there may be if it fails then: all combinations of what has not been flushed when they
    /// are few; otherwise all of it, nothing of it, and what differs from these in one place.
    std::set<Files> afterPowerCut(std::size_t calls) const;

  private:
    /// What one call changes: names, or the content of a file, whatever its name.
    struct Change {
        std::size_t at = 0;  ///< the number of the call, from 0
        int file = 0;        ///< 0 for a folder
        std::string gone;    ///< a name that it has no more
        std::string name;    ///< a name that it gets
        int swapped = 0;     ///< the file that gets the name gone, when two exchange theirs
        bool cuts = false;   ///< whether it ends at `offset` from now on
        std::size_t offset = 0;
        std::string bytes;         ///< written there
        std::size_t flushed = -1;  ///< the number of the call that makes it last

        bool isContent() const { return gone.empty() && name.empty(); }
    };
    /// How much of a change that was not flushed is there.
    enum class Part { All, None, Half, Length };
    using Parts = std::vector<Part>;

    void flush(std::size_t at, const std::string& path);
    Files with(std::size_t calls, const Parts& parts) const;

    Files before_;
    std::vector<Change> changes_;
    std::map<std::string, int> first_;  ///< the files that there are before
    std::map<std::string, int> names_;  ///< and those at the end
};

/// Whether a call changes what is on the disk, or makes it last.
bool matters(const Statement& statement);

}  // namespace bramblet::test
