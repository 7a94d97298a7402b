#include "core/orders/order_documents.h"

#include "core/document/document_reader.h"
#include "core/orders/kept_orders.h"
#include "core/platform/path_text.h"
#include "core/platform/text.h"

#include <functional>

namespace bramblet {
namespace {

std::size_t hashOf(const std::string& document) {
    return std::hash<std::string>()(document);
}

std::string inKept(const std::filesystem::path& path) {
    return "kept/" + shown(path.filename());
}

/// Whether a document has been written to its end.
bool isWhole(const std::string& document) {
    return trimmed(withoutControls(document)).ends_with("</html>");
}

}  // namespace

OrderDocuments::OrderDocuments(const FileSystem& files, Commands& commands, const Clock& clock)
    : files_(files), commands_(commands), clock_(clock) {}

std::string OrderDocuments::open(const std::filesystem::path& path) {
    std::string document = files_.read(path);
    own_ = {path, hashOf(document)};
    return document;
}

void OrderDocuments::write(const std::filesystem::path& path, const std::string& document) {
    if (path == commands_.folder().file("po.htm")) {  // made anew for every look
        return files_.replace(path, document);
    }
    const auto isOlderState = [&](const std::string& there) {
        return there.empty() || (own_.path == path && own_.hash == hashOf(there));
    };
    const std::string number = fromUnicode(unicodeOf(path.stem()));
    std::vector<std::filesystem::path> kept;
    const auto keepOther = [&](const std::filesystem::path& other) {
        if (const auto place = keep(other, number)) kept.push_back(*place);
    };
    try {
        files_.put(path, document, isOlderState, keepOther);
    } catch (const FileError&) {
        putBack(kept, path);
        sayKept(number, kept);
        throw;
    }
    sayKept(number, kept);
    own_ = {path, hashOf(document)};
}

void OrderDocuments::sayKept(const std::string& number,
                             const std::vector<std::filesystem::path>& kept) const {
    for (const auto& each : kept) {
        commands_.say("Another document of order " + number + " was there and is kept as " +
                      inKept(each));
    }
}

/// Puts what was taken away last back to its place, unless there is something again.
void OrderDocuments::putBack(std::vector<std::filesystem::path>& kept,
                             const std::filesystem::path& path) const {
    try {
        if (!kept.empty() && files_.withoutRetry().renameNew(kept.back(), path)) kept.pop_back();
    } catch (const FileError&) {
        // It stays where it is kept; the fault that led here is the one to tell of.
    }
}

std::optional<std::filesystem::path> OrderDocuments::keep(const std::filesystem::path& path,
                                                          const std::string& what,
                                                          const char* ending) const {
    for (;;) {
        const std::filesystem::path kept = keptPath(files_, keptFolder(), what, ending, clock_);
        try {
            if (files_.renameNew(path, kept)) return kept;
        } catch (const FileError& error) {
            if (error.number() == FaultNumber::FileNotFound) return std::nullopt;
            throw;
        }
    }
}

std::filesystem::path OrderDocuments::keptFolder() const {
    return commands_.folder().file("kept");
}

void OrderDocuments::recoverLeftovers(std::vector<std::filesystem::path>& names) const {
    std::vector<std::filesystem::path> back;
    for (const auto& name : names) {
        if (!isTemporaryName(name)) continue;
        commands_.attempt(
            "The file " + shown(name) + ", which a save has left, was not recovered: ", [&] {
                const auto path = recover(commands_.folder().DataPath() / name);
                if (path) back.push_back(path->filename());
            });
    }
    names.insert(names.end(), back.begin(), back.end());
}

/// The path of the document that it became; nothing when it became none.
std::optional<std::filesystem::path> OrderDocuments::recover(
    const std::filesystem::path& leftover) const {
    constexpr std::int64_t kTenMinutes = 600'000'000'000;
    const std::int64_t age = commands_.folder().checkedAt() - files_.status(leftover).modified;
    if (age < kTenMinutes) return std::nullopt;  // its program may be at work
    const std::string document = files_.read(leftover);
    Order order;
    const bool readable = isWhole(document) && readMarkers(document, order).has(&Order::PONoEd);
    const std::string number = trimmed(order.PONoEd);
    if (!readable || number == kPendingNumber) {  // of a mere look at it
        files_.remove(leftover);
        return std::nullopt;
    }
    const std::filesystem::path path = commands_.folder().documentPath(number);
    if (files_.renameNew(leftover, path)) {
        commands_.say("Order " + number + " was saved only halfway and has been completed");
        return path;
    }
    if (files_.read(path) == document) {
        files_.remove(leftover);
    } else {
        const auto kept = keep(leftover, number + " left over");
        if (kept) {
            commands_.say("A save of order " + number + " that was not completed is kept as " +
                          inKept(*kept));
        }
    }
    return std::nullopt;
}

}  // namespace bramblet
