// The main window's place on the screen, as the settings keep it.
#pragma once

#include "core/app/program.h"

class QMainWindow;

namespace bramblet {

/// Puts the window where it was: no smaller than its minimum size, on a screen that is still there,
/// and maximised if it filled its screen.
void placeMainWindow(QMainWindow& window, const WindowPlace& place);

/// Where the window is now. A maximised window reports its maximised size.
WindowPlace placeOfMainWindow(const QMainWindow& window);

}  // namespace bramblet
