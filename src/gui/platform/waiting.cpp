#include "gui/platform/waiting.h"

#include "core/platform/path_text.h"
#include "gui/platform/qt_text.h"

#include <QApplication>
#include <QEvent>
#include <QEventLoop>
#include <QKeyEvent>
#include <QTimer>
#include <QToolButton>

#include <algorithm>
#include <array>

namespace bramblet {
namespace {

constexpr int kSecond = 1000;
const QString kStopButton = u"StopWaiting"_s;

/// What a person does to the windows, and what would make a box act on it.
constexpr std::array kInput{
    QEvent::MouseButtonPress,
    QEvent::MouseButtonRelease,
    QEvent::MouseButtonDblClick,
    QEvent::Wheel,
    QEvent::KeyPress,
    QEvent::KeyRelease,
    QEvent::Shortcut,
    QEvent::ShortcutOverride,
    QEvent::ContextMenu,
    QEvent::InputMethod,
    QEvent::TouchBegin,
    QEvent::Drop,
    QEvent::FocusIn,
    QEvent::FocusOut,
    QEvent::Close,
};

}  // namespace

QToolButton* Waiting::makeStopButton() {
    auto* stop = new QToolButton;
    stop->setObjectName(kStopButton);
    stop->setText(u"Stop waiting"_s);
    stop->setToolTip(u"Give up; the file is left as it is."_s);
    stop->setFocusPolicy(Qt::NoFocus);
    stop->hide();
    connect(stop, &QToolButton::clicked, this, &Waiting::giveUp);
    connect(this, &Waiting::began, stop, &QWidget::show);
    connect(this, &Waiting::ended, stop, &QWidget::hide);
    return stop;
}

void Waiting::waitForFile(const FileError& error) {
    if (givenUp_) throw error;
    emit began(messageToQt("Waiting for " + shown(error.path().filename()) +
                           ", which is in use or locked (" + error.description() +
                           "). Esc stops waiting ..."));
    waitOneSecond();
    // Once the command has ended and the program is idle again, the notice goes, and the next
    // command starts waiting afresh.
    QTimer::singleShot(0, this, [this] {
        if (waiting_) return;
        givenUp_ = false;
        emit ended();
    });
    if (givenUp_) throw error;
}

void Waiting::waitOneSecond() {
    QEventLoop loop;
    QTimer::singleShot(kSecond, &loop, &QEventLoop::quit);
    QApplication::setOverrideCursor(Qt::BusyCursor);
    qApp->installEventFilter(this);
    waiting_ = &loop;
    loop.exec();
    waiting_ = nullptr;
    qApp->removeEventFilter(this);
    QApplication::restoreOverrideCursor();
}

void Waiting::giveUp() {
    if (!waiting_) return;
    givenUp_ = true;
    waiting_->quit();
}

bool Waiting::eventFilter(QObject* watched, QEvent* event) {
    const bool input = std::find(kInput.begin(), kInput.end(), event->type()) != kInput.end();
    if (!input || watched->objectName() == kStopButton) return false;
    if (event->type() == QEvent::Close) event->ignore();
    const bool escape = event->type() == QEvent::KeyPress &&
                        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
    if (escape) giveUp();
    return watched->isWidgetType() || event->type() == QEvent::Shortcut;
}

}  // namespace bramblet
