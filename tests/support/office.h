// A whole program without windows, in a home folder of its own, on one fixed day.
#pragma once

#include "core/app/program.h"
#include "core/platform/path_text.h"
#include "core/platform/text.h"
#include "support/recording_desktop.h"
#include "support/recording_screen.h"
#include "support/scripted_prompts.h"
#include "support/temporary_folder.h"

#include <functional>
#include <memory>

namespace bramblet::test {

using enum AddressSide;

/// 4 March 2026, a Wednesday.
inline constexpr DayCount kToday = 46085;

/// Half past two, and five seconds.
inline Clock fixedClock() {
    return {[] { return kToday; }, [] {}, [] { return (14 * 60 + 30) * 60 + 5; }};
}

/// What the prompts are expected to ask, under short names.
inline Message yesNo(const std::string& text, const std::string& title = "Confirm") {
    return {text, title, Buttons::YesNo, Icon::Question};
}
inline Message yesNoCancel(const std::string& text, const std::string& title) {
    return {text, title, Buttons::YesNoCancel, Icon::Question};
}
inline Message notice(const std::string& text, const std::string& title,
                      Icon icon = Icon::Information) {
    return {text, title, Buttons::Ok, icon};
}
inline Message replaceQuestion() {
    return {"File already exists - do you want to replace it?", "Confirm", Buttons::YesNo,
            Icon::Exclamation};
}

inline bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

class Office : public ::testing::Test {
  protected:
    /// Starts the program, as often as a test wants.
    Program& start(const RegionalFormats& formats = {}) {
        program_.reset();
        program_ =
            std::make_unique<Program>(Environment{desktop, documents.path(), formats, fixedClock(),
                                                  [this](const FileError& error) {
                                                      ++waits;
                                                      throw error;  // the user gives up at once
                                                  }},
                                      prompts);
        program_->commands.setScreen(&screen);
        program_->start();
        return *program_;
    }
    Program& program() const { return *program_; }

    // The order shown.
    const Order& order() const { return program_->open.order(); }
    bool dirty() const { return program_->open.OrderDirty(); }
    bool saveEnabled() const { return program_->open.SaveChangesEnabled(); }
    bool copyEnabled() const { return program_->open.Save_POEnabled(); }
    bool isPending() const { return program_->open.isPending(); }
    bool numberUnlocked() const { return program_->open.numberUnlocked(); }
    bool dateRefused() const { return program_->open.dateRefused(); }
    std::string caption() const {
        return screen.captions.empty() ? kUsualCaption : screen.captions.back();
    }
    /// Its lines, for example "2 ea Hammer 10 20.00 special; 1 ...".
    std::string lines() const {
        std::string text;
        for (const OrderLine& line : order().lines) {
            text += (text.empty() ? "" : "; ") + line[kQuantity] + " " + line[kUnit] + " " +
                    line[kDescription] + " " + line[kUnitCost] + " " + line[kLineTotal] + " " +
                    line[kFileNumber];
            EXPECT_EQ(line[kSpareColumn1] + line[kSpareColumn2], "");
        }
        return text;
    }
    /// What the user does when typing into a box.
    void type(OrderField field, const std::string& text) { program_->editor.edit(field, text); }
    /// Puts the order into a state without marking it as changed.
    void given(const Order& order) { program_->open.replace(order); }
    void given(OrderField field, const std::string& text) {
        Order changed = order();
        changed.*field = text;
        given(changed);
    }
    void given(const OrderLine& line) {
        Order changed = order();
        changed.lines = {line};
        given(changed);
    }
    void givenUnchanged() { program_->open.markSaved(); }

    void newOrder() {
        prompts.expect(yesNo("Create blank new order ?"), Answer::Yes);
        program_->editor.NewPO_Click();
    }
    void save() { program_->editor.SaveChanges_Click(); }
    void openOrder(const std::string& number) { program_->editor.POGrid_Click(number); }
    void addLine(const LineEntry& entry) {
        screen.lineAnswer = entry;
        program_->lines.OrderPop_OneTime_Click();
    }

    void saveItem(const std::string& description, const std::string& vendor = "V",
                  const std::string& cost = "1", const std::string& category = "A") {
        program_->stock.boxes = {category, vendor, "ea", description, cost};
        program_->stock.SaveNewStockItem_Click();
    }
    /// A double click on a row of the catalogue.
    void pickItem(int row) { program_->lines.StockGrid_DblClick(program_->stock, row); }

    // The address book.
    const std::vector<std::string>& names(AddressSide side) const {
        return program_->addresses.shown(side).names;
    }
    void typeName(AddressSide side, const std::string& name) {
        program_->addresses.Combo_Change(side, name);
    }
    void typeAddress(AddressSide side, const std::string& address) {
        program_->addresses.Field_Change(side, address);
    }
    void saveAddress(AddressSide side, const std::string& name, const std::string& address) {
        typeName(side, name);
        typeAddress(side, address);
        program_->addresses.Changed_Click(side);
    }
    void pickAddress(AddressSide side, const std::string& name) {
        typeName(side, name);
        program_->addresses.Combo_Click(side);
    }

    void expectSaid(const std::string& part) const {
        EXPECT_TRUE(contains(screen.lastLine, part)) << screen.lastLine << " lacks " << part;
    }

    // The files.
    std::filesystem::path home() const { return Program::homeFolderIn(documents.path()); }
    std::filesystem::path data(const std::string& name) const {
        return home() / "po_data" / pathOfName(name);
    }
    std::string stored(const std::string& name) const { return contentOf(data(name)); }

    TemporaryFolder documents;
    ScriptedPrompts prompts;
    RecordingScreen screen;
    RecordingDesktop desktop;
    int waits = 0;  ///< how often a file was waited for

  private:
    std::unique_ptr<Program> program_;
};

}  // namespace bramblet::test
