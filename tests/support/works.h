// Everything that a user does and that changes files, as a table: for tests that disturb each of
// its steps.
#pragma once

#include "core/app/program.h"
#include "support/recording_desktop.h"
#include "support/recording_screen.h"
#include "support/temporary_folder.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace bramblet::test {

/// The folder in which all of it is done, and a path in its data folder.
std::filesystem::path documents();
std::filesystem::path data(const std::string& name);

/// All files below it by their paths there; that of a folder ends in a slash.
using Files = std::map<std::string, std::string>;
Files filesNow();
/// Leaves just these files there.
void putBack(const Files& files);

/// Whether a path is that of a file in the subfolder of kept orders, or of the subfolder.
bool isKept(const std::string& path);
/// Whether a file is one that is being written, or the one that proves that a folder is writable:
/// nobody's data.
bool isPassing(const std::string& path);

/// Agrees to everything but to go on where something cannot be kept, and remembers the boxes that
/// tell of a fault.
class ObligingPrompts : public Prompts {
  public:
    std::vector<std::string> complaints;
    std::filesystem::path chosen;  ///< whatever is to be chosen
    std::size_t filter = 0;        ///< and the filter set then

    Answer ask(const Message& message) override;
    std::optional<std::string> input(const std::string&, const std::string&,
                                     const std::string&) override {
        return "7";
    }
    std::optional<std::filesystem::path> chooseFileToOpen(const FileChoice&) override {
        return chosen;
    }
    std::optional<ChosenFile> chooseFileToSave(const FileChoice&) override {
        return ChosenFile{chosen, filter};
    }

  private:
    int retries_ = 0;
};

/// Notes each caption, so that it is known what had been reported before a call.
class NotingScreen : public RecordingScreen {
  public:
    void showCaption(const std::string& caption) override;
};

/// A user at work. A file in use is free again after the first wait for it.
class WatchedDesk {
  public:
    /// Starts the program; without one if the user gives up.
    void start();
    void close() { program_.reset(); }
    bool isOpen() const { return program_ != nullptr; }
    Program& program() const { return *program_; }

    void type(OrderField field, const std::string& text) { program_->editor.edit(field, text); }
    void save() { program_->editor.SaveChanges_Click(); }
    void open(const std::string& number) { program_->editor.POGrid_Click(number); }
    void address(AddressSide side, const std::string& name, const std::string& text);
    void item(const std::string& description);

    /// What the user was told: boxes, and failures in the status line.
    std::string told() const;
    void forgetTold() {
        prompts.complaints.clear();
        screen.failures.clear();
    }

    ObligingPrompts prompts;
    NotingScreen screen;
    RecordingDesktop desktop;

  private:
    std::unique_ptr<Program> program_;
};

/// One thing that a user does.
struct Work {
    const char* name;
    const char* office;  ///< "old": with orders and all; "new": never started
    std::function<void(WatchedDesk&)> prepare;  ///< what is done before
    std::function<void(WatchedDesk&)> act;
    bool adds = false;  ///< whether doing it again does more of it
};
const std::vector<Work>& works();

/// The files of an office before anything is done: a new one has none.
const Files& filesOf(const std::string& office);

}  // namespace bramblet::test
