// A file of fixed-length records, open for the length of one operation. Records are numbered from
// 1.
#pragma once

#include "core/platform/file_system.h"
#include "core/platform/fixed_record.h"

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

namespace bramblet {

/// How a file length that is not a multiple of the record size becomes a count of records.
enum class RecordCount { Whole, Rounded };

/// The most records that a file may hold where counts are 16-bit: 32,767.
inline constexpr int kMostRecords = std::numeric_limits<std::int16_t>::max();

/// `Layout` is a record's table of fields (fixed_record.h).
template <class Record, auto& Layout>
class RecordFile {
  public:
    static constexpr std::size_t kSize = recordSize(Layout);
    static_assert(kSize > 0, "the fields of a record follow one another without gaps");

    /// Opens the file, creating it empty when it is missing. `most` is the largest count that the
    /// operation can handle; a larger one throws Fault(Overflow), and so does a file of more than
    /// kLongestFile bytes.
    RecordFile(const FileSystem& files, const std::filesystem::path& path,
               RecordCount rule = RecordCount::Whole,
               int most = std::numeric_limits<int>::max() - 1)
        : path_(path), file_(files.openRandom(path)), most_(most) {
        const std::uint64_t length = file_.length();
        if (length > kLongestFile) throw FileTooLong(path, length);
        std::uint64_t count = length / kSize;
        if (rule == RecordCount::Rounded && 2 * (length % kSize) > kSize) ++count;
        if (count > static_cast<std::uint64_t>(most_)) throw Fault(FaultNumber::Overflow);
        count_ = static_cast<int>(count);
    }

    int count() const { return count_; }

    /// Record `number`; throws BadRecordNumber below 1 and PastEndOfFile after the last.
    Record read(int number) const {
        if (number < 1) throw FileError(FaultNumber::BadRecordNumber, path_);
        const std::string bytes = file_.read(offsetOf(number), kSize);
        if (bytes.empty()) throw FileError(FaultNumber::PastEndOfFile, path_);
        return decodeRecord(Layout, bytes);
    }

    /// All records, first to last, in one read of the file.
    std::vector<Record> readAll() const {
        const std::string bytes = file_.read(0, static_cast<std::size_t>(count_) * kSize);
        std::vector<Record> records;
        records.reserve(static_cast<std::size_t>(count_));
        for (std::size_t offset = 0; offset < bytes.size(); offset += kSize) {
            records.push_back(decodeRecord(Layout, std::string_view(bytes).substr(offset, kSize)));
        }
        return records;
    }

    /// Writes record `number`, which may be the one after the last, in one call. Throws
    /// BadRecordNumber for any other: a damaged number must not stretch the file over the whole
    /// disk.
    void write(int number, const Record& record) {
        const bool apart = number < 1 || number > count_ + 1;
        if (apart) throw FileError(FaultNumber::BadRecordNumber, path_);
        if (number > most_) throw Fault(FaultNumber::Overflow);
        file_.write(offsetOf(number), encodeRecord(Layout, record));
        if (number > count_) count_ = number;
    }

    void append(const Record& record) { write(count_ + 1, record); }

    /// To be called when an operation has written everything.
    void flush() { file_.flush(); }

  private:
    static std::uint64_t offsetOf(int number) {
        return static_cast<std::uint64_t>(number - 1) * kSize;
    }

    std::filesystem::path path_;
    RandomFile file_;
    int most_;
    int count_ = 0;
};

}  // namespace bramblet
