// The only way for the core to speak to the user: message boxes, input boxes, choices of files and
// folders, and the line in the status bar. The windows answer with real dialogs.
#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace bramblet {

enum class Icon { None, Information, Question, Exclamation, Stop };
enum class Buttons { Ok, OkCancel, YesNo, YesNoCancel, RetryClose, RetryIgnoreClose };
enum class Answer { Ok, Cancel, Yes, No, Retry, Ignore, Close };

/// How much a failure costs the user. The status bar shows the worst of several first.
enum class Loss { List, Work, Order };

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

class Prompts {
  public:
    virtual ~Prompts() = default;

    virtual Answer ask(const Message& message) = 0;

    /// An input box; nothing when it was cancelled.
    virtual std::optional<std::string> input(const std::string& prompt, const std::string& title,
                                             const std::string& preset) = 0;

    /// Path of an existing file to read; nothing when cancelled.
    virtual std::optional<std::filesystem::path> chooseFileToOpen(const FileChoice& choice) = 0;

    /// Path of a file to write, which may exist (no question is asked here); nothing when
    /// cancelled.
    virtual std::optional<std::filesystem::path> chooseFileToSave(const FileChoice& choice) = 0;

    /// A folder, with a trailing separator; nothing when cancelled.
    virtual std::optional<std::filesystem::path> chooseFolder(
        const std::string& title, const std::filesystem::path& start) = 0;

    /// The name of a font; nothing when cancelled.
    virtual std::optional<std::string> chooseFont(const std::string& current) = 0;

    /// How far a long operation has got: `done` of `total` steps; it is over at `total`. Shown only
    /// when the operation lasts more than a moment.
    virtual void progress(const std::string& what, int done, int total) = 0;

    /// Says in the status bar what did not happen and why. Within a command (below) everything said
    /// is collected and shown together when the command ends, each message once.
    void say(const std::string& failure, Loss loss = Loss::Work);

    /// Says in the status bar what has been done; comes after the failures of the same command.
    void sayDone(const std::string& line);

    /// The failures that the command has reported so far, worst first, for a message box: the
    /// status bar will not show them any more.
    std::string takeFailures();

    /// Empties the status bar: what the previous command said is no longer news. For commands that
    /// only open a window in which others follow.
    void clearLine() {
        onCommand();
        showStatus({}, Tone::Done);
    }

    /// Called when a command begins.
    std::function<void()> onCommand = [] {};

    /// One command of the user, from its first line on: it clears what the previous one said and
    /// collects what it says itself. Nested commands count as one.
    class Command {
      public:
        explicit Command(Prompts& prompts) : prompts_(prompts) {
            if (prompts_.depth_++ == 0) prompts_.clearLine();
        }
        ~Command() {
            if (--prompts_.depth_ == 0) prompts_.showCollected();
        }
        Command(const Command&) = delete;
        Command& operator=(const Command&) = delete;

      private:
        Prompts& prompts_;
    };

  protected:
    enum class Tone { Failure, Done };
    /// Shows one line in the status bar. A failure stays until the next line.
    virtual void showStatus(const std::string& line, Tone tone) = 0;

  private:
    void showCollected();

    int depth_ = 0;
    std::multimap<Loss, std::string, std::greater<>> failures_;
    std::string done_;
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

  private:
    Prompts& prompts_;
    std::string what_;
    int total_;
};

}  // namespace bramblet
