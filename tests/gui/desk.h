// The whole program with its windows, in a home folder of its own, and a person's hands on it.
#pragma once

#include "driver/driver.h"
#include "gui/app/main_window.h"
#include "gui/names.h"
#include "gui/platform/dialog_prompts.h"
#include "support/office.h"

#include <gtest/gtest.h>

/// How GoogleTest writes Qt's texts.
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << qPrintable(text) << '"';
}

namespace bramblet::test {

class Desk : public ::testing::Test {
  protected:
    void SetUp() override { open(); }
    void TearDown() override { EXPECT_TRUE(driver->allAnswered()) << "a dialog did not come"; }

    /// Starts the program anew in the same home folder.
    void open(const RegionalFormats& formats = {}) {
        driver.reset();
        window.reset();
        program.reset();
        program = std::make_unique<Program>(
            Environment{desktop, documents.path(), formats, fixedClock(),
                        [this](const FileError& error) { waiting.waitForFile(error); }},
            prompts);
        window = std::make_unique<MainWindow>(*program, prompts, waiting);
        driver = std::make_unique<Driver>(*window);
        driver->complain = [](const QString& complaint) {
            ADD_FAILURE() << complaint.toStdString();
        };
        window->show();
        window->activateWindow();
        program->start();
        Driver::settle();
    }
    void newOrder() {
        driver->answer(QStringLiteral("Create blank new order ?"), QMessageBox::Yes);
        driver->click(QStringLiteral("NewPO"));
    }
    /// Adds a line through the dialog.
    void addLine(const QString& quantity, const QString& description, const QString& cost) {
        driver->onNextDialog([=, this](QWidget&) {
            driver->type(QStringLiteral("Text1"), description);
            driver->type(QStringLiteral("QEd"), quantity);
            driver->type(QStringLiteral("UCEd"), cost);
            driver->click(QStringLiteral("Save"));
        });
        driver->trigger(QStringLiteral("OrderPop_OneTime"));
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
