#include "core/addresses/address_file.h"

#include "core/platform/record_file.h"
#include "core/platform/text.h"

#include <algorithm>

namespace bramblet {
namespace {

using File = RecordFile<AddressRecord, kAddressLayout>;

/// Whether a file is empty or definitely not there; a share that does not answer is another matter.
bool isGone(const FileSystem& files, const std::filesystem::path& path) {
    try {
        return files.status(path).length == 0;
    } catch (const FileError& error) {
        if (error.number() != FaultNumber::FileNotFound) throw;
        return true;
    }
}

std::string asItIs(std::string_view name) {
    return std::string(name);
}

/// Recognizes the records of a name; `folded` makes names equal that count as the same.
auto isNamed(const std::vector<AddressRecord>& records, const std::string& name,
             std::string (*folded)(std::string_view)) {
    const std::string wanted = folded(trimmed(name));
    const auto stored = [=](const AddressRecord& record) {
        return folded(trimmedField(record.Name)) == wanted;
    };
    // A blank name never means a name made only of control characters.
    const bool isStored = wanted.empty() || std::any_of(records.begin(), records.end(), stored);
    return [=](const AddressRecord& record) {
        return isStored ? stored(record) : folded(listedName(record)) == wanted;
    };
}

}  // namespace

std::string listedName(const AddressRecord& record) {
    return trimmed(withoutControls(record.Name));
}

AddressFile::AddressFile(FileSystem files, std::filesystem::path path)
    : files_(std::move(files)), path_(std::move(path)) {}

std::vector<AddressRecord> AddressFile::readAll() {
    std::vector<AddressRecord> records = File(files_, path_).readAll();
    if (!records.empty()) buffer_ = records.back();
    return records;
}

std::optional<AddressRecord> AddressFile::findNamed(const std::vector<AddressRecord>& records,
                                                    const std::string& name) {
    const auto found = std::find_if(records.begin(), records.end(), isNamed(records, name, asItIs));
    if (found != records.end()) return buffer_ = *found;
    if (!records.empty()) buffer_ = records.back();
    return std::nullopt;
}

double AddressFile::GetNextAddyTag() {
    double highest = 0;
    for (const auto& record : readAll())
        highest = std::max(highest, record.Tag);
    return highest + 1;
}

std::optional<double> AddressFile::append(const std::string& kind, const std::string& name,
                                          const std::string& address) {
    const double tag = GetNextAddyTag();
    if (trimmed(name).empty()) return std::nullopt;
    buffer_.Tag = tag;
    fill(kind, name, address);
    File file(files_, path_);
    file.append(buffer_);
    file.flush();
    return tag;
}

std::optional<AddressRecord> AddressFile::findToRewrite(const std::string& name) {
    const std::vector<AddressRecord> records = readAll();
    const auto match = std::find_if(records.begin(), records.end(), isNamed(records, name, upper));
    return match == records.end() ? std::nullopt : std::optional(*match);
}

std::optional<double> AddressFile::rewrite(const std::string& kind, const std::string& name,
                                           const std::string& address) {
    const std::vector<AddressRecord> records = readAll();
    const auto match = std::find_if(records.begin(), records.end(), isNamed(records, name, upper));
    if (match == records.end()) return append(kind, name, address);
    buffer_ = *match;
    fill(kind, name, address);
    File file(files_, path_);
    file.write(static_cast<int>(match - records.begin()) + 1, buffer_);
    file.flush();
    return buffer_.Tag;
}

void AddressFile::import(const std::string& kind, const std::vector<NameAndAddress>& entries,
                         const std::function<void(int)>& reached) {
    File file(files_, path_);
    for (std::size_t i = 0; i < entries.size(); ++i) {
        reached(static_cast<int>(i));
        fill(kind, entries[i].name, entries[i].address);
        file.append(buffer_);
    }
    reached(static_cast<int>(entries.size()));
    file.flush();
}

void AddressFile::removeNamed(const std::string& name) {
    const FileSystem once = files_.withoutRetry();
    std::string kept;
    const std::vector<AddressRecord> records = File(once, path_).readAll();
    const auto isRemoved = isNamed(records, name, asItIs);
    for (const auto& record : records) {
        buffer_ = record;
        if (!isRemoved(record)) kept += encodeRecord(kAddressLayout, record);
    }
    once.replace(path_, kept);
}

bool AddressFile::clearLeftover(std::int64_t now) const {
    constexpr std::int64_t kTenMinutes = 600'000'000'000;
    const FileSystem once = files_.withoutRetry();
    const auto leftover = std::filesystem::path(path_).replace_extension(".tmp");
    if (!once.exists(leftover)) return false;
    const os::FileStatus status = once.status(leftover);
    if (now - status.modified < kTenMinutes) return false;
    if (status.length > 0 && isGone(once, path_)) {
        once.rename(leftover, path_);
        return true;
    }
    once.remove(leftover);
    return false;
}

void AddressFile::fill(const std::string& kind, const std::string& name,
                       const std::string& address) {
    buffer_.Kind = kind;
    buffer_.Active = "1";
    buffer_.Name = trimmed(name);
    buffer_.Address = trimmed(address);
}

}  // namespace bramblet
