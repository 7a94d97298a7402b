#include "gui/platform/placement.h"

#include <QScreen>
#include <QWidget>

namespace bramblet {
namespace {

// Room for title bar and borders. Their true size is known only once the window is on the screen.
constexpr int kTitle = 40;
constexpr int kBorder = 20;

}  // namespace

QRect within(QRect frame, const QRect& area) {
    frame.setSize(frame.size().boundedTo(area.size()));
    frame.moveLeft(qBound(area.left(), frame.left(), area.right() - frame.width() + 1));
    frame.moveTop(qBound(area.top(), frame.top(), area.bottom() - frame.height() + 1));
    return frame;
}

void placeOverParent(QWidget& window, const QSize& size) {
    const QRect room =
        window.screen()->availableGeometry().adjusted(kBorder, kTitle, -kBorder, -kBorder);
    window.resize(size.boundedTo(room.size()));
    if (window.parentWidget() == nullptr) return;
    QRect place(QPoint(), window.size());
    place.moveCenter(window.parentWidget()->window()->geometry().center());
    window.setGeometry(within(place, room));
}

}  // namespace bramblet
