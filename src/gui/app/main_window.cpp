#include "gui/app/main_window.h"

#include "gui/addresses/contact_dialog.h"
#include "gui/app/help_window.h"
#include "gui/app/lists_panel.h"
#include "gui/app/main_menu.h"
#include "gui/app/window_place.h"
#include "gui/backup/backup_dialog.h"
#include "gui/document/display_window.h"
#include "gui/orders/lines_panel.h"
#include "gui/orders/order_panel.h"
#include "gui/orders/totals_panel.h"
#include "gui/platform/boxes.h"
#include "gui/platform/dialog_prompts.h"
#include "gui/platform/icons.h"
#include "gui/platform/literals.h"
#include "gui/platform/qt_text.h"
#include "gui/settings/config_dialog.h"
#include "gui/stock/stock_panel.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QSplitter>
#include <QStatusBar>
#include <QVBoxLayout>

namespace bramblet {

MainWindow::MainWindow(Program& program, DialogPrompts& prompts, Waiting& waiting)
    : program_(program), prompts_(prompts), waiting_(waiting) {
    setObjectName(u"MainWindow"_s);
    order_ = new OrderPanel(program.editor, program.addresses, program.histories, program.open,
                            program.formats().firstDayOfWeek);
    lines_ = new LinesPanel(program.lines, program.open, program.stock, program.formats(), prompts);
    totals_ = new TotalsPanel(program.editor, program.open, program.taxFreight, program.formats());
    lists_ = new ListsPanel(program);
    const auto dataAvailable = [this] { return program_.folder.available(prompts_); };
    lines_->dataAvailable = dataAvailable;
    lists_->stock()->dataAvailable = dataAvailable;

    setCentralWidget(makeContent());
    makeStatusBar();
    menu_ = new MainMenu(*this, program, *lines_, *lists_);
    menu_->openConfiguration = [this] { openConfiguration(nullptr, this); };
    watchCore();
    refresh();
    lists_->refreshStock();
    placeMainWindow(*this, program.windowPlace());
}

MainWindow::~MainWindow() {
    // The core outlives the window, and must not call into what is gone.
    program_.open.onChange = [] {};
    program_.savedOrders.onChange = [] {};
    program_.stock.onListChange = [] {};
    program_.stock.onPick = [] {};
    program_.lines.showDialog = nullptr;
    program_.lines.showLine = [](int) {};
    program_.viewer.showViewer = [] {};
    program_.browser.showHelp = [] {};
    program_.contactImport.showDialog = [] {};
    program_.backup.showWindow = [](Backup::Kind) {};
    prompts_.showLine = [](const std::string&, bool) {};
    prompts_.setParent(nullptr);
    waiting_.setNotice({});
}

void MainWindow::closeEvent(QCloseEvent* event) {
    const bool stay =
        waiting_.isWaiting() || program_.leave(placeOfMainWindow(*this)) == Program::Leave::Stay;
    event->setAccepted(!stay);
}

QWidget* MainWindow::makeContent() {
    auto* splitter = new QSplitter(Qt::Vertical);
    splitter->setChildrenCollapsible(false);
    splitter->setHandleWidth(8);
    splitter->addWidget(makeLinesBand());
    splitter->addWidget(lists_);
    splitter->setStretchFactor(0, 1);
    splitter->setStretchFactor(1, 1);

    auto* content = new QWidget;
    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(8, 4, 8, 4);
    layout->setSpacing(6);
    layout->addWidget(makeCommandBar());
    layout->addWidget(order_);
    layout->addWidget(splitter, 1);
    return content;
}

QWidget* MainWindow::makeCommandBar() {
    auto* bar = new QWidget;
    auto* layout = new QHBoxLayout(bar);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    OrderEditor& editor = program_.editor;
    const auto addButton = [&](const char* name, Drawing drawing, const QString& caption,
                               const QString& tip, const std::function<void()>& command) {
        auto* button = toolButton(name, drawing, caption, tip);
        connect(button, &QToolButton::clicked, this, [command] { command(); });
        layout->addWidget(button);
        return button;
    };
    const auto add = [&](const char* name, Drawing drawing, const QString& caption,
                         const QString& tip, void (OrderEditor::*command)()) {
        return addButton(name, drawing, caption, tip, [&editor, command] { (editor.*command)(); });
    };
    add("NewPO", Drawing::New, u"Ne&w"_s, u"Clear all fields for new PO, new PO number"_s,
        &OrderEditor::NewPO_Click);
    saveButton_ = add("SaveChanges", Drawing::Save, u"&Save Changes"_s,
                      u"Save order as currently shown."_s, &OrderEditor::SaveChanges_Click);
    copyButton_ = add("Save_PO", Drawing::Copy, u"Save as &Copy"_s,
                      u"Create a copy of current PO."_s, &OrderEditor::Save_PO_Click);
    add("Clear", Drawing::Clear, u"Clea&r"_s, u"Clear all fields except PO number"_s,
        &OrderEditor::Clear_Click);
    layout->addSpacing(12);
    add("TotalUp", Drawing::TotalUp, u"Total &Up"_s, u"Total up order."_s,
        &OrderEditor::TotalUp_Click);
    addButton("MakeOrder", Drawing::View, u"View Order"_s,
              u"Show the order as it is printed, to print or mail it."_s,
              [this] { program_.viewer.MakeOrder_Click(); });
    layout->addStretch(1);
    addButton("HelpButton", Drawing::Help, u"Help"_s, u"How to use Bramblet."_s,
              [this] { program_.browser.mu_HelpContents_Click(); });
    return bar;
}

QWidget* MainWindow::makeLinesBand() {
    auto* band = new QWidget;
    auto* layout = new QHBoxLayout(band);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(10);
    layout->addWidget(lines_, 1);
    layout->addWidget(totals_);
    return band;
}

void MainWindow::makeStatusBar() {
    auto* dataLabel = new QLabel(u"Data Folder"_s);
    dataLabel->setObjectName(u"Label16"_s);
    dataLabel->setToolTip(u"Data Path = %1"_s.arg(pathToQt(program_.folder.DataPath())));
    dataLabel->setForegroundRole(QPalette::PlaceholderText);
    stopWaiting_ = new QToolButton;
    stopWaiting_->setObjectName(u"StopWaiting"_s);
    stopWaiting_->setText(u"Stop waiting"_s);
    stopWaiting_->setToolTip(u"Give up; the file is left as it is."_s);
    stopWaiting_->setFocusPolicy(Qt::NoFocus);
    stopWaiting_->hide();
    statusBar()->addPermanentWidget(stopWaiting_);
    statusBar()->addPermanentWidget(dataLabel);
}

void MainWindow::showViewer() {
    auto* viewer = new DisplayWindow(program_.viewer, this);
    viewer_ = viewer;
    viewer->runBrowser = [this](const std::string& target) { program_.browser.RunBrowser(target); };
    viewer->openConfiguration = [this, viewer](std::function<void()> rewrite) {
        openConfiguration(std::move(rewrite), viewer);
    };
    viewer->show();
}

void MainWindow::openConfiguration(std::function<void()> rewrite, QWidget* above) {
    const Prompts::Command command(prompts_);
    program_.settingsEditor.rewriteShown = std::move(rewrite);
    ConfigDialog dialog(program_.settingsEditor, program_.files(), program_.folder.DataPath(),
                        above);
    dialog.exec();
    // The list of stock items may have gained or lost a column.
    if (program_.folder.DataPathOK()) program_.stock.PopStockList();
}

void MainWindow::showHelp() {
    if (help_ == nullptr) {
        help_ = new HelpWindow(this);
        help_->runBrowser = [this](const std::string& target) {
            program_.browser.RunBrowser(target);
        };
    }
    help_->show();
    help_->raise();
    help_->activateWindow();
}

/// In the status bar, and in the viewer's while that is open.
void MainWindow::showLine(const QString& line) {
    statusBar()->showMessage(line);
    if (viewer_ != nullptr) viewer_->statusBar()->showMessage(line);
}

void MainWindow::watchCore() {
    program_.viewer.showViewer = [this] { showViewer(); };
    program_.browser.showHelp = [this] { showHelp(); };
    program_.contactImport.showDialog = [this] {
        ContactDialog(program_.contactImport, this).exec();
    };
    program_.backup.showWindow = [this](Backup::Kind kind) {
        BackupDialog(program_.backup, kind, this).exec();
    };
    prompts_.setParent(this);
    prompts_.showLine = [this](const std::string& line, bool lasting) {
        showLine(messageToQt(line));
        doneLine_ = lasting ? QString() : statusBar()->currentMessage();
    };
    program_.open.onChange = [this] { refresh(); };
    program_.savedOrders.onChange = [this] { lists_->refreshOrders(); };
    program_.stock.onListChange = [this] { lists_->refreshStock(); };
    program_.stock.onPick = [this] { lists_->stock()->refreshEditor(); };
    const auto show = [this](const std::string& line) {
        waitingLine_ = messageToQt(line);
        showLine(waitingLine_);
        stopWaiting_->show();
    };
    const auto hide = [this] {
        // A line that the operation showed when it ended stays.
        if (statusBar()->currentMessage() == waitingLine_) showLine({});
        stopWaiting_->hide();
    };
    waiting_.setNotice({show, hide, stopWaiting_});
}

void MainWindow::refresh() {
    setWindowTitle(toQt(program_.open.caption));
    order_->refresh();
    lines_->refresh();
    totals_->refresh();
    menu_->refresh();
    saveButton_->setEnabled(program_.open.SaveChangesEnabled);
    copyButton_->setEnabled(program_.open.Save_POEnabled);
    // "Order 000123 is saved" is no longer true once it has been edited again.
    if (program_.open.OrderDirty && !doneLine_.isEmpty()) {
        if (statusBar()->currentMessage() == doneLine_) statusBar()->clearMessage();
        doneLine_.clear();
    }
}

}  // namespace bramblet
