// The main window: the order above, its lines and totals in the middle, the lists below.
#pragma once

#include "app/program.h"
#include "platform/waiting.h"

#include <QMainWindow>

class QAction;
class QMenu;
class QToolButton;

namespace bramblet {

class DialogPrompts;
class LinesPanel;
class OrderPanel;
class SavedOrdersPanel;
class TotalsPanel;

class MainWindow : public QMainWindow {
    Q_OBJECT
  public:
    MainWindow(Program& program, DialogPrompts& prompts, Waiting& waiting);
    ~MainWindow() override;

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    QWidget* makeCommandBar();
    QWidget* makeLinesBand();
    void makeStatusBar();
    void makeMenus();
    void addOrderMenu();
    void addItemsMenu();
    void addListsMenu();
    void addHelpMenu();
    QAction* addEntry(QMenu* menu, const char* name, const QString& caption,
                      std::function<void()> command, const QKeySequence& keys = {});
    void watchCore();
    void refresh();
    void showStatus(const QString& line);

    Program& program_;
    DialogPrompts& prompts_;
    Waiting& waiting_;
    OrderPanel* order_;
    LinesPanel* lines_;
    TotalsPanel* totals_;
    SavedOrdersPanel* savedOrders_;
    QToolButton* stopWaiting_;
    QAction* saveEntry_;
    QAction* copyEntry_;
    QToolButton* saveButton_;
    QToolButton* copyButton_;
    bool wasChanged_ = false;
};

}  // namespace bramblet
