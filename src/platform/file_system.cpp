#include "platform/file_system.h"

#include "platform/text.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <optional>
#include <random>

namespace bramblet {
namespace {

/// A name beside `path` that nobody else uses, on this machine or another, and no backup pattern
/// matches.
std::filesystem::path temporaryNameFor(const std::filesystem::path& path) {
    static std::mt19937_64 numbers(std::random_device{}() ^ os::processNumber() << 32);
    std::array<char, 17> text{};
    std::snprintf(text.data(), text.size(), "%016llx", static_cast<unsigned long long>(numbers()));
    return std::filesystem::path(path).replace_filename(std::string("~bramblet-") + text.data() +
                                                        ".tmp");
}

/// A file that is written beside another one to take its place. It is removed again unless it
/// comes to that.
class Replacement {
  public:
    /// Faults are those of `target`, which is what the user knows of.
    Replacement(const FileSystem& files, std::filesystem::path target)
        : files_(files), target_(std::move(target)), path_(temporaryNameFor(target_)) {
        run([&] { file_.emplace(path_, os::Open::WriteNew); });
    }
    ~Replacement() {
        file_.reset();
        try {
            if (os::exists(path_)) os::remove(path_);
        } catch (const FileError&) {
            // The share is gone; a leftover temporary file does no harm.
        }
    }
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;

    void write(std::uint64_t offset, std::string_view bytes) {
        run([&] { file_->write(offset, bytes); });
    }
    void setModified(std::int64_t modified) {
        run([&] { file_->flush(); });
        file_.reset();
        run([&] { os::setModified(path_, modified); });
    }
    void putInPlace() {
        if (file_) run([&] { file_->flush(); });
        file_.reset();
        run([&] { os::rename(path_, target_); });
    }

  private:
    template <class Statement>
    void run(Statement statement) {
        files_.run([&] {
            try {
                statement();
            } catch (const FileError& error) {
                throw FileError(error.number(), target_);
            }
        });
    }

    const FileSystem& files_;
    std::filesystem::path target_;
    std::filesystem::path path_;
    std::optional<os::File> file_;
};

}  // namespace

RandomFile FileSystem::openRandom(const std::filesystem::path& path) const {
    return RandomFile(*this, path, os::Open::ReadWrite);
}

std::string FileSystem::read(const std::filesystem::path& path) const {
    return RandomFile(*this, path, os::Open::Read).readAll();
}

void FileSystem::touch(const std::filesystem::path& path) const {
    run([&] { return os::File(path, os::Open::AppendOrCreate); });
}

void FileSystem::append(const std::filesystem::path& path, std::string_view content) const {
    os::File file = run([&] { return os::File(path, os::Open::AppendOrCreate); });
    run([&] { file.append(content); });
}

void FileSystem::replace(const std::filesystem::path& path, std::string_view content) const {
    Replacement replacement(*this, path);
    replacement.write(0, content);
    replacement.putInPlace();
}

void FileSystem::copy(const std::filesystem::path& from, const std::filesystem::path& to) const {
    constexpr std::size_t kBlock = 1 << 20;
    const os::FileStatus source = status(from);
    const RandomFile input(*this, from, os::Open::Read);
    Replacement replacement(*this, to);
    for (std::uint64_t offset = 0;;) {
        const std::string block = input.read(offset, kBlock);
        if (block.empty()) break;
        replacement.write(offset, block);
        offset += block.size();
    }
    replacement.setModified(source.modified);
    replacement.putInPlace();
}

bool FileSystem::exists(const std::filesystem::path& path) const {
    return os::exists(path);
}

bool FileSystem::isSameFile(const std::filesystem::path& a, const std::filesystem::path& b) const {
    return os::isSameFile(a, b);
}

os::FileStatus FileSystem::status(const std::filesystem::path& path) const {
    return run([&] { return os::status(path); });
}

void FileSystem::remove(const std::filesystem::path& path) const {
    run([&] { os::remove(path); });
}

void FileSystem::rename(const std::filesystem::path& from, const std::filesystem::path& to) const {
    run([&] { os::rename(from, to); });
}

void FileSystem::createFolders(const std::filesystem::path& path) const {
    // Only what is missing is asked for: a drive or the name of a server cannot be created.
    std::vector<std::filesystem::path> missing;
    auto folder = path.has_filename() ? path : path.parent_path();
    for (; folder.has_relative_path() && !os::exists(folder); folder = folder.parent_path())
        missing.push_back(folder);
    for (auto next = missing.rbegin(); next != missing.rend(); ++next)
        run([&] { os::createFolder(*next); });
}

std::vector<std::filesystem::path> FileSystem::fileNames(
    const std::filesystem::path& folder) const {
    return run([&] { return os::fileNames(folder); });
}

std::vector<std::filesystem::path> FileSystem::folderNames(
    const std::filesystem::path& folder) const {
    return run([&] { return os::folderNames(folder); });
}

std::uint64_t FileSystem::freeSpace(const std::filesystem::path& folder) const {
    return run([&] { return os::freeSpace(folder); });
}

RandomFile::RandomFile(const FileSystem& files, const std::filesystem::path& path, os::Open how)
    : files_(files), file_(files.run([&] { return os::File(path, how); })) {}

std::uint64_t RandomFile::length() const {
    return files_.run([&] { return file_.length(); });
}

std::string RandomFile::read(std::uint64_t offset, std::size_t count) const {
    return files_.run([&] { return file_.read(offset, count); });
}

std::string RandomFile::readAll() const {
    return read(0, static_cast<std::size_t>(length()));
}

void RandomFile::write(std::uint64_t offset, std::string_view bytes) {
    files_.run([&] { file_.write(offset, bytes); });
}

void RandomFile::flush() {
    files_.run([&] { file_.flush(); });
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

}  // namespace

bool isPlainFileName(std::string_view name) {
    constexpr std::array<std::string_view, 4> kDevices{"CON", "PRN", "AUX", "NUL"};
    if (name.empty() || name.find("..") != std::string_view::npos) return false;
    if (std::any_of(name.begin(), name.end(), isRefusedInNames)) return false;
    const std::string stem = upper(trimmed(name.substr(0, name.find('.'))));
    const bool numberedPort = stem.size() == 4 &&
                              (stem.starts_with("COM") || stem.starts_with("LPT")) &&
                              stem[3] >= '1' && stem[3] <= '9';
    return !numberedPort && std::find(kDevices.begin(), kDevices.end(), stem) == kDevices.end();
}

std::string madePlainFileName(std::string name) {
    std::replace_if(name.begin(), name.end(), isRefusedInNames, '_');
    for (auto dots = name.find(".."); dots != std::string::npos; dots = name.find("..")) {
        name.replace(dots, 2, "_");
    }
    while (name.ends_with('.') || name.ends_with(' '))
        name.pop_back();
    return isPlainFileName(name) ? name : name + "_";
}

}  // namespace bramblet
