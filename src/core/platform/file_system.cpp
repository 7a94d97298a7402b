#include "core/platform/file_system.h"

#include "core/platform/replacement.h"
#include "core/platform/text.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace bramblet {

void RandomFile::write(std::uint64_t offset, std::string_view bytes) {
    const std::uint64_t end = length();
    wasEmpty_ = wasEmpty_ || end == 0;
    const std::string before = offset < end ? read(offset, bytes.size()) : std::string();
    try {
        files_.run([&] { file_.write(offset, bytes); });
    } catch (const FileError&) {
        try {
            file_.write(offset, before);
            if (file_.length() > end) file_.cut(end);
        } catch (const FileError&) {
            // The first fault is the one to tell of.
        }
        throw;
    }
}

RandomFile FileSystem::openRandom(const std::filesystem::path& path) const {
    return RandomFile(*this, path, os::Open::ReadWrite);
}

std::string FileSystem::read(const std::filesystem::path& path) const {
    const RandomFile file(*this, path, os::Open::Read);
    const std::uint64_t length = file.length();
    if (length > kLongestFile) throw FileTooLong(path, length);
    return file.read(0, static_cast<std::size_t>(length));
}

void FileSystem::touch(const std::filesystem::path& path) const {
    run([&] { return os::File(path, os::Open::Write); });
}

void FileSystem::append(const std::filesystem::path& path, std::string_view content) const {
    RandomFile file = openRandom(path);
    file.write(file.length(), content);
    file.flush();
}

void FileSystem::replace(const std::filesystem::path& path, std::string_view content) const {
    Replacement replacement(*this, path);
    replacement.write(0, content);
    replacement.putInPlace();
}

void FileSystem::edit(const std::filesystem::path& path,
                      const std::function<std::string(const std::string& content)>& edited) const {
    std::string content = read(path);
    for (;;) {
        Replacement replacement(*this, path);
        replacement.write(0, edited(content));
        replacement.flush();
        std::string now = read(path);
        if (now == content) return replacement.putInPlace();
        content = std::move(now);
    }
}

void FileSystem::put(const std::filesystem::path& path, std::string_view content,
                     const MayReplace& mayReplace, const Keep& keep) const {
    Replacement replacement(*this, path);
    replacement.write(0, content);
    replacement.flush();
    replacement.takePlace(content, mayReplace, keep);
    os::flushFolder(path.parent_path());
}

void FileSystem::copy(const std::filesystem::path& from, const std::filesystem::path& to) const {
    Replacement replacement(*this, to);
    replacement.takeContentOf(from);
    replacement.putInPlace();
}

bool FileSystem::isTaken(const std::filesystem::path& path) const {
    if (exists(path)) return true;
    const auto names = fileNames(path.parent_path());
    return std::find(names.begin(), names.end(), path.filename()) != names.end();
}

bool FileSystem::renameNew(const std::filesystem::path& from,
                           const std::filesystem::path& to) const {
    const auto renaming = run([&] { return os::renameNew(from, to); });
    if (renaming == os::Renaming::Taken) return false;
    if (renaming == os::Renaming::Unsupported) {
        if (isTaken(to)) return false;
        run([&] { os::rename(from, to); });
    }
    os::flushFolder(to.parent_path());
    return true;
}

std::optional<os::FileStatus> FileSystem::glance(const std::filesystem::path& path) const {
    try {
        return os::status(path);
    } catch (const FileError&) {
        return std::nullopt;
    }
}

void FileSystem::createFolders(const std::filesystem::path& path) const {
    // Only missing folders are created: a drive or a server name cannot be.
    std::vector<std::filesystem::path> missing;
    auto folder = path.has_filename() ? path : path.parent_path();
    for (; folder.has_relative_path() && !exists(folder); folder = folder.parent_path())
        missing.push_back(folder);
    for (auto next = missing.rbegin(); next != missing.rend(); ++next) {
        run([&] { os::createFolder(*next); });
        os::flushFolder(next->parent_path());
    }
}

CopyBatch::CopyBatch(const FileSystem& files, std::filesystem::path folder)
    : files_(files), folder_(std::move(folder)) {}

CopyBatch::~CopyBatch() = default;

void CopyBatch::copy(const std::filesystem::path& from, const std::filesystem::path& name) {
    constexpr std::size_t kMostFiles = 256;
    if (bytes_ >= kMost || copies_.size() == kMostFiles) putInPlace();
    auto copy = std::make_unique<Replacement>(files_, folder_ / name);
    bytes_ += copy->takeContentOf(from);
    copies_.push_back(std::move(copy));
}

void CopyBatch::putInPlace() {
    const auto copies = std::exchange(copies_, {});
    bytes_ = 0;
    if (copies.empty()) return;
    os::flushDisk(folder_);
    for (const auto& copy : copies)
        copy->flush();
    for (const auto& copy : copies) {
        copy->rename();
        ++placed_;
    }
    os::flushFolder(folder_);
}

std::filesystem::path withSeparator(std::filesystem::path folder) {
    constexpr auto kSeparator = std::filesystem::path::preferred_separator;
    if (!folder.native().ends_with(kSeparator)) folder += kSeparator;
    return folder;
}

namespace {

bool isRefusedInNames(char c) {
    constexpr std::string_view kRefused = "/\\:*?\"<>|";
    return static_cast<unsigned char>(c) < 0x20 || kRefused.find(c) != std::string_view::npos;
}

std::string_view stemOf(std::string_view name) {
    return name.substr(0, name.find('.'));
}

/// The longest single name that file systems accept, in bytes of UTF-8.
constexpr std::size_t kLongestName = 255;

/// The most bytes that a name can take: a letter outside ASCII has up to three.
std::size_t lengthOnDisk(std::string_view name) {
    const auto outsideAscii = std::count_if(
        name.begin(), name.end(), [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
    return name.size() + 2 * static_cast<std::size_t>(outsideAscii);
}

/// The name as it is, or without those letters before its ending that make it too long for a file
/// name with a few characters added.
std::string cutToLength(const std::string& name) {
    constexpr std::size_t kRoomToAdd = 8;
    constexpr std::size_t kLongestEnding = 5;
    const auto dot = std::min(name.rfind('.'), name.size());
    const std::string ending = name.size() - dot <= kLongestEnding ? name.substr(dot) : "";
    const std::size_t most = kLongestName - kRoomToAdd - lengthOnDisk(ending);
    std::size_t length = 0;
    std::size_t taken = 0;
    const std::size_t stem = name.size() - ending.size();
    while (taken < stem && (length += lengthOnDisk(name.substr(taken, 1))) <= most)
        ++taken;
    return name.substr(0, taken) + ending;
}

/// Whether a file of this name, whatever its ending, is a device on Windows. Superscript digits
/// count as digits there.
bool isDevice(std::string_view stem) {
    constexpr std::array<std::u16string_view, 6> kDevices{u"CON", u"PRN",    u"AUX",
                                                          u"NUL", u"CONIN$", u"CONOUT$"};
    constexpr std::u16string_view kPortDigits = u"123456789\u00B9\u00B2\u00B3";
    const std::u16string name = toUnicode(upper(trimmed(stem)));
    if (name.size() == 4 && (name.starts_with(u"COM") || name.starts_with(u"LPT"))) {
        return kPortDigits.find(name[3]) != std::u16string_view::npos;
    }
    return std::find(kDevices.begin(), kDevices.end(), name) != kDevices.end();
}

}  // namespace

bool isPlainFileName(std::string_view name, std::string_view ending) {
    if (name.empty() || name.find("..") != std::string_view::npos) return false;
    if (std::any_of(name.begin(), name.end(), isRefusedInNames)) return false;
    const char last = ending.empty() ? name.back() : ending.back();
    if (last == '.' || last == ' ') return false;  // dropped by some systems
    return !isDevice(stemOf(name)) && lengthOnDisk(name) + ending.size() <= kLongestName;
}

std::string madePlainFileName(std::string name) {
    name = cutToLength(name);
    std::replace_if(name.begin(), name.end(), isRefusedInNames, '_');
    for (auto dots = name.find(".."); dots != std::string::npos; dots = name.find("..")) {
        name.replace(dots, 2, "_");
    }
    if (isDevice(stemOf(name))) name.insert(stemOf(name).size(), "_");
    while (name.ends_with('.') || name.ends_with(' '))
        name.pop_back();
    return name.empty() ? "_" : name;
}

}  // namespace bramblet
