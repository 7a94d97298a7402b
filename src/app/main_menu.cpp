#include "app/main_menu.h"

#include "app/lists_panel.h"
#include "orders/lines_panel.h"
#include "orders/saved_orders_panel.h"
#include "platform/grid_view.h"
#include "stock/stock_panel.h"

#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

namespace bramblet {

MainMenu::MainMenu(QMainWindow& window, Program& program, LinesPanel& lines, ListsPanel& lists)
    : QObject(&window), window_(window), program_(program), lines_(lines), lists_(lists) {
    addFileMenu();
    addItemsMenu();
    addListsMenu();
    addDataMenu();
    addHelpMenu();
}

void MainMenu::refresh() {
    saveChanges_->setEnabled(program_.open.SaveChangesEnabled);
    saveCopy_->setEnabled(program_.open.Save_POEnabled);
}

void MainMenu::addFileMenu() {
    OrderEditor& editor = program_.editor;
    QMenu* menu = addMenu(tr("&File"));
    add(
        menu, "mu_NewPO", tr("&New Order"), [&] { editor.NewPO_Click(); }, QKeySequence::New);
    saveChanges_ = add(
        menu, "mu_SaveChanges", tr("&Save Changes"), [&] { editor.SaveChanges_Click(); },
        QKeySequence::Save);
    saveCopy_ = add(
        menu, "mu_Save_PO", tr("Save as &Copy"), [&] { editor.Save_PO_Click(); },
        QKeySequence(tr("Ctrl+Shift+S")));
    add(menu, "make10", tr("&make 10 copies"), [&] { editor.make10_Click(); });
    add(menu, "mu_Clear", tr("C&lear"), [&] { editor.Clear_Click(); });
    menu->addSeparator();
    add(
        menu, "mu_TotalUp", tr("&Total Up"), [&] { editor.TotalUp_Click(); },
        QKeySequence(Qt::Key_F9));
    add(menu, "mu_UnlockNumber", tr("&Unlock the Number ..."), [&] { editor.Label11_DblClick(); });
    menu->addSeparator();
    add(
        menu, "mu_exit", tr("E&xit"), [this] { window_.close(); }, QKeySequence(tr("Ctrl+Q")));
}

void MainMenu::addItemsMenu() {
    QMenu* menu = addMenu(tr("&Items"));
    add(
        menu, "mu_OneTime", tr("&Add one-time item"), [this] { lines_.addOneTimeItem(); },
        QKeySequence(tr("Ctrl+I")));
    add(
        menu, "mu_EditItem", tr("&Edit this item"), [this] { lines_.editCurrentLine(); },
        QKeySequence(Qt::Key_F2));
    add(
        menu, "mu_AddToOrder", tr("Add the &stock item picked"),
        [this] { lists_.stock()->addCurrentItem(); }, QKeySequence(Qt::Key_F8));
}

void MainMenu::addListsMenu() {
    QMenu* menu = addMenu(tr("&Lists"));
    add(
        menu, "mu_GoToLines", tr("Go to the &Lines"), [this] { lines_.grid()->setFocus(); },
        QKeySequence(Qt::Key_F6));
    add(
        menu, "mu_GoToList", tr("&Go to the List"), [this] { lists_.grid()->setFocus(); },
        QKeySequence(Qt::Key_F7));
    menu->addSeparator();
    add(
        menu, "mu_ViewExisting", tr("Saved &Orders"), [this] { lists_.ViewExisting_Click(); },
        QKeySequence(tr("Ctrl+1")));
    add(
        menu, "mu_HideOrders", tr("Stock &Items List"), [this] { lists_.HideOrders_Click(); },
        QKeySequence(tr("Ctrl+2")));
    menu->addSeparator();
    addSortMenu(menu->addMenu(tr("&Sort by")));
    add(menu, "mu_DeleteOrder", tr("&Delete Order"),
        [this] { lists_.orders()->deleteCurrentOrder(); });
}

/// The headings of the list shown, for sorting without a mouse.
void MainMenu::addSortMenu(QMenu* menu) {
    connect(menu, &QMenu::aboutToShow, this, [this, menu] {
        menu->clear();
        const QAbstractItemModel* model = lists_.grid()->model();
        for (int column = 0; column < model->columnCount(); ++column) {
            const QString heading = model->headerData(column, Qt::Horizontal).toString();
            menu->addAction(heading, this,
                            [this, column] { emit lists_.grid()->headingClicked(column); });
        }
    });
}

void MainMenu::addDataMenu() {
    StockExchange& exchange = program_.stockExchange;
    QMenu* menu = addMenu(tr("&Data"));
    add(menu, "mu_ExportStockItems", tr("&Export Stock Items ..."),
        [&] { exchange.mu_ExportStockItems_Click(); });
    add(menu, "mu_ImportStockItems", tr("&Import Stock Items ..."),
        [&] { exchange.mu_ImportStockItems_Click(); });
}

void MainMenu::addHelpMenu() {
    QMenu* menu = addMenu(tr("&Help"));
    add(menu, "mu_About", tr("&About Bramblet"), [this] { program_.mu_About(); });
}

QMenu* MainMenu::addMenu(const QString& caption) {
    return window_.menuBar()->addMenu(caption);
}

QAction* MainMenu::add(QMenu* menu, const char* name, const QString& caption, Command command,
                       const QKeySequence& keys) {
    QAction* entry = menu->addAction(caption);
    entry->setObjectName(QLatin1String(name));
    entry->setShortcut(keys);
    connect(entry, &QAction::triggered, this, [command = std::move(command)] { command(); });
    return entry;
}

}  // namespace bramblet
