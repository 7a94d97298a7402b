#include "gui/desk.h"
#include "gui/platform/history_box.h"

namespace bramblet::test {
namespace {

class HistoryTest : public Desk {
  protected:
    void SetUp() override {
        Desk::SetUp();
        newOrder();
        for (const char* by : {"Ann Smith", "Anna Jones", "Bob"}) {
            type("ByEd", by);
            click("SaveChanges");
        }
        for (const char* vendor : {"Acme", "Bolt", "Cole"})
            saveVendor(vendor, QString(vendor) + " Road");
        program->open.markSaved();
    }
    HistoryBox* box(const QString& name) { return driver->find<HistoryBox>(name); }
    void expectListed(const QString& name, const QStringList& entries) {
        QStringList listed;
        for (int i = 0; i < box(name)->count(); ++i)
            listed.append(box(name)->itemText(i));
        EXPECT_EQ(listed, entries) << listed.join(", ");
    }
    /// Those that come when something is typed.
    QAbstractItemView* suggestionsFor(const QString& name, const QString& typed) {
        type(name, "");
        QTest::keyClicks(box(name), typed);
        Driver::settle();
        QAbstractItemView* const suggestions = box(name)->completer()->popup();
        EXPECT_TRUE(suggestions->isVisible());
        return suggestions;
    }
    /// Types, and points at the first of the suggestions.
    QAbstractItemView* pointAtSuggestion(const QString& name, const QString& typed) {
        QAbstractItemView* const suggestions = suggestionsFor(name, typed);
        QTest::keyClick(suggestions, Qt::Key_Down);
        EXPECT_EQ(text(name), typed) << "only pointed at";
        return suggestions;
    }
    void shiftDelete(const QString& name) {
        driver->press(name, Qt::Key_Delete, Qt::ShiftModifier);
    }
    /// Shift+Delete on a row of the open list.
    void shiftDeleteInList(const QString& name, int row) {
        box(name)->showPopup();
        Driver::settle();
        box(name)->view()->setCurrentIndex(box(name)->model()->index(row, 0));
        QTest::keyClick(box(name)->view(), Qt::Key_Delete, Qt::ShiftModifier);
        box(name)->hidePopup();
        Driver::settle();
    }
    /// "Delete" of the menu that a right click on the box opens.
    void deleteInMenu(const QString& name) {
        driver->press(name, Qt::Key_End);
        driver->openMenu(name);
        auto* menu = driver->find<QMenu>("EditPop");
        menu->findChild<QAction*>("EditPop_Delete")->trigger();
        menu->close();
        Driver::settle();
    }
};

TEST_F(HistoryTest, TheListOffersWhatWasEnteredAndTypingIsNeverReplaced) {
    expectListed("ByEd", {"Ann Smith", "Anna Jones", "Bob"});
    type("ByEd", "ann");
    EXPECT_EQ(text("ByEd"), "ann");
    EXPECT_EQ(box("ByEd")->completer()->completionCount(), 2);
    driver->pick("ByEd", "Anna Jones");
    EXPECT_EQ(order().ByEd, "Anna Jones");
    program->open.markSaved();
    box("TermsEd")->showPopup();
    EXPECT_TRUE(program->open.OrderDirty()) << "an opened list marks the order";
    box("TermsEd")->hidePopup();
}

TEST_F(HistoryTest, ASuggestionIsTakenOnceItIsPointedAtUnlessItIsLeftByEscape) {
    for (const auto& [name, typed, entry, field, address] :
         {std::tuple("ByEd", "an", "Ann Smith", &Order::ByEd, "Cole Road"),
          std::tuple("ToCombo", "olt", "Bolt", &Order::ToCombo, "Bolt Road")}) {
        QTest::keyClick(suggestionsFor(name, typed), Qt::Key_Tab);
        EXPECT_EQ(text(name), typed) << "points at none";
        QTest::keyClick(pointAtSuggestion(name, typed), Qt::Key_Escape);
        EXPECT_EQ(text(name) + text("ToField"), QString(typed) + "Cole Road");
        for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Return}) {
            QTest::keyClick(pointAtSuggestion(name, typed), key);
            Driver::settle();
            EXPECT_EQ(text(name), entry);
            EXPECT_EQ(order().*field, entry);
            EXPECT_EQ(text("ToField"), address);
        }
    }
}

TEST_F(HistoryTest, DeleteInTheMenuAndShiftDeleteForgetTheValueShownOrPointedAt) {
    deleteInMenu("ByEd");
    EXPECT_EQ(text("ByEd"), "");
    expectListed("ByEd", {"Ann Smith", "Anna Jones"});
    type("ByEd", "Carl");
    shiftDeleteInList("ByEd", 0);
    EXPECT_EQ(text("ByEd"), "Carl");
    expectListed("ByEd", {"Anna Jones"});
    driver->pick("ByEd", "Anna Jones");
    shiftDelete("ByEd");
    EXPECT_EQ(text("ByEd"), "");
    expectListed("ByEd", {});
}

TEST_F(HistoryTest, ShiftDeleteForgetsTheSuggestionPointedAtButCutsASelectedPartOfTheText) {
    box("ByEd")->lineEdit()->setSelection(1, 2);
    shiftDelete("ByEd");
    EXPECT_EQ(text("ByEd"), "B");
    EXPECT_EQ(order().ByEd, "B");
    QAbstractItemView* const suggestions = pointAtSuggestion("ByEd", "an");
    QTest::keyClick(suggestions, Qt::Key_Delete, Qt::ShiftModifier);
    expectListed("ByEd", {"Anna Jones", "Bob"});
    EXPECT_EQ(text("ByEd"), "an");
    EXPECT_TRUE(suggestions->isVisible());
    EXPECT_EQ(suggestions->currentIndex().data().toString(), "Anna Jones");
    QTest::keyClick(suggestions, Qt::Key_Delete, Qt::ShiftModifier);
    expectListed("ByEd", {"Bob"});
    EXPECT_FALSE(suggestions->isVisible());
    EXPECT_EQ(text("ByEd"), "an");
}

TEST_F(HistoryTest, InAnAddressBoxItDeletesWhatIsPickedOrPointedAt) {
    driver->pick("ToCombo", "Cole");
    type("ToCombo", "Acme");  // only typed: it is text as any other
    shiftDelete("ToCombo");
    box("ToCombo")->lineEdit()->selectAll();
    shiftDelete("ToCombo");
    EXPECT_EQ(text("ToCombo"), "") << "cut";
    expectListed("ToCombo", {"Acme", "Bolt", "Cole"});

    driver->pick("ToCombo", "Cole");
    shiftDeleteInList("ToCombo", 1);
    expectListed("ToCombo", {"Acme", "Cole"});
    EXPECT_EQ(order().ToCombo, "Cole");

    deleteInMenu("ToCombo");  // the command is disabled until the next pick
    expectListed("ToCombo", {"Acme", "Cole"});
    driver->pick("ToCombo", "Acme");
    deleteInMenu("ToCombo");
    expectListed("ToCombo", {"Cole"});
    EXPECT_EQ(order().ToCombo, "");
}

TEST_F(HistoryTest, TheMenuOfAnAddressBoxRenamesWhatIsPicked) {
    driver->pick("ToCombo", "Bolt");
    driver->onNextDialog([](QWidget& dialog) {
        auto& input = dynamic_cast<QInputDialog&>(dialog);
        EXPECT_EQ(input.textValue(), "Bolt");
        input.setTextValue("Bolts");
        input.accept();
    });
    driver->openMenu("ToCombo");
    auto* menu = driver->find<QMenu>("EditPop");
    EXPECT_EQ(menu->actions().last()->objectName(), "ToPop_rename");
    menu->actions().last()->trigger();
    menu->close();
    EXPECT_EQ(text("ToCombo"), "Bolts");
    expectListed("ToCombo", {"Acme", "Bolts", "Cole"});
    driver->answer("Please pick the address to rename.");
    driver->trigger("mu_RenameDest");
}

}  // namespace
}  // namespace bramblet::test
