// Fixed-length records: a plain struct and one table of its fields, in file order, which drives
// both reading and writing.
//
//     struct Part { std::string Name; double Tag; };
//     inline constexpr std::array kPartLayout{
//         textField<&Part::Name>(0, 30),
//         numberField<&Part::Tag>(30),
//     };
//     static_assert(recordSize(kPartLayout) == 38);
#pragma once

#include "core/platform/text.h"

#include <algorithm>
#include <array>
#include <bit>
#include <string>
#include <string_view>
#include <type_traits>

namespace bramblet {

/// One field: its place in the record in bytes, and how the struct's member is copied from and to
/// them.
template <class Record>
struct RecordField {
    std::size_t offset;
    std::size_t width;
    void (*read)(Record& record, std::string_view bytes);
    std::string (*bytesOf)(const Record& record, std::size_t width);
};

namespace detail {

template <auto Member>
struct MemberOf;
template <class Record, class Value, Value Record::*Member>
struct MemberOf<Member> {
    using RecordType = Record;
    using ValueType = Value;
};

/// Takes a number's bytes from the machine's order to little-endian, or back.
template <std::size_t Size>
std::array<char, Size> littleEndian(std::array<char, Size> bytes) {
    if constexpr (std::endian::native == std::endian::big) std::ranges::reverse(bytes);
    return bytes;
}

}  // namespace detail

/// A text field of single bytes, left-aligned. Written padded with blanks or cut to its width; read
/// whole, so that zero bytes and anything else in it are carried along.
template <auto Member>
constexpr auto textField(std::size_t offset, std::size_t width) {
    using Record = typename detail::MemberOf<Member>::RecordType;
    static_assert(std::is_same_v<typename detail::MemberOf<Member>::ValueType, std::string>);
    return RecordField<Record>{
        offset, width,
        [](Record& record, std::string_view bytes) { record.*Member = std::string(bytes); },
        [](const Record& record, std::size_t bytes) { return fitted(record.*Member, bytes); }};
}

/// A number stored as it is in memory, little-endian: 16-bit integer, double or Currency.
template <auto Member>
constexpr auto numberField(std::size_t offset) {
    using Record = typename detail::MemberOf<Member>::RecordType;
    using Value = typename detail::MemberOf<Member>::ValueType;
    static_assert(std::is_trivially_copyable_v<Value>);
    return RecordField<Record>{
        offset, sizeof(Value),
        [](Record& record, std::string_view bytes) {
            std::array<char, sizeof(Value)> copy{};
            bytes.copy(copy.data(), copy.size());
            record.*Member = std::bit_cast<Value>(detail::littleEndian(copy));
        },
        [](const Record& record, std::size_t) {
            const auto copy = std::bit_cast<std::array<char, sizeof(Value)>>(record.*Member);
            return std::string(detail::littleEndian(copy).data(), sizeof(Value));
        }};
}

/// The record's length in bytes; 0 when the fields do not follow one another without gaps.
template <class Record, std::size_t Count>
constexpr std::size_t recordSize(const std::array<RecordField<Record>, Count>& layout) {
    std::size_t end = 0;
    for (const auto& field : layout) {
        if (field.offset != end) return 0;
        end += field.width;
    }
    return end;
}

/// Reads a record; bytes missing at the end count as zero bytes.
template <class Record, std::size_t Count>
Record decodeRecord(const std::array<RecordField<Record>, Count>& layout, std::string_view bytes) {
    std::string whole(bytes.substr(0, recordSize(layout)));
    whole.resize(recordSize(layout), '\0');
    Record record{};
    for (const auto& field : layout)
        field.read(record, std::string_view(whole).substr(field.offset, field.width));
    return record;
}

/// The record's bytes.
template <class Record, std::size_t Count>
std::string encodeRecord(const std::array<RecordField<Record>, Count>& layout,
                         const Record& record) {
    std::string bytes;
    bytes.reserve(recordSize(layout));
    for (const auto& field : layout)
        bytes += field.bytesOf(record, field.width);
    return bytes;
}

}  // namespace bramblet
