#include "core/platform/replacement.h"

#include <random>
#include <string>

namespace bramblet {
namespace {

const std::string kTemporaryStart = "~bramblet-";
const std::string kTemporaryEnd = ".tmp";

}  // namespace

std::filesystem::path temporaryNameFor(const std::filesystem::path& path) {
    static std::mt19937_64 numbers(std::random_device{}() ^ os::processNumber() << 32);
    const std::string name = kTemporaryStart + std::to_string(numbers()) + kTemporaryEnd;
    return std::filesystem::path(path).replace_filename(name);
}

std::filesystem::path claimBeside(const std::filesystem::path& file) {
    std::filesystem::path name(kTemporaryStart);
    name += file.filename();
    name += ".claim";
    return std::filesystem::path(file).replace_filename(name);
}

bool isTemporaryName(const std::filesystem::path& name) {
    const std::u8string text = name.u8string();
    const std::string_view bytes(reinterpret_cast<const char*>(text.data()), text.size());
    return bytes.starts_with(kTemporaryStart) && bytes.ends_with(kTemporaryEnd);
}

}  // namespace bramblet
