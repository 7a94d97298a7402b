#include "support/power_cut.h"

#include <algorithm>
#include <array>
#include <filesystem>

namespace bramblet::test {
namespace {

/// A path below the documents, without a separator at its end.
std::string nameOf(const std::filesystem::path& path) {
    std::string name = path.lexically_relative(documents()).string();
    while (name.ends_with('/'))
        name.pop_back();
    return name == "." ? std::string() : name;
}

std::string folderOf(const std::string& name) {
    return std::filesystem::path(name).parent_path().string();
}

}  // namespace

bool matters(const Statement& statement) {
    constexpr std::array kCalls{"note",      "create",   "mkdir", "pwrite", "ftruncate", "rename",
                                "renameat2", "exchange", "link",  "unlink", "fsync"};
    return std::find(kCalls.begin(), kCalls.end(), statement.call) != kCalls.end();
}

Disk::Disk(const Files& before, const std::vector<Statement>& statements) : before_(before) {
    int files = 0;
    for (const auto& [path, content] : before) {
        if (!path.ends_with('/')) names_[path] = ++files;
    }
    first_ = names_;
    for (std::size_t at = 0; at < statements.size(); ++at) {
        const Statement& statement = statements[at];
        const std::string name = nameOf(statement.path);
        Change change;
        change.at = at;
        if (statement.call == "create") {
            change.name = name;
            change.file = names_[name] = ++files;
        } else if (statement.call == "mkdir") {
            change.name = name;
        } else if (statement.call == "pwrite" || statement.call == "ftruncate") {
            change.file = names_.at(name);
            change.cuts = statement.call == "ftruncate";
            change.offset = statement.offset;
            change.bytes = statement.bytes;
        } else if (statement.call == "unlink") {
            change.file = names_.at(name);
            change.gone = name;
            names_.erase(name);
        } else if (statement.call == "exchange") {
            change.file = names_.at(name);
            change.name = nameOf(statement.to);
            change.gone = name;
            change.swapped = names_.at(change.name);
            std::swap(names_[change.name], names_[name]);
        } else if (statement.call == "rename" || statement.call == "renameat2" ||
                   statement.call == "link") {
            change.file = names_.at(name);
            change.name = nameOf(statement.to);
            names_[change.name] = change.file;
            if (statement.call != "link") {
                change.gone = name;
                names_.erase(name);
            }
        } else {
            if (statement.call == "fsync") flush(at, name);
            continue;
        }
        changes_.push_back(std::move(change));
    }
}

/// A file's flush makes its content last, a folder's the names in it.
void Disk::flush(std::size_t at, const std::string& path) {
    const auto file = names_.find(path);
    for (Change& change : changes_) {
        const bool meant = change.isContent()
                               ? file != names_.end() && change.file == file->second
                               : (!change.name.empty() && folderOf(change.name) == path) ||
                                     (!change.gone.empty() && folderOf(change.gone) == path);
        if (meant) change.flushed = std::min(change.flushed, at);
    }
}

Files Disk::after(std::size_t calls) const {
    return with(calls, Parts(changes_.size(), Part::All));
}

std::set<Files> Disk::afterPowerCut(std::size_t calls) const {
    constexpr std::size_t kMost = 256;
    std::vector<std::size_t> open;  // the changes of which anything may be there
    std::size_t combinations = 1;
    for (std::size_t i = 0; i < changes_.size() && changes_[i].at < calls; ++i) {
        if (changes_[i].flushed < calls) continue;
        open.push_back(i);
        combinations = std::min(kMost + 1, combinations * (changes_[i].isContent() ? 4 : 2));
    }
    const auto partsOf = [&](std::size_t i) {
        const Parts all{Part::All, Part::None, Part::Half, Part::Length};
        return changes_[i].isContent() ? all : Parts{Part::All, Part::None};
    };
    const Parts whole(changes_.size(), Part::All);
    std::set<Files> states;
    if (combinations <= kMost) {
        std::vector<Parts> choices{whole};
        for (const std::size_t i : open) {
            std::vector<Parts> more;
            for (const Parts& choice : choices) {
                for (const Part part : partsOf(i)) {
                    more.push_back(choice);
                    more.back()[i] = part;
                }
            }
            choices = std::move(more);
        }
        for (const Parts& choice : choices)
            states.insert(with(calls, choice));
        return states;
    }
    Parts none = whole;
    for (const std::size_t i : open)
        none[i] = Part::None;
    for (const Parts& extreme : {whole, none}) {
        for (const std::size_t i : open) {
            for (const Part part : partsOf(i)) {
                Parts choice = extreme;
                choice[i] = part;
                states.insert(with(calls, choice));
            }
        }
    }
    return states;
}

Files Disk::with(std::size_t calls, const Parts& parts) const {
    std::map<std::string, int> names = first_;
    std::map<int, std::string> contents;
    Files files;
    for (const auto& [path, content] : before_) {
        if (path.ends_with('/'))
            files[path];
        else
            contents[first_.at(path)] = content;
    }
    for (std::size_t i = 0; i < changes_.size() && changes_[i].at < calls; ++i) {
        const Change& change = changes_[i];
        if (parts[i] == Part::None) continue;
        if (change.isContent()) {
            std::string& content = contents[change.file];
            const std::size_t end = change.offset + change.bytes.size();
            if (change.cuts) {
                content.resize(change.offset);
            } else if (parts[i] == Part::Length) {
                content.resize(std::max(content.size(), end));  // with zeros
            } else {
                const std::size_t half = (change.bytes.size() + 1) / 2;
                const std::string bytes =
                    parts[i] == Part::Half ? change.bytes.substr(0, half) : change.bytes;
                content.resize(std::max(content.size(), change.offset + bytes.size()));
                content.replace(change.offset, bytes.size(), bytes);
            }
        } else if (change.file == 0) {
            files[change.name + "/"];
        } else {
            if (change.swapped != 0) {
                names[change.gone] = change.swapped;
            } else if (!change.gone.empty() && names[change.gone] == change.file) {
                names.erase(change.gone);
            }
            if (!change.name.empty()) names[change.name] = change.file;
        }
    }
    for (const auto& [name, file] : names) {
        const std::string folder = folderOf(name);
        if (file != 0 && (folder.empty() || files.contains(folder + "/")))
            files[name] = contents[file];
    }
    return files;
}

}  // namespace bramblet::test
