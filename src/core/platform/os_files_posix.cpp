#include "core/platform/fault.h"
#include "core/platform/os_files.h"

#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace bramblet::os {
namespace {

bool isFolder(const std::filesystem::path& path) {
    struct stat information {};
    return ::stat(path.c_str(), &information) == 0 && S_ISDIR(information.st_mode);
}

std::filesystem::path parentOf(const std::filesystem::path& path) {
    return path.has_parent_path() ? path.parent_path() : ".";
}

FaultNumber faultOf(int error, const std::filesystem::path& path) {
    switch (error) {
        case EACCES:
        case EPERM:
        case EROFS:
        case EISDIR:
            return FaultNumber::PathFileAccess;
        case EAGAIN:
        case EBUSY:
        case ETXTBSY:
            return FaultNumber::PermissionDenied;
        case ENOENT:
            return isFolder(parentOf(path)) ? FaultNumber::FileNotFound : FaultNumber::PathNotFound;
        case ENOTDIR:
            return FaultNumber::PathNotFound;
        case ENOSPC:
        case EDQUOT:
            return FaultNumber::DiskFull;
        case EINVAL:
        case ENAMETOOLONG:
            return FaultNumber::BadFileName;
        case EMFILE:
        case ENFILE:
            return FaultNumber::TooManyFiles;
        default:
            return FaultNumber::DeviceError;
    }
}

[[noreturn]] void fail(const std::filesystem::path& path, int error = errno) {
    throw FileError(faultOf(error, path), path);
}

int flagsOf(Open how) {
    switch (how) {
        case Open::ReadWrite:
            return O_RDWR | O_CREAT;
        case Open::Read:
            return O_RDONLY;
        case Open::Write:
            return O_WRONLY | O_CREAT;
        case Open::WriteNew:
            return O_WRONLY | O_CREAT | O_EXCL;
    }
    return O_RDONLY;
}

/// Repeats a system call as long as a signal interrupts it.
template <class Call>
auto uninterrupted(Call call) {
    for (;;) {
        const auto result = call();
        if (result != -1 || errno != EINTR) return result;
    }
}

std::int64_t nanoseconds(const timespec& time) {
    return static_cast<std::int64_t>(time.tv_sec) * 1'000'000'000 + time.tv_nsec;
}

/// The errors of a file system that does not support what is asked of it, or does not allow it.
bool isRefusal(int error) {
    return error == EPERM || error == EACCES || error == EINVAL || error == EOPNOTSUPP ||
           error == ENOSYS;
}

enum class Kind { File, Folder, Other };

Kind kindOf(const dirent& entry, const std::filesystem::path& folder) {
    if (entry.d_type == DT_REG) return Kind::File;
    if (entry.d_type == DT_DIR) return Kind::Folder;
    if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN) return Kind::Other;
    struct stat information {};
    if (::stat((folder / entry.d_name).c_str(), &information) != 0) {
        return errno == ENOENT ? Kind::Other : Kind::File;
    }
    if (S_ISDIR(information.st_mode)) return Kind::Folder;
    return S_ISREG(information.st_mode) ? Kind::File : Kind::Other;
}

std::vector<std::filesystem::path> namesIn(const std::filesystem::path& folder, Kind kind,
                                           const std::function<void()>& reached) {
    const std::unique_ptr<DIR, int (*)(DIR*)> stream(::opendir(folder.c_str()), ::closedir);
    if (!stream) fail(folder);
    std::vector<std::filesystem::path> names;
    for (;;) {
        errno = 0;
        const dirent* const entry = ::readdir(stream.get());
        if (entry == nullptr && errno != 0) fail(folder);
        if (entry == nullptr) return names;
        const std::string_view name = entry->d_name;
        if (name == "." || name == "..") continue;
        if (kindOf(*entry, folder) == kind) names.emplace_back(name);
        reached();
    }
}

/// Without this a power cut may undo a rename. A folder that cannot be flushed is left as it is.
void flushFolder(const std::filesystem::path& folder) {
    const int handle = uninterrupted([&] { return ::open(folder.c_str(), O_RDONLY | O_CLOEXEC); });
    if (handle == -1) return;
    uninterrupted([&] { return ::fsync(handle); });
    ::close(handle);
}

/// Gives a file the group and mode of another one, as far as that exists and we are allowed to.
void takeOverRights(const std::filesystem::path& from, const std::filesystem::path& to) {
    constexpr mode_t kRights = 07777;
    constexpr auto kOwnerAsItIs = static_cast<uid_t>(-1);
    struct stat old {};
    if (::stat(from.c_str(), &old) != 0) return;
    if (::chown(to.c_str(), kOwnerAsItIs, old.st_gid) != 0 && !isRefusal(errno)) fail(to);
    if (::chmod(to.c_str(), old.st_mode & kRights) != 0 && !isRefusal(errno)) fail(to);
}

}  // namespace

File::File(const std::filesystem::path& path, Open how) : path_(path), handle_(-1) {
    // Without O_NONBLOCK, opening a named pipe would wait for somebody at its other end.
    const int flags = flagsOf(how) | O_CLOEXEC | O_NONBLOCK;
    handle_ = uninterrupted([&] { return ::open(path.c_str(), flags, 0666); });
    if (handle_ == -1 && errno == ENXIO) fail(path, EINVAL);  // a pipe with nobody at its other end
    if (handle_ == -1) fail(path);
    struct stat information {};
    if (::fstat(static_cast<int>(handle_), &information) != 0 || S_ISREG(information.st_mode)) {
        return;
    }
    ::close(static_cast<int>(handle_));
    fail(path, S_ISDIR(information.st_mode) ? EISDIR : EINVAL);
}

File::File(File&& other) noexcept : path_(std::move(other.path_)), handle_(other.handle_) {
    other.handle_ = -1;
}

File::~File() {
    if (handle_ != -1) ::close(static_cast<int>(handle_));
}

std::uint64_t File::length() const {
    struct stat information {};
    if (::fstat(static_cast<int>(handle_), &information) != 0) fail(path_);
    return static_cast<std::uint64_t>(information.st_size);
}

std::string File::read(std::uint64_t offset, std::size_t count) const {
    std::string bytes(count, '\0');
    std::size_t done = 0;
    while (done < count) {
        const auto got = uninterrupted([&] {
            return ::pread(static_cast<int>(handle_), bytes.data() + done, count - done,
                           static_cast<off_t>(offset + done));
        });
        if (got == -1) fail(path_);
        if (got == 0) break;
        done += static_cast<std::size_t>(got);
    }
    bytes.resize(done);
    return bytes;
}

void File::write(std::uint64_t offset, std::string_view bytes) {
    while (!bytes.empty()) {
        const auto put = uninterrupted([&] {
            return ::pwrite(static_cast<int>(handle_), bytes.data(), bytes.size(),
                            static_cast<off_t>(offset));
        });
        if (put == -1) fail(path_);
        offset += static_cast<std::uint64_t>(put);
        bytes.remove_prefix(static_cast<std::size_t>(put));
    }
}

void File::flush() {
    const int result = uninterrupted([&] { return ::fsync(static_cast<int>(handle_)); });
    if (result != 0 && !isRefusal(errno)) fail(path_);
}

bool exists(const std::filesystem::path& path) {
    struct stat information {};
    return ::stat(path.c_str(), &information) == 0;
}

bool isSameFile(const std::filesystem::path& a, const std::filesystem::path& b) {
    struct stat first {};
    struct stat second {};
    return ::stat(a.c_str(), &first) == 0 && ::stat(b.c_str(), &second) == 0 &&
           first.st_dev == second.st_dev && first.st_ino == second.st_ino;
}

FileStatus status(const std::filesystem::path& path) {
    struct stat information {};
    if (::stat(path.c_str(), &information) != 0) fail(path);
    return {S_ISDIR(information.st_mode), static_cast<std::uint64_t>(information.st_size),
            nanoseconds(information.st_mtim)};
}

void setModified(const std::filesystem::path& path, std::int64_t modified) {
    timespec time{};
    time.tv_sec = static_cast<time_t>(modified / 1'000'000'000);
    time.tv_nsec = static_cast<long>(modified % 1'000'000'000);
    const timespec times[2]{time, time};
    if (::utimensat(AT_FDCWD, path.c_str(), times, 0) != 0 && !isRefusal(errno)) fail(path);
}

void remove(const std::filesystem::path& path) {
    if (::unlink(path.c_str()) != 0) fail(path);
}

void rename(const std::filesystem::path& from, const std::filesystem::path& to) {
    takeOverRights(to, from);
    if (::rename(from.c_str(), to.c_str()) != 0) fail(to);
    flushFolder(parentOf(to));
}

void createFolder(const std::filesystem::path& path) {
    if (::mkdir(path.c_str(), 0777) == 0) return;
    const int error = errno;
    if (!isFolder(path)) fail(path, error);
}

std::vector<std::filesystem::path> fileNames(const std::filesystem::path& folder,
                                             const std::function<void()>& reached) {
    return namesIn(folder, Kind::File, reached);
}

std::vector<std::filesystem::path> folderNames(const std::filesystem::path& folder) {
    return namesIn(folder, Kind::Folder, [] {});
}

std::optional<std::uint64_t> freeSpace(const std::filesystem::path& folder) {
    struct statvfs information {};
    if (::statvfs(folder.c_str(), &information) != 0) fail(folder);
    if (information.f_blocks == 0) return std::nullopt;  // its size is not known
    return static_cast<std::uint64_t>(information.f_bavail) * information.f_frsize;
}

std::uint64_t processNumber() {
    return static_cast<std::uint64_t>(::getpid());
}

}  // namespace bramblet::os
