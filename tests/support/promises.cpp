#include "support/promises.h"

#include "core/document/document_reader.h"
#include "core/platform/text.h"

#include <algorithm>
#include <cctype>
#include <chrono>
#include <sstream>

namespace bramblet::test {
namespace {

constexpr const char* kData = "Quenmoor/po_data/";

/// The length of the records of a file; 0 if it has none.
std::size_t recordLength(const std::string& path) {
    if (path == std::string(kData) + "po_data.dat") return recordSize(kOrderIndexLayout);
    if (path == std::string(kData) + "po_addy.dat") return recordSize(kAddressLayout);
    if (path == std::string(kData) + "po_stock.dat") return recordSize(kStockItemLayout);
    return 0;
}

bool isHistory(const std::string& path) {
    return path.starts_with(kData) && path.ends_with("_field.dat");
}

bool isDocument(const std::string& path) {
    return path.starts_with(kData) && path.ends_with(".htm");
}

const std::string* contentIn(const Files& files, const std::string& path) {
    const auto found = files.find(path);
    return found == files.end() ? nullptr : &found->second;
}

std::string at(const Files& files, const std::string& path) {
    const std::string* const content = contentIn(files, path);
    return content == nullptr ? std::string() : *content;
}

/// Without what is nobody's data, and without folders.
Files dataOf(const Files& files) {
    Files data;
    for (const auto& [path, content] : files) {
        if (!isPassing(path) && !path.ends_with('/')) data.emplace(path, content);
    }
    return data;
}

/// The same without what is kept besides.
Files withoutKept(Files files) {
    std::erase_if(files, [](const auto& file) { return isKept(file.first); });
    return files;
}

bool areRecordsGood(const std::string& before, const std::string& after, const std::string& now,
                    std::size_t length, bool torn) {
    const std::size_t most = std::max(before.size(), after.size());
    if (now.size() < std::min(before.size(), after.size()) || now.size() > most) return false;
    if (now.size() % length != 0 && !torn) return false;
    for (std::size_t start = 0; start < now.size(); start += length) {
        const auto record = [&](const std::string& bytes) {
            return start < bytes.size() ? bytes.substr(start, length) : std::string();
        };
        const std::string old = record(before), meant = record(after), is = record(now);
        if (is != old && is != meant && !(torn && old != meant)) return false;
    }
    return true;
}

bool areLinesGood(const std::string& before, const std::string& after, const std::string& now,
                  bool torn) {
    if (torn) return now.starts_with(before) && now.size() <= after.size();
    return now.starts_with(before) && after.starts_with(now) && now.ends_with("\r\n");
}

/// Whether a table lacks nothing but all rows of some orders, whose documents could not be read.
bool lacksOnlyWholeOrders(const std::string& table, const std::string& whole) {
    std::istringstream has(table), meant(whole);
    std::set<std::string> there, lacking;
    std::string next, row;
    std::getline(has, next);
    while (std::getline(meant, row)) {
        const bool isThere = has && row == next;
        (isThere ? there : lacking).insert(row.substr(0, row.find_first_of(",;")));
        if (isThere) std::getline(has, next);
    }
    const auto isThere = [&](const std::string& order) { return there.contains(order); };
    return !has && table.ends_with('\n') && table.starts_with(whole.substr(0, whole.find('\n'))) &&
           std::none_of(lacking.begin(), lacking.end(), isThere);
}

bool isWholeOrder(const std::string& document, const std::string& path) {
    Order order;
    return document.ends_with("</html>\r\n") && readMarkers(document, order).has(&Order::PONoEd) &&
           path.ends_with(trimmed(order.PONoEd) + ".htm");
}

std::set<std::string> toldAt(const WatchedDesk& desk) {
    std::set<std::string> told(desk.prompts.complaints.begin(), desk.prompts.complaints.end());
    for (const std::string& line : desk.screen.failures) {
        const bool onlyKept = line.starts_with("Another document of order ") &&
                              line.find(" not ") == std::string::npos;
        if (!onlyKept) told.insert(line);
    }
    return told;
}

}  // namespace

std::size_t Course::calls() const {
    return static_cast<std::size_t>(
        std::count_if(statements.begin() + static_cast<std::ptrdiff_t>(prepared), statements.end(),
                      [](const Statement& each) { return each.call != "note"; }));
}

Result Course::resultOf(const Files& now) const {
    const Files data = withoutKept(dataOf(now));
    if (data == withoutKept(dataOf(after))) return Result::Complete;
    return data == withoutKept(dataOf(before)) ? Result::AsBefore : Result::Partly;
}

bool Course::isMoreTold(const WatchedDesk& desk) const {
    const auto now = toldAt(desk);
    return !std::includes(told.begin(), told.end(), now.begin(), now.end());
}

std::string Course::broken(const Files& now, bool torn) const {
    std::string broken;
    Files paths = dataOf(before);
    for (const Files& more : {dataOf(after), dataOf(now)})
        paths.insert(more.begin(), more.end());
    for (const auto& [path, any] : paths) {
        const std::string* const is = contentIn(now, path);
        const std::string* const old = contentIn(before, path);
        const std::string* const meant = contentIn(after, path);
        const auto same = [&](const std::string* other) {
            return (is == nullptr) == (other == nullptr) && (is == nullptr || *is == *other);
        };
        bool good = same(old) || same(meant);
        if (!good && is == nullptr) {
            good = std::any_of(now.begin(), now.end(), [&](const auto& other) {
                return isKept(other.first) && other.second == *old;
            });
        } else if (!good) {
            const std::size_t length = recordLength(path);
            if (length != 0)
                good = areRecordsGood(at(before, path), at(after, path), *is, length, torn);
            else if (isHistory(path))
                good = is->empty() ? old == nullptr
                                   : areLinesGood(at(before, path), at(after, path), *is, torn);
            else if (path.ends_with(".csv"))
                good = meant != nullptr && lacksOnlyWholeOrders(*is, *meant);
            else if (isKept(path))
                good = std::any_of(paths.begin(), paths.end(), [&](const auto& other) {
                    const auto name = std::filesystem::path(path).filename();
                    return other.second == *is &&
                           (isDocument(other.first) || other.first == kData + name.string());
                });
        }
        if (!good)
            broken += path + " is " + (is ? std::to_string(is->size()) + " bytes" : "gone") + "; ";
    }
    for (const auto& [path, content] : dataOf(after)) {
        const auto isIt = [&](const auto& file) { return file.second == content; };
        if (isKept(path) && std::none_of(now.begin(), now.end(), isIt))
            broken += "what " + path + " keeps is lost; ";
    }
    return broken;
}

std::string Course::brokenBy(const Files& now) const {
    std::string broken;
    for (const auto& [path, old] : dataOf(before)) {
        const std::string is = at(now, path), meant = at(after, path);
        const std::size_t length = recordLength(path);
        const bool grows = length != 0 && is.size() % length == 0 && is.starts_with(old);
        const bool good =
            is == old || is == meant || grows || (isHistory(path) && is.starts_with(old));
        if (!good) broken += path + "; ";
    }
    for (const auto& [path, content] : dataOf(now)) {
        if (isDocument(path) && !isKept(path) && !path.ends_with("/po.htm") &&
            !isWholeOrder(content, path))
            broken += path + " is no order; ";
    }
    return broken;
}

std::string Course::difference(const Files& now) const {
    std::string names;
    const Files data = withoutKept(dataOf(now)), meant = withoutKept(dataOf(after));
    for (const auto& [path, content] : meant) {
        if (at(data, path) != content || !data.contains(path)) names += path + "; ";
    }
    for (const auto& [path, content] : data) {
        if (!meant.contains(path)) names += path + " is too many; ";
    }
    return names;
}

Course course(const Work& work) {
    Course course;
    course.start = filesOf(work.office);
    putBack(course.start);
    WatchedDesk desk;
    Watch watch;
    work.prepare(desk);
    desk.forgetTold();
    course.before = filesNow();
    course.prepared = watch.done().size();
    work.act(desk);
    course.statements = watch.done();
    course.after = filesNow();
    course.told = toldAt(desk);
    return course;
}

Restart restarted(const Course& course, bool torn) {
    const auto anHourAgo = std::filesystem::file_time_type::clock::now() - std::chrono::hours(1);
    for (const auto& [path, content] : filesNow()) {
        if (isPassing(path)) std::filesystem::last_write_time(documents() / path, anHourAgo);
    }
    WatchedDesk desk;
    desk.start();
    if (!desk.isOpen()) return {filesNow(), "the program does not start: " + desk.told()};
    Program& program = desk.program();
    program.lookAround();
    Restart result{filesNow(), {}};
    result.broken = course.broken(result.files, torn);
    for (const auto& [path, content] : result.files) {
        if (isPassing(path) && path.starts_with(kData)) result.broken += path + " is left over; ";
    }
    for (const auto& [path, content] : dataOf(course.before)) {
        if (!isDocument(path) || isKept(path)) continue;
        const std::string number = std::filesystem::path(path).stem().string();
        desk.open(number);
        if (program.open.order().PONoEd != number || !result.files.contains(path))
            result.broken += number + " cannot be opened; ";
    }
    // What is torn at the end of a file goes with the next record.
    desk.item("Plane");
    desk.address(AddressSide::Destination, "Works", "9 Mill Lane");
    program.editor.NewPO_Click();
    for (const auto& [path, content] : filesNow()) {
        const std::size_t length = recordLength(path);
        if (length != 0 && content.size() % length != 0) result.broken += path + " stays torn; ";
    }
    return result;
}

int openFiles() {
    const std::filesystem::directory_iterator files("/proc/self/fd");
    return static_cast<int>(std::distance(begin(files), end(files)));
}

void Counts::add(Result result) {
    ++(result == Result::Complete ? complete_ : result == Result::AsBefore ? asBefore_ : partly_);
}

std::string Counts::text() const {
    if (complete_ + asBefore_ + partly_ == 0) return "–";
    return std::to_string(complete_) + " · " + std::to_string(asBefore_) + " · " +
           std::to_string(partly_);
}

std::string nameOf(const Work& work) {
    std::string name;
    bool starts = true;
    for (const char c : std::string(work.name)) {
        if (std::isalnum(static_cast<unsigned char>(c)) == 0) {
            starts = true;
            continue;
        }
        name += starts ? static_cast<char>(std::toupper(static_cast<unsigned char>(c))) : c;
        starts = false;
    }
    return name;
}

}  // namespace bramblet::test
