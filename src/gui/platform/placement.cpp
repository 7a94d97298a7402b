#include "gui/platform/placement.h"

#include <QScreen>
#include <QWidget>

namespace bramblet {
namespace {

// Room for title bar and borders. Their true size is known only once the window is on the screen.
constexpr int kTitle = 40;
constexpr int kBorder = 20;

/// The place from `first` to `last` that is nearest to `wanted`.
int nearest(int first, int wanted, int last) {
    return qMax(first, qMin(wanted, last));
}

}  // namespace

void placeOverParent(QWidget& window, const QSize& size) {
    const QRect room =
        window.screen()->availableGeometry().adjusted(kBorder, kTitle, -kBorder, -kBorder);
    window.resize(size.boundedTo(room.size()));
    if (window.parentWidget() == nullptr) return;
    QRect place(QPoint(), window.size());
    place.moveCenter(window.parentWidget()->window()->geometry().center());
    place.moveTo(nearest(room.left(), place.left(), room.right() - place.width() + 1),
                 nearest(room.top(), place.top(), room.bottom() - place.height() + 1));
    window.setGeometry(place);
}

}  // namespace bramblet
