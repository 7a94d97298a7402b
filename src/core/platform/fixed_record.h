// Fixed-length records: a plain struct and one table of its fields, in file order, which drives
// both reading and writing.
//
//     struct Part { std::string Name; double Tag; };
//     inline constexpr std::array kPartLayout{
//         textField<&Part::Name>(0, 30),
//         numberField<&Part::Tag>(30),
//     };
//     static_assert(recordSize(kPartLayout) == 38);
//
// The records of a file stay the bytes that were read; a view looks at a field where it stands:
//
//     RecordView<kPartLayout> part = ...;
//     std::string_view name = part.get<&Part::Name>();
#pragma once

#include "core/platform/currency.h"
#include "core/platform/text.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>
#include <vector>

namespace bramblet {

/// One field: its place in the record in bytes, and the struct's member that it is.
template <class Record>
struct RecordField {
    std::size_t offset;
    std::size_t width;
    std::variant<std::string Record::*, double Record::*, Currency Record::*,
                 std::int16_t Record::*>
        member;
};

namespace detail {

template <class Member>
struct MemberOf;
template <class R, class V>
struct MemberOf<V R::*> {
    using Record = R;
    using Value = V;
};

template <class Value>
std::array<char, sizeof(Value)> littleEndian(std::array<char, sizeof(Value)> bytes) {
    if constexpr (std::endian::native == std::endian::big) std::ranges::reverse(bytes);
    return bytes;
}

template <class Value>
Value numberFrom(const char* bytes) {
    std::array<char, sizeof(Value)> copy;
    std::memcpy(copy.data(), bytes, copy.size());
    return std::bit_cast<Value>(littleEndian<Value>(copy));
}

template <class Value>
void writeNumber(char* bytes, Value value) {
    const auto copy = littleEndian<Value>(std::bit_cast<std::array<char, sizeof(Value)>>(value));
    std::memcpy(bytes, copy.data(), copy.size());
}

}  // namespace detail

/// A text field of single bytes, left-aligned. Written padded with blanks or cut to its width; read
/// whole, so that zero bytes and anything else in it are carried along.
template <auto Member>
constexpr auto textField(std::size_t offset, std::size_t width) {
    using Record = typename detail::MemberOf<decltype(Member)>::Record;
    return RecordField<Record>{offset, width, Member};
}

/// A number stored as it is in memory, little-endian: 16-bit integer, double or Currency.
template <auto Member>
constexpr auto numberField(std::size_t offset) {
    using Record = typename detail::MemberOf<decltype(Member)>::Record;
    using Value = typename detail::MemberOf<decltype(Member)>::Value;
    return RecordField<Record>{offset, sizeof(Value), Member};
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

/// Reads one field from a record's bytes, which must reach to its end.
template <class Record>
void decodeField(const RecordField<Record>& field, std::string_view bytes, Record& record) {
    const auto read = [&](auto member) {
        using Value = std::remove_cvref_t<decltype(record.*member)>;
        if constexpr (std::is_same_v<Value, std::string>) {
            record.*member = bytes.substr(field.offset, field.width);
        } else {
            record.*member = detail::numberFrom<Value>(bytes.data() + field.offset);
        }
    };
    std::visit(read, field.member);
}

/// Reads a record; bytes missing at the end count as zero bytes.
template <class Record, std::size_t Count>
Record decodeRecord(const std::array<RecordField<Record>, Count>& layout, std::string_view bytes) {
    std::string whole(bytes.substr(0, recordSize(layout)));
    whole.resize(recordSize(layout), '\0');
    Record record{};
    for (const auto& field : layout)
        decodeField(field, whole, record);
    return record;
}

/// The record's bytes.
template <class Record, std::size_t Count>
std::string encodeRecord(const std::array<RecordField<Record>, Count>& layout,
                         const Record& record) {
    std::string bytes(recordSize(layout), ' ');
    for (const auto& field : layout) {
        const auto write = [&](auto member) {
            const auto& value = record.*member;
            if constexpr (std::is_same_v<decltype(value), const std::string&>) {
                value.copy(bytes.data() + field.offset, field.width);
            } else {
                detail::writeNumber(bytes.data() + field.offset, value);
            }
        };
        std::visit(write, field.member);
    }
    return bytes;
}

/// A record where it stands among the bytes of its file, which must outlive it.
template <auto& Layout>
class RecordView {
  public:
    static constexpr std::size_t kSize = recordSize(Layout);
    static_assert(kSize > 0, "the fields of a record follow one another without gaps");

    explicit RecordView(const char* bytes) : bytes_(bytes) {}

    /// A number, or a text without the blanks and zero bytes at its ends.
    template <auto Member>
    auto get() const {
        using Value = typename detail::MemberOf<decltype(Member)>::Value;
        if constexpr (std::is_same_v<Value, std::string>) {
            return withoutBlanks(field<Member>());
        } else {
            return detail::numberFrom<Value>(field<Member>().data());
        }
    }

    /// The bytes of a field.
    template <auto Member>
    std::string_view field() const {
        constexpr auto kField = fieldOf<Member>();
        return {bytes_ + kField.offset, kField.width};
    }

    std::string_view bytes() const { return {bytes_, kSize}; }
    auto record() const { return decodeRecord(Layout, bytes()); }

    template <auto Member>
    static consteval auto fieldOf() {
        for (const auto& field : Layout) {
            using Wanted = decltype(Member);
            if (!std::holds_alternative<Wanted>(field.member)) continue;
            if (std::get<Wanted>(field.member) == Member) return field;
        }
        throw "the layout has no such field";
    }

    /// Puts a number or a text into a record's bytes.
    template <auto Member, class Value>
    static void set(char* bytes, const Value& value) {
        constexpr auto kField = fieldOf<Member>();
        using Stored = typename detail::MemberOf<decltype(Member)>::Value;
        if constexpr (std::is_same_v<Stored, std::string>) {
            std::fill_n(bytes + kField.offset, kField.width, ' ');
            std::string_view(value).copy(bytes + kField.offset, kField.width);
        } else {
            static_assert(std::is_same_v<Stored, Value>);
            detail::writeNumber(bytes + kField.offset, value);
        }
    }

  private:
    const char* bytes_;
};

/// The records of a file, as they were read. Views of them stay valid until they go or change.
template <auto& Layout>
class Records {
  public:
    using View = RecordView<Layout>;

    /// Room for `most` records, and one more behind them.
    explicit Records(std::size_t most = 0)
        : bytes_(std::make_unique_for_overwrite<char[]>((most + 1) * View::kSize)) {
        views_.reserve(most + 1);
    }

    std::size_t size() const { return views_.size(); }
    bool empty() const { return views_.empty(); }
    const View& operator[](std::size_t place) const { return views_[place]; }
    const View& back() const { return views_.back(); }
    auto begin() const { return views_.begin(); }
    auto end() const { return views_.end(); }

    /// All of them, one behind the other.
    std::string_view bytes() const { return {bytes_.get(), size() * View::kSize}; }

    /// The place of the first record of that kind; `size()` when there is none.
    template <class IsWanted>
    std::size_t placeOf(IsWanted isWanted) const {
        return static_cast<std::size_t>(std::find_if(begin(), end(), isWanted) - begin());
    }

    /// Where the next record's bytes go, and those behind it as far as there is room.
    char* room() { return bytes_.get() + size() * View::kSize; }
    /// Adds the record whose bytes are in the room, at the front of it or farther behind.
    void add(const char* record) {
        if (record != room()) std::memmove(room(), record, View::kSize);
        views_.emplace_back(room());
    }
    /// Puts a record in place of another, or behind the last as long as there is room.
    void put(std::size_t place, std::string_view record) {
        record.copy(bytes_.get() + place * View::kSize, View::kSize);
        if (place == size()) views_.emplace_back(room());
    }

  private:
    std::unique_ptr<char[]> bytes_;
    std::vector<View> views_;
};

}  // namespace bramblet
