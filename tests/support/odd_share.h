// The core's tests run on a file system like mounts of network shares: to open a file for appending
// and to rename an open one is always refused, and a test may ask for more oddities.
#pragma once

namespace bramblet::test {

/// What the share lacks or fails at; errors are numbers of <cerrno>.
struct Oddities {
    int flushError = 0;
    int timesError = 0;
    int listingError = 0;       ///< halfway through a folder
    const char* lostPath = "";  ///< the end of a path that cannot be looked at: an I/O error
    bool tellsSizes = true;     ///< of the disk and what is free of it
    bool exchanges = true;      ///< renames without replacing, and exchanges names
    bool tellsKinds = true;     ///< whether an entry of a folder is a file
};
inline Oddities oddities;

}  // namespace bramblet::test
