// A folder for one test, gone with it.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

namespace bramblet::test {

class TemporaryFolder {
  public:
    explicit TemporaryFolder(
        const std::filesystem::path& parent = std::filesystem::temp_directory_path()) {
        std::random_device random;
        path_ = parent / ("bramblet-" + std::to_string(random()));
        std::filesystem::create_directories(path_);
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    /// With the separator at its end.
    std::filesystem::path path() const { return path_ / ""; }
    std::filesystem::path operator/(const std::filesystem::path& name) const {
        return path_ / name;
    }

  private:
    std::filesystem::path path_;
};

inline std::string contentOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline void writeFile(const std::filesystem::path& path, const std::string& content) {
    std::ofstream(path, std::ios::binary) << content;
}

/// Puts a folder in a file's place: every operation on the file fails with error 75.
inline void obstruct(const std::filesystem::path& path) {
    std::filesystem::remove(path);
    std::filesystem::create_directory(path);
}

}  // namespace bramblet::test
