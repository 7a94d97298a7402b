// Asks the core's questions in real dialogs.
#pragma once

#include "core/platform/prompts.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QProgressDialog>
#include <QWidget>

#include <memory>

namespace bramblet {

class DialogPrompts : public Prompts {
  public:
    /// The window above which the dialogs open; null until it exists.
    void setParent(QWidget* parent) { parent_ = parent; }

    Answer ask(const Message& message) override;
    std::optional<std::string> input(const std::string& prompt, const std::string& title,
                                     const std::string& preset) override;
    std::optional<std::filesystem::path> chooseFileToOpen(const FileChoice& choice) override {
        return pathOf(choose(choice, Purpose::Open));
    }
    std::optional<ChosenFile> chooseFileToSave(const FileChoice& choice) override {
        return choose(choice, Purpose::Save);
    }
    std::optional<std::filesystem::path> chooseFolder(const std::string& title,
                                                      const std::filesystem::path& start) override;
    std::optional<std::string> chooseFont(const std::string& current) override;
    void progress(const std::string& what, int done, int total) override;
    bool mayGoOn(const std::string& what, int done, int total) override;

  private:
    void openProgress(const std::string& what);
    enum class Purpose { Open, Save, Folder };
    std::optional<ChosenFile> choose(const FileChoice& choice, Purpose purpose);
    static std::optional<std::filesystem::path> pathOf(const std::optional<ChosenFile>& chosen) {
        return chosen ? std::optional(chosen->path) : std::nullopt;
    }
    QWidget* parent() const;

    QPointer<QWidget> parent_;
    std::unique_ptr<QProgressDialog> progress_;
    QElapsedTimer lastShown_;  ///< when an operation that may be stopped showed its progress
};

}  // namespace bramblet
