// The program's own windows, as the core knows them: what they show, and which of them it opens.
// The gui implements this interface; by default, nothing is shown.
#pragma once

#include <optional>
#include <string>

namespace bramblet {

/// What has to be shown anew.
struct Views {
    bool order = false;         ///< its boxes, lines and totals, and what can be done with it
    bool savedOrders = false;   ///< the list of saved orders
    bool stockList = false;     ///< the list of stock items
    bool stockItem = false;     ///< the editor of a stock item
    bool anotherOrder = false;  ///< the order is another one than that shown so far

    bool operator==(const Views&) const = default;
};

/// A line for the status bar: a failure stays until the next line.
enum class Tone { Failure, Done };

/// The four boxes of the line dialog, and what is known of the line besides.
struct LineEntry {
    std::string quantity;
    std::string unit;
    std::string description;
    std::string unitCost;
    std::string fileNumber = {};  ///< of the stock item that it is
};

class Screen {
  public:
    virtual ~Screen() = default;

    /// Shows anew what has changed. Called at the end of a command, and before a question in it.
    virtual void refresh(const Views&) {}
    /// Shows one line in the status bar; an empty one clears it.
    virtual void showStatus(const std::string&, Tone) {}
    /// Shows one line in the status bar, unless something stands there.
    virtual void showHint(const std::string&) {}
    /// Sets the main window's caption.
    virtual void showCaption(const std::string&) {}
    /// Makes a line of the order current, and scrolls to it.
    virtual void showLine(int) {}

    /// Shows the line dialog under `caption`, with `entry` in its boxes. Returns what was stored,
    /// or nothing if the dialog was closed without storing. The dialog checks what it stores with
    /// `checkedEntry` (order_lines.h).
    virtual std::optional<LineEntry> editLine(const LineEntry&, const std::string& /*caption*/) {
        return std::nullopt;
    }

    /// Shows what pasting would add, until the user agrees or not.
    virtual bool lookAtPastedLines() { return false; }

    /// Shows the settings dialog until it is closed. While an order is viewed, it can rewrite the
    /// document shown.
    virtual void configure() {}

    /// Switches to the list of saved orders.
    virtual void showSavedOrders() {}
    virtual void showViewer() {}
    virtual void showHelp() {}
    virtual void showContactImport() {}
    virtual void showTableImport() {}
    virtual void showRebuild() {}
    virtual void showSpending() {}
    virtual void showBackup() {}
    /// Shows how far a backup or restore has got; called for every file that is listed, counted,
    /// copied or compared, so that the windows stay live and can stop it.
    virtual void showBackupProgress() {}
};

}  // namespace bramblet
