// The main window's place on the screen, as the settings keep it.
#pragma once

#include "core/app/program.h"

class QMainWindow;

namespace bramblet {

/// Puts the window where it was: at its size at least, on a screen that is there, and maximised
/// when it filled its screen.
void placeMainWindow(QMainWindow& window, const WindowPlace& place);

/// Where the window is now. A maximised window tells the size it has as such.
WindowPlace placeOfMainWindow(const QMainWindow& window);

}  // namespace bramblet
