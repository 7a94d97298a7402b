// These functions take the place of the system library's own.

#include "support/odd_share.h"

#include <array>
#include <cerrno>
#include <cstdarg>
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace {

using bramblet::test::oddities;

/// The system library's own function.
template <class Function>
Function* own(Function*, const char* name) {
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

int refused(int error) {
    errno = error;
    return -1;
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
    return ::openat(AT_FDCWD, path, flags, mode);
}

int fsync(int file) {
    return oddities.flushError != 0 ? refused(oddities.flushError) : own(&fsync, "fsync")(file);
}

int syncfs(int disk) noexcept {
    return oddities.flushError != 0 ? refused(oddities.flushError) : own(&syncfs, "syncfs")(disk);
}

int rename(const char* from, const char* to) noexcept {
    return isOpen(from) ? refused(EBUSY) : ::renameat(AT_FDCWD, from, AT_FDCWD, to);
}

int renameat2(int fromFolder, const char* from, int toFolder, const char* to,
              unsigned how) noexcept {
    if (!oddities.exchanges) return refused(EINVAL);
    return own(&renameat2, "renameat2")(fromFolder, from, toFolder, to, how);
}

int link(const char* from, const char* to) noexcept {
    return oddities.exchanges ? ::linkat(AT_FDCWD, from, AT_FDCWD, to, 0) : refused(EPERM);
}

int utimensat(int folder, const char* path, const timespec* times, int flags) noexcept {
    if (oddities.timesError != 0) return refused(oddities.timesError);
    return own(&utimensat, "utimensat")(folder, path, times, flags);
}

int stat(const char* path, struct stat* information) noexcept {
    return isLost(path) ? refused(EIO) : ::fstatat(AT_FDCWD, path, information, 0);
}

int statvfs(const char* path, struct statvfs* information) noexcept {
    const int result = own(&statvfs, "statvfs")(path, information);
    if (!oddities.tellsSizes)
        information->f_blocks = information->f_bfree = information->f_bavail = 0;
    return result;
}

dirent* readdir(DIR* folder) {
    dirent* const entry = own(&readdir, "readdir")(folder);
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
