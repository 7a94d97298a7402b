// A file on its way to its place: written under a temporary name, and then put there in one step,
// or in several that nobody else may take meanwhile.
#pragma once

#include "core/platform/file_system.h"

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <thread>
#include <utility>

namespace bramblet {

/// A name beside `path` that nobody else uses, on this machine or another, and that no backup
/// pattern matches.
std::filesystem::path temporaryNameFor(const std::filesystem::path& path);

/// The folder that is the claim to a file.
std::filesystem::path claimBeside(const std::filesystem::path& file);

/// A claim to the name of a file, for the steps of a moment, where a file system cannot do them in
/// one: a folder, which only one program can make. A claim of ten seconds has been left behind.
class Claim {
  public:
    Claim(const FileSystem& files, const std::filesystem::path& file) : folder_(claimBeside(file)) {
        const auto begin = std::chrono::steady_clock::now();
        files.run([&] {
            if (!isClear(begin)) throw FileError(FaultNumber::PermissionDenied, file);
        });
    }
    ~Claim() {
        if (made_) removeFolder();
    }
    Claim(const Claim&) = delete;
    Claim& operator=(const Claim&) = delete;

  private:
    /// Waits a little while another program has its claim. Where no folder can be made, nobody has
    /// one.
    bool isClear(std::chrono::steady_clock::time_point begin) {
        using namespace std::chrono_literals;
        constexpr int kTries = 20;
        bool taken = false;
        for (int i = 0; i < kTries; ++i) {
            try {
                made_ = os::createNewFolder(folder_);
                if (made_) return true;
                taken = true;
            } catch (const FileError&) {
                // A busy share may say that of a folder that is about to go.
            }
            std::this_thread::sleep_for(10ms);
        }
        if (taken && std::chrono::steady_clock::now() - begin > 10s) removeFolder();
        return !taken;
    }
    void removeFolder() {
        try {
            os::removeFolder(folder_);
        } catch (const FileError&) {
            // Somebody else has removed it, or the share is gone: whoever needs the name waits.
        }
    }

    std::filesystem::path folder_;
    bool made_ = false;
};

/// A file written beside another one to take its place. It is removed again if it does not get that
/// far, unless it is another program's by then.
class Replacement {
  public:
    /// Faults are reported for `target`, which is the file the user knows.
    Replacement(const FileSystem& files, std::filesystem::path target)
        : files_(files), target_(std::move(target)), path_(temporaryNameFor(target_)) {
        run([&] { file_.emplace(path_, os::Open::WriteNew); });
    }
    ~Replacement() {
        file_.reset();
        try {
            if (ours_ && os::exists(path_)) os::remove(path_);
        } catch (const FileError&) {
            // The share is gone; a temporary file left behind does no harm.
        }
    }
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;

    void write(std::uint64_t offset, std::string_view bytes) {
        run([&] { file_->write(offset, bytes); });
    }
    std::uint64_t takeContentOf(const std::filesystem::path& from) {
        constexpr std::size_t kBlock = 1 << 20;
        modified_ = files_.status(from).modified;
        const RandomFile input(files_, from, os::Open::Read);
        const auto bytes = std::make_unique_for_overwrite<char[]>(kBlock);
        std::uint64_t offset = 0;
        for (std::size_t got = kBlock; got == kBlock; offset += got) {
            got = input.read(offset, std::span(bytes.get(), kBlock));
            write(offset, std::string_view(bytes.get(), got));
        }
        return offset;
    }
    void flush() {
        run([&] { file_->flush(); });
    }
    /// A copy keeps the time stamp of its original.
    void rename() {
        file_.reset();
        if (modified_) run([&] { os::setModified(path_, *modified_); });
        run([&] { os::rename(path_, target_); });
    }
    /// Takes the place with `content`, which has been written; a file there that must not be
    /// replaced is handed to `keep`.
    void takePlace(std::string_view content, const MayReplace& mayReplace, const Keep& keep) {
        file_.reset();
        for (;;) {
            auto renaming = os::Renaming::Unsupported;
            run([&] { renaming = os::renameNew(path_, target_); });
            if (renaming == os::Renaming::Done) return;
            auto exchanged = os::Exchange::Unsupported;
            if (renaming == os::Renaming::Taken)
                run([&] { exchanged = os::exchange(path_, target_); });
            if (exchanged == os::Exchange::Done) return keepOther(content, mayReplace, keep);
            if (exchanged == os::Exchange::Unsupported) break;
        }
        // In several steps, then, which nobody else may take meanwhile.
        const Claim claim(files_, target_);
        for (;;) {
            auto renaming = os::Renaming::Unsupported;
            run([&] { renaming = os::renameNew(path_, target_); });
            if (renaming == os::Renaming::Done) return;
            if (renaming == os::Renaming::Unsupported && !files_.isTaken(target_)) return rename();
            if (mayReplaceTarget(mayReplace)) return rename();
            keep(target_);
        }
    }
    void putInPlace() {
        flush();
        rename();
        os::flushFolder(target_.parent_path());
    }

  private:
    template <class Statement>
    void run(Statement statement) {
        files_.run([&] {
            try {
                statement();
            } catch (const FileError& error) {
                throw FileError(error.number(), target_);
            }
        });
    }

    /// The file that was there has this one's temporary name now.
    void keepOther(std::string_view content, const MayReplace& mayReplace, const Keep& keep) {
        ours_ = false;
        try {
            if (!mayReplace(files_.read(path_))) keep(path_);
            ours_ = true;  // to be removed, if it is still there
        } catch (const FileError&) {
            putBack(content);
            throw;
        }
    }
    /// What comes back for it may be the file of a third program.
    void putBack(std::string_view content) {
        try {
            ours_ = os::exchange(path_, target_) == os::Exchange::Done &&
                    files_.withoutRetry().read(path_) == content;
        } catch (const FileError&) {
            // It stays under its temporary name, where the next start finds it.
        }
    }
    bool mayReplaceTarget(const MayReplace& mayReplace) const {
        try {
            return mayReplace(files_.read(target_));
        } catch (const FileError& error) {
            if (error.number() == FaultNumber::FileNotFound) return false;  // perhaps only to us
            throw;
        }
    }

    const FileSystem& files_;
    std::filesystem::path target_;
    std::filesystem::path path_;
    std::optional<os::File> file_;
    std::optional<std::int64_t> modified_;
    bool ours_ = true;  ///< what stands under the temporary name
};

}  // namespace bramblet
