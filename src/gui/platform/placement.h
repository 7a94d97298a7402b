// Where further windows come up.
#pragma once

class QSize;
class QWidget;

namespace bramblet {

/// Gives a window its size, as far as its screen has room for it, and a place over the middle of
/// its parent where nothing of it, title bar included, lies outside the screen.
void placeOverParent(QWidget& window, const QSize& size);

}  // namespace bramblet
