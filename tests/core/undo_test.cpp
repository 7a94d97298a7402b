// Taking back what has been deleted or cleared, also where somebody else has been at the files.

#include "support/office.h"

namespace bramblet::test {
namespace {

class UndoTest : public Office {
  protected:
    void SetUp() override {
        start();
        newOrder();
        saveAddress(Destination, "Ames", "1 Yard");
        saveAddress(Vendor, "Ames Ltd", "2 Mill Lane");
        saveAddress(Vendor, "Boyd", "3 Mill Lane");
        saveItem("Hammer");
        saveItem("Saw");
        pickAddress(Vendor, "Ames Ltd");
        for (const char* description : {"first", "second", "third"})
            addLine({"1", "ea", description, "10"});
        save();
    }
    std::string what() const { return program().undo.what(); }
    void undo(const std::string& said = "") {
        program().undo.mu_Undo_Click();
        EXPECT_EQ(screen.lastLine, said);
    }
    void deleteOrder(const std::string& number) {
        prompts.expectSaying("Delete purchase order " + number, Answer::Yes);
        program().editor.POPop_delete_Click(number);
    }
    void deleteItem(int row) {
        program().stock.StockGrid_Click(row);
        prompts.expectSaying("Delete stock item", Answer::Yes);
        program().stock.DeleteStockItem_Click();
    }
    AddressFile book() const { return {FileSystem(), data("po_addy.dat")}; }
};

TEST_F(UndoTest, ALineComesBackToItsPlaceAndAnUnchangedOrderIsUnchangedAgain) {
    const Order before = order();
    EXPECT_EQ(what(), "");
    program().lines.removeLine(1);
    EXPECT_EQ(screen.lastLine, "Line \"second\" deleted.");
    EXPECT_EQ(what(), "deleting line \"second\"");
    EXPECT_TRUE(dirty());
    undo();
    EXPECT_EQ(order(), before);
    EXPECT_FALSE(dirty() || saveEnabled());
    EXPECT_EQ(what(), "") << "there is one step";
    undo();

    program().lines.removeLine(2);
    program().lines.removeLine(0);
    type(&Order::JobNumberEd, "typed since");
    save();
    undo();
    EXPECT_EQ(lines(), "1 ea first 10 10.00 special; 1 ea second 10 10.00 special");
    EXPECT_EQ(order().JobNumberEd + order().OrderTotalEd, "typed since20.00");
    EXPECT_TRUE(dirty()) << "it has been saved without the line";
    save();

    program().lines.removeLine(0);
    save();
    openOrder("000001");
    EXPECT_EQ(what(), "") << "another order, though of the same number";
}

TEST_F(UndoTest, AClearedOrderComesBackWithAllThatWentWithIt) {
    for (const bool changed : {false, true}) {
        if (changed) typeAddress(Vendor, "another lane");
        const OpenOrder::State before = program().open.state();
        const AddressBook::Shown vendor = program().addresses.shown(Vendor);
        program().editor.Clear_Click();
        EXPECT_EQ(screen.lastLine, "Order cleared.");
        undo();
        EXPECT_EQ(order(), before.order);
        EXPECT_EQ(dirty(), changed);
        EXPECT_EQ(program().addresses.shown(Vendor).picked, vendor.picked);
        EXPECT_EQ(program().addresses.shown(Vendor).changedEnabled, changed);
    }
    program().editor.Clear_Click();
    save();
    undo();
    EXPECT_TRUE(lines().starts_with("1 ea first"));
    EXPECT_TRUE(dirty()) << "it has been saved empty";
}

TEST_F(UndoTest, WhatIsTypedAfterClearIsNotLostUnasked) {
    start();
    type(&Order::ByEd, "Ann");
    program().editor.Clear_Click();
    type(&Order::ByEd, "Bob");
    const Message question{
        "Bring back what stood here before Clear? What has been entered since will be gone.",
        "Undo Clear", Buttons::YesNo, Icon::Question, Answer::No};
    prompts.expect(question, Answer::No);
    undo();
    EXPECT_EQ(order().ByEd, "Bob");
    prompts.expect(yesNo("Save new Bramblet Number?", "Save PO?"), Answer::Yes);
    save();
    prompts.expect(question, Answer::Yes);
    undo();
    EXPECT_EQ(order().PONoEd + order().ByEd, "000002Ann") << "it keeps the number drawn since";
    EXPECT_TRUE(dirty());
}

TEST_F(UndoTest, ADeletedOrderIsListedAgainWhateverOthersHaveDone) {
    const std::string before = stored("po_data.dat");
    deleteOrder("000001");
    EXPECT_EQ(screen.lastLine, "Order 000001 deleted.");
    EXPECT_EQ(program().savedOrders.rowCount(), 0);
    undo("Order 000001 is back in the list");
    EXPECT_EQ(stored("po_data.dat"), before);
    EXPECT_EQ(program().savedOrders.rowCount(), 1);

    deleteOrder("000001");
    const std::string others = std::string(before).replace(7, 4, "Eve ");
    writeFile(data("po_data.dat"), others);
    undo("Order 000001 was in the list again already");
    EXPECT_EQ(stored("po_data.dat"), others) << "what somebody else has saved stays";

    deleteOrder("000001");
    writeFile(data("po_data.dat"), std::string(before).replace(1, 6, "000009"));
    undo("Order 000001 is back in the list");
    EXPECT_EQ(stored("po_data.dat"), std::string(before).replace(1, 6, "000009") + others);
    EXPECT_EQ(program().savedOrders.rowCount(), 2);
    deleteOrder("000009");
    program().index.markDeleted("000001");
    deleteOrder("000001");
    EXPECT_EQ(what(), "deleting order 000009") << "the other one was deleted already";
}

TEST_F(UndoTest, ADeletedItemComesBackUnderAnotherNumberIfItsOwnIsTaken) {
    const std::string before = stored("po_stock.dat");
    deleteItem(0);
    EXPECT_EQ(screen.lastLine, "Stock item \"Hammer\" deleted.");
    undo("\"Hammer\" is back in the catalogue");
    EXPECT_EQ(stored("po_stock.dat"), before);
    EXPECT_EQ(program().stock.rowCount(), 2);

    deleteItem(0);
    program().stock.boxes.StockDescriptionEd = "Pliers";
    program().stock.SaveChangedStockItem_Click();  // over the deleted record
    const std::string taken = stored("po_stock.dat");
    undo(
        "\"Hammer\" is back in the catalogue under the number 3: its own has gone to another item");
    EXPECT_EQ(stored("po_stock.dat").substr(0, taken.size()), taken);
    EXPECT_EQ(program().stock.text(2, StockColumn::Description), "Hammer");
    deleteItem(2);
    std::filesystem::resize_file(data("po_stock.dat"), 383);
    undo(
        "\"Hammer\" is back in the catalogue under the number 2: its own has gone to another item");
}

TEST_F(UndoTest, DeletedAddressesComeBackToTheirPlacesAndBoxes) {
    const std::string before = stored("po_addy.dat");
    const Order shown = order();
    program().addresses.Delete_Click(Vendor);
    EXPECT_EQ(screen.lastLine, "Address \"Ames Ltd\" deleted.");
    EXPECT_EQ(order().ToCombo + order().ToField, "");
    undo("\"Ames Ltd\" is back in the address book");
    EXPECT_EQ(stored("po_addy.dat"), before);
    EXPECT_EQ(order(), shown);
    EXPECT_FALSE(dirty());
    EXPECT_EQ(names(Vendor), (std::vector<std::string>{"Ames Ltd", "Boyd"}));

    program().addresses.Delete_Click(Vendor);
    type(&Order::ByEd, "typed since");
    typeName(Destination, "Works");
    undo("\"Ames Ltd\" is back in the address book");
    EXPECT_EQ(order().ToCombo + order().ToField, "Ames Ltd2 Mill Lane");
    EXPECT_EQ(order().ByEd + order().ShipToCombo, "typed sinceWorks");
    EXPECT_TRUE(dirty());

    program().addresses.Delete_Click(Vendor);
    prompts.expectSaying("Save changes", Answer::No);
    newOrder();
    undo("\"Ames Ltd\" is back in the address book");
    EXPECT_EQ(order().ToCombo, "") << "it was deleted from another order";

    typeName(Vendor, "Nobody");
    program().addresses.Delete_Click(Vendor);
    EXPECT_EQ(screen.lastLine, "Address \"Nobody\" was not in the address book.");
    EXPECT_EQ(order().ToCombo + what(), "emptying the boxes");
    undo();
    EXPECT_EQ(order().ToCombo, "Nobody");

    deleteItem(0);
    book().removeNamed("Boyd");
    program().addresses.deleteEntry(Vendor, "Boyd");
    EXPECT_EQ(screen.lastLine, "Address \"Boyd\" was not in the address book.");
    EXPECT_EQ(what(), "deleting stock item \"Hammer\"") << "that can still be taken back";
}

TEST_F(UndoTest, AnAddressEnteredAnewMeanwhileStaysAndTheDeletedOneIsNamedApart) {
    pickAddress(Vendor, "Boyd");
    program().addresses.Delete_Click(Vendor);
    book().append(kVendor, "Cole", "its number was Boyd's");
    undo("\"Boyd\" is back in the address book");
    const auto tagOf = [&](const std::string& name) {
        return book().findToRewrite(name).value().Tag;
    };
    EXPECT_EQ(tagOf("Cole"), 3);
    EXPECT_EQ(tagOf("Boyd"), 4);

    pickAddress(Vendor, "Boyd");
    program().addresses.Delete_Click(Vendor);
    book().append(kVendor, "Boyd", "9 New Road");
    undo("There is another \"Boyd\" by now: the one that was deleted is back as \"Boyd (2)\"");
    EXPECT_EQ(trimmed(book().findToRewrite("Boyd").value().Address), "9 New Road");
    EXPECT_EQ(trimmed(book().findToRewrite("Boyd (2)").value().Address), "3 Mill Lane");
    EXPECT_EQ(names(Vendor).size(), 4u);
}

TEST_F(UndoTest, WhatCannotBeTakenBackNowCanBeLater) {
    const std::string before = stored("po_addy.dat");
    program().addresses.Delete_Click(Vendor);
    const std::string without = stored("po_addy.dat");
    os::remove(data("po_addy.dat"));
    std::filesystem::create_directory(data("po_addy.dat"));
    undo(
        "Deleting address \"Ames Ltd\" was not undone: Path/File access error (error "
        "75).");
    EXPECT_EQ(what(), "deleting address \"Ames Ltd\"");
    std::filesystem::remove(data("po_addy.dat"));
    writeFile(data("po_addy.dat"), without);
    undo("\"Ames Ltd\" is back in the address book");
    EXPECT_EQ(stored("po_addy.dat"), before);
}

}  // namespace
}  // namespace bramblet::test
