#include "core/history/field_history.h"

#include "core/platform/text.h"

#include <algorithm>

namespace bramblet {
namespace {

constexpr const char* kLineEnd = "\r\n";

/// Lines end with CR LF; a file written by another program may use only one of the two.
std::vector<std::string> linesOf(const std::string& content) {
    std::vector<std::string> lines;
    for (std::size_t start = 0; start < content.size();) {
        const auto end = std::min(content.find_first_of(kLineEnd, start), content.size());
        lines.push_back(content.substr(start, end - start));
        const bool both = content.compare(end, 2, kLineEnd) == 0;
        start = end + (both ? 2 : 1);
    }
    return lines;
}

/// The value as one line: with a blank for every line end in it, and then trimmed, as the lines of
/// the file are when the value is looked for.
std::string asLine(std::string value) {
    std::replace_if(
        value.begin(), value.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
    return trimmed(value);
}

}  // namespace

void FieldHistory::remember(const FileSystem& files, const std::string& value) {
    // Opened for writing only when necessary, so that the values of a read-only file are still
    // listed.
    if (!files.exists(path_)) files.touch(path_);
    if (std::string content = files.read(path_); content != content_) {
        entries_ = std::make_shared<const std::vector<std::string>>(linesOf(content));
        content_ = std::move(content);
    }
    const std::string line = asLine(value);
    const bool known =
        std::any_of(entries_->begin(), entries_->end(),
                    [&](const std::string& entry) { return trimmed(entry) == line; });
    if (line.empty() || known) return;
    const bool lineOpen = content_.find_last_of(kLineEnd) + 1 != content_.size();
    const std::string added = (lineOpen ? kLineEnd : "") + line + kLineEnd;
    files.append(path_, added);
    content_ += added;
    entries_ = std::make_shared<const std::vector<std::string>>(linesOf(content_));
}

void FieldHistory::forget(const FileSystem& files, const std::string& value) const {
    const std::string line = asLine(value);
    std::string kept;
    for (const auto& entry : linesOf(files.read(path_))) {
        if (trimmed(entry) != line) kept += entry + kLineEnd;
    }
    files.replace(path_, kept);
}

}  // namespace bramblet
