// Where further windows open.
#pragma once

class QSize;
class QWidget;

namespace bramblet {

/// Gives a window its size, as far as its screen has room for it, and centres it over its parent,
/// or as near to that as keeps all of it, title bar included, on the screen.
void placeOverParent(QWidget& window, const QSize& size);

}  // namespace bramblet
