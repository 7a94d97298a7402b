#include "gui/desk.h"
#include "gui/platform/grid_view.h"

namespace bramblet::test {
namespace {

class StockWindows : public Desk {
  protected:
    void SetUp() override {
        Desk::SetUp();
        click("HideOrders");
        saveItem("Hinges", "Eastgate", "Soft close hinge", "7.45");
        EXPECT_EQ(driver->control("StockCatCombo"), QApplication::focusWidget());
        saveItem("Screws", "Brightwell", "Brass screw", "0.125");
        grid = driver->find<GridView>("StockGrid");
    }
    void useQuantities() {
        program->settings.UseQuantities = "Y";
        program->stock.PopStockList();
    }

    GridView* grid = nullptr;
};

TEST_F(StockWindows, TheTwoViewsSwitch) {
    const auto expectStock = [&](bool shown) {
        for (const char* control : {"StockGrid", "VendorItemsCheck", "ViewExisting"})
            EXPECT_EQ(visible(control), shown) << control;
        for (const char* control : {"POGrid", "ListCheckPO", "ListCheckRecd", "HideOrders"})
            EXPECT_EQ(visible(control), !shown) << control;
        EXPECT_EQ(text("BottomLabel"), shown ? "2 stock items listed" : "Saved Orders");
    };
    auto* remove = window->findChild<QAction*>("mu_DeleteOrder");
    const auto canDeleteAnOrder = [&] {
        emit qobject_cast<QMenu*>(remove->parent())->aboutToShow();
        return remove->isEnabled();
    };
    expectStock(true);
    click("ViewExisting");
    expectStock(false);
    EXPECT_FALSE(canDeleteAnOrder()) << "there is none";
    newOrder();
    EXPECT_TRUE(canDeleteAnOrder());
    driver->doubleClickCell("POGrid", 0, 0);
    expectStock(true);
    EXPECT_FALSE(canDeleteAnOrder()) << "none can be seen";
}

TEST_F(StockWindows, ItemsArePickedAddedToTheOrderAndChanged) {
    driver->clickCell("StockGrid", 0, 1);
    EXPECT_EQ(text("FileOrderTag"), "1");
    EXPECT_EQ(text("StockDescriptionEd"), "Soft close hinge");
    driver->doubleClickCell("StockGrid", 1, 1);
    driver->press("StockGrid", Qt::Key_Return);
    driver->press("StockGrid", Qt::Key_Insert);
    click("AddToOrder");
    EXPECT_EQ(driver->cell("OrderGrid", 0, kQuantity), "4");
    EXPECT_EQ(driver->cell("OrderGrid", 0, kUnitCost), "0.125");
    EXPECT_EQ(text("OrderTotalEd"), "0.50");
    driver->press("StockGrid", Qt::Key_Up);
    EXPECT_EQ(text("StockVendorCombo"), "Eastgate");

    type("StockUnitCostEd", "7.95");
    click("SaveChangedStockItem");
    EXPECT_EQ(driver->cell("StockGrid", 0, 4), "7.95");
    EXPECT_EQ(text("FileOrderTag"), "1") << "it stays picked";
    saveItem("Hinges", "Eastgate", "Pivot hinge", "3");
    EXPECT_EQ(text("StockDescriptionEd") + text("FileOrderTag"), "Pivot hinge3");
    EXPECT_EQ(grid->currentIndex().row(), 2) << "the new one is picked";
}

TEST_F(StockWindows, EachListHasItsOwnFindingAndAHiddenItemIsNotAdded) {
    driver->clickCell("StockGrid", 0, 1);
    driver->trigger("mu_FindInList");
    type("FindEd", "screw");
    EXPECT_EQ(text("BottomLabel"), "1 of 2 stock items listed");
    EXPECT_EQ(text("FileOrderTag"), "1") << "the editor keeps its item";
    click("AddToOrder");
    EXPECT_EQ(driver->rows("OrderGrid"), 0) << "its row is not shown";
    EXPECT_EQ(window->statusBar()->currentMessage(),
              "No item is picked in the list of stock items.");
    driver->doubleClickCell("StockGrid", 0, 1);
    EXPECT_EQ(driver->cell("OrderGrid", 0, kDescription), "Brass screw");

    click("ViewExisting");
    EXPECT_EQ(text("FindEd"), "");
    type("FindEd", "nothing");
    driver->trigger("mu_HideOrders");
    EXPECT_EQ(text("FindEd"), "screw");
    EXPECT_EQ(text("BottomLabel"), "1 of 2 stock items listed");
    saveVendor("Eastgate");
    click("VendorItemsCheck");
    EXPECT_EQ(text("BottomLabel"), "0 of 1 stock items listed");
}

TEST_F(StockWindows, WhatIsTypedIntoTheEditorOutlivesALookForAnotherItem) {
    type("StockDescriptionEd", "Steel screw");
    QTest::mouseClick(driver->control("FindEd"), Qt::LeftButton);
    QTest::keyClicks(driver->control("FindEd"), "hinge");
    driver->press("FindEd", Qt::Key_Escape);
    EXPECT_EQ(driver->rows("StockGrid"), 2);
    driver->press("FindEd", Qt::Key_Escape);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "StockDescriptionEd");
    EXPECT_EQ(text("StockDescriptionEd"), "Steel screw");
}

TEST_F(StockWindows, WhatIsEnteredByTabIsTypedOver) {
    saveItem("Hinges", "Northgate", "Pivot hinge", "3");
    driver->press("StockCatCombo", Qt::Key_Tab);
    QTest::keyClicks(QApplication::focusWidget(), "Brightwell");
    EXPECT_EQ(text("StockVendorCombo"), "Brightwell");
}

TEST_F(StockWindows, ThePickedItemsLineIsCurrentAndInView) {
    auto* lines = driver->find<QTableView>("OrderGrid");
    driver->doubleClickCell("StockGrid", 0, 1);
    std::vector<OrderLine> many(40, {"1", "", "", "ea", "x", "1", "1.00", "special"});
    many.insert(many.begin(), order().lines.front());
    program->open.setLines(many);
    // The second item comes at the end; the first is raised from its line to the end.
    for (const auto& [item, description] :
         {std::pair(1, "Brass screw"), std::pair(0, "Soft close hinge")}) {
        lines->selectRow(3);
        driver->doubleClickCell("StockGrid", item, 1);
        const QModelIndex current = lines->currentIndex().siblingAtColumn(kDescription);
        EXPECT_EQ(current.row(), driver->rows("OrderGrid") - 1);
        EXPECT_EQ(current.data().toString(), description);
        EXPECT_TRUE(lines->viewport()->rect().contains(lines->visualRect(current).center()));
    }
    driver->inDialog("mu_EditItem", [&](QWidget&) {  // F2
        EXPECT_EQ(text("Text1"), "Soft close hinge");
        EXPECT_EQ(driver->find<QComboBox>("DescriptionUnitCombo")->count(), 1) << "units known";
        click("Cancel");
    });
}

TEST_F(StockWindows, TheRightClickMenuWorksOnTheRowUnderThePointer) {
    driver->answer("Screws\nBrightwell\nBrass screw", QMessageBox::Yes);
    chooseInMenu("StockGrid", 1, "itemspop", "ItemsPopDelete");
    EXPECT_EQ(driver->rows("StockGrid"), 1);
    EXPECT_FALSE(window->findChild<QAction*>("ItemsPopOnHand")->isVisible());

    useQuantities();
    EXPECT_EQ(grid->model()->columnCount(), 7);
    driver->onNextDialog([&](QWidget& dialog) {
        auto* box = dialog.findChild<QLineEdit*>();
        EXPECT_EQ(box->text(), "0");
        box->setText("25");
        qobject_cast<QDialog*>(&dialog)->accept();
    });
    chooseInMenu("StockGrid", 0, "itemspop", "ItemsPopOnHand");
    EXPECT_EQ(text("FileOrderTag"), "1");
    EXPECT_EQ(driver->cell("StockGrid", 0, 5), "25");
}

TEST_F(StockWindows, AmountsAndSortedHeadingsAreSeenWhole) {
    saveItem("Hinges", "Eastgate", "Gate hinge", "12,345,678.0625");
    useQuantities();
    window->resize(960, 760);
    const QHeaderView* header = grid->horizontalHeader();
    for (int column = 0; column < 6; ++column) {
        driver->clickHeading("StockGrid", column);
        QStyleOptionHeader heading;
        heading.initFrom(header);
        heading.rect = QRect(0, 0, grid->columnWidth(column), header->height());
        heading.orientation = Qt::Horizontal;
        heading.sortIndicator = QStyleOptionHeader::SortUp;
        const QString caption = grid->model()->headerData(column, Qt::Horizontal).toString();
        const int room =
            header->style()->subElementRect(QStyle::SE_HeaderLabel, &heading, header).width();
        EXPECT_GE(room, header->fontMetrics().horizontalAdvance(caption)) << caption;
    }
    for (int row = 0; row < 3; ++row)
        EXPECT_GE(grid->columnWidth(4),
                  grid->sizeHintForIndex(grid->model()->index(row, 4)).width());
    EXPECT_FALSE(grid->horizontalScrollBar()->isVisible());
    auto* cost = driver->find<QLineEdit>("StockUnitCostEd");
    QStyleOptionFrame frame;
    frame.initFrom(cost);
    const QRect inside = cost->style()->subElementRect(QStyle::SE_LineEditContents, &frame, cost);
    EXPECT_GE(inside.width(), cost->fontMetrics().horizontalAdvance("888,888.8888") + 4);
}

TEST_F(StockWindows, TheLastPriceIsTakenOverIntoALineAndIntoAnItem) {
    saveItem("Nails", "Acme", "Nails", "3");
    const auto order = [this](const char* vendor, const char* cost) {
        newOrder();
        type("ToCombo", vendor);
        addLine("1", "Nails", cost);
        click("SaveChanges");
    };
    order("Bolt", "2.50");
    order("Acme", "2.75");
    newOrder();
    addLine("1", "Rope", "4");
    driver->inDialog("OrderPop_OneTime", [this](QWidget&) {
        EXPECT_EQ(text("LastPaid"), "");
        EXPECT_FALSE(visible("LastPaidUse"));
        type("Text1", "nails");
        EXPECT_TRUE(QTest::qWaitFor([this] { return visible("LastPaidOlder"); }));
        EXPECT_EQ(text("LastPaid"), "Last paid 2.75, Acme, 3/4/2026");
        type("DescriptionUnitCombo", "box");
        EXPECT_EQ(text("LastPaid"), "Last paid 2.75 per ea, Acme, 3/4/2026");
        driver->find<QMenu>("LastPaidMenu")->actions().first()->trigger();
        EXPECT_EQ(text("UCEd"), "2.50");
        driver->press("QEd", Qt::Key_E, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([this] { return text("UCEd") == "2.75"; }));
        type("QEd", "2");
        click("Save");
    });
    EXPECT_EQ(driver->cell("OrderGrid", 1, kUnit), "ea");
    EXPECT_EQ(driver->cell("OrderGrid", 1, kLineTotal), "5.50");

    driver->clickCell("StockGrid", 2, 3);
    EXPECT_EQ(text("StockLastPaid"), "Last paid 2.75, 3/4/2026");
    click("StockLastPaidUse");
    EXPECT_EQ(text("StockUnitCostEd"), "2.75");
    click("SaveChangedStockItem");
    EXPECT_EQ(driver->cell("StockGrid", 2, 4), "2.75");
}

}  // namespace
}  // namespace bramblet::test
