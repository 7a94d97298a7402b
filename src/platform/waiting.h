// Waiting without looking dead: while a file is held by someone else, or a second has to pass, the
// windows repaint, a line in the status bar tells what is waited for, and no other input is taken.
#pragma once

#include "platform/fault.h"

#include <QObject>

#include <functional>
#include <string>

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
    /// pressed the stop button.
    void waitForFile(const FileError& error);

    /// Lets a second pass.
    void waitOneSecond();

    bool isWaiting() const { return waiting_; }

  protected:
    /// Keeps input from all windows while waiting, but for the stop button.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void letASecondPass();

    Notice notice_;
    bool waiting_ = false;
    bool stopped_ = false;
};

}  // namespace bramblet
