// Where windows open.
#pragma once

class QMainWindow;
class QSize;
class QWidget;

namespace bramblet {

struct WindowPlace;

/// Gives a window its size, as far as its screen has room for it, and centres it over its parent,
/// or as near to that as keeps all of it, title bar included, on the screen.
void placeOverParent(QWidget& window, const QSize& size);

/// Puts the main window where it was: no smaller than its minimum size, on a screen that is still
/// there, and maximised if it filled its screen.
void placeMainWindow(QMainWindow& window, const WindowPlace& place);

/// Where the main window is now. A maximised window reports its maximised size.
WindowPlace placeOfMainWindow(const QMainWindow& window);

}  // namespace bramblet
