// The main window's menus: every command, with its shortcut, where people look for it.
#pragma once

#include "core/app/program.h"

class QAction;
class QMainWindow;
class QMenu;

namespace bramblet {

class LinesPanel;
class ListsPanel;

class MainMenu {
  public:
    MainMenu(QMainWindow& window, Program& program, LinesPanel& lines, ListsPanel& lists);

    /// Enables what can be done now.
    void refresh();

  private:
    void addFileMenu();
    void addItemsMenu();
    void addListsMenu();
    void addSortMenu(QMenu* menu);
    void addDataMenu();
    void addHelpMenu();

    QMainWindow& window_;
    Program& program_;
    LinesPanel& lines_;
    ListsPanel& lists_;
    QAction* saveChanges_;
    QAction* saveCopy_;
};

}  // namespace bramblet
