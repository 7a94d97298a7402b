#include "gui/desk.h"
#include "gui/platform/history_box.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMenu>
#include <QTest>

namespace bramblet::test {
namespace {

class HistoryTest : public Desk {
  protected:
    void SetUp() override {
        Desk::SetUp();
        newOrder();
        for (const char* by : {"Ann Smith", "Anna Jones", "Bob"}) {
            driver->type(name("ByEd"), name(by));
            driver->click(name("SaveChanges"));
        }
    }
    HistoryBox* box(const char* boxName) { return driver->find<HistoryBox>(name(boxName)); }
    QStringList listed(const char* boxName) {
        QStringList entries;
        for (int i = 0; i < box(boxName)->count(); ++i)
            entries.append(box(boxName)->itemText(i));
        return entries;
    }
    /// "Delete" of the menu that a right click on the box opens.
    void deleteInMenu(const char* boxName) {
        driver->press(name(boxName), Qt::Key_End);
        QWidget* const edit = box(boxName)->lineEdit();
        QContextMenuEvent click(QContextMenuEvent::Mouse, {4, 4}, edit->mapToGlobal(QPoint(4, 4)));
        QApplication::sendEvent(edit, &click);
        Driver::settle();
        auto* menu = driver->find<QMenu>(name("EditPop"));
        menu->findChild<QAction*>(name("EditPop_Delete"))->trigger();
        menu->close();
        Driver::settle();
    }
};

TEST_F(HistoryTest, TheListOffersWhatWasEnteredAndTypingIsNeverReplaced) {
    EXPECT_EQ(listed("ByEd"), (QStringList{name("Ann Smith"), name("Anna Jones"), name("Bob")}));
    driver->type(name("ByEd"), name("ann"));
    EXPECT_EQ(driver->text(name("ByEd")), name("ann"));
    EXPECT_EQ(box("ByEd")->completer()->completionCount(), 2);
    driver->pick(name("ByEd"), name("Anna Jones"));
    EXPECT_EQ(program->open.order.ByEd, "Anna Jones");
    EXPECT_TRUE(program->open.OrderDirty);
}

TEST_F(HistoryTest, ASuggestionPointedAtIsTakenByTabAndLeftByEscape) {
    for (const auto& [boxName, typed, entry] :
         std::vector<std::tuple<const char*, const char*, const char*>>{
             {"ByEd", "an", "Ann Smith"}, {"ToCombo", "ac", "Acme"}}) {
        if (S::fromLatin1(boxName) == name("ToCombo")) {
            driver->type(name(boxName), name(entry));
            driver->click(name("ChangedVendor"));
        }
        const auto point = [&, typedText = typed] {
            driver->type(name(boxName), S());
            box(boxName)->setFocus();
            QTest::keyClicks(box(boxName), name(typedText));
            Driver::settle();
            QTest::keyClick(box(boxName)->completer()->popup(), Qt::Key_Down);
            EXPECT_EQ(driver->text(name(boxName)), name(typedText)) << "only pointed at";
        };
        point();
        QTest::keyClick(box(boxName)->completer()->popup(), Qt::Key_Escape);
        EXPECT_EQ(driver->text(name(boxName)), name(typed));
        point();
        QTest::keyClick(box(boxName)->completer()->popup(), Qt::Key_Tab);
        Driver::settle();
        EXPECT_EQ(driver->text(name(boxName)), name(entry));
        const Order& order = program->open.order;
        EXPECT_EQ(boxName[0] == 'B' ? order.ByEd : order.ToCombo, entry);
    }
}

TEST_F(HistoryTest, ShiftDeleteCutsASelectedPartOfTheText) {
    box("ByEd")->setFocus();
    box("ByEd")->lineEdit()->setSelection(1, 2);
    QTest::keyClick(box("ByEd"), Qt::Key_Delete, Qt::ShiftModifier);
    EXPECT_EQ(driver->text(name("ByEd")), name("B"));
    EXPECT_EQ(program->open.order.ByEd, "B");
    EXPECT_EQ(listed("ByEd").size(), 3);
}

TEST_F(HistoryTest, DeleteInTheMenuForgetsTheValueShown) {
    deleteInMenu("ByEd");
    EXPECT_EQ(driver->text(name("ByEd")), S());
    EXPECT_EQ(listed("ByEd"), (QStringList{name("Ann Smith"), name("Anna Jones")}));
}

TEST_F(HistoryTest, ShiftDeleteForgetsTheValueShownOrPointedAt) {
    driver->press(name("ByEd"), Qt::Key_Delete, Qt::ShiftModifier);
    EXPECT_EQ(driver->text(name("ByEd")), S());
    driver->type(name("ByEd"), name("Carl"));
    box("ByEd")->showPopup();
    Driver::settle();
    box("ByEd")->view()->setCurrentIndex(box("ByEd")->model()->index(0, 0));
    QTest::keyClick(box("ByEd")->view(), Qt::Key_Delete, Qt::ShiftModifier);
    box("ByEd")->hidePopup();
    Driver::settle();
    EXPECT_EQ(driver->text(name("ByEd")), name("Carl"));
    EXPECT_EQ(listed("ByEd"), QStringList{name("Anna Jones")});
}

TEST_F(HistoryTest, ShiftDeleteForgetsTheSuggestionPointedAt) {
    driver->type(name("ByEd"), S());
    box("ByEd")->setFocus();
    QTest::keyClicks(box("ByEd"), name("an"));
    Driver::settle();
    QAbstractItemView* const suggestions = box("ByEd")->completer()->popup();
    QTest::keyClick(suggestions, Qt::Key_Down);
    QTest::keyClick(suggestions, Qt::Key_Delete, Qt::ShiftModifier);
    EXPECT_EQ(listed("ByEd"), (QStringList{name("Anna Jones"), name("Bob")}));
    EXPECT_EQ(driver->text(name("ByEd")), name("an"));
    EXPECT_TRUE(suggestions->isVisible());
    EXPECT_EQ(suggestions->currentIndex().data().toString(), name("Anna Jones"));
    QTest::keyClick(suggestions, Qt::Key_Delete, Qt::ShiftModifier);
    EXPECT_EQ(listed("ByEd"), QStringList{name("Bob")});
    EXPECT_FALSE(suggestions->isVisible());
    EXPECT_EQ(driver->text(name("ByEd")), name("an"));
}

TEST_F(HistoryTest, InAnAddressBoxItDeletesWhatIsPickedOrPointedAt) {
    for (const char* vendor : {"Acme", "Bolt", "Cole"}) {
        driver->type(name("ToCombo"), name(vendor));
        driver->click(name("ChangedVendor"));
    }
    const auto shiftDelete = [&] {
        driver->press(name("ToCombo"), Qt::Key_Delete, Qt::ShiftModifier);
    };
    driver->pick(name("ToCombo"), name("Cole"));
    driver->type(name("ToCombo"), name("Acme"));  // only typed: it is text as any other
    shiftDelete();
    EXPECT_EQ(listed("ToCombo").size(), 3);
    box("ToCombo")->lineEdit()->selectAll();
    shiftDelete();
    EXPECT_EQ(driver->text(name("ToCombo")), S()) << "cut";
    EXPECT_EQ(listed("ToCombo").size(), 3);

    driver->pick(name("ToCombo"), name("Cole"));
    box("ToCombo")->showPopup();
    Driver::settle();
    box("ToCombo")->view()->setCurrentIndex(box("ToCombo")->model()->index(1, 0));
    QTest::keyClick(box("ToCombo")->view(), Qt::Key_Delete, Qt::ShiftModifier);
    box("ToCombo")->hidePopup();
    Driver::settle();
    EXPECT_EQ(listed("ToCombo"), (QStringList{name("Acme"), name("Cole")}));
    EXPECT_EQ(program->open.order.ToCombo, "Cole");

    deleteInMenu("ToCombo");  // the command is disabled until the next pick
    EXPECT_EQ(listed("ToCombo").size(), 2);
    driver->pick(name("ToCombo"), name("Acme"));
    deleteInMenu("ToCombo");
    EXPECT_EQ(listed("ToCombo"), QStringList{name("Cole")});
    EXPECT_EQ(program->open.order.ToCombo, "");
}

TEST_F(HistoryTest, OpeningTheListMarksTheOrder) {
    EXPECT_FALSE(program->open.OrderDirty);
    box("TermsEd")->showPopup();
    EXPECT_TRUE(program->open.OrderDirty);
    box("TermsEd")->hidePopup();
}

}  // namespace
}  // namespace bramblet::test
