// The core's tests run on a file system like mounts of network shares: to open a file for appending
// and to rename an open one is always refused, and a test may ask for more oddities.
#pragma once

#include <string>

namespace bramblet::test {

/// What the share does not have or do while this lives; errors are numbers of <cerrno>.
struct OddShare {
    int flushError = 0;
    int timesError = 0;
    int listingError = 0;    ///< in the midst of a folder
    std::string lostName;    ///< a file at which nobody can look: an I/O error
    bool tellsSizes = true;  ///< of the disk and what is free of it
    bool tellsKinds = true;  ///< whether an entry of a folder is a file

    OddShare() { current = this; }
    ~OddShare() { current = nullptr; }
    OddShare(const OddShare&) = delete;
    OddShare& operator=(const OddShare&) = delete;

    static inline OddShare* current = nullptr;
};

}  // namespace bramblet::test
