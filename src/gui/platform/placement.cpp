#include "gui/platform/placement.h"

#include "core/settings/settings.h"

#include <QGuiApplication>
#include <QMainWindow>
#include <QScreen>

namespace bramblet {
namespace {

// Room for title bar and borders. Their true size is known only once the window is on the screen.
constexpr int kTitle = 40;
constexpr int kBorder = 20;

constexpr double kTwipsPerPixel = 15;
// The smallest size at which nothing is cut off, and the size for one never placed or too small.
constexpr QSize kSmallest(960, 640);
constexpr QSize kComfortable(1100, 760);

int pixels(double twips) {
    return qRound(twips / kTwipsPerPixel);
}

const QScreen* screenOf(const QRect& frame) {
    for (const QScreen* screen : QGuiApplication::screens()) {
        // The title bar has to be within reach.
        const QRect titleBar(frame.topLeft(), QSize(frame.width(), 30));
        const QRect visible = screen->availableGeometry() & titleBar;
        if (visible.width() >= 100 && visible.height() >= 20) return screen;
    }
    return nullptr;
}

/// `frame` moved, and shrunk if necessary, so that it lies within `area`.
QRect within(QRect frame, const QRect& area) {
    frame.setSize(frame.size().boundedTo(area.size()));
    frame.moveLeft(qBound(area.left(), frame.left(), area.right() - frame.width() + 1));
    frame.moveTop(qBound(area.top(), frame.top(), area.bottom() - frame.height() + 1));
    return frame;
}

}  // namespace

void placeOverParent(QWidget& window, const QSize& size) {
    const QRect room =
        window.screen()->availableGeometry().adjusted(kBorder, kTitle, -kBorder, -kBorder);
    window.resize(size.boundedTo(room.size()));
    if (window.parentWidget() == nullptr) return;
    QRect place(QPoint(), window.size());
    place.moveCenter(window.parentWidget()->window()->geometry().center());
    window.setGeometry(within(place, room));
}

void placeMainWindow(QMainWindow& window, const WindowPlace& place) {
    window.setMinimumSize(window.minimumSizeHint().expandedTo(kSmallest));
    QSize size(pixels(place.width), pixels(place.height));
    const QSize least = window.minimumSize();
    const bool tooSmall = size.width() < least.width() || size.height() < least.height();
    if (tooSmall) size = kComfortable.expandedTo(least);
    QRect frame(QPoint(pixels(place.left), pixels(place.top)), size);

    const QScreen* screen = screenOf(frame);
    const bool offScreen = screen == nullptr;
    if (offScreen) screen = QGuiApplication::primaryScreen();
    const QRect area = screen->availableGeometry();
    const bool filled = frame.width() >= area.width() && frame.height() >= area.height() - 40;
    if (offScreen || tooSmall) frame = within(frame, area);
    window.resize(frame.size());
    window.move(frame.topLeft());
    if (filled && !tooSmall) window.setWindowState(Qt::WindowMaximized);
}

WindowPlace placeOfMainWindow(const QMainWindow& window) {
    const QRect normal = window.normalGeometry();
    const QSize size = window.isMinimized() ? normal.size() : window.size();
    const QPoint place = window.isMinimized() ? normal.topLeft() : window.pos();
    return {size.height() * kTwipsPerPixel, size.width() * kTwipsPerPixel,
            place.y() * kTwipsPerPixel, place.x() * kTwipsPerPixel};
}

}  // namespace bramblet
