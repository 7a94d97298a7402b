// The way back from the last command that deleted something. There is one step, until the next such
// command.
#pragma once

#include "core/settings/commands.h"

#include <functional>
#include <string>

namespace bramblet {

class Undo {
  public:
    explicit Undo(Commands& commands) : commands_(commands) {}

    struct Step {
        std::string done;  ///< what the command has done: "Order 000123 deleted."
        std::string what;  ///< the same as something to undo: "deleting order 000123"
        /// Takes it back as far as what is there now lets it, and says more than that where it has
        /// to. False if the user does not want that after all. Throws Fault.
        std::function<bool()> back;
        /// Whether what it was done to is still there.
        std::function<bool()> applies = [] { return true; };
    };
    /// Called at the end of a command: says in the status line what it has done, and remembers the
    /// way back instead of that of an earlier command.
    void offer(Step step);

    bool available() const { return step_.back && step_.applies(); }
    /// What was last done, and the command that undoes it; empty if there is nothing to undo.
    std::string line() const { return available() ? step_.done : std::string(); }
    std::string what() const { return available() ? step_.what : std::string(); }

    void mu_Undo_Click();

  private:
    Commands& commands_;
    Step step_;
};

/// The step for something that was deleted, such as "order 000123".
Undo::Step deletionOf(const std::string& thing, std::function<bool()> back);

/// A thing with its name, `line "Hammer"`; a long name is cut short, a missing one left out.
std::string called(const std::string& thing, const std::string& name);

}  // namespace bramblet
