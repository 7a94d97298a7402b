#include "app/main_window.h"

#include "app/window_place.h"
#include "document/totals_panel.h"
#include "orders/lines_panel.h"
#include "orders/order_panel.h"
#include "orders/saved_orders_panel.h"
#include "platform/boxes.h"
#include "platform/dialog_prompts.h"
#include "platform/grid_view.h"
#include "platform/icons.h"
#include "platform/qt_text.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QSplitter>
#include <QStatusBar>
#include <QVBoxLayout>

namespace bramblet {

MainWindow::MainWindow(Program& program, DialogPrompts& prompts, Waiting& waiting)
    : program_(program), prompts_(prompts), waiting_(waiting) {
    setObjectName(QStringLiteral("MainWindow"));
    setWindowTitle(QStringLiteral("Bramblet"));
    order_ = new OrderPanel(program.editor, program.addresses, program.open,
                            program.formats().firstDayOfWeek);
    lines_ = new LinesPanel(program.lines, program.open, program.formats(), prompts);
    lines_->dataAvailable = [this] { return program_.folder.available(prompts_); };
    totals_ = new TotalsPanel(program.editor, program.open, program.taxFreight);
    savedOrders_ = new SavedOrdersPanel(program.editor, program.savedOrders, program.open);

    auto* splitter = new QSplitter(Qt::Vertical);
    splitter->setChildrenCollapsible(false);
    splitter->setHandleWidth(8);
    splitter->addWidget(makeLinesBand());
    splitter->addWidget(savedOrders_);
    splitter->setStretchFactor(0, 1);
    splitter->setStretchFactor(1, 1);

    auto* content = new QWidget;
    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(8, 4, 8, 4);
    layout->setSpacing(6);
    layout->addWidget(makeCommandBar());
    layout->addWidget(order_);
    layout->addWidget(splitter, 1);
    setCentralWidget(content);
    makeStatusBar();
    makeMenus();
    watchCore();
    refresh();
    placeMainWindow(*this, program.windowPlace());
}

MainWindow::~MainWindow() {
    // The core outlives the window; it must not call into what is gone.
    program_.open.onChange = [] {};
    program_.addresses.onChange = [] {};
    program_.savedOrders.onChange = [] {};
    program_.editor.setCaption = [](const std::string&) {};
    prompts_.showLine = [](const std::string&) {};
    prompts_.setParent(nullptr);
    waiting_.setNotice({});
}

void MainWindow::closeEvent(QCloseEvent* event) {
    const bool stay =
        waiting_.isWaiting() || program_.leave(placeOfMainWindow(*this)) == Program::Leave::Stay;
    event->setAccepted(!stay);
}

QWidget* MainWindow::makeCommandBar() {
    auto* bar = new QWidget;
    auto* layout = new QHBoxLayout(bar);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    OrderEditor& editor = program_.editor;
    const auto add = [&](const char* name, Drawing drawing, const QString& caption,
                         const QString& tip, void (OrderEditor::*command)()) {
        auto* button = toolButton(name, drawing, caption, tip);
        connect(button, &QToolButton::clicked, this, [&editor, command] { (editor.*command)(); });
        layout->addWidget(button);
        return button;
    };
    add("NewPO", Drawing::New, tr("Ne&w"), tr("Clear all fields for new PO, new PO number"),
        &OrderEditor::NewPO_Click);
    saveButton_ = add("SaveChanges", Drawing::Save, tr("&Save Changes"),
                      tr("Save order as currently shown."), &OrderEditor::SaveChanges_Click);
    copyButton_ = add("Save_PO", Drawing::Copy, tr("Save as &Copy"),
                      tr("Create a copy of current PO."), &OrderEditor::Save_PO_Click);
    add("Clear", Drawing::Clear, tr("Clea&r"), tr("Clear all fields except PO number"),
        &OrderEditor::Clear_Click);
    layout->addStretch(1);
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
    auto* dataLabel = new QLabel(tr("Data Folder"));
    dataLabel->setObjectName(QStringLiteral("Label16"));
    dataLabel->setToolTip(pathToQt("Data Path = " + program_.folder.DataPath()));
    dataLabel->setForegroundRole(QPalette::PlaceholderText);
    stopWaiting_ = new QToolButton;
    stopWaiting_->setObjectName(QStringLiteral("StopWaiting"));
    stopWaiting_->setText(tr("Stop waiting"));
    stopWaiting_->setToolTip(tr("Give up; the file is left as it is."));
    stopWaiting_->hide();
    statusBar()->addPermanentWidget(stopWaiting_);
    statusBar()->addPermanentWidget(dataLabel);
}

void MainWindow::makeMenus() {
    addOrderMenu();
    addItemsMenu();
    addListsMenu();
    addHelpMenu();
}

void MainWindow::addOrderMenu() {
    OrderEditor& editor = program_.editor;
    QMenu* menu = menuBar()->addMenu(tr("&File"));
    addEntry(
        menu, "mu_NewPO", tr("&New Order"), [&editor] { editor.NewPO_Click(); }, QKeySequence::New);
    saveEntry_ = addEntry(
        menu, "mu_SaveChanges", tr("&Save Changes"), [&editor] { editor.SaveChanges_Click(); },
        QKeySequence::Save);
    copyEntry_ = addEntry(
        menu, "mu_Save_PO", tr("Save as &Copy"), [&editor] { editor.Save_PO_Click(); },
        QKeySequence(tr("Ctrl+Shift+S")));
    addEntry(menu, "make10", tr("&make 10 copies"), [&editor] { editor.make10_Click(); });
    addEntry(menu, "mu_Clear", tr("C&lear"), [&editor] { editor.Clear_Click(); });
    menu->addSeparator();
    addEntry(
        menu, "mu_TotalUp", tr("&Total Up"), [&editor] { editor.TotalUp_Click(); },
        QKeySequence(Qt::Key_F9));
    addEntry(menu, "mu_UnlockNumber", tr("&Unlock the Number ..."),
             [&editor] { editor.Label11_DblClick(); });
    menu->addSeparator();
    addEntry(
        menu, "mu_exit", tr("E&xit"), [this] { close(); }, QKeySequence(tr("Ctrl+Q")));
}

void MainWindow::addItemsMenu() {
    QMenu* menu = menuBar()->addMenu(tr("&Items"));
    addEntry(
        menu, "mu_OneTime", tr("&Add one-time item"), [this] { lines_->addOneTimeItem(); },
        QKeySequence(tr("Ctrl+I")));
    addEntry(
        menu, "mu_EditItem", tr("&Edit this item"), [this] { lines_->editCurrentLine(); },
        QKeySequence(tr("Ctrl+E")));
}

void MainWindow::addListsMenu() {
    QMenu* menu = menuBar()->addMenu(tr("&Lists"));
    addEntry(
        menu, "mu_GoToLines", tr("Go to the &Lines"), [this] { lines_->grid()->setFocus(); },
        QKeySequence(Qt::Key_F6));
    addEntry(
        menu, "mu_GoToList", tr("&Go to the List"), [this] { savedOrders_->grid()->setFocus(); },
        QKeySequence(Qt::Key_F7));
    QMenu* sort = menu->addMenu(tr("&Sort Saved Orders by"));
    const QAbstractItemModel* model = savedOrders_->grid()->model();
    for (int column = 0; column < kSavedOrderColumns; ++column) {
        const QString heading = model->headerData(column, Qt::Horizontal).toString();
        sort->addAction(heading, this, [this, column] { savedOrders_->sortBy(column); });
    }
    menu->addSeparator();
    addEntry(menu, "mu_DeleteOrder", tr("&Delete Order"),
             [this] { savedOrders_->deleteCurrentOrder(); });
}

void MainWindow::addHelpMenu() {
    QMenu* menu = menuBar()->addMenu(tr("&Help"));
    addEntry(menu, "mu_About", tr("&About Bramblet"), [this] { program_.mu_About(); });
}

QAction* MainWindow::addEntry(QMenu* menu, const char* name, const QString& caption,
                              std::function<void()> command, const QKeySequence& keys) {
    QAction* entry = menu->addAction(caption);
    entry->setObjectName(QLatin1String(name));
    entry->setShortcut(keys);
    connect(entry, &QAction::triggered, this, [command = std::move(command)] { command(); });
    return entry;
}

void MainWindow::watchCore() {
    prompts_.setParent(this);
    prompts_.showLine = [this](const std::string& line) { showStatus(pathToQt(line)); };
    program_.open.onChange = [this] { refresh(); };
    program_.savedOrders.onChange = [this] { savedOrders_->refreshList(); };
    program_.editor.setCaption = [this](const std::string& caption) {
        setWindowTitle(toQt(caption));
    };
    waiting_.setNotice({[this](const std::string& line) {
                            showStatus(pathToQt(line));
                            stopWaiting_->show();
                        },
                        [this] {
                            statusBar()->clearMessage();
                            stopWaiting_->hide();
                        },
                        stopWaiting_});
}

void MainWindow::refresh() {
    order_->refresh();
    lines_->refresh();
    totals_->refresh();
    saveButton_->setEnabled(program_.open.SaveChangesEnabled);
    copyButton_->setEnabled(program_.open.Save_POEnabled);
    saveEntry_->setEnabled(program_.open.SaveChangesEnabled);
    copyEntry_->setEnabled(program_.open.Save_POEnabled);
    // "Order 000123 is saved" is no longer true once it has been edited again.
    const bool changed = program_.open.OrderDirty;
    if (changed && !wasChanged_) statusBar()->clearMessage();
    wasChanged_ = changed;
}

void MainWindow::showStatus(const QString& line) {
    statusBar()->showMessage(line);
}

}  // namespace bramblet
