// Where windows open.
#pragma once

#include <QRect>

class QWidget;

namespace bramblet {

/// `frame` moved, and shrunk if necessary, so that it lies within `area`.
QRect within(QRect frame, const QRect& area);

/// Gives a window its size, as far as its screen has room for it, and centres it over its parent,
/// or as near to that as keeps all of it, title bar included, on the screen.
void placeOverParent(QWidget& window, const QSize& size);

}  // namespace bramblet
