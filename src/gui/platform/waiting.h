// Waiting without looking dead: while someone else holds a file, or a second has to pass, the
// windows repaint, a line in the status bar says what is awaited, and no other input is accepted.
#pragma once

#include "core/platform/fault.h"

#include <QObject>

class QEventLoop;
class QToolButton;

namespace bramblet {

class Waiting : public QObject {
    Q_OBJECT
  public:
    /// A button that ends the waiting; hidden until it is needed.
    QToolButton* makeStopButton();

    /// Waits a second for the file that the error names. Throws the error once the user has pressed
    /// the stop button or Escape, and from then on until the command has ended.
    void waitForFile(const FileError& error);

    /// Ends the waiting, as the stop button does.
    void giveUp();

    /// Lets a second pass.
    void waitOneSecond();

  signals:
    /// `line` says what is awaited.
    void began(const QString& line);
    void ended();

  protected:
    /// While waiting, keeps input from everything but the stop button.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QEventLoop* waiting_ = nullptr;  ///< the loop that runs while waiting
    bool givenUp_ = false;           ///< by the user, for the rest of the command
};

}  // namespace bramblet
