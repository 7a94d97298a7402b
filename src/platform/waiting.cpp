#include "platform/waiting.h"

#include <QApplication>
#include <QEvent>
#include <QEventLoop>
#include <QKeyEvent>
#include <QTimer>
#include <QToolButton>

namespace bramblet {
namespace {

constexpr int kSecond = 1000;

bool isInput(QEvent::Type type) {
    switch (type) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::Wheel:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::Shortcut:
        case QEvent::ShortcutOverride:
        case QEvent::ContextMenu:
        case QEvent::InputMethod:
        case QEvent::TouchBegin:
        case QEvent::Drop:
        case QEvent::Close:
            return true;
        default:
            return false;
    }
}

std::string nameOf(const std::string& path) {
    const auto separator = path.find_last_of("/\\");
    return separator == std::string::npos ? path : path.substr(separator + 1);
}

}  // namespace

void Waiting::setNotice(Notice notice) {
    notice_ = std::move(notice);
    if (notice_.stopButton == nullptr) return;
    connect(notice_.stopButton, &QToolButton::clicked, this, [this] { stopped_ = true; });
}

void Waiting::waitForFile(const FileError& error) {
    stopped_ = false;
    if (notice_.show) {
        notice_.show("Waiting for " + nameOf(error.path()) + ", which is in use or locked (" +
                     error.description() + "). Trying again every second ...");
    }
    letASecondPass();
    // Once the statement has succeeded and the program is idle again, the notice goes.
    if (notice_.hide) {
        QTimer::singleShot(0, this, [this] {
            if (!waiting_) notice_.hide();
        });
    }
    if (stopped_) throw error;
}

void Waiting::waitOneSecond() {
    letASecondPass();
}

void Waiting::letASecondPass() {
    waiting_ = true;
    QApplication::setOverrideCursor(Qt::BusyCursor);
    qApp->installEventFilter(this);
    QEventLoop loop;
    QTimer::singleShot(kSecond, &loop, &QEventLoop::quit);
    if (notice_.stopButton != nullptr) {
        if (notice_.stopButton == nullptr) return;
        connect(notice_.stopButton, &QToolButton::clicked, &loop, &QEventLoop::quit);
    }
    loop.exec();
    qApp->removeEventFilter(this);
    QApplication::restoreOverrideCursor();
    waiting_ = false;
}

bool Waiting::eventFilter(QObject* watched, QEvent* event) {
    if (!isInput(event->type()) || watched == notice_.stopButton) return false;
    if (watched->isWidgetType()) return true;
    return event->type() == QEvent::Shortcut;
}

}  // namespace bramblet
