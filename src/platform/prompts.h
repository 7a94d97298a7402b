// The one door through which the core speaks to the user: message boxes, input boxes, choices of
// files and folders, and the line in the status bar. The windows answer with real dialogs.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace bramblet {

enum class Icon { None, Information, Question, Exclamation, Stop };
enum class Buttons { Ok, OkCancel, YesNo, YesNoCancel };
enum class Answer { Ok, Cancel, Yes, No };

/// A modal message box. `preset` is the button that Enter presses: the first one unless told.
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
    std::string folder;  ///< where the choice starts; empty for the system's own choice
    std::string name;    ///< the suggested file name
    std::vector<Filter> filters;
};

class Prompts {
  public:
    virtual ~Prompts() = default;

    virtual Answer ask(const Message& message) = 0;

    /// An input box; none when it was cancelled.
    virtual std::optional<std::string> input(const std::string& prompt, const std::string& title,
                                             const std::string& preset) = 0;

    /// Path of an existing file to read; none when cancelled.
    virtual std::optional<std::string> chooseFileToOpen(const FileChoice& choice) = 0;

    /// Path of a file to write, which may exist (no question is asked here); none when cancelled.
    virtual std::optional<std::string> chooseFileToSave(const FileChoice& choice) = 0;

    /// A folder, with the separator at its end; none when cancelled.
    virtual std::optional<std::string> chooseFolder(const std::string& title,
                                                    const std::string& start) = 0;

    /// One line for the status bar.
    virtual void say(const std::string& line) = 0;
};

}  // namespace bramblet
