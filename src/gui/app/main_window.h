// The main window: the order above, its lines and totals in the middle, the lists below.
#pragma once

#include "core/app/program.h"
#include "core/platform/screen.h"
#include "gui/app/main_menu.h"
#include "gui/platform/loss_hint.h"
#include "gui/platform/undo_key.h"
#include "gui/platform/waiting.h"
#include "gui/stock/last_paid_line.h"

#include <QMainWindow>
#include <QPointer>

class QLabel;
class QToolButton;
class QUrl;

namespace bramblet {

class BackupDialog;
class DialogPrompts;
class DisplayWindow;
class HelpWindow;
class OrderPanel;
class TotalsPanel;

class MainWindow : public QMainWindow, private Screen {
  public:
    MainWindow(Program& program, DialogPrompts& prompts, Waiting& waiting);
    ~MainWindow() override;

    /// Another start has called for this window.
    void comeToFront();
    /// Offers the import of a catalogue file that was opened from the desktop, at the earliest when
    /// the start is over. While a command is under way or another window waits for the user, only
    /// says that it could not.
    void offerImport(const std::filesystem::path& file);
    /// Ends the program, asking nothing, as soon as the command under way is finished or given up.
    void end();
    /// The session on this machine is about to end: asks about an unsaved order if that is allowed.
    /// Returns false if the session has to go on.
    bool endSession(const std::function<bool()>& mayAsk);

  protected:
    void closeEvent(QCloseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    QWidget* makeContent();
    QLayout* makeCommandBar();
    void makeStatusBar();
    void tryToEnd();
    void lookForNews();
    void showLine(const QString& line);
    bool showIfFree(const QString& line);
    void runBrowser(const QUrl& link);

    void refresh(const Views& views) override;
    void refreshOrder(bool another);
    void refreshUndo();
    void placeUndoButton(const QString& line);
    void showStatus(const std::string& line, Tone tone) override;
    void showHint(const std::string& line) override;
    void showCaption(const std::string& caption) override;
    void showLine(int row) override;
    std::optional<LineEntry> editLine(const LineEntry& entry, const std::string& caption) override;
    bool lookAtPastedLines() override;
    void configure() override;
    void showSavedOrders() override;
    void showViewer() override;
    void showHelp() override;
    void showContactImport() override;
    void showTableImport() override;
    void showRebuild() override;
    void showSpending() override;
    void showBackup() override;
    void showBackupProgress() override;

    Program& program_;
    Waiting& waiting_;
    OrderPanel* order_;
    LinesPanel* lines_;
    TotalsPanel* totals_;
    ListsPanel* lists_;
    MainMenu menu_;
    PaidReader paidReader_{program_.lastPaid};
    LossHint lossHint_{[this](const QString& line) { return showIfFree(line); }};
    QToolButton* saveButton_;
    QToolButton* copyButton_;
    QToolButton* undoButton_;
    QLabel* dataLabel_;
    UndoKey undoKey_;
    QPointer<HelpWindow> help_;
    DisplayWindow* viewer_ = nullptr;  ///< while it is open
    QPointer<BackupDialog> backup_;
    QString waitingLine_;
    QString doneLine_;
    bool painted_ = false;
    bool lookedAround_ = false;
    std::filesystem::path offered_;  ///< a catalogue opened before the look around
    bool ending_ = false;
};

}  // namespace bramblet
