// How the core asks the user: message boxes, input boxes, choices of files and folders. The gui
// answers with real dialogs; by default, everything but a message box is cancelled.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace bramblet {

enum class Icon { None, Information, Question, Exclamation, Stop };
enum class Buttons { Ok, OkCancel, YesNo, YesNoCancel, RetryClose, RetryIgnoreClose };
enum class Answer { Ok, Cancel, Yes, No, Retry, Ignore, Close };

/// A modal message box. `preset` is the button that Enter presses: the first one unless given.
struct Message {
    std::string text;
    std::string title;
    Buttons buttons = Buttons::Ok;
    Icon icon = Icon::None;
    std::optional<Answer> preset = std::nullopt;
};

/// A choice of a file. `filters` are pairs such as {"Stock Item Data", "*.sid"}.
struct FileChoice {
    struct Filter {
        std::string name;
        std::string pattern;
    };
    std::string title;
    std::filesystem::path folder;  ///< where the choice starts; empty for the system's own choice
    std::string name;              ///< the suggested file name
    std::vector<Filter> filters;
};

/// A file that has been chosen, and the place of the filter that was set then.
struct ChosenFile {
    std::filesystem::path path;
    std::size_t filter = 0;
};

class Prompts {
  public:
    virtual ~Prompts() = default;

    virtual Answer ask(const Message& message) = 0;

    // Each of these returns nothing when the user cancels it.

    /// An input box.
    virtual std::optional<std::string> input(const std::string& /*prompt*/,
                                             const std::string& /*title*/,
                                             const std::string& /*preset*/) {
        return {};
    }
    /// Path of an existing file to read.
    virtual std::optional<std::filesystem::path> chooseFileToOpen(const FileChoice&) { return {}; }
    /// Path of a file to write, which may exist (no question is asked here).
    virtual std::optional<ChosenFile> chooseFileToSave(const FileChoice&) { return {}; }
    /// A folder, with a trailing separator.
    virtual std::optional<std::filesystem::path> chooseFolder(
        const std::string& /*title*/, const std::filesystem::path& /*start*/) {
        return {};
    }
    /// The name of a font.
    virtual std::optional<std::string> chooseFont(const std::string& /*current*/) { return {}; }

    /// How far a long operation has got: `done` of `total` steps; it is over at `total`. Shown only
    /// when the operation lasts more than a moment.
    virtual void progress(const std::string& /*what*/, int /*done*/, int /*total*/) {}
    /// The same for an operation that the user may stop: false once they have.
    virtual bool mayGoOn(const std::string& /*what*/, int /*done*/, int /*total*/) { return true; }
};

/// Reports how far a long operation has got, and that it is over, however it ends.
class LongOperation {
  public:
    LongOperation(Prompts& prompts, std::string what, int total)
        : prompts_(prompts), what_(std::move(what)), total_(total) {}
    ~LongOperation() { prompts_.progress(what_, total_, total_); }
    LongOperation(const LongOperation&) = delete;
    LongOperation& operator=(const LongOperation&) = delete;

    /// To be called for every step; reports only some of them.
    void reached(int done) {
        constexpr int kStep = 256;
        if (done % kStep == 0 && done < total_) prompts_.progress(what_, done, total_);
    }

    /// To be called for every step of an operation that the user may stop: false once they have.
    bool mayGoOn(int done, int total) {
        total_ = total;
        return prompts_.mayGoOn(what_, done, total);
    }

  private:
    Prompts& prompts_;
    std::string what_;
    int total_;
};

}  // namespace bramblet
