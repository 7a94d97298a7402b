#include "gui/app/window_place.h"

#include "gui/platform/placement.h"

#include <QGuiApplication>
#include <QMainWindow>
#include <QScreen>

namespace bramblet {
namespace {

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

}  // namespace

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
