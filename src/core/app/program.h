// The program without its windows: everything it owns, in the order in which it is created, and how
// it starts up and shuts down.
#pragma once

#include "core/addresses/address_book.h"
#include "core/addresses/contact_import.h"
#include "core/addresses/table_import.h"
#include "core/app/browser.h"
#include "core/backup/backup.h"
#include "core/document/open_order.h"
#include "core/history/field_histories.h"
#include "core/orders/csv_export.h"
#include "core/orders/kept_orders.h"
#include "core/orders/last_paid.h"
#include "core/orders/line_items.h"
#include "core/orders/list_rebuild.h"
#include "core/orders/mailed_pdfs.h"
#include "core/orders/order_documents.h"
#include "core/orders/order_editor.h"
#include "core/orders/order_index.h"
#include "core/orders/order_viewer.h"
#include "core/orders/saved_orders.h"
#include "core/orders/spending.h"
#include "core/platform/clock.h"
#include "core/platform/file_system.h"
#include "core/platform/regional_formats.h"
#include "core/settings/commands.h"
#include "core/settings/data_folder.h"
#include "core/settings/settings_editor.h"
#include "core/settings/settings_file.h"
#include "core/settings/undo.h"
#include "core/stock/stock_exchange.h"
#include "core/stock/stock_list.h"

#include <filesystem>
#include <optional>

namespace bramblet {

/// What the program is given from outside.
struct Environment {
    Desktop& desktop;
    std::filesystem::path documentsFolder;  ///< the user's
    RegionalFormats formats;
    Clock clock;
    FileWait waitForFile;
};

class Program {
  public:
    /// Loads the settings and checks the data folder; both may prompt the user. Throws StartGivenUp
    /// when the settings cannot be used and the user chooses to leave.
    Program(Environment environment, Prompts& prompts);
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    /// Fills the lists and shows an empty order. Called once, when the windows are already
    /// watching.
    void start();

    /// Removes what was left for the mail program, and looks for what a program that died has left
    /// in the data folder, and for orders that only the list or only a document tells of. Called
    /// once, when the windows have been painted.
    void lookAround();

    /// Shows what colleagues have changed in the lists since they were read. Called every few
    /// seconds while nothing else goes on.
    void lookForNews();

    enum class Leave { Now, Cancelled, Stay };
    /// Shuts down: offers to save a changed order and writes the settings. Returns Cancelled when
    /// the user cancels the offer, which writes nothing, and Stay when the order was to be saved
    /// but could not be.
    Leave leave(const WindowPlace& place);

    /// The same where nobody can be asked: what is unsaved is kept (kept_orders.h).
    void leaveUnasked(const WindowPlace& place);

    WindowPlace windowPlace() const;

    /// Shows the settings dialog.
    void configure();
    void mu_About();

    /// The home folder, with a trailing separator.
    static std::filesystem::path homeFolderIn(const std::filesystem::path& documentsFolder);

  private:
    void tellWhyNotLeft();
    void takeSettings(const WindowPlace& place);
    void saveSettings();

    Environment environment_;
    FileSystem files_;
    SettingsFile settingsFile_;
    KeptOrders keptOrders_;
    MailedPdfs mailedPdfs_;
    std::optional<Order> settled_;  ///< the order about which leaving has been settled

  public:
    Settings settings;
    DataFolder folder;
    const bool taxFreight;  ///< the setting as it was at start-up
    Commands commands;
    Undo undo;
    OpenOrder open;
    StockList stock;
    StockExchange stockExchange;
    AddressBook addresses;
    FieldHistories histories;
    OrderIndex index;
    SavedOrders savedOrders;
    OrderDocuments documents;
    LastPaid lastPaid;
    Spending spending;
    ListRebuild listRebuild;
    OrderEditor editor;
    LineItems lines;
    ContactImport contactImport;
    TableImport tableImport;
    OrderViewer viewer;
    CsvExport csvExport;
    Backup backup;
    SettingsEditor settingsEditor;
    Browser browser;

    const FileSystem& files() const { return files_; }
    const RegionalFormats& formats() const { return environment_.formats; }
};

}  // namespace bramblet
