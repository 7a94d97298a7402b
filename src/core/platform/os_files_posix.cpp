#include "core/platform/fault.h"
#include "core/platform/os_files.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <fstream>
#include <memory>
#include <sstream>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace bramblet::os {
namespace {

constexpr std::int64_t kSecond = 1'000'000'000;  // in nanoseconds

/// What the system knows about a file or folder; nothing, with `errno` set, when it cannot say.
std::optional<struct stat> factsOf(const std::filesystem::path& path) {
    struct stat facts {};
    return ::stat(path.c_str(), &facts) == 0 ? std::optional(facts) : std::nullopt;
}

bool isFolder(const std::filesystem::path& path) {
    const auto facts = factsOf(path);
    return facts && S_ISDIR(facts->st_mode);
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

/// The facts of a file; nothing only when there is no such file.
std::optional<struct stat> factsIfThere(const std::filesystem::path& path) {
    const auto facts = factsOf(path);
    if (!facts && !isMissing(faultOf(errno, path))) fail(path);
    return facts;
}

int descriptor(std::intptr_t handle) {
    return static_cast<int>(handle);
}

/// Repeats a system call as long as a signal interrupts it.
template <class Call>
auto uninterrupted(Call call) {
    for (;;) {
        const auto result = call();
        if (result != -1 || errno != EINTR) return result;
    }
}

int opened(const std::filesystem::path& path, Open how) {
    const int access = how == Open::Read ? O_RDONLY : how == Open::ReadWrite ? O_RDWR : O_WRONLY;
    const int creation = how == Open::Read ? 0 : how == Open::WriteNew ? O_CREAT | O_EXCL : O_CREAT;
    // Without O_NONBLOCK, opening a named pipe would wait for somebody at its other end.
    const int flags = access | creation | O_CLOEXEC | O_NONBLOCK;
    const int file = uninterrupted([&] { return ::open(path.c_str(), flags, 0666); });
    if (file == -1 && errno == ENXIO) fail(path, EINVAL);  // a pipe with nobody at its other end
    if (file == -1) fail(path);
    struct stat facts {};
    if (::fstat(file, &facts) != 0 || S_ISREG(facts.st_mode)) return file;
    ::close(file);
    fail(path, S_ISDIR(facts.st_mode) ? EISDIR : EINVAL);
}

/// The errors of a file system that does not support what is asked of it, or does not allow it.
bool isRefusal(int error) {
    return error == EPERM || error == EACCES || error == EINVAL || error == EOPNOTSUPP ||
           error == ENOSYS;
}

Kind kindOf(const dirent& entry, const std::filesystem::path& folder) {
    if (entry.d_type == DT_REG) return Kind::File;
    if (entry.d_type == DT_DIR) return Kind::Folder;
    if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN) return Kind::Other;
    const auto facts = factsOf(folder / entry.d_name);
    if (!facts) return errno == ENOENT ? Kind::Other : Kind::File;
    return S_ISDIR(facts->st_mode)   ? Kind::Folder
           : S_ISREG(facts->st_mode) ? Kind::File
                                     : Kind::Other;
}

int openFolder(const std::filesystem::path& folder) {
    return uninterrupted([&] { return ::open(folder.c_str(), O_RDONLY | O_CLOEXEC); });
}

/// Gives a file the group and mode of another one, as far as that exists and we are allowed to.
void takeOverRights(const std::filesystem::path& from, const std::filesystem::path& to) {
    constexpr mode_t kRights = 07777;
    constexpr auto kOwnerAsItIs = static_cast<uid_t>(-1);
    const auto old = factsOf(from);
    if (!old) return;
    if (::chown(to.c_str(), kOwnerAsItIs, old->st_gid) != 0 && !isRefusal(errno)) fail(to);
    if (::chmod(to.c_str(), old->st_mode & kRights) != 0 && !isRefusal(errno)) fail(to);
}

}  // namespace

File::File(const std::filesystem::path& path, Open how) : path_(path), handle_(opened(path, how)) {}

File::~File() {
    ::close(descriptor(handle_));
}

std::uint64_t File::length() const {
    struct stat information {};
    if (::fstat(descriptor(handle_), &information) != 0) fail(path_);
    return static_cast<std::uint64_t>(information.st_size);
}

std::size_t File::read(std::uint64_t offset, std::span<char> bytes) const {
    std::size_t done = 0;
    while (done < bytes.size()) {
        const auto got = uninterrupted([&] {
            return ::pread(descriptor(handle_), bytes.data() + done, bytes.size() - done,
                           static_cast<off_t>(offset + done));
        });
        if (got == -1) fail(path_);
        if (got == 0) break;
        done += static_cast<std::size_t>(got);
    }
    return done;
}

void File::write(std::uint64_t offset, std::string_view bytes) {
    while (!bytes.empty()) {
        const auto put = uninterrupted([&] {
            return ::pwrite(descriptor(handle_), bytes.data(), bytes.size(),
                            static_cast<off_t>(offset));
        });
        if (put <= 0) fail(path_, put == 0 ? ENOSPC : errno);
        offset += static_cast<std::uint64_t>(put);
        bytes.remove_prefix(static_cast<std::size_t>(put));
    }
}

void File::cut(std::uint64_t length) {
    const auto end = static_cast<off_t>(length);
    if (uninterrupted([&] { return ::ftruncate(descriptor(handle_), end); }) != 0) fail(path_);
}

void File::flush() {
    const int result = uninterrupted([&] { return ::fsync(descriptor(handle_)); });
    if (result != 0 && !isRefusal(errno)) fail(path_);
}

bool exists(const std::filesystem::path& path) {
    return factsIfThere(path).has_value();
}

bool isSameFile(const std::filesystem::path& a, const std::filesystem::path& b) {
    const auto first = factsIfThere(a);
    const auto second = factsIfThere(b);
    return first && second && first->st_dev == second->st_dev && first->st_ino == second->st_ino;
}

FileStatus status(const std::filesystem::path& path) {
    const auto facts = factsOf(path);
    if (!facts) fail(path);
    return {S_ISDIR(facts->st_mode), static_cast<std::uint64_t>(facts->st_size),
            facts->st_mtim.tv_sec * kSecond + facts->st_mtim.tv_nsec};
}

void setModified(const std::filesystem::path& path, std::int64_t modified) {
    const timespec time{static_cast<time_t>(modified / kSecond),
                        static_cast<long>(modified % kSecond)};
    const timespec times[2]{time, time};
    if (::utimensat(AT_FDCWD, path.c_str(), times, 0) != 0 && !isRefusal(errno)) fail(path);
}

void remove(const std::filesystem::path& path) {
    if (::unlink(path.c_str()) != 0) fail(path);
}

void rename(const std::filesystem::path& from, const std::filesystem::path& to) {
    takeOverRights(to, from);
    if (::rename(from.c_str(), to.c_str()) != 0) fail(to);
}

#ifdef __linux__
namespace {
constexpr unsigned kNoReplace = 1;  // RENAME_NOREPLACE
constexpr unsigned kExchange = 2;   // RENAME_EXCHANGE

bool renamed(const std::filesystem::path& from, const std::filesystem::path& to, unsigned how) {
    return ::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), how) == 0;
}
}  // namespace
#endif

Renaming renameNew(const std::filesystem::path& from, const std::filesystem::path& to) {
#ifdef __linux__
    if (renamed(from, to, kNoReplace)) return Renaming::Done;
    if (errno == EEXIST) return Renaming::Taken;
#endif
    if (::link(from.c_str(), to.c_str()) == 0) {
        os::remove(from);
        return Renaming::Done;
    }
    return errno == EEXIST ? Renaming::Taken : Renaming::Unsupported;
}

Exchange exchange([[maybe_unused]] const std::filesystem::path& from,
                  [[maybe_unused]] const std::filesystem::path& to) {
#ifdef __linux__
    const auto there = factsOf(to);
    if (there && S_ISDIR(there->st_mode)) fail(to, EISDIR);
    takeOverRights(to, from);
    if (renamed(from, to, kExchange)) return Exchange::Done;
    if (errno == ENOENT) return Exchange::Gone;
    if (errno != EINVAL && errno != ENOSYS && !isRefusal(errno)) fail(to);
#endif
    return Exchange::Unsupported;
}

void flushFolder(const std::filesystem::path& folder) {
    const int handle = openFolder(folder);
    if (handle == -1) return;
    uninterrupted([&] { return ::fsync(handle); });
    ::close(handle);
}

void flushDisk([[maybe_unused]] const std::filesystem::path& folder) {
#ifdef __linux__
    const int handle = openFolder(folder);
    if (handle == -1) return;
    uninterrupted([&] { return ::syncfs(handle); });
    ::close(handle);
#endif
}

namespace {
void createFolder(const std::filesystem::path& path, ::mode_t rights) {
    if (::mkdir(path.c_str(), rights) == 0) return;
    const int error = errno;
    if (!isFolder(path)) fail(path, error);
}
}  // namespace

void createFolder(const std::filesystem::path& path) {
    createFolder(path, 0777);
}

void createPrivateFolder(const std::filesystem::path& path) {
    createFolder(path, 0700);
}

bool createNewFolder(const std::filesystem::path& path) {
    if (::mkdir(path.c_str(), 0777) == 0) return true;
    if (errno != EEXIST) fail(path);
    return false;
}

void removeFolder(const std::filesystem::path& path) {
    if (::rmdir(path.c_str()) != 0) fail(path);
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

std::optional<std::uint64_t> freeSpace(const std::filesystem::path& folder) {
    struct statvfs information {};
    if (::statvfs(folder.c_str(), &information) != 0) fail(folder);
    if (information.f_blocks == 0) return std::nullopt;  // its size is not known
    return static_cast<std::uint64_t>(information.f_bavail) * information.f_frsize;
}

std::uint64_t processNumber() {
    return static_cast<std::uint64_t>(::getpid());
}

std::string processMark(std::uint64_t process) {
    // The program's name, in parentheses, may hold anything; after it come the state and, as the
    // twentieth word, when the program was started, counted from the start of the machine.
    constexpr int kStarted = 20;
    std::string machineStart, line;
    std::ifstream("/proc/sys/kernel/random/boot_id") >> machineStart;
    std::getline(std::ifstream("/proc/" + std::to_string(process) + "/stat"), line);
    std::istringstream words(line.substr(std::min(line.rfind(')'), line.size() - 1) + 1));
    std::string state, started;
    words >> state;
    for (int i = 1; i < kStarted; ++i)
        words >> started;
    const bool runs = words && state != "Z" && state != "X";
    return runs ? machineStart + "-" + started : "";
}

std::string machineName() {
    std::array<char, 256> name{};
    return ::gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "";
}

}  // namespace bramblet::os
