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

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>

namespace bramblet {

/// One field: its place in the record in bytes, and how it is copied to and from the struct's
/// member.
template <class Record>
struct RecordField {
    std::size_t offset;
    std::size_t width;
    void (*read)(Record& record, std::string_view bytes);
    void (*write)(const Record& record, std::span<char> bytes);
};

namespace detail {

template <auto Member>
struct MemberOf;
template <class Record, class Value, Value Record::*Member>
struct MemberOf<Member> {
    using RecordType = Record;
    using ValueType = Value;
};

/// Reverses the bytes of a number if the machine is not little-endian.
template <std::size_t Size>
void toLittleEndian(char* bytes) {
    if constexpr (std::endian::native == std::endian::big) {
        for (std::size_t i = 0; i < Size / 2; ++i)
            std::swap(bytes[i], bytes[Size - 1 - i]);
    }
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
        [](const Record& record, std::span<char> bytes) {
            const std::string& text = record.*Member;
            const std::size_t used = std::min(text.size(), bytes.size());
            std::memcpy(bytes.data(), text.data(), used);
            std::fill(bytes.begin() + static_cast<std::ptrdiff_t>(used), bytes.end(), ' ');
        }};
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
            std::memcpy(copy.data(), bytes.data(), copy.size());
            detail::toLittleEndian<sizeof(Value)>(copy.data());
            record.*Member = std::bit_cast<Value>(copy);
        },
        [](const Record& record, std::span<char> bytes) {
            auto copy = std::bit_cast<std::array<char, sizeof(Value)>>(record.*Member);
            detail::toLittleEndian<sizeof(Value)>(copy.data());
            std::memcpy(bytes.data(), copy.data(), copy.size());
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
    std::string whole;
    if (bytes.size() < recordSize(layout)) {
        whole.assign(bytes);
        whole.resize(recordSize(layout), '\0');
        bytes = whole;
    }
    Record record{};
    for (const auto& field : layout)
        field.read(record, bytes.substr(field.offset, field.width));
    return record;
}

/// The record's bytes.
template <class Record, std::size_t Count>
std::string encodeRecord(const std::array<RecordField<Record>, Count>& layout,
                         const Record& record) {
    std::string bytes(recordSize(layout), '\0');
    for (const auto& field : layout) {
        field.write(record, std::span(bytes).subspan(field.offset, field.width));
    }
    return bytes;
}

}  // namespace bramblet
