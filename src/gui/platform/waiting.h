// Waiting without looking dead: while a file is held by someone else, or a second has to pass, the
// windows repaint, a line in the status bar tells what is waited for, and no other input is taken.
#pragma once

#include "core/platform/fault.h"

#include <QObject>

#include <functional>
#include <string>

class QEventLoop;
class QToolButton;

namespace bramblet {

class Waiting : public QObject {
  public:
    /// What the waiting shows itself in: a line of text and a button that ends it.
    struct Notice {
        std::function<void(const std::string& line)> show;
        std::function<void()> hide;
        QToolButton* stopButton = nullptr;
    };
    void setNotice(Notice notice);

    /// Waits a second for the file that the error names; throws the error when the user has
    /// pressed the stop button or Escape, and from then on until the command has ended.
    void waitForFile(const FileError& error);

    /// Lets a second pass.
    void waitOneSecond();

    bool isWaiting() const { return waiting_ != nullptr; }

  protected:
    /// Keeps input from all windows while waiting, but for the stop button.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void letASecondPass();
    void giveUp();

    Notice notice_;
    QEventLoop* waiting_ = nullptr;  ///< the loop that runs while waiting
    bool givenUp_ = false;           ///< by the user, for the rest of the command
};

}  // namespace bramblet
