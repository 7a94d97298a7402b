// These functions take the place of the system library's own.

#include "support/odd_share.h"

#include <array>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <utility>

namespace bramblet::test {
namespace {

Watch* watching = nullptr;

}  // namespace

Watch::Watch(const Failure& failure, std::size_t at) : failure_(failure), at_(at) {
    watching = this;
}

Watch::~Watch() {
    watching = nullptr;
}

Watch* Watch::current() {
    return watching;
}

void Watch::note(const std::string& text) {
    if (watching != nullptr) watching->done_.push_back({"note", text, {}, 0, {}});
}

int Watch::failureOf(Statement& statement) {
    if (restFails_ && statement.call == "pwrite") {
        restFails_ = false;
        return failure_.error;
    }
    if (at_ == 0 || !failure_.meets(statement)) return 0;
    ++met_;
    if (met_ != at_ && !(failure_.lasts && met_ > at_)) return 0;
    if (!failure_.halfway) return failure_.error;
    restFails_ = true;
    statement.bytes.resize((statement.bytes.size() + 1) / 2);
    return 0;
}

void Watch::succeeded(Statement statement, int file) {
    if (statement.call == "open" || statement.call == "create") open_[file] = statement.path;
    done_.push_back(std::move(statement));
}

std::filesystem::path Watch::pathOf(int file) const {
    const auto found = open_.find(file);
    return found == open_.end() ? std::filesystem::path() : found->second;
}

}  // namespace bramblet::test

namespace {

using bramblet::test::oddities;
using bramblet::test::Statement;
using bramblet::test::Watch;

/// The system library's own function.
template <class Function>
Function* own(Function*, const char* name) {
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

int refused(int error) {
    errno = error;
    return -1;
}

/// Makes a call, unless it is to fail. The call is given the statement, of which it may have to
/// write less.
template <class Call>
auto watched(Statement statement, Call call) -> decltype(call(statement)) {
    Watch* const watch = Watch::current();
    if (watch == nullptr) return call(statement);
    if (const int error = watch->failureOf(statement); error != 0) {
        errno = error;
        if constexpr (std::is_pointer_v<decltype(call(statement))>)
            return nullptr;
        else
            return -1;
    }
    const auto result = call(statement);
    if constexpr (std::is_pointer_v<decltype(call(statement))>) {
        return result;  // of listing a folder: nothing changes
    } else {
        if (result != -1) watch->succeeded(std::move(statement), static_cast<int>(result));
        return result;
    }
}

std::filesystem::path pathOf(int file) {
    return Watch::current() != nullptr ? Watch::current()->pathOf(file) : std::filesystem::path();
}

bool isLost(std::string_view path) {
    return *oddities.lostPath != '\0' && path.ends_with(oddities.lostPath);
}

bool isOpen(std::string_view path) {
    constexpr int kFiles = 256;
    for (int file = 0; file < kFiles; ++file) {
        std::array<char, 4096> opened{};
        const std::string link = "/proc/self/fd/" + std::to_string(file);
        if (::readlink(link.c_str(), opened.data(), opened.size() - 1) > 0 && path == opened.data())
            return true;
    }
    return false;
}

}  // namespace

extern "C" {

int open(const char* path, int flags, ...) {
    if ((flags & O_APPEND) != 0) return refused(EIO);
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    const bool creates = Watch::current() != nullptr && (flags & O_CREAT) != 0 &&
                         ::faccessat(AT_FDCWD, path, F_OK, 0) != 0;
    return watched({creates ? "create" : "open", path, {}, 0, {}},
                   [&](const Statement&) { return ::openat(AT_FDCWD, path, flags, mode); });
}

ssize_t pread(int file, void* bytes, size_t count, off_t offset) {
    const ssize_t read = watched({"pread", pathOf(file), {}, 0, {}}, [&](const Statement&) {
        return own(&pread, "pread")(file, bytes, count, offset);
    });
    if (const auto meanwhile = std::exchange(oddities.afterRead, nullptr)) meanwhile();
    return read;
}

ssize_t pwrite(int file, const void* bytes, size_t count, off_t offset) {
    if (Watch::current() == nullptr) return own(&pwrite, "pwrite")(file, bytes, count, offset);
    const std::string content(static_cast<const char*>(bytes), count);
    return watched({"pwrite", pathOf(file), {}, static_cast<std::uint64_t>(offset), content},
                   [&](const Statement& statement) {
                       return own(&pwrite, "pwrite")(file, bytes, statement.bytes.size(), offset);
                   });
}

int ftruncate(int file, off_t length) noexcept {
    return watched({"ftruncate", pathOf(file), {}, static_cast<std::uint64_t>(length), {}},
                   [&](const Statement&) { return own(&ftruncate, "ftruncate")(file, length); });
}

// Nothing in a test outlives the machine's power: flushing would only take time.

int fsync(int file) {
    return watched({"fsync", pathOf(file), {}, 0, {}}, [&](const Statement&) {
        return oddities.flushError != 0 ? refused(oddities.flushError) : 0;
    });
}

int syncfs(int disk) noexcept {
    return watched({"syncfs", pathOf(disk), {}, 0, {}}, [&](const Statement&) {
        return oddities.flushError != 0 ? refused(oddities.flushError) : 0;
    });
}

int rename(const char* from, const char* to) noexcept {
    return watched({"rename", from, to, 0, {}}, [&](const Statement&) {
        return isOpen(from) ? refused(EBUSY) : ::renameat(AT_FDCWD, from, AT_FDCWD, to);
    });
}

int renameat2(int fromFolder, const char* from, int toFolder, const char* to,
              unsigned flags) noexcept {
    constexpr unsigned kExchange = 2;
    const char* const call = flags == kExchange ? "exchange" : "renameat2";
    return watched({call, from, to, 0, {}}, [&](const Statement&) {
        if (!oddities.exchanges) return refused(EINVAL);
        return isOpen(from) ? refused(EBUSY)
                            : own(&renameat2, "renameat2")(fromFolder, from, toFolder, to, flags);
    });
}

int link(const char* from, const char* to) noexcept {
    return watched({"link", from, to, 0, {}}, [&](const Statement&) {
        return oddities.exchanges ? ::linkat(AT_FDCWD, from, AT_FDCWD, to, 0) : refused(EPERM);
    });
}

int unlink(const char* path) noexcept {
    return watched({"unlink", path, {}, 0, {}},
                   [&](const Statement&) { return ::unlinkat(AT_FDCWD, path, 0); });
}

int mkdir(const char* path, mode_t mode) noexcept {
    return watched({"mkdir", path, {}, 0, {}},
                   [&](const Statement&) { return ::mkdirat(AT_FDCWD, path, mode); });
}

int chmod(const char* path, mode_t mode) noexcept {
    return watched({"chmod", path, {}, 0, {}},
                   [&](const Statement&) { return ::fchmodat(AT_FDCWD, path, mode, 0); });
}

int chown(const char* path, uid_t owner, gid_t group) noexcept {
    return watched({"chown", path, {}, 0, {}},
                   [&](const Statement&) { return ::fchownat(AT_FDCWD, path, owner, group, 0); });
}

int utimensat(int folder, const char* path, const timespec* times, int flags) noexcept {
    return watched({"utimensat", path, {}, 0, {}}, [&](const Statement&) {
        if (oddities.timesError != 0) return refused(oddities.timesError);
        return own(&utimensat, "utimensat")(folder, path, times, flags);
    });
}

int stat(const char* path, struct stat* information) noexcept {
    return watched({"stat", path, {}, 0, {}}, [&](const Statement&) {
        return isLost(path) ? refused(EIO) : ::fstatat(AT_FDCWD, path, information, 0);
    });
}

int fstat(int file, struct stat* information) noexcept {
    return watched({"fstat", pathOf(file), {}, 0, {}}, [&](const Statement&) {
        return ::fstatat(file, "", information, AT_EMPTY_PATH);
    });
}

int statvfs(const char* path, struct statvfs* information) noexcept {
    const int result = watched({"statvfs", path, {}, 0, {}}, [&](const Statement&) {
        return own(&statvfs, "statvfs")(path, information);
    });
    if (!oddities.tellsSizes)
        information->f_blocks = information->f_bfree = information->f_bavail = 0;
    return result;
}

int clock_gettime(clockid_t clock, timespec* now) noexcept {
    const long result = ::syscall(SYS_clock_gettime, clock, now);
    if (result == 0) now->tv_sec += oddities.secondsAhead;
    return static_cast<int>(result);
}

DIR* opendir(const char* path) {
    return watched({"opendir", path, {}, 0, {}},
                   [&](const Statement&) { return own(&opendir, "opendir")(path); });
}

dirent* readdir(DIR* folder) {
    dirent* const entry = watched({"readdir", {}, {}, 0, {}}, [&](const Statement&) {
        return own(&readdir, "readdir")(folder);
    });
    if (entry == nullptr) return entry;
    const std::string_view name = entry->d_name;
    if (oddities.listingError != 0 && name != "." && name != "..") {
        errno = oddities.listingError;
        return nullptr;
    }
    if (!oddities.tellsKinds) entry->d_type = DT_UNKNOWN;
    return entry;
}
}
