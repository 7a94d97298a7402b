// The whole program with its windows, in a home folder of its own, and a person's hands on it.
#pragma once

#include "driver/driver.h"
#include "gui/app/main_window.h"
#include "gui/platform/dialog_prompts.h"
#include "gui/platform/qt_text.h"
#include "support/office.h"

#include <QTest>
#include <QtWidgets>

#include <gtest/gtest.h>

/// How GoogleTest writes Qt's texts.
inline std::ostream& operator<<(std::ostream& out, const QString& text) {
    return out << '"' << text.toStdString() << '"';
}
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << text;
}

namespace bramblet::test {

class Desk : public ::testing::Test {
  protected:
    void SetUp() override { open(); }
    void TearDown() override { expectAllAnswered(); }
    void expectAllAnswered() { EXPECT_TRUE(driver->allAnswered()) << "a dialog did not come"; }

    /// Starts the program anew in the same home folder.
    void open(const RegionalFormats& formats = {}) {
        if (driver) expectAllAnswered();
        driver.reset();
        window.reset();
        program.reset();
        program = std::make_unique<Program>(
            Environment{desktop, documents.path(), formats, fixedClock(),
                        [this](const FileError& error) { waiting.waitForFile(error); }},
            prompts);
        window = std::make_unique<MainWindow>(*program, prompts, waiting);
        driver = std::make_unique<Driver>(*window);
        driver->complain = [](const QString& complaint) { ADD_FAILURE() << complaint; };
        window->show();
        window->activateWindow();
        program->start();
        Driver::settle();
    }

    void click(const QString& button) { driver->click(button); }
    void type(const QString& box, const QString& typed) { driver->type(box, typed); }
    QString text(const QString& box) const { return driver->text(box); }
    bool enabled(const QString& control) const { return driver->isEnabled(control); }
    bool visible(const QString& control) const { return driver->control(control)->isVisible(); }
    const Order& order() const { return program->open.order(); }

    void newOrder() {
        driver->answer("Create blank new order ?", QMessageBox::Yes);
        click("NewPO");
    }
    /// Adds a line through the dialog.
    void addLine(const QString& quantity, const QString& description, const QString& cost) {
        driver->inDialog("OrderPop_OneTime", [=, this](QWidget&) {
            type("Text1", description);
            type("QEd", quantity);
            type("UCEd", cost);
            click("Save");
        });
    }
    void saveVendor(const QString& name, const QString& address = {}) {
        type("ToCombo", name);
        type("ToField", address);
        click("ChangedVendor");
    }
    void saveItem(const QString& category, const QString& vendor, const QString& description,
                  const QString& cost) {
        type("StockCatCombo", category);
        type("StockVendorCombo", vendor);
        type("StockUnitCombo", "ea");
        type("StockDescriptionEd", description);
        type("StockUnitCostEd", cost);
        click("SaveNewStockItem");
    }
    /// Right-clicks on a row, and chooses from the menu that opens if anything is named.
    void chooseInMenu(const QString& grid, int row, const QString& menu,
                      const QString& command = {}) {
        driver->clickCell(grid, row, kVendorColumn, Qt::RightButton);
        EXPECT_TRUE(visible(menu));
        if (!command.isEmpty()) driver->trigger(command);
        driver->control(menu)->close();
    }

    TemporaryFolder documents;
    Waiting waiting;
    DialogPrompts prompts;
    RecordingDesktop desktop;
    std::unique_ptr<Program> program;
    std::unique_ptr<MainWindow> window;
    std::unique_ptr<Driver> driver;
};

}  // namespace bramblet::test
