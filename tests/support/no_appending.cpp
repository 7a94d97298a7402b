// Linked into the core's tests, all files behave as on some mounts of network shares: what is
// opened for appending is refused.

#include <cerrno>
#include <cstdarg>
#include <fcntl.h>

/// Takes the place of the system library's function of this name.
extern "C" int open(const char* path, int flags, ...) {
    if ((flags & O_APPEND) != 0) {
        errno = EIO;
        return -1;
    }
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    return ::openat(AT_FDCWD, path, flags, mode);
}
