#include "gui/app/start_notice.h"
#include "gui/desk.h"
#include "gui/platform/qt_text.h"
#include "support/regions.h"

#include <QCalendarWidget>
#include <QCheckBox>
#include <QClipboard>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QRadioButton>
#include <QStatusBar>
#include <QTableView>
#include <QTest>
#include <QWheelEvent>

namespace bramblet::test {
namespace {

class MainWindowTest : public Desk {
  protected:
    S text(const char* box) const { return driver->text(name(box)); }
    void type(const char* box, const char* typed) { driver->type(name(box), name(typed)); }
    void click(const char* button) { driver->click(name(button)); }
    bool enabled(const char* control) const { return driver->isEnabled(name(control)); }
};

TEST_F(MainWindowTest, EveryBoxReachesItsFieldAndShowsIt) {
    const std::vector<std::pair<const char*, OrderField>> boxes{
        {"JobNumberEd", &Order::JobNumberEd},
        {"OrderDateEd", &Order::OrderDateEd},
        {"ShipDateEd", &Order::ShipDateEd},
        {"ToCombo", &Order::ToCombo},
        {"ToField", &Order::ToField},
        {"ShipToCombo", &Order::ShipToCombo},
        {"ShipToField", &Order::ShipToField},
        {"ByEd", &Order::ByEd},
        {"ShipViaEd", &Order::ShipViaEd},
        {"FOBEd", &Order::FOBEd},
        {"TermsEd", &Order::TermsEd},
        {"CommentsEd", &Order::CommentsEd},
        {"DiscountFactorEd", &Order::DiscountFactorEd},
        {"DiscountEd", &Order::DiscountEd},
        {"TaxFactorEd", &Order::TaxFactorEd},
        {"SalesTaxEd", &Order::SalesTaxEd},
        {"ShippingEd", &Order::ShippingEd},
    };
    newOrder();
    for (const auto& [box, field] : boxes) {
        program->open.markSaved();
        type(box, "7.5");
        EXPECT_EQ(program->open.order.*field, "7.5") << box;
        EXPECT_TRUE(program->open.OrderDirty) << box;
    }
    const std::vector<std::pair<const char*, OrderField>> computed{
        {"PONoEd", &Order::PONoEd},
        {"SubTotalEd", &Order::SubTotalEd},
        {"NetTotalEd", &Order::NetTotalEd},
        {"OrderTotalEd", &Order::OrderTotalEd}};
    for (const auto& [box, field] : computed) {
        const std::string before = program->open.order.*field;
        type(box, "9");
        EXPECT_EQ(program->open.order.*field, before) << box;
        EXPECT_EQ(text(box).toStdString(), before) << box;
    }
}

TEST_F(MainWindowTest, LettersBeyondTheCodePageAreShownAsTheyWillBeStored) {
    driver->type(name("ByEd"), QString::fromUtf8("Zoë Łaska"));
    EXPECT_EQ(program->open.order.ByEd, "Zo\xEB ?aska");
    EXPECT_EQ(text("ByEd"), QString::fromUtf8("Zoë ?aska"));
    type("ToField", "1 Road\nTown");
    EXPECT_EQ(program->open.order.ToField, "1 Road\r\nTown");
}

TEST_F(MainWindowTest, LimitsOfWhatCanBeTyped) {
    type("JobNumberEd", "1234567890123");
    EXPECT_EQ(text("JobNumberEd"), name("123456789012"));
    driver->type(name("ToCombo"), QString(70, QLatin1Char('x')));
    EXPECT_EQ(text("ToCombo").size(), 60);
}

TEST_F(MainWindowTest, ADaysWork) {
    EXPECT_FALSE(enabled("SaveChanges"));
    EXPECT_FALSE(enabled("Save_PO"));
    newOrder();
    EXPECT_EQ(text("PONoEd"), name("000001"));
    EXPECT_TRUE(enabled("Save_PO"));
    type("ToCombo", "Acme Supply");
    type("ToField", "12 Mill Road\nLeeds");
    click("ChangedVendor");
    EXPECT_EQ(text("VendAddyCounter"), name("1"));
    EXPECT_FALSE(enabled("ChangedVendor"));
    addLine(name("2"), name("Hammer"), name("12.50"));
    type("TaxFactorEd", ".1");
    click("TotalUp");
    EXPECT_EQ(text("OrderTotalEd"), name("27.50"));
    click("SaveChanges");
    EXPECT_FALSE(enabled("SaveChanges"));
    EXPECT_EQ(driver->cell(name("POGrid"), 0, kOrderTotalColumn), name("$27.50"));

    newOrder();
    EXPECT_EQ(text("ToCombo") + text("ToField"), S());
    driver->clickCell(name("POGrid"), 1, kVendorColumn);
    EXPECT_EQ(text("PONoEd"), name("000001"));
    EXPECT_EQ(text("ToField"), name("12 Mill Road\nLeeds"));
    EXPECT_EQ(driver->cell(name("OrderGrid"), 0, kDescription), name("Hammer"));
    EXPECT_FALSE(enabled("SaveChanges"));

    driver->answer(name("Create new purchase order based on details"), QMessageBox::Yes);
    click("Save_PO");
    EXPECT_EQ(text("PONoEd"), name("000003"));
    click("MarkReceivedCheck");
    EXPECT_TRUE(enabled("SaveChanges"));
    driver->press(name("ByEd"), Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(driver->cell(name("POGrid"), 0, kStatusColumn), name("a"));
}

TEST_F(MainWindowTest, PickingAnAddressFillsIt) {
    for (const char* vendor : {"Acme", "Bolt"}) {
        type("ToCombo", vendor);
        driver->type(name("ToField"), name(vendor) + name(" Road"));
        click("ChangedVendor");
    }
    driver->pick(name("ToCombo"), name("Acme"));
    EXPECT_EQ(text("ToField"), name("Acme Road"));
    EXPECT_TRUE(enabled("DeleteVendor"));
    // A listed name typed in full is picked when the box is left with no address in it.
    type("ToField", "");
    type("ToCombo", "Bolt");
    driver->press(name("ToCombo"), Qt::Key_Return);
    EXPECT_EQ(text("ToField"), name("Bolt Road"));
    click("DeleteVendor");
    EXPECT_EQ(text("ToCombo"), S());
    EXPECT_EQ(program->addresses.shown(AddressSide::Vendor).names.size(), 1u);
}

TEST_F(MainWindowTest, AnImportedNameWithATabIsPickedAndDeleted) {
    AddressFile(FileSystem(), program->folder.file("po_addy.dat"))
        .import(kVendor, {{"Acme\tTools", "1 Road"}}, [](int) {});
    open();
    driver->pick(name("ToCombo"), name("Acme Tools"));
    EXPECT_EQ(text("ToField"), name("1 Road"));
    click("DeleteVendor");
    EXPECT_TRUE(program->addresses.shown(AddressSide::Vendor).names.empty());
}

TEST_F(MainWindowTest, OnlyAChoiceFromTheListPicksAnAddress) {
    for (const char* vendor : {"ACME", "Bolt", "Cole"}) {
        type("ToCombo", vendor);
        driver->type(name("ToField"), name(vendor) + name(" Road"));
        click("ChangedVendor");
    }
    newOrder();
    type("ToField", "one-off address");
    type("ToCombo", "Acme");  // listed, but for letter case
    driver->press(name("ToCombo"), Qt::Key_Tab);
    EXPECT_EQ(text("ToCombo") + text("ToField"), name("Acmeone-off address"));

    driver->pick(name("ToCombo"), name("Bolt"));
    click("SaveChanges");
    driver->press(name("ToCombo"), Qt::Key_Tab);  // leaving the box changes nothing
    EXPECT_FALSE(program->open.OrderDirty);
    auto* box = driver->control(name("ToCombo"));
    QWheelEvent wheel({5, 5}, box->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, {}, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(box, &wheel);
    EXPECT_EQ(text("ToCombo"), name("Bolt"));
    driver->press(name("ToCombo"), Qt::Key_Down);  // on from the entry shown
    EXPECT_EQ(text("ToCombo"), name("Cole"));
}

TEST_F(MainWindowTest, PastedControlCharactersBecomeBlanks) {
    QApplication::clipboard()->setText(name("two\nlines\tand a tab"));
    driver->press(name("CommentsEd"), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(program->open.order.CommentsEd, "two lines and a tab");
    // A no-break blank in an address stays one.
    driver->type(name("ToField"), QString(QChar(0xA0)) + name("5"));
    EXPECT_EQ(program->open.order.ToField,
              "\xA0"
              "5");
}

TEST_F(MainWindowTest, FailuresStayInTheStatusBarAndGoodNewsGoesWithTheNextEdit) {
    newOrder();
    const auto status = [&] { return window->statusBar()->currentMessage(); };
    EXPECT_EQ(status(), name("Order 000001 is saved"));
    type("ShipDateEd", "soon");
    EXPECT_EQ(status(), S());
    click("SaveChanges");
    EXPECT_TRUE(status().contains(name("\"soon\" in the box On Site is not a date")));
    type("ByEd", "Ann");
    EXPECT_TRUE(status().contains(name("is not a date")));
}

TEST_F(MainWindowTest, ADateThatIsNoneIsMarkedWhenItsBoxIsLeftOrASaveMeetsIt) {
    auto* box = driver->find<QLineEdit>(name("ShipDateEd"));
    const auto marked = [&] {
        return box->palette().color(QPalette::Base) !=
               QApplication::palette().color(QPalette::Base);
    };
    const S usualTip = box->toolTip();
    newOrder();
    type("ShipDateEd", "so");
    EXPECT_FALSE(marked()) << "still being typed";
    driver->press(name("ShipDateEd"), Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(marked());
    EXPECT_EQ(box->toolTip(), name("\"so\" is not a date."));
    type("ShipDateEd", "3/20/2026");
    EXPECT_FALSE(marked());
    EXPECT_EQ(box->toolTip(), usualTip);
    type("ShipDateEd", "soon");
    EXPECT_FALSE(marked());
    driver->press(name("ShipDateEd"), Qt::Key_Tab);
    EXPECT_TRUE(marked());
}

TEST_F(MainWindowTest, ALineThatCannotBeReadCanStillBeRemoved) {
    program->open.order.lines = {{"1", "", "", "ea", "x", "1.2.3", "0.00", "special"}};
    program->open.onChange();
    driver->onNextDialog([&](QWidget&) { click("Del"); });
    driver->doubleClickCell(name("OrderGrid"), 0, kDescription);
    EXPECT_EQ(driver->rows(name("OrderGrid")), 0);
}

TEST_F(MainWindowTest, LinesAreEditedByMouseAndKeyboard) {
    addLine(name("1"), name("first"), name("1"));
    addLine(name("1"), name("second"), name("2"));
    const auto editTo = [&](const char* description) {
        driver->onNextDialog([=, this](QWidget& dialog) {
            EXPECT_EQ(dialog.windowTitle(), name("Edit Line Item"));
            driver->type(name("Text1"), name(description));
            driver->press(name("Text1"), Qt::Key_Return);  // Enter saves
        });
    };
    editTo("third");
    driver->doubleClickCell(name("OrderGrid"), 0, kDescription);
    EXPECT_EQ(driver->cell(name("OrderGrid"), 0, kDescription), name("third"));
    editTo("fourth");
    driver->press(name("OrderGrid"), Qt::Key_Return);
    EXPECT_EQ(driver->cell(name("OrderGrid"), 0, kDescription), name("fourth"));
    driver->onNextDialog([&](QWidget& dialog) {
        driver->type(name("Text1"), name("never"));
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    driver->press(name("OrderGrid"), Qt::Key_Return);
    EXPECT_EQ(driver->cell(name("OrderGrid"), 0, kDescription), name("fourth"));
    driver->onNextDialog([&](QWidget&) { click("Del"); });
    driver->press(name("OrderGrid"), Qt::Key_Return);
    EXPECT_EQ(driver->rows(name("OrderGrid")), 1);
    driver->press(name("OrderGrid"), Qt::Key_Delete);
    EXPECT_EQ(driver->rows(name("OrderGrid")), 0);
    driver->onNextDialog([&](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    driver->press(name("OrderGrid"), Qt::Key_Insert);
    EXPECT_EQ(driver->rows(name("OrderGrid")), 1);  // a cancelled one-time item is still added
}

TEST_F(MainWindowTest, TheLineDialogStaysOpenOnAnAmountThatCannotBeRead) {
    driver->onNextDialog([&](QWidget& dialog) {
        driver->type(name("UCEd"), name("1.2.3"));
        driver->answer(name("\"1.2.3\" in the box Unit Cost is not an amount."), QMessageBox::Ok);
        click("Save");
        EXPECT_TRUE(dialog.isVisible());
        click("Cancel");
    });
    driver->trigger(name("OrderPop_OneTime"));
}

TEST_F(MainWindowTest, RightClicksOpenTheMenus) {
    newOrder();
    addLine(name("1"), name("first"), name("1"));
    driver->clickCell(name("OrderGrid"), 0, kDescription, Qt::RightButton);
    auto* lineMenu = driver->find<QMenu>(name("OrderPop"));
    EXPECT_TRUE(lineMenu->isVisible());
    lineMenu->close();
    click("SaveChanges");
    newOrder();
    driver->clickCell(name("POGrid"), 1, kVendorColumn, Qt::RightButton);
    auto* menu = driver->find<QMenu>(name("POPop"));
    EXPECT_TRUE(menu->isVisible());
    EXPECT_EQ(text("PONoEd"), name("000002"));  // nothing was opened
    driver->answer(name("Delete purchase order 000001 ?"), QMessageBox::Yes);
    driver->trigger(name("POPop_delete"));
    menu->close();
    EXPECT_EQ(driver->rows(name("POGrid")), 1);
}

TEST_F(MainWindowTest, TheTipsOfTheMultipliersAreRightInTheRegion) {
    const auto tips = [&] {
        return driver->control(name("DiscountFactorEd"))->toolTip() + name("\n") +
               driver->control(name("TaxFactorEd"))->toolTip();
    };
    EXPECT_EQ(tips(), name("Discount multiplier (example .5 = 50%). Blank for none/manual.\n"
                           "Tax multiplier (example .065 = 6.5%). Blank for none/manual."));
    open(deDE());
    EXPECT_EQ(tips(), name("Discount multiplier (example 0,5 = 50%). Blank for none/manual.\n"
                           "Tax multiplier (example 0,065 = 6,5%). Blank for none/manual."));
}

TEST_F(MainWindowTest, HeadingsSortAndOpenNothing) {
    newOrder();
    newOrder();
    type("ByEd", "changed");
    driver->clickHeading(name("POGrid"), kNumberColumn);
    EXPECT_EQ(driver->cell(name("POGrid"), 0, kNumberColumn), name("000001"));
    EXPECT_EQ(driver->find<QTableView>(name("POGrid"))->horizontalHeader()->sortIndicatorOrder(),
              Qt::AscendingOrder);
    EXPECT_EQ(text("PONoEd"), name("000002"));
}

TEST_F(MainWindowTest, CancelPutsTheHighlightBackOnTheOrderShown) {
    newOrder();
    newOrder();
    type("ByEd", "changed");
    const auto highlighted = [&] {
        auto* grid = driver->find<QTableView>(name("POGrid"));
        return driver->cell(name("POGrid"), grid->currentIndex().row(), kNumberColumn);
    };
    EXPECT_EQ(highlighted(), name("000002"));
    driver->answer(name("Save changes to Bramblet Number 000002 ?"), QMessageBox::Cancel);
    driver->clickCell(name("POGrid"), 1, kVendorColumn);
    EXPECT_EQ(highlighted(), name("000002"));
    driver->answer(name("Save changes to Bramblet Number 000002 ?"), QMessageBox::No);
    driver->clickCell(name("POGrid"), 1, kVendorColumn);
    EXPECT_EQ(highlighted(), name("000001"));
    EXPECT_EQ(text("PONoEd"), name("000001"));
}

TEST_F(MainWindowTest, FiltersStartCheckedAndTheCountIsInTheToolTip) {
    newOrder();
    for (const char* box : {"ListCheckPO", "ListCheckRE", "ListCheckRecd"}) {
        EXPECT_TRUE(driver->find<QCheckBox>(name(box))->isChecked()) << box;
    }
    EXPECT_EQ(driver->control(name("BottomLabel"))->toolTip(), name("1 orders listed"));
    click("ListCheckPO");
    EXPECT_EQ(driver->rows(name("POGrid")), 0);
    EXPECT_EQ(driver->control(name("BottomLabel"))->toolTip(), name("0 orders listed"));
}

TEST_F(MainWindowTest, OpenRequisitionsAreRedInTheList) {
    click("OptionRe");
    newOrder();
    const auto colour = [&](int column) {
        const auto* model = driver->find<QTableView>(name("POGrid"))->model();
        return model->index(0, column).data(Qt::ForegroundRole);
    };
    EXPECT_EQ(colour(kNumberColumn).value<QColor>(), QColor(255, 0, 0));
    EXPECT_FALSE(colour(kVendorColumn).isValid());
    click("OptionPO");
    click("SaveChanges");
    EXPECT_FALSE(colour(kNumberColumn).isValid());
}

TEST_F(MainWindowTest, TheCalendarFillsItsBoxAndClosesOnEscape) {
    newOrder();
    type("ShipDateEd", "3/20/2026");
    program->open.markSaved();
    click("ShipDatePicker");
    auto* calendar = driver->find<QCalendarWidget>(name("MonthView1"));
    QWidget* popup = calendar->parentWidget();
    EXPECT_TRUE(popup->isVisible());
    EXPECT_EQ(calendar->selectedDate(), QDate(2026, 3, 20));
    EXPECT_EQ(calendar->firstDayOfWeek(), Qt::Sunday);
    QTest::keyClick(calendar, Qt::Key_Escape);
    EXPECT_FALSE(popup->isVisible());
    EXPECT_FALSE(program->open.OrderDirty);

    click("ShipDatePicker");
    emit calendar->clicked(QDate(2026, 4, 1));
    EXPECT_EQ(text("ShipDateEd"), name("4/1/2026"));
    EXPECT_FALSE(popup->isVisible());
    EXPECT_TRUE(program->open.OrderDirty);
}

TEST_F(MainWindowTest, DoubleClickOnTheNumbersLabelUnlocksIt) {
    driver->answer(name("Are you SURE you want to unlock"), QMessageBox::Yes);
    driver->doubleClick(name("Label11"));
    type("PONoEd", "004711");
    EXPECT_EQ(program->open.order.PONoEd, "004711");
    EXPECT_TRUE(enabled("SaveChanges"));
}

TEST_F(MainWindowTest, TheAboutBoxAndTheDataPath) {
    driver->answer(name("Quenmoor \"Bramblet\"\nVersion 1.5, January 17, 2004"), QMessageBox::Ok);
    driver->trigger(name("mu_About"));
    EXPECT_EQ(driver->control(name("Label16"))->toolTip(),
              name("Data Path = ") + pathToQt(program->folder.DataPath()));
}

TEST_F(MainWindowTest, LeavingAsksAndTheWindowComesBackWhereItWas) {
    newOrder();
    type("ByEd", "Ann");
    window->resize(1040, 690);
    window->move(20, 30);
    driver->answer(name("Save changes to Bramblet Number 000001 ?"), QMessageBox::Yes);
    EXPECT_TRUE(window->close());
    open();
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
        type("ByEd", "Ann");
        // A folder in the document's place is refused with error 75 for as long as it is there.
        document_ = program->folder.file("000001.htm");
        std::filesystem::remove(document_);
        std::filesystem::create_directory(document_);
    }
    /// Runs `during` while a save waits for the document.
    void saveWhile(const std::function<void()>& during) {
        QTimer::singleShot(300, window.get(), during);
        click("SaveChanges");
    }
    S status() const { return window->statusBar()->currentMessage(); }

    std::string document_;
};

TEST_F(WaitingTest, TellsWhichFileAndCanBeStopped) {
    saveWhile([&] {
        EXPECT_TRUE(status().startsWith(name("Waiting for 000001.htm"))) << status().toStdString();
        QTest::keyClicks(driver->control(name("FOBEd")), name("x"));
        QTest::mouseClick(driver->control(name("StopWaiting")), Qt::LeftButton);
    });
    EXPECT_EQ(program->open.order.FOBEd, "");  // no input was taken
    EXPECT_TRUE(program->open.OrderDirty);
    Driver::settle();
    EXPECT_TRUE(status().startsWith(name("The document of order 000001 was not saved")))
        << status().toStdString();
    EXPECT_FALSE(driver->control(name("StopWaiting"))->isVisible());
}

TEST_F(WaitingTest, EndsWhenTheFileIsFreeAndByEscape) {
    saveWhile([&] { std::filesystem::remove(document_); });
    EXPECT_FALSE(program->open.OrderDirty);
    Driver::settle();
    EXPECT_EQ(status(), name("Order 000001 is saved"));

    type("ByEd", "Tom");
    std::filesystem::remove(document_);
    std::filesystem::create_directory(document_);
    saveWhile([&] { QTest::keyClick(window.get(), Qt::Key_Escape); });
    EXPECT_TRUE(program->open.OrderDirty);
}

TEST_F(WaitingTest, TheWindowDoesNotCloseAndTheOrderDoesNotChangeMeanwhile) {
    type("ToCombo", "Acme");
    type("ToField", "A Road");
    click("ChangedVendor");
    click("Clear");
    type("ToCombo", "Acm");
    saveWhile([&] {
        window->close();
        EXPECT_TRUE(window->isVisible());
        program->open.order.ToCombo = "Acme";
        driver->control(name("ByEd"))->setFocus();  // leaving the name box would pick it
        EXPECT_EQ(program->open.order.ToField, "");
        std::filesystem::remove(document_);
    });
    EXPECT_TRUE(window->isVisible());
    EXPECT_FALSE(program->open.OrderDirty);
}

TEST_F(MainWindowTest, SettingsInUseAreWaitedForInSightBeforeThereIsAMainWindow) {
    const TemporaryFolder other;
    const std::filesystem::path settings = other / "Quenmoor" / "po15.cfg";
    std::filesystem::create_directories(settings);  // refused with error 75
    Waiting early;
    const auto loadWhile = [&](const std::function<void(QWidget&)>& during) {
        QTimer::singleShot(300, window.get(), [&] {
            for (QWidget* shown : QApplication::topLevelWidgets()) {
                if (shown->objectName() == name("StartNotice") && shown->isVisible())
                    return during(*shown);
            }
            ADD_FAILURE() << "nothing tells of the waiting";
            std::filesystem::remove(settings);
        });
        return loadProgram({desktop,
                            other.path(),
                            {},
                            fixedClock(),
                            [&](const FileError& error) { early.waitForFile(error); }},
                           prompts, early);
    };
    driver->answer(name("Path/File access error (error 75)"), QMessageBox::Close);
    const auto leaving = loadWhile([&](QWidget& notice) {
        const S line = notice.findChild<QLabel*>()->text();
        EXPECT_TRUE(line.startsWith(name("Waiting for po15.cfg"))) << line.toStdString();
        QTest::mouseClick(notice.findChild<QWidget*>(name("StopWaiting")), Qt::LeftButton);
    });
    EXPECT_EQ(leaving, nullptr);
    const auto loaded = loadWhile([&](QWidget&) { std::filesystem::remove(settings); });
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
        EXPECT_TRUE(window->rect().contains(place)) << child->objectName().toStdString();
    }
}

}  // namespace
}  // namespace bramblet::test
