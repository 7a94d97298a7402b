#include "platform/file_system.h"

#include "platform/text.h"

#include <algorithm>
#include <array>

namespace bramblet {
namespace {

constexpr std::size_t kCopyBlock = 1 << 20;

std::string folderOf(const std::string& path) {
    const auto separator = path.find_last_of(kFolderSeparator);
    return separator == std::string::npos ? std::string() : path.substr(0, separator + 1);
}

/// A name beside `path` that no other process uses and no backup pattern matches.
std::string temporaryNameFor(const std::string& path) {
    static unsigned count = 0;
    return folderOf(path) + "~bramblet-" + std::to_string(os::processNumber()) + "-" +
           std::to_string(++count) + ".tmp";
}

/// Removes a temporary file unless it has been renamed away.
class TemporaryFile {
  public:
    explicit TemporaryFile(std::string path) : path_(std::move(path)) {}
    ~TemporaryFile() {
        try {
            if (!kept_ && os::exists(path_)) os::remove(path_);
        } catch (const FileError&) {
            // The share is gone; a leftover temporary file does no harm.
        }
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const std::string& path() const { return path_; }
    void keep() { kept_ = true; }

  private:
    std::string path_;
    bool kept_ = false;
};

}  // namespace

RandomFile FileSystem::openRandom(const std::string& path) const {
    return RandomFile(*this, path, os::Open::ReadWrite);
}

std::string FileSystem::read(const std::string& path) const {
    return RandomFile(*this, path, os::Open::Read).readAll();
}

void FileSystem::touch(const std::string& path) const {
    run([&] { return os::File(path, os::Open::AppendOrCreate); });
}

void FileSystem::append(const std::string& path, std::string_view content) const {
    os::File file = run([&] { return os::File(path, os::Open::AppendOrCreate); });
    run([&] { file.append(content); });
}

void FileSystem::replace(const std::string& path, std::string_view content) const {
    TemporaryFile temporary(temporaryNameFor(path));
    {
        os::File file = run([&] { return os::File(temporary.path(), os::Open::WriteNew); });
        run([&] { file.write(0, content); });
        run([&] { file.flush(); });
    }
    run([&] { os::rename(temporary.path(), path); });
    temporary.keep();
}

void FileSystem::copy(const std::string& from, const std::string& to) const {
    TemporaryFile temporary(temporaryNameFor(to));
    const os::FileStatus source = status(from);
    {
        const RandomFile input(*this, from, os::Open::Read);
        os::File output = run([&] { return os::File(temporary.path(), os::Open::WriteNew); });
        for (std::uint64_t offset = 0;;) {
            const std::string block = input.read(offset, kCopyBlock);
            if (block.empty()) break;
            run([&] { output.write(offset, block); });
            offset += block.size();
        }
        run([&] { output.flush(); });
    }
    run([&] { os::setModified(temporary.path(), source.modified); });
    run([&] { os::rename(temporary.path(), to); });
    temporary.keep();
}

bool FileSystem::exists(const std::string& path) const {
    return os::exists(path);
}

os::FileStatus FileSystem::status(const std::string& path) const {
    return run([&] { return os::status(path); });
}

void FileSystem::remove(const std::string& path) const {
    run([&] { os::remove(path); });
}

void FileSystem::rename(const std::string& from, const std::string& to) const {
    run([&] { os::rename(from, to); });
}

void FileSystem::createFolders(const std::string& path) const {
    for (auto separator = path.find(kFolderSeparator, 1); separator != std::string::npos;
         separator = path.find(kFolderSeparator, separator + 1)) {
        const std::string folder = path.substr(0, separator);
        if (!os::exists(folder)) run([&] { os::createFolder(folder); });
    }
}

std::vector<std::string> FileSystem::fileNames(const std::string& folder) const {
    return run([&] { return os::fileNames(folder); });
}

std::vector<std::string> FileSystem::folderNames(const std::string& folder) const {
    return run([&] { return os::folderNames(folder); });
}

std::uint64_t FileSystem::freeSpace(const std::string& folder) const {
    return run([&] { return os::freeSpace(folder); });
}

RandomFile::RandomFile(const FileSystem& files, const std::string& path, os::Open how)
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

std::string withSeparator(std::string folder) {
    if (!folder.ends_with(kFolderSeparator)) folder.push_back(kFolderSeparator);
    return folder;
}

bool isPlainFileName(std::string_view name) {
    constexpr std::string_view kRefused = "/\\:*?\"<>|";
    constexpr std::array<std::string_view, 4> kDevices{"CON", "PRN", "AUX", "NUL"};
    if (name.empty() || name.find("..") != std::string_view::npos) return false;
    const bool refused = std::any_of(name.begin(), name.end(), [&](char c) {
        return static_cast<unsigned char>(c) < 0x20 || kRefused.find(c) != std::string_view::npos;
    });
    if (refused) return false;
    const std::string stem = upper(trimmed(name.substr(0, name.find('.'))));
    const bool numberedPort = stem.size() == 4 &&
                              (stem.starts_with("COM") || stem.starts_with("LPT")) &&
                              stem[3] >= '1' && stem[3] <= '9';
    return !numberedPort && std::find(kDevices.begin(), kDevices.end(), stem) == kDevices.end();
}

}  // namespace bramblet
