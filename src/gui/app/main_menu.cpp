#include "gui/app/main_menu.h"

#include "gui/app/lists_panel.h"
#include "gui/orders/lines_panel.h"
#include "gui/orders/saved_orders_panel.h"
#include "gui/platform/grid_view.h"
#include "gui/stock/stock_panel.h"

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
    add(menu, "mu_NewPO", tr("&New Order"), QKeySequence::New, [&] { editor.NewPO_Click(); });
    saveChanges_ = add(menu, "mu_SaveChanges", tr("&Save Changes"), QKeySequence::Save,
                       [&] { editor.SaveChanges_Click(); });
    saveCopy_ = add(menu, "mu_Save_PO", tr("Save as &Copy"), QKeySequence(tr("Ctrl+Shift+S")),
                    [&] { editor.Save_PO_Click(); });
    add(menu, "make10", tr("&make 10 copies"), {}, [&] { editor.make10_Click(); });
    add(menu, "mu_Clear", tr("C&lear"), {}, [&] { editor.Clear_Click(); });
    menu->addSeparator();
    add(menu, "mu_MakeOrder", tr("&View, Print or Mail ..."), QKeySequence::Print,
        [this] { program_.viewer.MakeOrder_Click(); });
    add(menu, "mu_TotalUp", tr("&Total Up"), QKeySequence(Qt::Key_F9),
        [&] { editor.TotalUp_Click(); });
    add(menu, "mu_UnlockNumber", tr("&Unlock the Number ..."), {},
        [&] { editor.Label11_DblClick(); });
    menu->addSeparator();
    add(menu, "mu_Configuration", tr("Con&figuration ..."), {}, [this] { openConfiguration(); });
    menu->addSeparator();
    add(menu, "mu_exit", tr("E&xit"), QKeySequence(tr("Ctrl+Q")), [this] { window_.close(); });
}

void MainMenu::addItemsMenu() {
    QMenu* menu = addMenu(tr("&Items"));
    add(menu, "mu_OneTime", tr("&Add one-time item"), QKeySequence(tr("Ctrl+I")),
        [this] { lines_.addOneTimeItem(); });
    add(menu, "mu_EditItem", tr("&Edit this item"), QKeySequence(Qt::Key_F2),
        [this] { lines_.editCurrentLine(); });
    add(menu, "mu_AddToOrder", tr("Add the &stock item picked"), QKeySequence(Qt::Key_F8),
        [this] { lists_.stock()->addCurrentItem(); });
}

void MainMenu::addListsMenu() {
    QMenu* menu = addMenu(tr("&Lists"));
    add(menu, "mu_GoToLines", tr("Go to the &Lines"), QKeySequence(Qt::Key_F6),
        [this] { lines_.grid()->setFocus(); });
    add(menu, "mu_GoToList", tr("&Go to the List"), QKeySequence(Qt::Key_F7),
        [this] { lists_.grid()->setFocus(); });
    menu->addSeparator();
    add(menu, "mu_ViewExisting", tr("Saved &Orders"), QKeySequence(tr("Ctrl+1")),
        [this] { lists_.ViewExisting_Click(); });
    add(menu, "mu_HideOrders", tr("Stock &Items List"), QKeySequence(tr("Ctrl+2")),
        [this] { lists_.HideOrders_Click(); });
    menu->addSeparator();
    addSortMenu(menu->addMenu(tr("&Sort by")));
    QAction* remove = add(menu, "mu_DeleteOrder", tr("&Delete Order"), {},
                          [this] { lists_.orders()->deleteCurrentOrder(); });
    connect(menu, &QMenu::aboutToShow, this, [this, remove] {
        remove->setEnabled(lists_.showsOrders() && lists_.grid()->currentRow() >= 0);
    });
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
    add(menu, "mu_DataExport", tr("Export Orders to a &Spreadsheet ..."), {},
        [this] { program_.csvExport.mu_DataExport_Click(); });
    menu->addSeparator();
    add(menu, "mu_ExportStockItems", tr("&Export Stock Items ..."), {},
        [&] { exchange.mu_ExportStockItems_Click(); });
    add(menu, "mu_ImportStockItems", tr("&Import Stock Items ..."), {},
        [&] { exchange.mu_ImportStockItems_Click(); });
    menu->addSeparator();
    add(menu, "mu_DataBackup", tr("&Back Up Data ..."), {},
        [this] { program_.backup.mu_DataBackup_Click(); });
    add(menu, "mu_DataRestore", tr("&Restore Data ..."), {},
        [this] { program_.backup.mu_DataRestore_Click(); });
    menu->addSeparator();
    add(menu, "mu_ImportKettleby", tr("Import address from &Kettleby"), {},
        [this] { program_.contactImport.mu_ImportKettleby_Click(); });
}

void MainMenu::addHelpMenu() {
    QMenu* menu = addMenu(tr("&Help"));
    add(menu, "mu_HelpContents", tr("&Contents"), QKeySequence::HelpContents,
        [this] { program_.browser.mu_HelpContents_Click(); });
    add(menu, "mu_WebSite", tr("Bramblet on the &Web"), {},
        [this] { program_.browser.mu_WebSite_Click(); });
    menu->addSeparator();
    add(menu, "mu_About", tr("&About Bramblet"), {}, [this] { program_.mu_About(); });
}

QMenu* MainMenu::addMenu(const QString& caption) {
    return window_.menuBar()->addMenu(caption);
}

QAction* MainMenu::add(QMenu* menu, const char* name, const QString& caption,
                       const QKeySequence& keys, Command command) {
    QAction* entry = menu->addAction(caption);
    entry->setObjectName(QLatin1String(name));
    entry->setShortcut(keys);
    connect(entry, &QAction::triggered, this, [command = std::move(command)] { command(); });
    return entry;
}

}  // namespace bramblet
