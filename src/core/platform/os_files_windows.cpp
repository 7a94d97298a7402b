#include "core/platform/fault.h"
#include "core/platform/os_files.h"

#include <algorithm>
#include <array>
#include <memory>
#include <windows.h>

namespace bramblet::os {
namespace {

// A FILETIME counts units of 100 nanoseconds from 1601; this many of them lie before 1970.
constexpr std::int64_t kUnixEpoch = 116'444'736'000'000'000;

// ERROR_DISK_QUOTA_EXCEEDED, which the compiler's headers do not have yet.
constexpr DWORD kDiskQuotaExceeded = 1295;

template <auto Close>
struct Closer {
    using pointer = HANDLE;
    void operator()(HANDLE handle) const {
        if (handle != INVALID_HANDLE_VALUE) Close(handle);
    }
};
using Handle = std::unique_ptr<void, Closer<::CloseHandle>>;
using Search = std::unique_ptr<void, Closer<::FindClose>>;

/// The full path in the form that is not limited to 260 characters.
std::wstring nativePath(const std::filesystem::path& path) {
    const std::wstring wide = std::filesystem::path(path).make_preferred().native();
    std::wstring full(::GetFullPathNameW(wide.c_str(), 0, nullptr, nullptr), L'\0');
    full.resize(
        ::GetFullPathNameW(wide.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    if (full.empty()) return wide;
    if (full.starts_with(L"\\\\?\\") || full.starts_with(L"\\\\.\\")) return full;
    if (full.starts_with(L"\\\\")) return L"\\\\?\\UNC" + full.substr(1);
    return L"\\\\?\\" + full;
}

bool isFolder(const std::wstring& native) {
    const DWORD attributes = ::GetFileAttributesW(native.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

FaultNumber faultOf(DWORD error, const std::wstring& native) {
    constexpr std::size_t kLongestName = 255;
    const std::size_t nameAt = native.find_last_of(L'\\') + 1;
    switch (error) {
        case ERROR_ACCESS_DENIED:
        case ERROR_WRITE_PROTECT:
        case ERROR_NETWORK_ACCESS_DENIED:
            return FaultNumber::PathFileAccess;
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION:
        case ERROR_USER_MAPPED_FILE:
        case ERROR_DELETE_PENDING:
        case ERROR_BUSY:
        case ERROR_NETWORK_BUSY:
            return FaultNumber::PermissionDenied;
        case ERROR_FILE_NOT_FOUND:
            if (native.size() - nameAt > kLongestName) return FaultNumber::BadFileName;
            return isFolder(native.substr(0, nameAt)) ? FaultNumber::FileNotFound
                                                      : FaultNumber::PathNotFound;
        case ERROR_PATH_NOT_FOUND:
        case ERROR_BAD_PATHNAME:
        case ERROR_BAD_NETPATH:
        case ERROR_BAD_NET_NAME:
        case ERROR_BAD_DEV_TYPE:  // of a name of a server that is none
        case ERROR_INVALID_DRIVE:
        case ERROR_DIRECTORY:
            return FaultNumber::PathNotFound;
        case ERROR_DISK_FULL:
        case ERROR_HANDLE_DISK_FULL:
        case kDiskQuotaExceeded:
            return FaultNumber::DiskFull;
        case ERROR_INVALID_NAME:
        case ERROR_INVALID_PARAMETER:
        case ERROR_FILENAME_EXCED_RANGE:
        case ERROR_BUFFER_OVERFLOW:
            return FaultNumber::BadFileName;
        case ERROR_TOO_MANY_OPEN_FILES:
        case ERROR_SHARING_BUFFER_EXCEEDED:
            return FaultNumber::TooManyFiles;
        default:
            return FaultNumber::DeviceError;
    }
}

[[noreturn]] void fail(const std::filesystem::path& path, DWORD error = ::GetLastError()) {
    throw FileError(faultOf(error, nativePath(path)), path);
}

/// The errors of a file system that does not support what is asked of it, or does not allow it.
bool isRefusal(DWORD error) {
    return error == ERROR_ACCESS_DENIED || error == ERROR_INVALID_PARAMETER ||
           error == ERROR_INVALID_FUNCTION || error == ERROR_NOT_SUPPORTED ||
           error == ERROR_CALL_NOT_IMPLEMENTED;
}

/// Nobody is locked out: several workstations share one data folder.
constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

Handle opened(const std::filesystem::path& path, Open how) {
    const std::wstring native = nativePath(path);
    const DWORD reading = how == Open::Read || how == Open::ReadWrite ? GENERIC_READ : 0;
    const DWORD writing = how == Open::Read ? 0 : GENERIC_WRITE;
    const DWORD creation = how == Open::Read       ? OPEN_EXISTING
                           : how == Open::WriteNew ? CREATE_NEW
                                                   : OPEN_ALWAYS;
    Handle file(::CreateFileW(native.c_str(), reading | writing, kShareAll, nullptr, creation,
                              FILE_ATTRIBUTE_NORMAL, nullptr));
    if (file.get() == INVALID_HANDLE_VALUE) {
        const DWORD error = ::GetLastError();
        fail(path, isFolder(native) ? ERROR_ACCESS_DENIED : error);
    }
    const bool onDisk = ::GetFileType(file.get()) == FILE_TYPE_DISK;  // no pipe, no device
    if (!onDisk) fail(path, ERROR_INVALID_NAME);
    return file;
}

Handle openAttributes(const std::filesystem::path& path, DWORD access) {
    return Handle(::CreateFileW(nativePath(path).c_str(), access, kShareAll, nullptr, OPEN_EXISTING,
                                FILE_FLAG_BACKUP_SEMANTICS, nullptr));
}

HANDLE handleOf(std::intptr_t handle) {
    return reinterpret_cast<HANDLE>(handle);
}

OVERLAPPED placeOf(std::uint64_t offset) {
    OVERLAPPED place{};
    place.Offset = static_cast<DWORD>(offset);
    place.OffsetHigh = static_cast<DWORD>(offset >> 32);
    return place;
}

/// The most that one read or write call takes.
DWORD portion(std::size_t count) {
    constexpr std::size_t kMost = 1 << 30;
    return static_cast<DWORD>(std::min(count, kMost));
}

std::uint64_t joined(DWORD high, DWORD low) {
    return static_cast<std::uint64_t>(high) << 32 | low;
}

std::int64_t nanoseconds(const FILETIME& time) {
    const auto count = static_cast<std::int64_t>(joined(time.dwHighDateTime, time.dwLowDateTime));
    return (count - kUnixEpoch) * 100;
}

/// Where the file really is, whichever drive letter or share led to it.
std::wstring finalPath(HANDLE handle) {
    std::wstring path(::GetFinalPathNameByHandleW(handle, nullptr, 0, 0), L'\0');
    path.resize(
        ::GetFinalPathNameByHandleW(handle, path.data(), static_cast<DWORD>(path.size()), 0));
    return path;
}

}  // namespace

File::File(const std::filesystem::path& path, Open how)
    : path_(path), handle_(reinterpret_cast<std::intptr_t>(opened(path, how).release())) {}

File::~File() {
    ::CloseHandle(handleOf(handle_));
}

std::uint64_t File::length() const {
    LARGE_INTEGER length{};
    if (!::GetFileSizeEx(handleOf(handle_), &length)) fail(path_);
    return static_cast<std::uint64_t>(length.QuadPart);
}

std::size_t File::read(std::uint64_t offset, std::span<char> bytes) const {
    std::size_t done = 0;
    while (done < bytes.size()) {
        OVERLAPPED place = placeOf(offset + done);
        DWORD got = 0;
        if (!::ReadFile(handleOf(handle_), bytes.data() + done, portion(bytes.size() - done), &got,
                        &place)) {
            if (::GetLastError() == ERROR_HANDLE_EOF) break;
            fail(path_);
        }
        if (got == 0) break;
        done += got;
    }
    return done;
}

void File::write(std::uint64_t offset, std::string_view bytes) {
    while (!bytes.empty()) {
        OVERLAPPED place = placeOf(offset);
        DWORD put = 0;
        if (!::WriteFile(handleOf(handle_), bytes.data(), portion(bytes.size()), &put, &place)) {
            fail(path_);
        }
        offset += put;
        bytes.remove_prefix(put);
    }
}

void File::cut(std::uint64_t length) {
    FILE_END_OF_FILE_INFO end{};
    end.EndOfFile.QuadPart = static_cast<LONGLONG>(length);
    if (!::SetFileInformationByHandle(handleOf(handle_), FileEndOfFileInfo, &end, sizeof(end)))
        fail(path_);
}

void File::flush() {
    if (!::FlushFileBuffers(handleOf(handle_)) && !isRefusal(::GetLastError())) fail(path_);
}

bool exists(const std::filesystem::path& path) {
    const std::wstring native = nativePath(path);
    if (::GetFileAttributesW(native.c_str()) != INVALID_FILE_ATTRIBUTES) return true;
    const DWORD error = ::GetLastError();
    if (!isMissing(faultOf(error, native))) fail(path, error);
    return false;
}

bool isSameFile(const std::filesystem::path& a, const std::filesystem::path& b) {
    if (!os::exists(a) || !os::exists(b)) return false;
    const Handle first = openAttributes(a, FILE_READ_ATTRIBUTES);
    const Handle second = openAttributes(b, FILE_READ_ATTRIBUTES);
    BY_HANDLE_FILE_INFORMATION one{};
    BY_HANDLE_FILE_INFORMATION other{};
    if (!::GetFileInformationByHandle(first.get(), &one) ||
        !::GetFileInformationByHandle(second.get(), &other))
        return false;
    // Some servers do not number files: each has the index 0.
    const bool numbered = one.nFileIndexHigh != 0 || one.nFileIndexLow != 0;
    if (!numbered) return finalPath(first.get()) == finalPath(second.get());
    return one.dwVolumeSerialNumber == other.dwVolumeSerialNumber &&
           one.nFileIndexHigh == other.nFileIndexHigh && one.nFileIndexLow == other.nFileIndexLow;
}

FileStatus status(const std::filesystem::path& path) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (!::GetFileAttributesExW(nativePath(path).c_str(), GetFileExInfoStandard, &data)) fail(path);
    return {(data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0,
            joined(data.nFileSizeHigh, data.nFileSizeLow), nanoseconds(data.ftLastWriteTime)};
}

void setModified(const std::filesystem::path& path, std::int64_t modified) {
    const auto count = static_cast<std::uint64_t>(modified / 100 + kUnixEpoch);
    const FILETIME time{static_cast<DWORD>(count), static_cast<DWORD>(count >> 32)};
    const Handle file = openAttributes(path, FILE_WRITE_ATTRIBUTES);
    if (file.get() != INVALID_HANDLE_VALUE && ::SetFileTime(file.get(), nullptr, nullptr, &time))
        return;
    if (const DWORD error = ::GetLastError(); !isRefusal(error)) fail(path, error);
}

void remove(const std::filesystem::path& path) {
    if (!::DeleteFileW(nativePath(path).c_str())) fail(path);
}

void rename(const std::filesystem::path& from, const std::filesystem::path& to) {
    // A single request to the disk or the server, which puts the file in place whole; it returns
    // when the new name is on the disk. A file has the rights of its folder, whoever creates it.
    constexpr DWORD kHow = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
    if (!::MoveFileExW(nativePath(from).c_str(), nativePath(to).c_str(), kHow)) fail(to);
}

Renaming renameNew(const std::filesystem::path& from, const std::filesystem::path& to) {
    if (::MoveFileExW(nativePath(from).c_str(), nativePath(to).c_str(), MOVEFILE_WRITE_THROUGH))
        return Renaming::Done;
    const DWORD error = ::GetLastError();
    if (error != ERROR_ALREADY_EXISTS && error != ERROR_FILE_EXISTS) fail(to, error);
    return Renaming::Taken;
}

Exchange exchange(const std::filesystem::path&, const std::filesystem::path&) {
    return Exchange::Unsupported;
}

void flushFolder(const std::filesystem::path&) {}  // a rename has done that

void flushDisk(const std::filesystem::path&) {}

void createFolder(const std::filesystem::path& path) {
    const std::wstring native = nativePath(path);
    if (::CreateDirectoryW(native.c_str(), nullptr)) return;
    const DWORD error = ::GetLastError();
    if (!isFolder(native)) fail(path, error);
}

bool createNewFolder(const std::filesystem::path& path) {
    if (::CreateDirectoryW(nativePath(path).c_str(), nullptr)) return true;
    const DWORD error = ::GetLastError();
    if (error != ERROR_ALREADY_EXISTS && error != ERROR_FILE_EXISTS) fail(path, error);
    return false;
}

void removeFolder(const std::filesystem::path& path) {
    if (!::RemoveDirectoryW(nativePath(path).c_str())) fail(path);
}

void createPrivateFolder(const std::filesystem::path& path) {
    createFolder(path);
}

std::vector<std::filesystem::path> namesIn(const std::filesystem::path& folder, Kind kind,
                                           const std::function<void()>& reached) {
    std::wstring pattern = nativePath(folder);
    pattern += pattern.ends_with(L'\\') ? L"*" : L"\\*";
    WIN32_FIND_DATAW entry{};
    const Search search(::FindFirstFileExW(pattern.c_str(), FindExInfoBasic, &entry,
                                           FindExSearchNameMatch, nullptr,
                                           FIND_FIRST_EX_LARGE_FETCH));
    if (search.get() == INVALID_HANDLE_VALUE) {
        const DWORD error = ::GetLastError();
        if (error == ERROR_FILE_NOT_FOUND && isFolder(nativePath(folder))) return {};
        fail(folder, error);
    }
    std::vector<std::filesystem::path> names;
    do {
        const std::wstring_view name = entry.cFileName;
        if (name == L"." || name == L"..") continue;
        const bool isFolder = (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        if (kind == (isFolder ? Kind::Folder : Kind::File)) names.emplace_back(name);
        reached();
    } while (::FindNextFileW(search.get(), &entry));
    // A share that is lost halfway must not pass for a shorter folder.
    if (::GetLastError() != ERROR_NO_MORE_FILES) fail(folder);
    return names;
}

std::optional<std::uint64_t> freeSpace(const std::filesystem::path& folder) {
    ULARGE_INTEGER available{};
    ULARGE_INTEGER size{};
    std::wstring native = nativePath(folder);
    if (!native.ends_with(L'\\')) native.push_back(L'\\');  // a share requires it
    if (!::GetDiskFreeSpaceExW(native.c_str(), &available, &size, nullptr)) fail(folder);
    if (size.QuadPart == 0) return std::nullopt;  // its size is not known
    return available.QuadPart;
}

std::uint64_t processNumber() {
    return ::GetCurrentProcessId();
}

std::string processMark(std::uint64_t process) {
    constexpr DWORD kAccess = PROCESS_QUERY_LIMITED_INFORMATION | SYNCHRONIZE;
    const HANDLE opened = ::OpenProcess(kAccess, FALSE, static_cast<DWORD>(process));
    if (opened == nullptr) return {};
    const Handle handle(opened);
    FILETIME started{}, ended{}, inKernel{}, inProgram{};
    // Somebody may still be looking at a program that has ended.
    const bool runs = ::WaitForSingleObject(handle.get(), 0) == WAIT_TIMEOUT &&
                      ::GetProcessTimes(handle.get(), &started, &ended, &inKernel, &inProgram);
    return runs ? std::to_string(joined(started.dwHighDateTime, started.dwLowDateTime)) : "";
}

std::string machineName() {
    std::array<char, MAX_COMPUTERNAME_LENGTH + 1> name{};
    auto length = static_cast<DWORD>(name.size());
    return ::GetComputerNameA(name.data(), &length) ? name.data() : "";
}

}  // namespace bramblet::os
