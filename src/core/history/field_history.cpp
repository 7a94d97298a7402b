#include "core/history/field_history.h"

#include "core/platform/text.h"

#include <algorithm>

namespace bramblet {
namespace {

constexpr const char* kLineEnd = "\r\n";

/// Shows each line to `look`. Lines end with CR LF; a file written by another program may use only
/// one of the two.
template <class Look>
void forEachLine(std::string_view content, Look look) {
    for (std::size_t start = 0; start < content.size();) {
        const auto end = std::min(content.find_first_of(kLineEnd, start), content.size());
        look(content.substr(start, end - start));
        const bool both = content.compare(end, 2, kLineEnd) == 0;
        start = end + (both ? 2 : 1);
    }
}

/// The value as one line: with a blank for every line end in it, and then trimmed, as the lines of
/// the file are when the value is looked for.
std::string asLine(std::string value) {
    std::replace_if(
        value.begin(), value.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
    return trimmed(value);
}

}  // namespace

const FieldHistory::Entries& FieldHistory::entries() const {
    if (!entries_) {
        auto lines = std::make_shared<std::vector<std::string>>();
        forEachLine(content_, [&](std::string_view line) { lines->emplace_back(line); });
        entries_ = std::move(lines);
    }
    return entries_;
}

void FieldHistory::remember(const FileSystem& files, const std::string& value) {
    // Opened for writing only when necessary, so that the values of a read-only file are still
    // listed.
    if (!files.exists(path_)) files.touch(path_);
    take(files.read(path_));
    const std::string wanted = asLine(value);
    if (wanted.empty()) return;
    bool known = false;
    forEachLine(content_,
                [&](std::string_view line) { known = known || withoutEnds(line, " ") == wanted; });
    if (known) return;
    const bool lineOpen = content_.find_last_of(kLineEnd) + 1 != content_.size();
    const std::string added = (lineOpen ? kLineEnd : "") + wanted + kLineEnd;
    files.append(path_, added);
    take(content_ + added);
}

void FieldHistory::forget(const FileSystem& files, const std::string& value) const {
    const std::string dropped = asLine(value);
    files.edit(path_, [&](const std::string& content) {
        std::string kept;
        forEachLine(content, [&](std::string_view line) {
            if (withoutEnds(line, " ") != dropped) kept.append(line).append(kLineEnd);
        });
        return kept;
    });
}

void FieldHistory::take(std::string content) {
    if (content == content_) return;
    content_ = std::move(content);
    entries_.reset();
}

}  // namespace bramblet
