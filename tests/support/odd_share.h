// The core's tests run on a file system like mounts of network shares: to open a file for appending
// and to rename an open one is always refused, and a test may ask for more oddities. It may also
// watch every call that reaches a file, and make one of them fail.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <vector>

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
    int secondsAhead = 0;       ///< of the clock
    std::function<void()> afterRead = {};  ///< what another desk does after the next read
};
inline Oddities oddities;

/// One call that reached a file.
struct Statement {
    std::string call;            ///< its name; "create" when open made a new file
    std::filesystem::path path;  ///< of the file or folder
    std::filesystem::path to;    ///< its new or second name
    std::uint64_t offset = 0;    ///< or new length
    std::string bytes;           ///< written
};

/// A way in which calls fail.
struct Failure {
    int error = 0;
    bool (*meets)(const Statement&) = nullptr;  ///< whether a call can fail like that
    bool lasts = false;                         ///< whether all of them fail from then on
    bool halfway = false;  ///< the first half is still written, and the next write fails
};

/// Records the calls that reach files as long as it lives, and makes one of them fail.
class Watch {
  public:
    /// The call to fail is number `at`, from 1, of those that the failure can meet; 0 for none.
    explicit Watch(const Failure& failure = {}, std::size_t at = 0);
    ~Watch();
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

    /// Those that succeeded, and the notes between them.
    const std::vector<Statement>& done() const { return done_; }
    /// Whether the call to fail has been reached.
    bool struck() const { return at_ != 0 && met_ >= at_; }

    /// Puts a note among the calls.
    static void note(const std::string& text);

    // For the calls themselves.
    static Watch* current();
    /// The error with which a call has to fail; 0 when it may succeed. Where only half of it is to
    /// be written, the rest is taken from the bytes.
    int failureOf(Statement& statement);
    void succeeded(Statement statement, int file);
    std::filesystem::path pathOf(int file) const;

  private:
    Failure failure_;
    std::size_t at_;
    std::size_t met_ = 0;
    bool restFails_ = false;
    std::vector<Statement> done_;
    std::map<int, std::filesystem::path> open_;
};

}  // namespace bramblet::test
