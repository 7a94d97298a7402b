#include "gui/app/main_window.h"

#include "gui/addresses/contact_dialog.h"
#include "gui/addresses/table_import_dialog.h"
#include "gui/app/help_window.h"
#include "gui/app/lists_panel.h"
#include "gui/backup/backup_dialog.h"
#include "gui/document/display_window.h"
#include "gui/orders/line_dialog.h"
#include "gui/orders/lines_panel.h"
#include "gui/orders/order_panel.h"
#include "gui/orders/paste_dialog.h"
#include "gui/orders/rebuild_dialog.h"
#include "gui/orders/spending_dialog.h"
#include "gui/orders/totals_panel.h"
#include "gui/platform/boxes.h"
#include "gui/platform/dialog_prompts.h"
#include "gui/platform/icons.h"
#include "gui/platform/placement.h"
#include "gui/platform/qt_text.h"
#include "gui/settings/config_dialog.h"
#include "gui/stock/stock_panel.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDialog>
#include <QElapsedTimer>
#include <QScrollArea>
#include <QSplitter>
#include <QStatusBar>
#include <QTimer>

#include <utility>

namespace bramblet {
namespace {

constexpr int kBetweenLooks = 3000;  // milliseconds, for what colleagues have changed
constexpr int kTimesAsLong = 50;     // the pause after a look
constexpr int kLongestPause = 10 * 60'000;

/// Large text may need more room than a small screen has: the window's content scrolls then.
class Scrolling : public QScrollArea {
  public:
    explicit Scrolling(QWidget* content) {
        setFrameShape(NoFrame);
        setWidgetResizable(true);
        setFocusPolicy(Qt::NoFocus);
        setWidget(content);
    }
    QSize minimumSizeHint() const override {
        constexpr QSize kMost(1020, 640);
        return widget()->minimumSizeHint().boundedTo(kMost);
    }
};

}  // namespace

MainWindow::MainWindow(Program& program, DialogPrompts& prompts, Waiting& waiting)
    : program_(program), waiting_(waiting) {
    setObjectName(u"MainWindow"_s);
    order_ = new OrderPanel(program.editor, program.addresses, program.histories, program.open,
                            program.formats().firstDayOfWeek);
    lines_ = new LinesPanel(program.lines, program.open, program.formats());
    totals_ = new TotalsPanel(program.editor, program.open, program.taxFreight, program.formats());
    lists_ = new ListsPanel(program, paidReader_);
    lossHint_.watch(*order_);
    setCentralWidget(new Scrolling(makeContent()));
    undoKey_.watch(*this);
    makeStatusBar();
    menu_ = makeMainMenu(*this, program, *lines_, *lists_);
    refreshUndo();
    setWindowTitle(QLatin1String(kUsualCaption));
    prompts.setParent(this);
    program.commands.setScreen(this);
    placeMainWindow(*this, program.windowPlace());
}

MainWindow::~MainWindow() {
    program_.commands.setScreen(nullptr);  // the core outlives the window
}

void MainWindow::closeEvent(QCloseEvent* event) {
    const bool stay = program_.commands.running() ||
                      program_.leave(placeOfMainWindow(*this)) == Program::Leave::Stay;
    // While it is ending anyway, the question may have been closed without an answer.
    event->setAccepted(!stay && !ending_);
}

void MainWindow::comeToFront() {
    setWindowState(windowState() & ~Qt::WindowMinimized);
    QWidget* const modal = QApplication::activeModalWidget();
    QWidget* const front = modal != nullptr ? modal : this;
    raise();
    front->raise();
    front->activateWindow();
}

void MainWindow::offerImport(const std::filesystem::path& file) {
    if (!lookedAround_) {
        offered_ = file;
    } else if (!program_.commands.running() && QApplication::activeModalWidget() == nullptr) {
        program_.stockExchange.offerImport(file);
    } else {
        showLine(u"%1 was not opened: finish what is open first, then open it again."_s.arg(
            pathToQt(file)));
    }
}

void MainWindow::end() {
    constexpr int kBetweenTries = 50;  // milliseconds
    if (std::exchange(ending_, true)) return;
    auto* tries = new QTimer(this);
    connect(tries, &QTimer::timeout, this, &MainWindow::tryToEnd);
    tries->start(kBetweenTries);
}

/// What is open is closed one by one: each close lets what waited for it go on.
void MainWindow::tryToEnd() {
    waiting_.giveUp();
    QWidget* const popup = QApplication::activePopupWidget();
    QWidget* const modal = QApplication::activeModalWidget();
    if (popup != nullptr) {
        popup->close();
    } else if (auto* const dialog = qobject_cast<QDialog*>(modal)) {
        dialog->reject();  // a question that has to be answered cannot be closed
    } else if (modal != nullptr) {
        modal->close();
    } else if (!program_.commands.running()) {
        program_.leaveUnasked(placeOfMainWindow(*this));
        QApplication::exit();
    }
}

bool MainWindow::endSession(const std::function<bool()>& mayAsk) {
    const bool idle = !program_.commands.running() && QApplication::activeModalWidget() == nullptr;
    if (idle && program_.open.OrderDirty() && mayAsk())
        return program_.leave(placeOfMainWindow(*this)) == Program::Leave::Now;
    program_.leaveUnasked(placeOfMainWindow(*this));
    return true;
}

/// What nobody is waiting for is done once the window has been painted.
void MainWindow::paintEvent(QPaintEvent* event) {
    QMainWindow::paintEvent(event);
    if (std::exchange(painted_, true)) return;
    QTimer::singleShot(0, this, [this] {
        program_.lookAround();
        lookedAround_ = true;
        if (!offered_.empty()) offerImport(offered_);
    });
    QTimer::singleShot(kBetweenLooks, this, &MainWindow::lookForNews);
}

/// Only while the user is at this window and nothing goes on in it. A server that answers slowly is
/// asked the less often.
void MainWindow::lookForNews() {
    const bool idle = isActiveWindow() && QApplication::activeModalWidget() == nullptr &&
                      QApplication::activePopupWidget() == nullptr &&
                      QApplication::mouseButtons() == Qt::NoButton;
    QElapsedTimer took;
    took.start();
    if (idle) program_.lookForNews();
    paidReader_.goOn();
    const auto pause = qMin<qint64>(kBetweenLooks + kTimesAsLong * took.elapsed(), kLongestPause);
    QTimer::singleShot(static_cast<int>(pause), this, &MainWindow::lookForNews);
}

QWidget* MainWindow::makeContent() {
    auto* splitter = new QSplitter(Qt::Vertical);
    splitter->setChildrenCollapsible(false);
    splitter->setHandleWidth(8);
    splitter->addWidget(fill(new QWidget, row(10, {grow(lines_), totals_})));
    splitter->addWidget(lists_);
    splitter->setStretchFactor(0, 1);
    splitter->setStretchFactor(1, 1);

    auto* rows = column(6, {makeCommandBar(), order_, grow(splitter)});
    return fill(new QWidget, rows, QMargins(8, 4, 8, 4));
}

QLayout* MainWindow::makeCommandBar() {
    OrderEditor& editor = program_.editor;
    saveButton_ =
        toolButton("SaveChanges", Drawing::Save, u"&Save Changes"_s,
                   u"Save order as currently shown."_s, [&] { editor.SaveChanges_Click(); });
    copyButton_ = toolButton("Save_PO", Drawing::Copy, u"Save as &Copy"_s,
                             u"Create a copy of current PO."_s, [&] { editor.Save_PO_Click(); });
    return row(
        2,
        {toolButton("NewPO", Drawing::New, u"Ne&w"_s,
                    u"Clear all fields for new PO, new PO number"_s, [&] { editor.NewPO_Click(); }),
         saveButton_, copyButton_,
         toolButton("Clear", Drawing::Clear, u"Clea&r"_s, u"Clear all fields except PO number"_s,
                    [&] { editor.Clear_Click(); }),
         gap(12),
         toolButton("TotalUp", Drawing::TotalUp, u"Total &Up"_s, u"Total up order."_s,
                    [&] { editor.TotalUp_Click(); }),
         toolButton("MakeOrder", Drawing::View, u"View Order"_s,
                    u"Show the order as it is printed, to print or mail it."_s,
                    [this] { program_.viewer.MakeOrder_Click(); }),
         spring(),
         toolButton("HelpButton", Drawing::Help, u"Help"_s, u"How to use Bramblet."_s,
                    [this] { program_.browser.mu_HelpContents_Click(); })});
}

void MainWindow::makeStatusBar() {
    dataLabel_ =
        quietLabel("Label16", u"Data Path = %1"_s.arg(pathToQt(program_.folder.DataPath())));
    dataLabel_->setText(u"Data Folder"_s);
    statusBar()->addPermanentWidget(waiting_.makeStopButton());
    statusBar()->addPermanentWidget(dataLabel_);
    undoButton_ = new QToolButton(statusBar());
    undoButton_->setObjectName(u"Undo"_s);
    undoButton_->setText(u"Undo"_s);
    undoButton_->setFocusPolicy(Qt::TabFocus);
    undoButton_->hide();
    connect(undoButton_, &QToolButton::clicked, this, [this] { program_.undo.mu_Undo_Click(); });
    connect(statusBar(), &QStatusBar::messageChanged, this, &MainWindow::placeUndoButton);
    connect(&waiting_, &Waiting::began, this, [this](const QString& line) {
        waitingLine_ = line;
        showLine(line);
    });
    connect(&waiting_, &Waiting::ended, this, [this] {
        // A line that the operation showed when it ended stays.
        if (statusBar()->currentMessage() == waitingLine_) showLine(QString());
    });
}

/// In the status bar, and in the viewer's while that is open.
void MainWindow::showLine(const QString& line) {
    statusBar()->showMessage(line);
    if (viewer_ != nullptr) viewer_->statusBar()->showMessage(line);
}

/// Unless something stands there.
bool MainWindow::showIfFree(const QString& line) {
    const bool free = statusBar()->currentMessage().isEmpty();
    if (free) showLine(line);
    return free;
}

/// Right behind the line that says what has been deleted, as long as that is shown.
void MainWindow::placeUndoButton(const QString& line) {
    const QString done = messageToQt(program_.undo.line());
    const bool shown = !done.isEmpty() && line.endsWith(done);
    undoButton_->setVisible(shown);
    if (!shown) return;
    constexpr int kBegin = 6;  // of the line in the status bar
    const int gap = fontMetrics().averageCharWidth() * 2;
    const QSize size = undoButton_->sizeHint().boundedTo(statusBar()->size());
    const int end = kBegin + statusBar()->fontMetrics().horizontalAdvance(line) + gap;
    undoButton_->setGeometry(QRect(QPoint(qMin(end, dataLabel_->x() - gap - size.width()),
                                          (statusBar()->height() - size.height()) / 2),
                                   size));
}

void MainWindow::runBrowser(const QUrl& link) {
    program_.browser.RunBrowser(fromQt(link.toString()));
}

void MainWindow::refresh(const Views& views) {
    if (views.order) refreshOrder(views.anotherOrder);
    if (views.savedOrders) lists_->refreshOrders();
    if (views.stockList) lists_->refreshStock();
    if (views.stockItem) lists_->stock()->refreshEditor();
    refreshUndo();
}

void MainWindow::refreshUndo() {
    const QString what = messageToQt(program_.undo.what());
    const QString undo = u"Undo %1"_s.arg(what).trimmed();
    undoButton_->setToolTip(undo + u" (Ctrl+Z)"_s);
    undoButton_->setAccessibleName(undo);
    menu_.undo->setText(u"Un&do "_s + QString(what).replace(u'&', u"&&"_s));
    menu_.undo->setEnabled(!what.isEmpty());
}

void MainWindow::refreshOrder(bool another) {
    const OpenOrder& open = program_.open;
    order_->refresh();
    lines_->refresh(another);
    totals_->refresh();
    saveButton_->setEnabled(open.SaveChangesEnabled());
    menu_.saveChanges->setEnabled(open.SaveChangesEnabled());
    copyButton_->setEnabled(open.Save_POEnabled());
    menu_.saveCopy->setEnabled(open.Save_POEnabled());
    // "Order 000123 is saved" is no longer true once it has been edited again.
    if (open.OrderDirty() && !doneLine_.isEmpty()) {
        if (statusBar()->currentMessage() == doneLine_) statusBar()->clearMessage();
        doneLine_.clear();
    }
}

void MainWindow::showStatus(const std::string& line, Tone tone) {
    showLine(messageToQt(line));
    doneLine_ = tone == Tone::Done ? statusBar()->currentMessage() : QString();
}

void MainWindow::showHint(const std::string& line) {
    showIfFree(toQt(line));
}

void MainWindow::showCaption(const std::string& caption) {
    setWindowTitle(toQt(caption));
}

void MainWindow::showLine(int row) {
    lines_->showLine(row);
}

std::optional<LineEntry> MainWindow::editLine(const LineEntry& entry, const std::string& caption) {
    return showLineDialog(entry, caption, program_.stock.entries().units,
                          program_.open.storedNumber(), paidReader_, program_.formats(),
                          program_.commands, lossHint_, this);
}

bool MainWindow::lookAtPastedLines() {
    return showPasteDialog(program_.lines.pasted(), this);
}

void MainWindow::configure() {
    const auto show = [&](const std::function<void()>& rewrite, QWidget* parent) {
        showConfigDialog(program_.settingsEditor, program_.files(), program_.folder.DataPath(),
                         rewrite, parent);
    };
    viewer_ != nullptr ? show([this] { viewer_->rewrite(); }, viewer_) : show({}, this);
}

void MainWindow::showSavedOrders() {
    lists_->showOrders();
}

void MainWindow::showViewer() {
    viewer_ = new DisplayWindow(program_.viewer, this);
    connect(viewer_, &DisplayWindow::closed, this, [this] { viewer_ = nullptr; });
    connect(viewer_, &DisplayWindow::linkFollowed, this, &MainWindow::runBrowser);
    connect(viewer_, &DisplayWindow::configurationWanted, this, [this] { program_.configure(); });
    viewer_->show();
}

void MainWindow::showHelp() {
    if (help_ == nullptr) {
        help_ = new HelpWindow(this);
        connect(help_, &HelpWindow::linkFollowed, this, &MainWindow::runBrowser);
    }
    help_->show();
    help_->raise();
    help_->activateWindow();
}

void MainWindow::showContactImport() {
    showContactDialog(program_.contactImport, this);
}

void MainWindow::showTableImport() {
    showTableImportDialog(program_.tableImport, this);
}

void MainWindow::showRebuild() {
    showRebuildDialog(program_.listRebuild, this);
}

void MainWindow::showSpending() {
    showSpendingDialog(program_.spending, this);
}

void MainWindow::showBackup() {
    BackupDialog dialog(program_.backup, this);
    backup_ = &dialog;
    dialog.exec();
}

void MainWindow::showBackupProgress() {
    if (backup_ != nullptr) backup_->showProgress();
}

}  // namespace bramblet
