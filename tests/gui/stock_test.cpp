#include "gui/desk.h"
#include "gui/platform/grid_view.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QStyleOption>
#include <QTableView>

namespace bramblet::test {
namespace {

class StockWindows : public Desk {
  protected:
    void SetUp() override {
        Desk::SetUp();
        driver->click(name("HideOrders"));
    }
    QString text(const char* box) const { return driver->text(name(box)); }
    bool visible(const char* control) const { return driver->control(name(control))->isVisible(); }
    void saveItem(const char* category, const char* vendor, const char* description,
                  const char* cost) {
        driver->type(name("StockCatCombo"), name(category));
        driver->type(name("StockVendorCombo"), name(vendor));
        driver->type(name("StockUnitCombo"), name("ea"));
        driver->type(name("StockDescriptionEd"), name(description));
        driver->type(name("StockUnitCostEd"), name(cost));
        driver->click(name("SaveNewStockItem"));
    }
};

TEST_F(StockWindows, TheTwoViewsSwitch) {
    EXPECT_TRUE(visible("StockGrid"));
    EXPECT_TRUE(visible("VendorItemsCheck"));
    EXPECT_TRUE(visible("ViewExisting"));
    EXPECT_FALSE(visible("ListCheckPO"));
    EXPECT_FALSE(visible("HideOrders"));
    EXPECT_EQ(text("BottomLabel"), name("0 stock items listed"));
    driver->click(name("ViewExisting"));
    EXPECT_TRUE(visible("POGrid"));
    EXPECT_FALSE(visible("VendorItemsCheck"));
    EXPECT_FALSE(visible("ViewExisting"));
    EXPECT_TRUE(visible("ListCheckRecd"));
    EXPECT_EQ(text("BottomLabel"), name("Saved Orders"));
    newOrder();
    driver->doubleClickCell(name("POGrid"), 0, 0);
    EXPECT_TRUE(visible("StockGrid"));
}

TEST_F(StockWindows, DeletingAnOrderNeedsARowOfTheListShown) {
    auto* remove = window->findChild<QAction*>(name("mu_DeleteOrder"));
    const auto offered = [&] {
        emit qobject_cast<QMenu*>(remove->parent())->aboutToShow();
        return remove->isEnabled();
    };
    driver->click(name("ViewExisting"));
    EXPECT_FALSE(offered());
    newOrder();
    EXPECT_TRUE(offered());
    driver->click(name("HideOrders"));
    EXPECT_FALSE(offered());
}

TEST_F(StockWindows, ItemsAreTypedPickedAndAddedToTheOrder) {
    saveItem("Hinges", "Eastgate", "Soft close hinge", "7.45");
    EXPECT_EQ(driver->control(name("StockCatCombo")), QApplication::focusWidget());
    saveItem("Screws", "Brightwell", "Brass screw", "0.125");
    EXPECT_EQ(text("BottomLabel"), name("2 stock items listed"));
    driver->clickCell(name("StockGrid"), 0, 1);
    EXPECT_EQ(text("FileOrderTag"), name("1"));
    EXPECT_EQ(text("StockDescriptionEd"), name("Soft close hinge"));
    driver->doubleClickCell(name("StockGrid"), 1, 1);
    driver->press(name("StockGrid"), Qt::Key_Return);
    driver->press(name("StockGrid"), Qt::Key_Insert);
    driver->click(name("AddToOrder"));
    EXPECT_EQ(driver->cell(name("OrderGrid"), 0, kQuantity), name("4"));
    EXPECT_EQ(driver->cell(name("OrderGrid"), 0, kUnitCost), name("0.125"));
    EXPECT_EQ(text("OrderTotalEd"), name("0.50"));
    driver->press(name("StockGrid"), Qt::Key_Up);
    EXPECT_EQ(text("StockVendorCombo"), name("Eastgate"));
}

TEST_F(StockWindows, ThePickedItemsLineIsCurrentAndInView) {
    saveItem("Hinges", "Eastgate", "Hinge", "7.45");
    saveItem("Screws", "Brightwell", "Screw", "0.125");
    auto* lines = driver->find<QTableView>(name("OrderGrid"));
    driver->doubleClickCell(name("StockGrid"), 0, 1);
    for (int i = 0; i < 40; ++i)
        program->open.order.lines.push_back({"1", "", "", "ea", "x", "1", "1.00", "special"});
    program->open.onChange();
    lines->selectRow(3);
    const auto expectLast = [&](const char* description) {
        const int row = lines->currentIndex().row();
        EXPECT_EQ(row, driver->rows(name("OrderGrid")) - 1);
        EXPECT_EQ(driver->cell(name("OrderGrid"), row, kDescription), name(description));
        EXPECT_TRUE(lines->viewport()->rect().contains(
            lines->visualRect(lines->model()->index(row, kDescription)).center()));
    };
    driver->doubleClickCell(name("StockGrid"), 1, 1);
    expectLast("Screw");
    lines->selectRow(3);
    driver->doubleClickCell(name("StockGrid"), 0, 1);  // raised from the first line
    expectLast("Hinge");
    driver->onNextDialog([&](QWidget&) {
        EXPECT_EQ(driver->text(name("Text1")), name("Hinge"));
        driver->click(name("Cancel"));
    });
    driver->trigger(name("mu_EditItem"));  // F2
}

TEST_F(StockWindows, SavingAChangeKeepsTheItemPicked) {
    saveItem("Hinges", "Eastgate", "Soft close hinge", "7.45");
    driver->clickCell(name("StockGrid"), 0, 0);
    driver->type(name("StockUnitCostEd"), name("7.95"));
    driver->click(name("SaveChangedStockItem"));
    EXPECT_EQ(driver->cell(name("StockGrid"), 0, 4), name("7.95"));
    EXPECT_EQ(text("FileOrderTag"), name("1"));
    // Typing a new item does not bring the picked one back into the boxes.
    saveItem("Hinges", "Eastgate", "Pivot hinge", "3");
    EXPECT_EQ(text("StockDescriptionEd"), name("Pivot hinge"));
}

TEST_F(StockWindows, TheRightClickMenuWorksOnTheRowUnderThePointer) {
    saveItem("Hinges", "Eastgate", "Soft close hinge", "7.45");
    saveItem("Screws", "Brightwell", "Brass screw", "0.125");
    driver->clickCell(name("StockGrid"), 1, 0, Qt::RightButton);
    auto* menu = driver->find<QMenu>(name("itemspop"));
    EXPECT_TRUE(menu->isVisible());
    EXPECT_FALSE(menu->findChild<QAction*>(name("ItemsPopOnHand"))->isVisible());
    driver->answer(name("Screws\nBrightwell\nBrass screw"), QMessageBox::Yes);
    driver->trigger(name("ItemsPopDelete"));
    menu->close();
    EXPECT_EQ(driver->rows(name("StockGrid")), 1);
}

TEST_F(StockWindows, TheOnHandColumnComesWithItsSetting) {
    saveItem("Hinges", "Eastgate", "Soft close hinge", "7.45");
    program->settings.UseQuantities = "Y";
    program->stock.PopStockList();
    EXPECT_EQ(driver->find<QTableView>(name("StockGrid"))->model()->columnCount(), 7);
    driver->clickCell(name("StockGrid"), 0, 5);
    EXPECT_EQ(text("FileOrderTag"), name("1"));
    EXPECT_TRUE(window->findChild<QAction*>(name("ItemsPopOnHand"))->isVisible());
    driver->onNextDialog([&](QWidget& dialog) {
        auto* box = dialog.findChild<QLineEdit*>();
        EXPECT_EQ(box->text(), name("0"));
        box->setText(name("25"));
        qobject_cast<QDialog*>(&dialog)->accept();
    });
    driver->trigger(name("ItemsPopOnHand"));
    EXPECT_EQ(driver->cell(name("StockGrid"), 0, 5), name("25"));
}

TEST_F(StockWindows, AmountsAndSortedHeadingsAreSeenWhole) {
    program->settings.UseQuantities = "Y";
    saveItem("Hinges", "Eastgate", "Soft close hinge", "12,345,678.0625");
    driver->clickCell(name("StockGrid"), 0, 4);
    auto* grid = driver->find<QTableView>(name("StockGrid"));
    window->resize(960, 760);
    const QHeaderView* header = grid->horizontalHeader();
    for (int column = 0; column < 6; ++column) {
        emit driver->find<GridView>(name("StockGrid"))->headingClicked(column);
        Driver::settle();
        QStyleOptionHeader heading;
        heading.initFrom(header);
        heading.rect = QRect(0, 0, grid->columnWidth(column), header->height());
        heading.orientation = Qt::Horizontal;
        heading.sortIndicator = QStyleOptionHeader::SortUp;
        const QString text = grid->model()->headerData(column, Qt::Horizontal).toString();
        const int room =
            header->style()->subElementRect(QStyle::SE_HeaderLabel, &heading, header).width();
        EXPECT_GE(room, header->fontMetrics().horizontalAdvance(text)) << qPrintable(text);
    }
    EXPECT_GE(grid->columnWidth(4), grid->sizeHintForIndex(grid->model()->index(0, 4)).width());
    EXPECT_FALSE(grid->horizontalScrollBar()->isVisible());
    auto* cost = driver->find<QLineEdit>(name("StockUnitCostEd"));
    cost->setText(name("888,888.8888"));
    QStyleOptionFrame frame;
    frame.initFrom(cost);
    const QRect inside = cost->style()->subElementRect(QStyle::SE_LineEditContents, &frame, cost);
    EXPECT_GE(inside.width(), cost->fontMetrics().horizontalAdvance(cost->text()) + 4);
}

TEST_F(StockWindows, TheVendorsItemsAloneAndAgainNextTime) {
    saveItem("Hinges", "Eastgate", "Soft close hinge", "7.45");
    saveItem("Screws", "Brightwell", "Brass screw", "0.125");
    driver->type(name("ToCombo"), name("Brightwell"));
    driver->click(name("ChangedVendor"));
    driver->click(name("VendorItemsCheck"));
    EXPECT_EQ(driver->rows(name("StockGrid")), 1);
    window->close();
    open();
    EXPECT_TRUE(program->stock.VendorItemsCheck);
}

TEST_F(StockWindows, TheLineDialogOffersTheUnitsOfTheCatalogue) {
    saveItem("Hinges", "Eastgate", "Soft close hinge", "7.45");
    driver->onNextDialog([&](QWidget&) {
        EXPECT_EQ(driver->find<QComboBox>(name("DescriptionUnitCombo"))->count(), 1);
        driver->click(name("Cancel"));
    });
    driver->trigger(name("OrderPop_OneTime"));
}

TEST_F(StockWindows, ItemsTravelThroughAFile) {
    saveItem("Hinges", "Eastgate", "Soft close hinge", "7.45");
    const QString file = QString::fromStdString(documents / "items.sid");
    driver->chooseFile(file.chopped(4));  // the ending is added
    driver->answer(name("contains 1 stock item records."), QMessageBox::Ok);
    driver->trigger(name("mu_ExportStockItems"));
    driver->answer(name("It is strongly suggested"), QMessageBox::Ok);
    driver->chooseFile(file);
    driver->answer(name("Added 0 new items.\nReplaced 1 existing items."), QMessageBox::Ok);
    driver->trigger(name("mu_ImportStockItems"));
}

}  // namespace
}  // namespace bramblet::test
