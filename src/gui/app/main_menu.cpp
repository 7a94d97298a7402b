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
namespace {

MainMenu addFileMenu(QMenu* menu, Program& program, QMainWindow& window) {
    OrderEditor& editor = program.editor;
    addEntry(menu, "mu_NewPO", u"&New Order"_s, QKeySequence::New, [&] { editor.NewPO_Click(); });
    QAction* saveChanges = addEntry(menu, "mu_SaveChanges", u"&Save Changes"_s, QKeySequence::Save,
                                    [&] { editor.SaveChanges_Click(); });
    QAction* saveCopy = addEntry(menu, "mu_Save_PO", u"Save as &Copy"_s,
                                 QKeySequence(u"Ctrl+Shift+S"_s), [&] { editor.Save_PO_Click(); });
    addEntry(menu, "make10", u"&make 10 copies"_s, {}, [&] { editor.make10_Click(); });
    addEntry(menu, "mu_Clear", u"C&lear"_s, {}, [&] { editor.Clear_Click(); });
    QAction* undo =
        addEntry(menu, "mu_Undo", {}, QKeySequence::Undo, [&] { program.undo.mu_Undo_Click(); });
    menu->addSeparator();
    addEntry(menu, "mu_MakeOrder", u"&View, Print or Mail ..."_s, QKeySequence::Print,
             [&] { program.viewer.MakeOrder_Click(); });
    addEntry(menu, "mu_TotalUp", u"&Total Up"_s, QKeySequence(Qt::Key_F9),
             [&] { editor.TotalUp_Click(); });
    addEntry(menu, "mu_UnlockNumber", u"&Unlock the Number ..."_s, {},
             [&] { editor.unlockNumber(); });
    menu->addSeparator();
    addEntry(menu, "mu_Configuration", u"Con&figuration ..."_s, {}, [&] { program.configure(); });
    menu->addSeparator();
    addEntry(menu, "mu_exit", u"E&xit"_s, QKeySequence(u"Ctrl+Q"_s), [&] { window.close(); });
    return {saveChanges, saveCopy, undo};
}

void addItemsMenu(QMenu* menu, LinesPanel& lines, ListsPanel& lists) {
    addEntry(menu, "mu_OneTime", u"&Add one-time item"_s, QKeySequence(u"Ctrl+I"_s),
             [&] { lines.addOneTimeItem(); });
    addEntry(menu, "mu_EditItem", u"&Edit this item"_s, QKeySequence(Qt::Key_F2),
             [&] { lines.editCurrentLine(); });
    addEntry(menu, "mu_AddToOrder", u"Add the &stock item picked"_s, QKeySequence(Qt::Key_F8),
             [&] { lists.stock()->addCurrentItem(); });
    menu->addSeparator();
    menu->addActions(lines.gridCommands());
}

/// The headings of the list shown, for sorting without a mouse.
void addSortMenu(QMenu* menu, ListsPanel& lists) {
    QObject::connect(menu, &QMenu::aboutToShow, menu, [&lists, menu] {
        menu->clear();
        const QAbstractItemModel* model = lists.grid()->model();
        for (int column = 0; column < model->columnCount(); ++column) {
            const QString heading = model->headerData(column, Qt::Horizontal).toString();
            menu->addAction(heading, menu,
                            [&lists, column] { emit lists.grid()->headingClicked(column); });
        }
    });
}

void addListsMenu(QMenu* menu, Program& program, LinesPanel& lines, ListsPanel& lists) {
    addEntry(menu, "mu_GoToLines", u"Go to the &Lines"_s, QKeySequence(Qt::Key_F6),
             [&] { lines.grid()->setFocus(); });
    addEntry(menu, "mu_GoToList", u"&Go to the List"_s, QKeySequence(Qt::Key_F7),
             [&] { lists.grid()->setFocus(); });
    addEntry(menu, "mu_FindInList", u"&Find in the List"_s, QKeySequence::Find,
             [&] { lists.findInList(); });
    menu->addSeparator();
    addEntry(menu, "mu_ViewExisting", u"Saved &Orders"_s, QKeySequence(u"Ctrl+1"_s),
             [&] { program.savedOrders.ViewExisting_Click(); });
    addEntry(menu, "mu_HideOrders", u"Stock &Items List"_s, QKeySequence(u"Ctrl+2"_s),
             [&] { lists.HideOrders_Click(); });
    menu->addSeparator();
    addSortMenu(menu->addMenu(u"&Sort by"_s), lists);
    addEntry(menu, "mu_Spending", u"S&pending ..."_s, {},
             [&] { program.spending.mu_Spending_Click(); });
    addEntry(menu, "mu_OpenKeptOrder", u"Open &Kept Order ..."_s, {},
             [&] { program.editor.openKeptOrder(); });
    QAction* remove = addEntry(menu, "mu_DeleteOrder", u"&Delete Order"_s, {},
                               [&] { lists.orders()->deleteCurrentOrder(); });
    QObject::connect(menu, &QMenu::aboutToShow, menu, [&lists, remove] {
        remove->setEnabled(lists.showsOrders() && lists.grid()->currentRow() >= 0);
    });
}

void addDataMenu(QMenu* menu, Program& program) {
    StockExchange& exchange = program.stockExchange;
    addEntry(menu, "mu_DataExport", u"Export Orders to a &Spreadsheet ..."_s, {},
             [&] { program.csvExport.mu_DataExport_Click(); });
    menu->addSeparator();
    addEntry(menu, "mu_ExportStockItems", u"&Export Stock Items ..."_s, {},
             [&] { exchange.mu_ExportStockItems_Click(); });
    addEntry(menu, "mu_ImportStockItems", u"&Import Stock Items ..."_s, {},
             [&] { exchange.mu_ImportStockItems_Click(); });
    menu->addSeparator();
    addEntry(menu, "mu_DataBackup", u"&Back Up Data ..."_s, {},
             [&] { program.backup.mu_DataBackup_Click(); });
    addEntry(menu, "mu_DataRestore", u"&Restore Data ..."_s, {},
             [&] { program.backup.mu_DataRestore_Click(); });
    addEntry(menu, "mu_RebuildOrderList", u"Rebuild &Order List from Documents ..."_s, {},
             [&] { program.listRebuild.mu_RebuildOrderList_Click(); });
    menu->addSeparator();
    addEntry(menu, "mu_ImportKettleby", u"Import address from &Kettleby"_s, {},
             [&] { program.contactImport.mu_ImportKettleby_Click(); });
    addEntry(menu, "mu_ImportTable", u"Import Vendors or Items from a &Table ..."_s, {},
             [&] { program.tableImport.mu_ImportTable_Click(); });
    menu->addSeparator();
    addEntry(menu, "mu_RenameVendor", u"Rename &Vendor ..."_s, {},
             [&] { program.addresses.rename(AddressSide::Vendor); });
    addEntry(menu, "mu_RenameDest", u"Rename S&hip-To ..."_s, {},
             [&] { program.addresses.rename(AddressSide::Destination); });
}

void addHelpMenu(QMenu* menu, Program& program) {
    addEntry(menu, "mu_HelpContents", u"&Contents"_s, QKeySequence::HelpContents,
             [&] { program.browser.mu_HelpContents_Click(); });
    addEntry(menu, "mu_WebSite", u"Bramblet on the &Web"_s, {},
             [&] { program.browser.mu_WebSite_Click(); });
    menu->addSeparator();
    addEntry(menu, "mu_About", u"&About Bramblet"_s, {}, [&] { program.mu_About(); });
}

}  // namespace

MainMenu makeMainMenu(QMainWindow& window, Program& program, LinesPanel& lines, ListsPanel& lists) {
    QMenuBar& bar = *window.menuBar();
    const MainMenu menu = addFileMenu(bar.addMenu(u"&File"_s), program, window);
    addItemsMenu(bar.addMenu(u"&Items"_s), lines, lists);
    addListsMenu(bar.addMenu(u"&Lists"_s), program, lines, lists);
    addDataMenu(bar.addMenu(u"&Data"_s), program);
    addHelpMenu(bar.addMenu(u"&Help"_s), program);
    return menu;
}

}  // namespace bramblet
