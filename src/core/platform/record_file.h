// A file of fixed-length records, open for the length of one operation. Records are numbered from
// 1.
#pragma once

#include "core/platform/file_system.h"
#include "core/platform/fixed_record.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <span>
#include <string>

namespace bramblet {

/// How a file length that is not a multiple of the record size becomes a count of records.
enum class RecordCount { Whole, Rounded };

constexpr std::uint64_t recordCount(std::uint64_t length, std::size_t size, RecordCount rule) {
    const bool oneMore = rule == RecordCount::Rounded && 2 * (length % size) > size;
    return length / size + (oneMore ? 1 : 0);
}

/// The most records that a file may hold where counts are 16-bit: 32,767.
inline constexpr int kMostRecords = std::numeric_limits<std::int16_t>::max();

/// `Layout` is a record's table of fields (fixed_record.h).
template <auto& Layout>
class RecordFile {
  public:
    static constexpr std::size_t kSize = RecordView<Layout>::kSize;

    /// Opens the file, creating it empty when it is missing. `most` is the largest count that the
    /// operation can handle; a larger one throws Fault(Overflow), and so does a file of more than
    /// kLongestFile bytes.
    RecordFile(const FileSystem& files, const std::filesystem::path& path,
               RecordCount rule = RecordCount::Whole,
               int most = std::numeric_limits<int>::max() - 1)
        : path_(path), file_(files.openRandom(path)), most_(most) {
        const std::uint64_t length = file_.length();
        if (length > kLongestFile) throw FileTooLong(path, length);
        const std::uint64_t count = recordCount(length, kSize, rule);
        if (count > static_cast<std::uint64_t>(most_)) throw Fault(FaultNumber::Overflow);
        count_ = static_cast<int>(count);
    }

    int count() const { return count_; }

    /// The bytes of record `number`, fewer at the end of the file; throws BadRecordNumber below 1
    /// and PastEndOfFile after the last.
    std::string read(int number) const {
        checkNumber(number);
        std::string bytes = file_.read(offsetOf(number), kSize);
        if (bytes.empty()) throw FileError(FaultNumber::PastEndOfFile, path_);
        return bytes;
    }

    /// The records that are to be kept, first to last. If the file has become shorter since it was
    /// opened, of those that are still there; bytes missing at the end count as zero bytes.
    ///
    /// The file is read in blocks that stay in the processor's cache while they are looked at. Each
    /// is read behind the records kept so far, and those kept of it move up to them.
    template <class Keep>
    Records<Layout> readThose(Keep keep) const {
        constexpr std::size_t kBlock = 128 * 1024 / kSize * kSize;
        const std::size_t length = static_cast<std::size_t>(count_) * kSize;
        Records<Layout> kept(static_cast<std::size_t>(count_));
        for (std::size_t offset = 0; offset < length; offset += kBlock) {
            const std::span block(kept.room(), std::min(kBlock, length - offset));
            const std::size_t got = file_.read(offset, block);
            std::fill(block.begin() + static_cast<std::ptrdiff_t>(got), block.end(), '\0');
            for (std::size_t place = 0; place < got; place += kSize) {
                const char* const record = block.data() + place;
                if (keep(RecordView<Layout>(record))) kept.add(record);
            }
            if (got < block.size()) break;
        }
        return kept;
    }

    Records<Layout> readAll() const {
        return readThose([](const auto&) { return true; });
    }

    /// Shows each record to `look`.
    template <class Look>
    void forEach(Look look) const {
        readThose([&](const RecordView<Layout>& record) {
            look(record);
            return false;
        });
    }

    /// Writes the bytes of record `number` and those that follow it, the first of which may be the
    /// one after the last, in one call. Throws BadRecordNumber for one farther on: a damaged number
    /// must not stretch the file over the whole disk.
    void write(int number, std::string_view records) {
        checkNumber(number);
        if (number > count_ + 1) throw FileError(FaultNumber::BadRecordNumber, path_);
        const int last = number - 1 + static_cast<int>(records.size() / kSize);
        if (last > most_) throw Fault(FaultNumber::Overflow);
        file_.write(offsetOf(number), records);
        if (last > count_) count_ = last;
    }

    void append(std::string_view record) { write(count_ + 1, record); }

    /// Whether somebody has added records since the file was opened.
    bool hasGrown() const {
        return file_.length() >= static_cast<std::uint64_t>(count_ + 1) * kSize;
    }

    /// To be called when an operation has written everything.
    void flush() { file_.flush(); }

  private:
    void checkNumber(int number) const {
        if (number < 1) throw FileError(FaultNumber::BadRecordNumber, path_);
    }
    static std::uint64_t offsetOf(int number) {
        return static_cast<std::uint64_t>(number - 1) * kSize;
    }

    std::filesystem::path path_;
    RandomFile file_;
    int most_;
    int count_ = 0;
};

}  // namespace bramblet
