#include "core/addresses/address_file.h"

#include "core/platform/record_file.h"
#include "core/platform/text.h"

#include <algorithm>
#include <map>
#include <set>
#include <unordered_map>

namespace bramblet {
namespace {

using File = RecordFile<kAddressLayout>;

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
auto isNamed(const AddressRecords& records, const std::string& name,
             std::string (*folded)(std::string_view)) {
    const std::string wanted = folded(trimmed(name));
    const auto stored = [=](const AddressRow& record) {
        return folded(record.get<&AddressRecord::Name>()) == wanted;
    };
    // A blank name never means a name made only of control characters.
    const bool isStored = wanted.empty() || std::any_of(records.begin(), records.end(), stored);
    return [=](const AddressRow& record) {
        return isStored ? stored(record) : folded(listedName(record)) == wanted;
    };
}

/// The place of the first record of a name; the end when there is none.
std::size_t placeOf(const AddressRecords& records, const std::string& name,
                    std::string (*folded)(std::string_view)) {
    return records.placeOf(isNamed(records, name, folded));
}

constexpr std::size_t kNameWidth = AddressRow::fieldOf<&AddressRecord::Name>().width;

/// The name, or if it is taken the first that is not: "Ames (2)".
std::string freeName(const AddressRecords& records, const std::string& name) {
    std::set<std::string> taken;
    for (const AddressRow& record : records)
        taken.insert(listedName(record));
    std::string free = name;
    for (int i = 2; taken.contains(free); ++i) {
        const std::string number = " (" + std::to_string(i) + ")";
        free = trimmed(name.substr(0, kNameWidth - number.size())) + number;
    }
    return free;
}

/// Gives new numbers to those whose own has been given to another.
void renumber(const AddressRecords& records, RemovedAddresses& removed) {
    std::set<double> taken;
    for (const AddressRow& record : records)
        taken.insert(record.get<&AddressRecord::Tag>());
    for (RemovedAddress& each : removed) {
        if (!each.sharedNumber && taken.contains(each.record.Tag))
            each.record.Tag = *taken.rbegin() + 1;
        taken.insert(each.record.Tag);
    }
}

/// All of them, each of those that were removed at its old place.
std::string inserted(const AddressRecords& records, const RemovedAddresses& removed) {
    std::string bytes;
    std::size_t next = 0;
    for (const RemovedAddress& each : removed) {
        const std::size_t before = each.place - static_cast<std::size_t>(&each - removed.data());
        for (; next < std::min(before, records.size()); ++next)
            bytes += records[next].bytes();
        bytes += encodeRecord(kAddressLayout, each.record);
    }
    for (; next < records.size(); ++next)
        bytes += records[next].bytes();
    return bytes;
}

}  // namespace

std::string listedName(const AddressRow& record) {
    return trimmed(withoutControls(record.get<&AddressRecord::Name>()));
}

AddressFile::AddressFile(FileSystem files, std::filesystem::path path)
    : files_(std::move(files)), path_(std::move(path)) {}

AddressRecords AddressFile::readAll() {
    AddressRecords records = File(files_, path_).readAll();
    if (!records.empty()) buffer_ = records.back().record();
    return records;
}

AddressRecords AddressFile::readAtOnce() const {
    const FileSystem once = files_.withoutRetry();
    return once.exists(path_) ? File(once, path_).readAll() : AddressRecords();
}

std::optional<AddressRecord> AddressFile::findNamed(const AddressRecords& records,
                                                    const std::string& name) {
    const std::size_t place = placeOf(records, name, asItIs);
    if (place < records.size()) return buffer_ = records[place].record();
    if (!records.empty()) buffer_ = records.back().record();
    return std::nullopt;
}

double AddressFile::GetNextAddyTag() {
    double highest = 0;
    for (const AddressRow record : readAll())
        highest = std::max(highest, record.get<&AddressRecord::Tag>());
    return highest + 1;
}

std::optional<double> AddressFile::append(const std::string& kind, const std::string& name,
                                          const std::string& address) {
    const double tag = GetNextAddyTag();
    if (trimmed(name).empty()) return std::nullopt;
    buffer_.Tag = tag;
    fill(kind, name, address);
    File file(files_, path_);
    file.append(encodeRecord(kAddressLayout, buffer_));
    file.flush();
    return tag;
}

std::optional<AddressRecord> AddressFile::findToRewrite(const std::string& name) {
    const AddressRecords records = readAll();
    const std::size_t place = placeOf(records, name, upper);
    if (place == records.size()) return std::nullopt;
    return records[place].record();
}

std::optional<double> AddressFile::rewrite(const std::string& kind, const std::string& name,
                                           const std::string& address) {
    File file(files_, path_);
    const AddressRecords records = file.readAll();
    const std::size_t place = placeOf(records, name, upper);
    if (place == records.size()) return append(kind, name, address);
    buffer_ = records[place].record();
    fill(kind, name, address);
    file.write(static_cast<int>(place) + 1, encodeRecord(kAddressLayout, buffer_));
    file.flush();
    return buffer_.Tag;
}

AddressFile::Renaming AddressFile::rename(const std::string& kind, const std::string& name,
                                          const std::string& newName) {
    File file(files_, path_);
    const AddressRecords records = file.readAll();
    const auto hasName = isNamed(records, name, asItIs);
    const std::size_t place = records.placeOf([&](const AddressRow& record) {
        return record.field<&AddressRecord::Kind>() == kind && hasName(record);
    });
    if (place == records.size()) {
        // A flush that failed may have told of a fault although the record was written.
        return placeOf(records, newName, asItIs) < place ? Renaming::Done : Renaming::Gone;
    }
    const auto hasNewName = isNamed(records, newName, upper);
    for (std::size_t other = 0; other < records.size(); ++other) {
        if (other != place && hasNewName(records[other])) return Renaming::Taken;
    }
    buffer_ = records[place].record();
    buffer_.Name = trimmed(newName);
    file.write(static_cast<int>(place) + 1, encodeRecord(kAddressLayout, buffer_));
    file.flush();
    return Renaming::Done;
}

void AddressFile::import(const std::string& kind, const std::vector<NameAndAddress>& entries,
                         const std::function<void(int)>& reached) {
    File file(files_, path_);
    for (std::size_t i = 0; i < entries.size(); ++i) {
        reached(static_cast<int>(i));
        fill(kind, entries[i].name, entries[i].address);
        file.append(encodeRecord(kAddressLayout, buffer_));
    }
    reached(static_cast<int>(entries.size()));
    file.flush();
}

AddressFile::Merged AddressFile::merge(const std::string& kind,
                                       const std::vector<NameAndAddress>& entries, bool replaces) {
    for (;;) {
        File file(files_, path_);
        const AddressRecords records = file.readAll();
        std::unordered_map<std::string, std::size_t> places;  // by the names that count
        double tag = 0;
        for (std::size_t place = 0; place < records.size(); ++place) {
            const AddressRow& record = records[place];
            tag = std::max(tag, record.get<&AddressRecord::Tag>());
            if (!replaces || record.field<&AddressRecord::Kind>() == kind)
                places.emplace(upper(listedName(record)), place);
        }
        Merged merged;
        std::string added;
        std::map<std::size_t, std::string> changed;
        for (const NameAndAddress& entry : entries) {
            const std::size_t end = records.size() + added.size() / File::kSize;
            const auto [known, isNew] = places.try_emplace(upper(trimmed(entry.name)), end);
            const std::size_t place = known->second;
            if (isNew) {
                buffer_.Tag = ++tag;
                fill(kind, entry.name, entry.address);
                added += encodeRecord(kAddressLayout, buffer_);
                ++merged.added;
            } else if (!replaces) {
                ++merged.skipped;
            } else if (place >= records.size()) {
                AddressRow::set<&AddressRecord::Address>(
                    added.data() + (place - records.size()) * File::kSize, trimmed(entry.address));
            } else {
                std::string record(records[place].bytes());
                AddressRow::set<&AddressRecord::Address>(record.data(), trimmed(entry.address));
                if (changed.insert_or_assign(place, std::move(record)).second) ++merged.replaced;
            }
        }
        if (file.hasGrown()) continue;  // another desk's address stands where one of these would
        for (const auto& [place, record] : changed)
            file.write(static_cast<int>(place) + 1, record);
        if (!added.empty()) file.append(added);
        file.flush();
        return merged;
    }
}

RemovedAddresses AddressFile::removeNamed(const std::string& name) {
    const FileSystem once = files_.withoutRetry();
    RemovedAddresses removed;
    once.touch(path_);
    once.edit(path_, [&](const std::string&) {
        std::string kept;
        std::set<double> numbers;
        removed.clear();
        const AddressRecords records = File(once, path_).readAll();
        const auto isRemoved = isNamed(records, name, asItIs);
        for (std::size_t place = 0; place < records.size(); ++place) {
            const AddressRow& record = records[place];
            if (isRemoved(record)) {
                removed.push_back({place, record.record(), false});
            } else {
                kept += record.bytes();
                numbers.insert(record.get<&AddressRecord::Tag>());
            }
        }
        for (RemovedAddress& each : removed)
            each.sharedNumber = numbers.contains(each.record.Tag);
        if (!records.empty()) buffer_ = records.back().record();
        return kept;
    });
    return removed;
}

std::string AddressFile::putBack(const RemovedAddresses& removed) {
    std::string name;
    files_.touch(path_);
    files_.edit(path_, [&](const std::string& content) {
        const AddressRecords records = File(files_, path_).readAll();
        RemovedAddresses missing;
        for (const RemovedAddress& each : removed) {
            const std::string bytes = encodeRecord(kAddressLayout, each.record);
            const auto same = [&](const AddressRow& record) { return record.bytes() == bytes; };
            if (std::none_of(records.begin(), records.end(), same)) missing.push_back(each);
        }
        if (!removed.empty()) name = trimmed(withoutControls(trimmedField(removed[0].record.Name)));
        if (missing.empty()) return content;
        const std::string free = freeName(records, name);
        if (free != name) {
            name = free;
            for (RemovedAddress& each : missing)
                each.record.Name = fitted(name, kNameWidth);
        }
        renumber(records, missing);
        return inserted(records, missing);
    });
    return name;
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
