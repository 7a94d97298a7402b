// The main window: the order above, its lines and totals in the middle, the lists below.
#pragma once

#include "core/app/program.h"
#include "gui/platform/waiting.h"

#include <QMainWindow>
#include <QPointer>

class QToolButton;

namespace bramblet {

class DialogPrompts;
class DisplayWindow;
class HelpWindow;
class LinesPanel;
class ListsPanel;
class MainMenu;
class OrderPanel;
class TotalsPanel;

class MainWindow : public QMainWindow {
    Q_OBJECT
  public:
    MainWindow(Program& program, DialogPrompts& prompts, Waiting& waiting);
    ~MainWindow() override;

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    QWidget* makeContent();
    QWidget* makeCommandBar();
    QWidget* makeLinesBand();
    void makeStatusBar();
    void showViewer();
    void showLine(const QString& line);
    /// Opens the settings dialog; `rewrite` is set when it is opened from the viewer.
    void openConfiguration(std::function<void()> rewrite, QWidget* above);
    void showHelp();
    void watchCore();
    void refresh();

    Program& program_;
    DialogPrompts& prompts_;
    Waiting& waiting_;
    OrderPanel* order_;
    LinesPanel* lines_;
    TotalsPanel* totals_;
    ListsPanel* lists_;
    MainMenu* menu_;
    QToolButton* stopWaiting_;
    QToolButton* saveButton_;
    QToolButton* copyButton_;
    QPointer<HelpWindow> help_;
    QPointer<DisplayWindow> viewer_;
    QString waitingLine_;
    QString doneLine_;
};

}  // namespace bramblet
