#include "gui/app/start_notice.h"
#include "gui/desk.h"
#include "support/regions.h"

namespace bramblet::test {
namespace {

class MainWindowTest : public Desk {
  protected:
    QString cell(int row, int column) const { return driver->cell("POGrid", row, column); }
    QString status() const { return window->statusBar()->currentMessage(); }
    /// Hands the dialog that Enter on the first line opens to `use`.
    void editLine(const std::function<void(QWidget& dialog)>& use) {
        driver->onNextDialog(use);
        driver->press("OrderGrid", Qt::Key_Return);
    }
    void expectLines(const QStringList& descriptions) const {
        QStringList shown;
        for (int row = 0; row < driver->rows("OrderGrid"); ++row)
            shown.append(driver->cell("OrderGrid", row, kDescription));
        EXPECT_EQ(shown, descriptions) << shown.join(", ");
    }
};

TEST_F(MainWindowTest, EveryBoxReachesItsFieldUnlessItIsComputed) {
    // In the same order; the last four are computed.
    const std::vector<const char*> boxes{
        "JobNumberEd",      "OrderDateEd", "ShipDateEd",  "ToCombo",    "ToField",    "ShipToCombo",
        "ShipToField",      "ByEd",        "ShipViaEd",   "FOBEd",      "TermsEd",    "CommentsEd",
        "DiscountFactorEd", "DiscountEd",  "TaxFactorEd", "SalesTaxEd", "ShippingEd", "PONoEd",
        "SubTotalEd",       "NetTotalEd",  "OrderTotalEd"};
    const std::vector<OrderField> fields{
        &Order::JobNumberEd,      &Order::OrderDateEd, &Order::ShipDateEd,  &Order::ToCombo,
        &Order::ToField,          &Order::ShipToCombo, &Order::ShipToField, &Order::ByEd,
        &Order::ShipViaEd,        &Order::FOBEd,       &Order::TermsEd,     &Order::CommentsEd,
        &Order::DiscountFactorEd, &Order::DiscountEd,  &Order::TaxFactorEd, &Order::SalesTaxEd,
        &Order::ShippingEd,       &Order::PONoEd,      &Order::SubTotalEd,  &Order::NetTotalEd,
        &Order::OrderTotalEd};
    newOrder();
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        SCOPED_TRACE(boxes[i]);
        program->open.markSaved();
        const bool computed = i >= boxes.size() - 4;
        const std::string expected = computed ? order().*fields[i] : "7.5";
        type(boxes[i], "7.5");
        EXPECT_EQ(order().*fields[i], expected);
        EXPECT_EQ(text(boxes[i]).toStdString(), expected);
        EXPECT_EQ(program->open.OrderDirty(), !computed);
    }
}

TEST_F(MainWindowTest, WhatIsTypedOrPastedIsShownAsItWillBeStored) {
    type("ByEd", "Zoë Łaska");
    EXPECT_EQ(order().ByEd, "Zo\xEB ?aska");
    EXPECT_EQ(text("ByEd"), "Zoë ?aska");
    type("ToField", "1 Road\nTown\u00A0");
    EXPECT_EQ(order().ToField, "1 Road\r\nTown\xA0");
    QApplication::clipboard()->setText("two\nlines\tand a tab");
    driver->press("CommentsEd", Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(order().CommentsEd, "two lines and a tab");
    type("JobNumberEd", "1234567890123");
    EXPECT_EQ(text("JobNumberEd"), "123456789012");
    type("ToCombo", QString(70, 'x'));
    EXPECT_EQ(text("ToCombo").size(), 60);
}

TEST_F(MainWindowTest, ADaysWork) {
    EXPECT_FALSE(enabled("SaveChanges"));
    EXPECT_FALSE(enabled("Save_PO"));
    newOrder();
    EXPECT_EQ(text("PONoEd"), "000001");
    EXPECT_TRUE(enabled("Save_PO"));
    saveVendor("Acme Supply", "12 Mill Road\nLeeds");
    EXPECT_EQ(text("VendAddyCounter"), "1");
    EXPECT_FALSE(enabled("ChangedVendor"));
    addLine("2", "Hammer", "12.50");
    type("TaxFactorEd", ".1");
    click("TotalUp");
    EXPECT_EQ(text("OrderTotalEd"), "27.50");
    click("SaveChanges");
    EXPECT_FALSE(enabled("SaveChanges"));
    EXPECT_EQ(cell(0, kOrderTotalColumn), "$27.50");

    newOrder();
    EXPECT_EQ(text("ToCombo") + text("ToField"), "");
    driver->clickCell("POGrid", 1, kVendorColumn);
    EXPECT_EQ(text("PONoEd"), "000001");
    EXPECT_EQ(text("ToField"), "12 Mill Road\nLeeds");
    expectLines({"Hammer"});
    EXPECT_FALSE(enabled("SaveChanges"));

    driver->answer("Create new purchase order based on details", QMessageBox::Yes);
    click("Save_PO");
    EXPECT_EQ(text("PONoEd"), "000003");
    click("MarkReceivedCheck");
    EXPECT_TRUE(enabled("SaveChanges"));
    driver->press("ByEd", Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(cell(0, kStatusColumn), "a");
}

TEST_F(MainWindowTest, OnlyAChoiceFromTheListPicksAnAddress) {
    for (const char* vendor : {"ACME", "Bolt", "Cole"})
        saveVendor(vendor, QString(vendor) + " Road");
    newOrder();
    type("ToField", "one-off address");
    type("ToCombo", "Acme");  // listed, but for letter case
    driver->press("ToCombo", Qt::Key_Tab);
    EXPECT_EQ(text("ToCombo") + text("ToField"), "Acmeone-off address");

    driver->pick("ToCombo", "Bolt");
    EXPECT_EQ(text("ToField"), "Bolt Road");
    click("SaveChanges");
    driver->press("ToCombo", Qt::Key_Tab);  // leaving the box changes nothing
    EXPECT_FALSE(program->open.OrderDirty());
    auto* box = driver->control("ToCombo");
    QWheelEvent wheel({5, 5}, box->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, {}, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(box, &wheel);
    EXPECT_EQ(text("ToCombo"), "Bolt");
    type("ToCombo", "ACME");
    driver->press("ToCombo", Qt::Key_Down);  // on from the entry shown
    EXPECT_EQ(text("ToCombo"), "Bolt");
    driver->press("ToCombo", Qt::Key_Down);
    EXPECT_EQ(text("ToCombo"), "Cole");
}

TEST_F(MainWindowTest, AListedNameIsPickedWhenItsBoxIsLeftWithoutAnAddressAndCanBeDeleted) {
    for (const char* vendor : {"Acme", "Bolt"})
        saveVendor(vendor, QString(vendor) + " Road");
    driver->pick("ToCombo", "Acme");
    click("DeleteVendor");
    EXPECT_EQ(text("ToCombo"), "");
    EXPECT_EQ(program->addresses.shown(AddressSide::Vendor).names.size(), 1u);
    type("ToCombo", "Bolt");
    driver->press("ToCombo", Qt::Key_Return);
    EXPECT_EQ(text("ToField"), "Bolt Road");
}

TEST_F(MainWindowTest, ADateThatIsNoneIsMarkedOnceItsBoxIsLeftOrASaveMeetsItAndTheFailureStays) {
    auto* box = driver->find<QLineEdit>("ShipDateEd");
    const QString usualTip = box->toolTip();
    const QColor usual = QApplication::palette().color(QPalette::Base);
    const auto colour = [&] { return box->palette().color(QPalette::Base); };
    newOrder();
    EXPECT_EQ(status(), "Order 000001 is saved");
    type("ShipDateEd", "so");
    EXPECT_EQ(status(), "") << "good news goes with the next edit";
    EXPECT_EQ(colour(), usual) << "still being typed";
    driver->press("ShipDateEd", Qt::Key_S, Qt::ControlModifier);
    EXPECT_NE(colour(), usual);
    EXPECT_EQ(box->toolTip(), "\"so\" is not a date.");
    const QString failure = status();
    EXPECT_TRUE(failure.contains("\"so\" in the box On Site is not a date")) << failure;
    type("ShipDateEd", "3/20/2026");
    EXPECT_EQ(status(), failure);
    EXPECT_EQ(colour(), usual);
    EXPECT_EQ(box->toolTip(), usualTip);
    type("ShipDateEd", "soon");
    EXPECT_EQ(colour(), usual);
    driver->press("ShipDateEd", Qt::Key_Tab);
    EXPECT_NE(colour(), usual);
}

TEST_F(MainWindowTest, LinesAreEditedByMouseAndKeyboard) {
    addLine("1", "first", "1");
    addLine("1", "second", "2");
    const auto enter = [&](const char* description) {
        return [=, this](QWidget& dialog) {
            EXPECT_EQ(dialog.windowTitle(), "Edit Line Item");
            type("Text1", description);
            driver->press("Text1", Qt::Key_Return);  // Enter saves
        };
    };
    const auto escape = [](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); };
    driver->onNextDialog(enter("third"));
    driver->doubleClickCell("OrderGrid", 0, kDescription);
    expectLines({"third", "second"});
    editLine(enter("fourth"));
    expectLines({"fourth", "second"});
    editLine([&](QWidget& dialog) {
        type("Text1", "never");
        escape(dialog);
    });
    expectLines({"fourth", "second"});
    editLine([&](QWidget&) { click("Del"); });
    expectLines({"second"});
    driver->press("OrderGrid", Qt::Key_Delete);
    expectLines({});
    driver->onNextDialog(escape);
    driver->press("OrderGrid", Qt::Key_Insert);
    expectLines({""});  // a cancelled one-time item is still added

    // A line that cannot be read can still be removed.
    program->open.setLines({{"1", "", "", "ea", "x", "1.2.3", "0.00", "special"}});
    editLine([&](QWidget& dialog) {
        driver->answer("\"1.2.3\" in the box Unit Cost is not an amount.");
        click("Save");
        EXPECT_TRUE(dialog.isVisible());
        click("Del");
    });
    expectLines({});
}

TEST_F(MainWindowTest, TheUnitCostAndTheLineTotalFollowEachOther) {
    driver->onNextDialog([&](QWidget&) {
        type("QEd", "23");
        type("UCEd", "2");
        EXPECT_EQ(text("LineTotalEd"), "46.00");
        type("LineTotalEd", "567.45");
        EXPECT_EQ(text("UCEd"), "24.6717");
        type("QEd", "10");
        EXPECT_EQ(text("UCEd"), "56.745") << "the total was typed last";
        type("UCEd", "12 / 5");
        EXPECT_EQ(text("LineTotalEd"), "24.00");
        click("Save");
    });
    driver->press("OrderGrid", Qt::Key_Insert);
    EXPECT_EQ(driver->cell("OrderGrid", 0, kUnitCost), "2.40");
    EXPECT_EQ(driver->cell("OrderGrid", 0, kLineTotal), "24.00");
}

TEST_F(MainWindowTest, TheTypeOfFileSaysHowOrdersAreExported) {
    newOrder();
    const std::filesystem::path file = documents / "Orders.csv";
    for (const auto& [type, start] : {std::pair{0, "\"Number\""}, {1, "\xEF\xBB\xBF\"Number\""}}) {
        driver->chooseFile(pathToQt(file), type);
        driver->answer("Data has been exported", QMessageBox::No);
        driver->trigger("mu_DataExport");
        EXPECT_TRUE(contentOf(file).starts_with(start)) << contentOf(file);
        std::filesystem::remove(file);
    }
}

TEST_F(MainWindowTest, LinesMoveByKeysAndArePastedFromATable) {
    QApplication::clipboard()->setText("\t1\tea\tfirst\t1\n\t2\tea\tsecond\t2\n\t3\tea\tthird\t3");
    driver->onNextDialog([&](QWidget& dialog) {
        EXPECT_EQ(dialog.objectName(), "PasteLines");
        EXPECT_EQ(text("PasteSummary"), "3 lines, 14.00 in all");
        EXPECT_EQ(driver->rows("PasteGrid"), 3);
        click("PasteAdd");
    });
    driver->press("OrderGrid", Qt::Key_V, Qt::ControlModifier);
    expectLines({"first", "second", "third"});
    driver->press("OrderGrid", Qt::Key_Up, Qt::AltModifier);
    driver->press("OrderGrid", Qt::Key_Up, Qt::AltModifier);
    driver->press("OrderGrid", Qt::Key_Up, Qt::AltModifier);
    expectLines({"third", "first", "second"});
    driver->press("OrderGrid", Qt::Key_Down, Qt::AltModifier);
    expectLines({"first", "third", "second"});
    driver->onNextDialog([](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    driver->press("OrderGrid", Qt::Key_V, Qt::ControlModifier);
    expectLines({"first", "third", "second"});
}

TEST_F(MainWindowTest, RightClicksOpenTheMenusOfTheRowAndNoOrder) {
    newOrder();
    addLine("1", "first", "1");
    chooseInMenu("OrderGrid", 0, "OrderPop");
    click("SaveChanges");
    newOrder();
    chooseInMenu("POGrid", 1, "POPop");
    EXPECT_EQ(text("PONoEd"), "000002") << "nothing was opened";
    driver->answer("Delete purchase order 000001 ?", QMessageBox::Yes);
    chooseInMenu("POGrid", 1, "POPop", "POPop_delete");
    EXPECT_EQ(driver->rows("POGrid"), 1);
}

TEST_F(MainWindowTest, WhatWasDeletedComesBackByKeyMenuAndButton) {
    const auto* entry = window->findChild<QAction*>("mu_Undo");
    newOrder();
    addLine("1", "Hammer & tongs", "5");
    addLine("1", "Saw", "7");
    EXPECT_FALSE(entry->isEnabled() || visible("Undo"));
    driver->clickCell("OrderGrid", 0, kDescription);
    driver->press("OrderGrid", Qt::Key_Delete);
    EXPECT_EQ(status(), "Line \"Hammer & tongs\" deleted.");
    EXPECT_EQ(entry->text(), "Un&do deleting line \"Hammer && tongs\"");
    EXPECT_EQ(driver->control("Undo")->accessibleName(), "Undo deleting line \"Hammer & tongs\"");
    driver->press("Undo", Qt::Key_Space);
    expectLines({"Hammer & tongs", "Saw"});
    EXPECT_FALSE(entry->isEnabled() || visible("Undo"));

    driver->press("OrderGrid", Qt::Key_Delete);
    for (const char* box : {"ByEd", "CommentsEd", "ShippingEd", "ToField", "StockDescriptionEd"}) {
        SCOPED_TRACE(box);
        const QString before = text(box);
        type(box, "5");
        while (text(box) != before)
            driver->press(box, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_TRUE(entry->isEnabled()) << "the box had something of its own to undo";
        driver->press(box, Qt::Key_Z, Qt::ControlModifier);
        expectLines({"Hammer & tongs", "Saw"});
        driver->press("OrderGrid", Qt::Key_Delete);
    }
    driver->trigger("mu_Undo");
    click("Clear");
    driver->trigger("mu_Undo");
    expectLines({"Hammer & tongs", "Saw"});
}

TEST_F(MainWindowTest, TheTipsOfTheMultipliersAreRightInTheRegion) {
    for (const auto& [formats, half, percent] :
         {std::tuple(enUS(), ".5", ".065 = 6.5%"), std::tuple(deDE(), "0,5", "0,065 = 6,5%")}) {
        open(formats);
        EXPECT_EQ(
            driver->control("DiscountFactorEd")->toolTip(),
            QString("Discount multiplier (example %1 = 50%). Blank for none/manual.").arg(half));
        EXPECT_EQ(driver->control("TaxFactorEd")->toolTip(),
                  QString("Tax multiplier (example %1). Blank for none/manual.").arg(percent));
    }
}

TEST_F(MainWindowTest, TheHighlightStaysOnTheOrderShown) {
    newOrder();
    newOrder();
    type("ByEd", "changed");
    auto* grid = driver->find<QTableView>("POGrid");
    const auto highlighted = [&] { return cell(grid->currentIndex().row(), kNumberColumn); };
    EXPECT_EQ(highlighted(), "000002");
    driver->clickHeading("POGrid", kNumberColumn);  // opens nothing
    EXPECT_EQ(grid->horizontalHeader()->sortIndicatorOrder(), Qt::AscendingOrder);
    EXPECT_EQ(cell(0, kNumberColumn), "000001");
    EXPECT_EQ(highlighted(), "000002");
    for (const auto& [answer, shown] :
         {std::pair(QMessageBox::Cancel, "000002"), std::pair(QMessageBox::No, "000001")}) {
        driver->answer("Save changes to Bramblet Number 000002 ?", answer);
        driver->clickCell("POGrid", 0, kVendorColumn);
        EXPECT_EQ(highlighted(), shown);
        EXPECT_EQ(text("PONoEd"), shown);
    }
}

TEST_F(MainWindowTest, TheListIsFilteredCountedAndRedWhereARequisitionIsOpen) {
    click("OptionRe");
    newOrder();
    const auto colour = [&](int column) {
        const auto* model = driver->find<QTableView>("POGrid")->model();
        return model->index(0, column).data(Qt::ForegroundRole);
    };
    EXPECT_EQ(colour(kNumberColumn).value<QColor>(), QColor(255, 0, 0));
    EXPECT_FALSE(colour(kVendorColumn).isValid());
    const QModelIndex number = driver->find<QTableView>("POGrid")->model()->index(0, kNumberColumn);
    EXPECT_TRUE(number.data(Qt::DecorationRole).isValid());
    EXPECT_EQ(number.data(Qt::ToolTipRole).toString(), "Requisition");
    click("OptionPO");
    click("SaveChanges");
    EXPECT_FALSE(colour(kNumberColumn).isValid());
    EXPECT_FALSE(number.data(Qt::DecorationRole).isValid());
    click("MarkReceivedCheck");
    click("SaveChanges");
    EXPECT_EQ(number.data(Qt::ToolTipRole).toString(), "Purchase order, received");
    EXPECT_EQ(colour(kNumberColumn).value<QColor>(),
              QApplication::palette().color(QPalette::ButtonText));
    EXPECT_NE(colour(kVendorColumn).value<QColor>(), QApplication::palette().color(QPalette::Text));
    click("MarkReceivedCheck");
    click("SaveChanges");

    for (const char* box : {"ListCheckRE", "ListCheckRecd", "ListCheckPO"}) {
        EXPECT_TRUE(driver->find<QCheckBox>(box)->isChecked()) << box;
        EXPECT_EQ(driver->control("BottomLabel")->toolTip(), "1 orders listed") << box;
        click(box);
    }
    EXPECT_EQ(driver->rows("POGrid"), 0);
    EXPECT_EQ(driver->control("BottomLabel")->toolTip(), "0 orders listed");
}

TEST_F(MainWindowTest, TheFindBoxNarrowsTheListAndItsRowsStayWhatTheyAre) {
    for (const char* vendor : {"Acme Steel", "Caf\u00e9 Noir", "Steel & Sons"}) {
        newOrder();
        type("ToCombo", vendor);
        click("SaveChanges");
    }
    auto* grid = driver->find<QTableView>("POGrid");
    const auto current = [&] {
        return grid->currentIndex().isValid() ? cell(grid->currentIndex().row(), kNumberColumn)
                                              : "";
    };
    driver->control("ByEd")->setFocus();
    driver->trigger("mu_FindInList");  // Ctrl+F
    ASSERT_EQ(QApplication::focusWidget(), driver->control("FindEd"));
    QTest::keyClicks(QApplication::focusWidget(), "cafe");
    EXPECT_EQ(driver->rows("POGrid"), 1);
    EXPECT_EQ(text("ListCount"), "1 of 3 orders listed");
    EXPECT_EQ(current(), "") << "the row of the order shown is hidden";
    EXPECT_FALSE(grid->selectionModel()->hasSelection());
    driver->trigger("mu_DeleteOrder");  // asks nothing: no row is current

    type("FindEd", "STEEL");
    EXPECT_EQ(driver->rows("POGrid"), 2);
    EXPECT_EQ(current(), "000003") << "it can be seen again";
    driver->clickHeading("POGrid", kVendorColumn);
    driver->clickCell("POGrid", 0, kVendorColumn);
    EXPECT_EQ(text("ToCombo"), "Acme Steel");
    driver->answer("000003", QMessageBox::Yes);
    chooseInMenu("POGrid", 1, "POPop", "POPop_delete");
    EXPECT_EQ(driver->rows("POGrid"), 1);
    EXPECT_EQ(text("ListCount"), "1 of 2 orders listed");
    EXPECT_EQ(current(), "") << "nothing takes the place of the deleted one";

    driver->control("ByEd")->setFocus();
    driver->trigger("mu_FindInList");
    driver->press("FindEd", Qt::Key_Down);
    EXPECT_EQ(QApplication::focusWidget(), grid);
    EXPECT_EQ(current(), "000001");
    driver->control("ByEd")->setFocus();
    driver->trigger("mu_FindInList");
    driver->press("FindEd", Qt::Key_Escape);
    EXPECT_EQ(text("FindEd"), "");
    EXPECT_EQ(text("ListCount"), "2 orders listed");
    EXPECT_EQ(current(), "000001");
    driver->press("FindEd", Qt::Key_Escape);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "ByEd") << "where it came from";
}

TEST_F(MainWindowTest, AColleaguesOrdersAppearAndTheViewStaysWhereItWas) {
    newOrder();
    auto* grid = driver->find<QTableView>("POGrid");
    const auto colleagueSaves = [&](int first, int last) {
        Order theirs = order();
        for (int number = first; number <= last; ++number) {
            theirs.PONoEd = std::to_string(number);
            program->index.RecordData(theirs);
        }
    };
    colleagueSaves(200, 300);
    window->activateWindow();  // which the question took the focus from
    EXPECT_TRUE(QTest::qWaitFor([&] { return driver->rows("POGrid") == 102; }, 10000))
        << "all by itself";
    grid->horizontalHeader()->moveSection(kVendorColumn, 0);
    grid->horizontalHeader()->resizeSection(kVendorColumn, 333);
    grid->selectRow(40);  // as the arrow keys do: nothing is opened
    grid->verticalScrollBar()->setValue(38);
    const auto onTop = [&] { return cell(grid->rowAt(0), kNumberColumn); };
    const auto current = [&] { return cell(grid->currentIndex().row(), kNumberColumn); };
    EXPECT_EQ(onTop() + current(), "262260");

    colleagueSaves(301, 305);
    program->lookForNews();
    EXPECT_EQ(driver->rows("POGrid"), 107);
    EXPECT_EQ(onTop() + current(), "262260");
    EXPECT_TRUE(grid->selectionModel()->isRowSelected(grid->currentIndex().row(), {}));
    EXPECT_EQ(text("PONoEd"), "000001");
    EXPECT_EQ(grid->columnWidth(kVendorColumn), 333);
    EXPECT_EQ(grid->horizontalHeader()->visualIndex(kVendorColumn), 0);

    driver->clickHeading("POGrid", kNumberColumn);
    EXPECT_EQ(current(), "260");
    EXPECT_TRUE(grid->viewport()->rect().contains(grid->visualRect(grid->currentIndex()).center()));
    const QString before = onTop();
    colleagueSaves(306, 306);
    program->lookForNews();
    EXPECT_EQ(onTop(), before) << "which it was since the list was sorted anew";
}

TEST_F(MainWindowTest, TheCalendarFillsItsBoxAndClosesOnEscape) {
    newOrder();
    type("ShipDateEd", "3/20/2026");
    program->open.markSaved();
    click("ShipDatePicker");
    auto* calendar = driver->find<QCalendarWidget>("MonthView1");
    EXPECT_TRUE(calendar->isVisible());
    EXPECT_EQ(calendar->selectedDate(), QDate(2026, 3, 20));
    EXPECT_EQ(calendar->firstDayOfWeek(), Qt::Sunday);
    QTest::keyClick(calendar, Qt::Key_Escape);
    EXPECT_FALSE(calendar->isVisible());
    EXPECT_FALSE(program->open.OrderDirty());

    click("ShipDatePicker");
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Return})
        QTest::keyClick(QApplication::focusWidget(), key);
    EXPECT_EQ(text("ShipDateEd"), "3/21/2026");
    EXPECT_FALSE(calendar->isVisible());
    EXPECT_TRUE(program->open.OrderDirty());
    click("ShipDatePicker");
    const auto* days = driver->find<QTableView>("qt_calendar_calendarview");
    const QPoint middle = days->viewport()->rect().center();
    QTest::mouseClick(days->viewport(), Qt::LeftButton, {}, middle);
    EXPECT_EQ(text("ShipDateEd"), "3/11/2026");
    EXPECT_FALSE(calendar->isVisible());
    type("ShipDateEd", "");
    QTest::mouseDClick(days->viewport(), Qt::LeftButton, {}, middle);
    EXPECT_EQ(text("ShipDateEd"), "") << "a double click chooses once";
}

TEST_F(MainWindowTest, DoubleClickOnTheNumbersLabelUnlocksIt) {
    driver->answer("Are you SURE you want to unlock", QMessageBox::Yes);
    driver->doubleClick("Label11");
    type("PONoEd", "004711");
    EXPECT_EQ(order().PONoEd, "004711");
    EXPECT_TRUE(enabled("SaveChanges"));
}

TEST_F(MainWindowTest, TheAboutBoxAndTheDataPath) {
    driver->answer("Quenmoor \"Bramblet\"\nVersion 1.5, January 17, 2004");
    driver->trigger("mu_About");
    EXPECT_EQ(driver->control("Label16")->toolTip(),
              "Data Path = " + pathToQt(program->folder.DataPath()));
}

TEST_F(MainWindowTest, TheWindowDoesNotCloseWhileACommandAsks) {
    driver->inDialog("NewPO", [this](QWidget& question) {
        EXPECT_FALSE(window->close());
        QTest::keyClick(&question, Qt::Key_Escape);
    });
    EXPECT_TRUE(window->isVisible());
    EXPECT_TRUE(window->close());
}

TEST_F(MainWindowTest, TabGoesThroughTheOrderAsItIsRead) {
    newOrder();
    driver->press("ToCombo", Qt::Key_Tab);
    QStringList passed;
    while (QApplication::focusWidget() != nullptr && !passed.contains("ToCombo")) {
        passed.append(QApplication::focusWidget()->objectName());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        ASSERT_LT(passed.size(), 60) << passed.join(' ').toStdString();
    }
    EXPECT_EQ(passed.join(' '),
              "ToField ShipToCombo ShipToField JobNumberEd ByEd ShipViaEd FOBEd TermsEd CommentsEd "
              "OrderGrid DiscountFactorEd DiscountEd TaxFactorEd SalesTaxEd ShippingEd POGrid "
              "FindEd ListCheckPO ListCheckRE ListCheckRecd HideOrders NewPO Save_PO Clear TotalUp "
              "MakeOrder HelpButton PONoEd OptionPO MarkReceivedCheck OrderDateEd OrderDatePicker "
              "ShipDateEd ShipDatePicker ToCombo");
}

TEST_F(MainWindowTest, LeavingAsksAndTheWindowComesBackWhereItWas) {
    newOrder();
    type("ByEd", "Ann");
    window->resize(1040, 690);
    window->move(20, 30);
    driver->answer("Save changes to Bramblet Number 000001 ?", QMessageBox::Yes);
    EXPECT_TRUE(window->close());
    open();
    EXPECT_TRUE(contains(FileSystem().read(program->folder.file("000001.htm")), "Ann"));
    EXPECT_EQ(window->size(), QSize(1040, 690));
    EXPECT_EQ(window->pos(), QPoint(20, 30));

    window->move(-5000, 9000);  // a screen that is gone next time
    EXPECT_TRUE(window->close());
    open();
    EXPECT_TRUE(window->screen()->availableGeometry().intersects(window->frameGeometry()));
}

class WaitingTest : public MainWindowTest {
  protected:
    void SetUp() override {
        MainWindowTest::SetUp();
        newOrder();
    }
    /// Runs `during` while a save waits for the document.
    void saveWhile(const std::function<void()>& during) {
        // A folder in the document's place is refused with error 75 for as long as it is there.
        std::filesystem::remove(document());
        std::filesystem::create_directory(document());
        type("ByEd", text("ByEd") + "Ann");
        QTimer::singleShot(300, window.get(), during);
        click("SaveChanges");
        Driver::settle();
    }
    std::filesystem::path document() const { return program->folder.file("000001.htm"); }
    void free() const { std::filesystem::remove(document()); }
    void expectStatus(const QString& start) const {
        EXPECT_TRUE(status().startsWith(start)) << status();
    }
};

TEST_F(WaitingTest, TellsWhichFileAndEndsByItsButtonByEscapeAndWhenTheFileIsFree) {
    saveWhile([&] {
        expectStatus("Waiting for 000001.htm");
        QTest::keyClicks(driver->control("FOBEd"), "x");
        QTest::mouseClick(driver->control("StopWaiting"), Qt::LeftButton);
    });
    EXPECT_EQ(order().FOBEd, "") << "no input was taken";
    EXPECT_TRUE(program->open.OrderDirty());
    expectStatus("The document of order 000001 was not saved");
    EXPECT_FALSE(visible("StopWaiting"));

    saveWhile([&] { QTest::keyClick(window.get(), Qt::Key_Escape); });
    EXPECT_TRUE(program->open.OrderDirty());
    saveWhile([&] { free(); });
    EXPECT_FALSE(program->open.OrderDirty());
    expectStatus("Order 000001 is saved");
}

TEST_F(WaitingTest, TheWindowDoesNotCloseAndTheOrderDoesNotChangeMeanwhile) {
    saveVendor("Acme", "A Road");
    click("Clear");
    type("ToCombo", "Acm");
    saveWhile([&] {
        window->close();
        EXPECT_TRUE(window->isVisible());
        program->open.fill(&Order::ToCombo, "Acme");
        driver->control("ByEd")->setFocus();  // leaving the name box would pick it
        EXPECT_EQ(order().ToField, "");
        free();
    });
    EXPECT_TRUE(window->isVisible());
    EXPECT_FALSE(program->open.OrderDirty());
}

TEST_F(MainWindowTest, SettingsInUseAreWaitedForInSightBeforeThereIsAMainWindow) {
    const TemporaryFolder other;
    const std::filesystem::path settings = other / "Quenmoor" / "po15.cfg";
    std::filesystem::create_directories(settings);  // refused with error 75
    Waiting early;
    const auto loadWhile = [&](const std::function<void(QWidget * notice)>& during) {
        QTimer::singleShot(300, window.get(), [&] {
            QWidget* const notice = driver->control("StartNotice");
            EXPECT_TRUE(notice->isVisible());
            during(notice);
        });
        const auto wait = [&](const FileError& error) { early.waitForFile(error); };
        return loadProgram({desktop, other.path(), {}, fixedClock(), wait}, prompts, early);
    };
    driver->answer("Path/File access error (error 75)", QMessageBox::Close);
    const auto leaving = loadWhile([&](const QWidget* notice) {
        const QString line = notice->findChild<QLabel*>()->text();
        EXPECT_TRUE(line.startsWith("Waiting for po15.cfg")) << line;
        QTest::mouseClick(notice->findChild<QWidget*>("StopWaiting"), Qt::LeftButton);
    });
    EXPECT_EQ(leaving, nullptr);
    const auto loaded = loadWhile([&](QWidget*) { std::filesystem::remove(settings); });
    ASSERT_NE(loaded, nullptr);
    EXPECT_TRUE(loaded->folder.DataPathOK());
}

TEST_F(MainWindowTest, NothingIsCutOffAtTheSmallestSize) {
    EXPECT_LE(window->minimumWidth(), 1024);
    EXPECT_LE(window->minimumHeight(), 700);
    window->resize(window->minimumSize());
    Driver::settle();
    for (QWidget* child : window->centralWidget()->findChildren<QWidget*>()) {
        if (!child->isVisible() || child->objectName().isEmpty()) continue;
        if (qobject_cast<QAbstractItemView*>(child->parentWidget()) != nullptr) continue;
        const QRect place(child->mapTo(window.get(), QPoint()), child->size());
        EXPECT_TRUE(window->rect().contains(place)) << child->objectName();
    }
}

TEST_F(MainWindowTest, ACharacterThatOrdersCannotHoldIsToldOfOnce) {
    const QString hint = "Orders cannot hold the character %1: it becomes \"?\".";
    const auto paste = [this](const QString& box, const QString& pasted) {
        QApplication::clipboard()->setText(pasted);
        driver->control(box)->setFocus();
        for (const auto keys : {QKeySequence::SelectAll, QKeySequence::Paste})
            QTest::keySequence(driver->control(box), keys);
    };
    const std::vector<std::tuple<QString, QString, QString>> cases{
        {"ByEd", QString::fromUtf8("\u0141ukasz"), QString::fromUtf8("\"\u0141\"")},
        {"ToCombo", QString::fromUtf8("\u03A9"), QString::fromUtf8("\"\u03A9\"")},
        {"ToField", QString::fromUtf8("Oak Lane\nEndre\u0151d"), QString::fromUtf8("\"\u0151\"")},
        {"CommentsEd", QString::fromUtf8("\U0001F600"), QString::fromUtf8("\"\U0001F600\"")},
        {"JobNumberEd", QString::fromUtf8("a\u200Bb"), "U+200B"},
        {"ShipToField", QString::fromUtf8("x\u0328"), "U+0328"},
    };
    for (const bool pasted : {false, true}) {
        for (const auto& [box, content, character] : cases) {
            // What has no key of its own can only be pasted.
            if (!pasted && (box == "CommentsEd" || box == "JobNumberEd")) continue;
            open();
            for (const char* held : {"Caf\u00E9 \u20AC \u201Cx\u201D", "e\u0301", "plain?"}) {
                paste(box, QString::fromUtf8(held));
                EXPECT_EQ(status(), "") << held;
            }
            pasted ? paste(box, content) : type(box, content);
            EXPECT_EQ(status(), hint.arg(character));
            window->statusBar()->clearMessage();
            pasted ? paste(box, content) : type(box, content);
            EXPECT_EQ(status(), "") << "once is enough";
        }
    }
}

TEST_F(MainWindowTest, TheHintOfACharacterWaitsUntilTheStatusLineIsFree) {
    const QString omega = QString::fromUtf8("\u03A9");
    window->statusBar()->showMessage("A failure");
    type("ByEd", omega);
    EXPECT_EQ(status(), "A failure");
    window->statusBar()->clearMessage();
    driver->inDialog("OrderPop_OneTime", [&](QWidget& dialog) {
        EXPECT_EQ(status(), "");
        type("Text1", "Resistor, 4.7 k" + omega);
        EXPECT_TRUE(status().contains(omega));
        dialog.close();
    });
    click("Clear");
    EXPECT_FALSE(status().contains(omega)) << "it goes with the next command";
}

TEST_F(MainWindowTest, TheSpendingIsShownAndABarListsItsOrders) {
    for (const char* vendor : {"Acme", "Bolt & Co", "Acme"}) {
        newOrder();
        type("ToCombo", vendor);
        addLine("1", "Nails", "2.50");
        click("SaveChanges");
    }
    const auto expectOnly = [&](const QString& orders, const QString& caption) {
        QStringList numbers;
        for (int row = 0; row < driver->rows("POGrid"); ++row)
            numbers.append(cell(row, 0));
        EXPECT_EQ(numbers.join(' '), orders);
        EXPECT_EQ(visible("ShownOnly"), !caption.isEmpty());
        EXPECT_EQ(caption.isEmpty() ? "" : driver->find<QToolButton>("ShownOnly")->text(), caption);
    };
    const auto inSpending = [&](const std::function<void()>& act) {
        driver->inDialog("mu_Spending", [act](QWidget&) { act(); });
    };
    click("HideOrders");
    inSpending([&] {
        EXPECT_EQ(driver->cell("SpendingVendorGrid", 0, 2), "$5.00");
        driver->press("SpendingVendors", Qt::Key_Down);
        EXPECT_TRUE(driver->control("SpendingVendors")
                        ->accessibleDescription()
                        .startsWith("Bolt & Co: $2.50"));
        driver->press("SpendingVendors", Qt::Key_Return);
    });
    expectOnly("000002", "Bolt && Co");
    driver->press("FindEd", Qt::Key_Escape);
    expectOnly("000003 000002 000001", "");
    inSpending([&] {
        QWidget* const chart = driver->control("SpendingVendors");
        QTest::mouseClick(chart, Qt::LeftButton, {}, QPoint(chart->width() / 2, 10));
    });
    expectOnly("000003 000001", "Acme");
    click("ShownOnly");
    expectOnly("000003 000002 000001", "");
    inSpending([&] { driver->press("SpendingVendorGrid", Qt::Key_Return); });
    expectOnly("000003 000001", "Acme");

    const QString picture = QString::fromStdString((documents.path() / "s.png").string());
    inSpending([&] {
        driver->chooseFile(picture);
        click("SpendingPicture");
        click("Close");
    });
    const QImage saved(picture);
    ASSERT_FALSE(saved.isNull());
    EXPECT_EQ(saved.pixelColor(0, 0), QColor(Qt::white));
}

}  // namespace
}  // namespace bramblet::test
