// What every command of the user does from its first line to its last: it checks the data folder,
// clears the status line and collects what has to be said, and shows what has changed once, at its
// end and before it asks something.
#pragma once

#include "core/platform/prompts.h"
#include "core/platform/screen.h"
#include "core/settings/data_folder.h"

#include <functional>
#include <map>
#include <string>

namespace bramblet {

/// The main window's caption when no command has anything else to say there.
inline constexpr const char* kUsualCaption = "Bramblet";

/// How much a failure costs the user. The status bar shows the worst of several first.
enum class Loss { List, Work, Order };

class Commands {
  public:
    using Body = std::function<void()>;

    Commands(const DataFolder& folder, Prompts& prompts) : folder_(folder), prompts_(prompts) {}

    /// Shows everything on this screen from now on, or on none when it is null.
    void setScreen(Screen* screen);

    /// Runs one command. Commands within it count as part of it.
    void run(const Body& body);
    /// The same for a command on data: does nothing, after a message, when the data folder cannot
    /// be used.
    void onData(const Body& body);
    /// Runs what the user's typing does, which leaves the status line as it is.
    void edit(const Body& body);
    bool running() const { return depth_ > 0; }

    /// Runs one step of a command. When it throws a Fault, says `failure` and the fault's words in
    /// the status line, and returns false.
    bool attempt(const std::string& failure, const Body& step, Loss loss = Loss::Work);
    /// The same, but tells of the fault in a message box.
    bool attemptOrAsk(const std::string& failure, const std::string& title, const Body& step,
                      Icon icon = Icon::Exclamation);

    /// Says in the status bar what did not happen and why. Everything said in a command is shown
    /// together when it ends, each message once.
    void say(const std::string& failure, Loss loss = Loss::Work);
    /// Says in the status bar what has been done; comes after the failures of the same command.
    void sayDone(const std::string& line);
    /// The failures that the command has reported so far, worst first, for a message box: the
    /// status bar will not show them any more.
    std::string takeFailures();

    /// Something has changed that the screen shows.
    void changed(bool Views::*view);
    /// Shows what has changed so far, for a command that goes on for a while.
    void showChanges();
    /// Shows a caption until the next command or edit.
    void showCaption(const std::string& caption);

    /// To ask the user, above windows that show what has changed so far.
    Prompts& prompts() {
        showChanges();
        return prompts_;
    }
    void tell(const std::string& text, const std::string& title, Icon icon = Icon::Information) {
        prompts().ask({text, title, Buttons::Ok, icon});
    }
    Screen& screen() { return *screen_; }
    /// Opens a window when the command ends: what is done there are commands of their own.
    void open(void (Screen::*window)()) { window_ = window; }
    const DataFolder& folder() const { return folder_; }

  private:
    void perform(const Body& body);
    void end();
    void showCollected();

    const DataFolder& folder_;
    Prompts& prompts_;
    Screen noScreen_;
    Screen* screen_ = &noScreen_;
    int depth_ = 0;
    Views changed_;
    void (Screen::*window_)() = nullptr;
    std::string caption_ = kUsualCaption;
    std::multimap<Loss, std::string, std::greater<>> failures_;
    std::string done_;
};

}  // namespace bramblet
