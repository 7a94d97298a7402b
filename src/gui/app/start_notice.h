// Starting the program, up to its main window: a small window shows what is being waited for, as
// there is no status bar yet.
#pragma once

#include "core/app/program.h"
#include "gui/platform/waiting.h"

#include <QWidget>

#include <memory>

class QLabel;

namespace bramblet {

/// Shows the line of `waiting` and its stop button, while there is one to show.
class StartNotice : public QWidget {
    Q_OBJECT
  public:
    explicit StartNotice(Waiting& waiting);

  private:
    void showLine(const QString& line);

    QLabel* line_;
};

/// The program with its settings read; null if the user has given up the start.
std::unique_ptr<Program> loadProgram(const Environment& environment, Prompts& prompts,
                                     Waiting& waiting);

}  // namespace bramblet
