// The core's questions as real dialogs.
#pragma once

#include "platform/prompts.h"

#include <functional>

class QWidget;

namespace bramblet {

class DialogPrompts : public Prompts {
  public:
    /// The window above which the dialogs open; none before it exists.
    void setParent(QWidget* parent) { parent_ = parent; }

    /// Shows a line in the status bar.
    std::function<void(const std::string&)> showLine = [](const std::string&) {};

    Answer ask(const Message& message) override;
    std::optional<std::string> input(const std::string& prompt, const std::string& title,
                                     const std::string& preset) override;
    std::optional<std::string> chooseFileToOpen(const FileChoice& choice) override;
    std::optional<std::string> chooseFileToSave(const FileChoice& choice) override;
    std::optional<std::string> chooseFolder(const std::string& title,
                                            const std::string& start) override;
    void say(const std::string& line) override { showLine(line); }

  private:
    enum class Purpose { Open, Save, Folder };
    std::optional<std::string> choose(const FileChoice& choice, Purpose purpose);
    QWidget* parent() const;

    QWidget* parent_ = nullptr;
};

}  // namespace bramblet
