// A whole program without windows, in a home folder of its own, on one fixed day.
#pragma once

#include "core/app/program.h"
#include "core/platform/path_text.h"
#include "core/platform/text.h"
#include "support/recording_desktop.h"
#include "support/scripted_prompts.h"
#include "support/temporary_folder.h"

#include <memory>

namespace bramblet::test {

/// 4 March 2026, a Wednesday.
inline constexpr DayCount kToday = 46085;

inline Clock fixedClock() {
    return {[] { return kToday; }, [] {}};
}

/// What the prompts are expected to ask, under short names.
inline Message yesNo(const std::string& text, const std::string& title = "Confirm") {
    return {text, title, Buttons::YesNo, Icon::Question};
}
inline Message yesNoCancel(const std::string& text, const std::string& title) {
    return {text, title, Buttons::YesNoCancel, Icon::Question};
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
        program_->lines.showDialog = [this](const LineEntry& entry, const std::string& caption) {
            lastCaption = caption;
            lastEntry = entry;
            return lineAnswer;
        };
        program_->start();
        return *program_;
    }
    Program& program() { return *program_; }
    Order& order() { return program_->open.order; }

    std::filesystem::path home() const { return Program::homeFolderIn(documents.path()); }
    std::filesystem::path data(const std::string& name) const {
        return home() / "po_data" / pathOfName(name);
    }

    void newOrder() {
        prompts.expect(yesNo("Create blank new order ?"), Answer::Yes);
        program_->editor.NewPO_Click();
    }
    void addLine(const LineEntry& entry) {
        lineAnswer = entry;
        program_->lines.OrderPop_OneTime_Click();
    }

    TemporaryFolder documents;
    ScriptedPrompts prompts;
    RecordingDesktop desktop;
    std::optional<LineEntry> lineAnswer;  ///< what the line dialog stores; none for Cancel
    std::string lastCaption;
    LineEntry lastEntry;
    int waits = 0;  ///< how often a file was waited for

  private:
    std::unique_ptr<Program> program_;
};

}  // namespace bramblet::test
