#include "gui/app/main_menu.h"

#include "gui/app/lists_panel.h"
#include "gui/orders/lines_panel.h"
#include "gui/orders/saved_orders_panel.h"
#include "gui/platform/boxes.h"
#include "gui/platform/grid_view.h"
#include "gui/platform/qt_text.h"
#include "gui/stock/stock_panel.h"

#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

namespace bramblet {

MainMenu::MainMenu(QMainWindow& window, Program& program, LinesPanel& lines, ListsPanel& lists)
    : window_(window), program_(program), lines_(lines), lists_(lists) {
    addFileMenu();
    addItemsMenu();
    addListsMenu();
    addDataMenu();
    addHelpMenu();
}

void MainMenu::refresh() {
    saveChanges_->setEnabled(program_.open.SaveChangesEnabled());
    saveCopy_->setEnabled(program_.open.Save_POEnabled());
}

void MainMenu::addFileMenu() {
    OrderEditor& editor = program_.editor;
    QMenu* menu = window_.menuBar()->addMenu(u"&File"_s);
    addEntry(menu, "mu_NewPO", u"&New Order"_s, QKeySequence::New, [&] { editor.NewPO_Click(); });
    saveChanges_ = addEntry(menu, "mu_SaveChanges", u"&Save Changes"_s, QKeySequence::Save,
                            [&] { editor.SaveChanges_Click(); });
    saveCopy_ = addEntry(menu, "mu_Save_PO", u"Save as &Copy"_s, QKeySequence(u"Ctrl+Shift+S"_s),
                         [&] { editor.Save_PO_Click(); });
    addEntry(menu, "make10", u"&make 10 copies"_s, {}, [&] { editor.make10_Click(); });
    addEntry(menu, "mu_Clear", u"C&lear"_s, {}, [&] { editor.Clear_Click(); });
    menu->addSeparator();
    addEntry(menu, "mu_MakeOrder", u"&View, Print or Mail ..."_s, QKeySequence::Print,
             [this] { program_.viewer.MakeOrder_Click(); });
    addEntry(menu, "mu_TotalUp", u"&Total Up"_s, QKeySequence(Qt::Key_F9),
             [&] { editor.TotalUp_Click(); });
    addEntry(menu, "mu_UnlockNumber", u"&Unlock the Number ..."_s, {},
             [&] { editor.unlockNumber(); });
    menu->addSeparator();
    addEntry(menu, "mu_Configuration", u"Con&figuration ..."_s, {},
             [this] { program_.configure(false); });
    menu->addSeparator();
    addEntry(menu, "mu_exit", u"E&xit"_s, QKeySequence(u"Ctrl+Q"_s), [this] { window_.close(); });
}

void MainMenu::addItemsMenu() {
    QMenu* menu = window_.menuBar()->addMenu(u"&Items"_s);
    addEntry(menu, "mu_OneTime", u"&Add one-time item"_s, QKeySequence(u"Ctrl+I"_s),
             [this] { lines_.addOneTimeItem(); });
    addEntry(menu, "mu_EditItem", u"&Edit this item"_s, QKeySequence(Qt::Key_F2),
             [this] { lines_.editCurrentLine(); });
    addEntry(menu, "mu_AddToOrder", u"Add the &stock item picked"_s, QKeySequence(Qt::Key_F8),
             [this] { lists_.stock()->addCurrentItem(); });
}

void MainMenu::addListsMenu() {
    QMenu* menu = window_.menuBar()->addMenu(u"&Lists"_s);
    addEntry(menu, "mu_GoToLines", u"Go to the &Lines"_s, QKeySequence(Qt::Key_F6),
             [this] { lines_.grid()->setFocus(); });
    addEntry(menu, "mu_GoToList", u"&Go to the List"_s, QKeySequence(Qt::Key_F7),
             [this] { lists_.grid()->setFocus(); });
    menu->addSeparator();
    addEntry(menu, "mu_ViewExisting", u"Saved &Orders"_s, QKeySequence(u"Ctrl+1"_s),
             [this] { program_.savedOrders.ViewExisting_Click(); });
    addEntry(menu, "mu_HideOrders", u"Stock &Items List"_s, QKeySequence(u"Ctrl+2"_s),
             [this] { lists_.HideOrders_Click(); });
    menu->addSeparator();
    addSortMenu(menu->addMenu(u"&Sort by"_s));
    QAction* remove = addEntry(menu, "mu_DeleteOrder", u"&Delete Order"_s, {},
                               [this] { lists_.orders()->deleteCurrentOrder(); });
    QObject::connect(menu, &QMenu::aboutToShow, menu, [this, remove] {
        remove->setEnabled(lists_.showsOrders() && lists_.grid()->currentRow() >= 0);
    });
}

/// The headings of the list shown, for sorting without a mouse.
void MainMenu::addSortMenu(QMenu* menu) {
    QObject::connect(menu, &QMenu::aboutToShow, menu, [this, menu] {
        menu->clear();
        const QAbstractItemModel* model = lists_.grid()->model();
        for (int column = 0; column < model->columnCount(); ++column) {
            const QString heading = model->headerData(column, Qt::Horizontal).toString();
            menu->addAction(heading, menu,
                            [this, column] { emit lists_.grid()->headingClicked(column); });
        }
    });
}

void MainMenu::addDataMenu() {
    StockExchange& exchange = program_.stockExchange;
    QMenu* menu = window_.menuBar()->addMenu(u"&Data"_s);
    addEntry(menu, "mu_DataExport", u"Export Orders to a &Spreadsheet ..."_s, {},
             [this] { program_.csvExport.mu_DataExport_Click(); });
    menu->addSeparator();
    addEntry(menu, "mu_ExportStockItems", u"&Export Stock Items ..."_s, {},
             [&] { exchange.mu_ExportStockItems_Click(); });
    addEntry(menu, "mu_ImportStockItems", u"&Import Stock Items ..."_s, {},
             [&] { exchange.mu_ImportStockItems_Click(); });
    menu->addSeparator();
    addEntry(menu, "mu_DataBackup", u"&Back Up Data ..."_s, {},
             [this] { program_.backup.mu_DataBackup_Click(); });
    addEntry(menu, "mu_DataRestore", u"&Restore Data ..."_s, {},
             [this] { program_.backup.mu_DataRestore_Click(); });
    menu->addSeparator();
    addEntry(menu, "mu_ImportKettleby", u"Import address from &Kettleby"_s, {},
             [this] { program_.contactImport.mu_ImportKettleby_Click(); });
}

void MainMenu::addHelpMenu() {
    QMenu* menu = window_.menuBar()->addMenu(u"&Help"_s);
    addEntry(menu, "mu_HelpContents", u"&Contents"_s, QKeySequence::HelpContents,
             [this] { program_.browser.mu_HelpContents_Click(); });
    addEntry(menu, "mu_WebSite", u"Bramblet on the &Web"_s, {},
             [this] { program_.browser.mu_WebSite_Click(); });
    menu->addSeparator();
    addEntry(menu, "mu_About", u"&About Bramblet"_s, {}, [this] { program_.mu_About(); });
}

}  // namespace bramblet
