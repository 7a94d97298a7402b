// The main window's menus: every command, with its shortcut, where people look for it.
#pragma once

#include "core/app/program.h"

class QAction;
class QMainWindow;

namespace bramblet {

class LinesPanel;
class ListsPanel;

/// The entries that cannot always be chosen.
struct MainMenu {
    QAction* saveChanges;
    QAction* saveCopy;
    QAction* undo;
};

/// Adds the menus to the window. What their commands act on has to live as long as it does.
MainMenu makeMainMenu(QMainWindow& window, Program& program, LinesPanel& lines, ListsPanel& lists);

}  // namespace bramblet
