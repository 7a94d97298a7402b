// A screen that shows nothing, remembers what it was asked to show, and answers the line dialog.
#pragma once

#include "core/platform/screen.h"

#include <functional>
#include <vector>

namespace bramblet::test {

class RecordingScreen : public Screen {
  public:
    std::string lastLine;               ///< the line last said in the status bar
    std::vector<std::string> hints;     ///< those that may not displace one
    std::vector<std::string> failures;  ///< the lines said there of what did not happen
    std::vector<std::string> captions;  ///< the main window's, from the first to the last
    std::vector<Views> refreshed;       ///< one entry each time that something was shown anew
    std::vector<int> linesShown;
    std::vector<std::string> opened;  ///< the windows
    std::function<void()> onBackupProgress = [] {};

    /// Looks at the lines to be pasted; whether they are to be added.
    std::function<bool()> onPastedLines = [] { return true; };

    std::optional<LineEntry> lineAnswer;  ///< what the line dialog stores; none for Cancel
    std::string lastCaption;              ///< of the line dialog
    LineEntry lastEntry;

    void refresh(const Views& views) override { refreshed.push_back(views); }
    void showStatus(const std::string& line, Tone tone) override {
        lastLine = line;
        if (tone == Tone::Failure) failures.push_back(line);
    }
    void showHint(const std::string& line) override { hints.push_back(line); }
    void showCaption(const std::string& caption) override { captions.push_back(caption); }
    void showLine(int row) override { linesShown.push_back(row); }
    std::optional<LineEntry> editLine(const LineEntry& entry, const std::string& caption) override {
        lastCaption = caption;
        lastEntry = entry;
        return lineAnswer;
    }
    bool lookAtPastedLines() override { return onPastedLines(); }
    void showViewer() override { opened.push_back("viewer"); }
    void showHelp() override { opened.push_back("help"); }
    void showContactImport() override { opened.push_back("contact import"); }
    void showTableImport() override { opened.push_back("table import"); }
    void showRebuild() override { opened.push_back("rebuild"); }
    void showSpending() override { opened.push_back("spending"); }
    void showBackup() override { opened.push_back("backup"); }
    void showBackupProgress() override { onBackupProgress(); }
};

}  // namespace bramblet::test
