// The home folder while this program uses it. A small file in it, the sign, says which program that
// is, so that a second one need not start: two would overwrite each other's settings. Nothing is
// locked, and nothing waits for the folder.
#pragma once

#include "core/platform/desktop.h"
#include "core/platform/file_system.h"
#include "core/platform/prompts.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace bramblet {

class OpenHome {
  public:
    explicit OpenHome(std::filesystem::path folder);
    ~OpenHome() { leave(); }
    OpenHome(const OpenHome&) = delete;
    OpenHome& operator=(const OpenHome&) = delete;

    /// Puts the sign up. Where another program's sign is, calls that program to the front, and asks
    /// the user what to do if it does not come; `moment` lets a little time pass. Returns false if
    /// this program is not to start. Where no sign can be put up, it starts all the same. `file` is
    /// what this program was started to open, if anything; the program called opens it instead.
    bool enter(Prompts& prompts, Desktop& desktop, const std::function<void()>& moment,
               const std::filesystem::path& file = {});

    /// What a second program that has called since was started to open: an empty path for nothing.
    /// Nothing at all if none has called. That answers it.
    std::optional<std::filesystem::path> wasCalled() const;

    /// Takes the sign down, unless another program has put up its own instead.
    void leave();

  private:
    /// The program that a sign names.
    struct Occupant {
        std::string machine;
        std::uint64_t process = 0;
    };
    std::optional<Occupant> occupant() const;
    bool putUp() const;
    bool calls(const Occupant& other, Desktop& desktop, const std::function<void()>& moment,
               const std::filesystem::path& file) const;
    Answer ask(const Occupant& other, Prompts& prompts) const;

    FileSystem files_;  // without waiting
    std::filesystem::path folder_;
    std::filesystem::path sign_;
    std::filesystem::path call_;
    std::string own_;  ///< what our sign says
    bool entered_ = false;
};

}  // namespace bramblet
