#include "support/works.h"

#include "core/platform/text.h"
#include "support/odd_share.h"

#include <algorithm>
#include <cerrno>

namespace bramblet::test {
namespace {

constexpr DayCount kToday = 46085;  // 4 March 2026

std::filesystem::path at(const std::string& name) {
    return documents() / name;
}

LineEntry lineOf(const std::string& description) {
    return {"2", "ea", description, "10"};
}

void addLine(WatchedDesk& desk, const std::string& description) {
    desk.screen.lineAnswer = lineOf(description);
    desk.program().lines.OrderPop_OneTime_Click();
}

void newOrder(WatchedDesk& desk, const std::string& by) {
    desk.program().editor.NewPO_Click();
    desk.type(&Order::ByEd, by);
    addLine(desk, "Hammer of " + by);
    desk.save();
}

/// A contact of the contact manager's file.
std::string contact(const std::string& organization) {
    std::string bytes(1047, ' ');
    organization.copy(bytes.data() + 81, 40);
    std::string("1 High Street").copy(bytes.data() + 316, 40);
    return bytes;
}

/// Records of an exchange file.
std::string exchangeFile(const std::vector<std::string>& descriptions) {
    std::string bytes;
    for (const std::string& description : descriptions) {
        StockItemRecord item;
        item.Status = kExportedItem;
        item.Description = description;
        item.Vendor = "Ames";
        bytes += encodeRecord(kStockItemLayout, item);
    }
    return bytes;
}

/// What a colleague's desk does meanwhile.
void colleagueSaves(const std::string& number) {
    std::string document = contentOf(data("000002.htm"));
    document.replace(document.find("BY? Bob"), 7, "BY? Eve");
    for (auto at = document.find("000002"); at != std::string::npos;
         at = document.find("000002", at + 6))
        document.replace(at, 6, number);
    FileSystem().replace(data(number + ".htm"), document);
}

void makeOldOffice(WatchedDesk& desk) {
    desk.start();
    desk.address(AddressSide::Vendor, "Ames", "1 Mill Lane\r\nOldtown");
    desk.address(AddressSide::Vendor, "Boyd", "2 Mill Lane");
    desk.address(AddressSide::Destination, "Yard", "3 Mill Lane");
    for (const char* description : {"Hammer", "Nails", "Glue", "Saw"})
        desk.item(description);
    for (const char* by : {"Ann", "Bob", "Cy"})
        newOrder(desk, by);
    desk.program().editor.POPop_delete_Click("000003");
    desk.program().settings.BackupFolder = at("safe").string();
    desk.program().leave({4000, 5000, 100, 100});
    writeFile(at("contacts.dat"), contact("Cole") + contact("Dunn") + contact("Eads"));
    writeFile(at("more.sid"), exchangeFile({"Nails", "Rope", "Tape", "GLUE"}));
    writeFile(at("vendors.csv"), "Name,Address\nBoyd,9 Mill Lane\nFinn,8 Mill Lane\nGray,7\n");
    writeFile(at("items.csv"), "Item,Vendor,Cost\nNails,Ames,3\nTar,Ames,4\nWax,Ames,5\n");
    writeFile(at("logo.gif"), "GIF89a, or nearly so");
    std::filesystem::create_directory(at("safe"));
    writeFile(at("safe/000001.htm"), contentOf(data("000001.htm")) + "\r\n");
    writeFile(at("safe/po_data.dat"), contentOf(data("po_data.dat")).substr(0, 406));
    writeFile(at("orders.csv"), "an older export");
}

void start(WatchedDesk& desk) {
    desk.start();
}
void nothing(WatchedDesk&) {}

/// Starts the program, and opens the order 000001.
void atAnn(WatchedDesk& desk) {
    desk.start();
    desk.open("000001");
}
void chooses(WatchedDesk& desk, const std::string& name) {
    desk.start();
    desk.prompts.chosen = at(name);
}
void atItem(WatchedDesk& desk) {
    desk.start();
    desk.program().stock.StockGrid_Click(1);
}
void rebuild(WatchedDesk& desk) {
    const std::size_t opened = desk.screen.opened.size();
    desk.program().listRebuild.mu_RebuildOrderList_Click();
    if (desk.screen.opened.size() == opened) return;
    const std::string found = desk.program().listRebuild.summary();
    if (found.find("cannot be read") != std::string::npos) desk.prompts.complaints.push_back(found);
    desk.program().listRebuild.Rebuild_Click();
}
void takeBack(WatchedDesk& desk) {
    desk.program().undo.mu_Undo_Click();
}
void copyFiles(WatchedDesk& desk) {
    desk.program().backup.RunBackup_Click();
}

}  // namespace

std::filesystem::path documents() {
    // In memory where that can be had: the tests fill it thousands of times.
    static const std::filesystem::path memory = "/dev/shm";
    static const TemporaryFolder folder(
        std::filesystem::is_directory(memory) ? memory : std::filesystem::temp_directory_path());
    return folder.path();
}

std::filesystem::path data(const std::string& name) {
    return documents() / "Quenmoor" / "po_data" / name;
}

Files filesNow() {
    Files files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(documents())) {
        const std::string path = entry.path().string().substr(documents().string().size());
        if (entry.is_directory())
            files[path + "/"];
        else
            files[path] = contentOf(entry.path());
    }
    return files;
}

void putBack(const Files& files) {
    for (const auto& [path, content] : filesNow()) {
        if (!files.contains(path)) std::filesystem::remove_all(documents() / path);
    }
    for (const auto& [path, content] : files) {
        const std::filesystem::path full = documents() / path;
        if (path.ends_with('/'))
            std::filesystem::create_directories(full);
        else if (!std::filesystem::exists(full) || contentOf(full) != content)
            writeFile(full, content);
    }
}

bool isKept(const std::string& path) {
    return path.find("po_data/kept/") != std::string::npos ||
           path.find("/Data before restore ") != std::string::npos;
}

bool isPassing(const std::string& path) {
    return isTemporaryName(std::filesystem::path(path).filename()) ||
           path.ends_with("/testfile.tmp");
}

Answer ObligingPrompts::ask(const Message& message) {
    const bool harmless = message.buttons == Buttons::Ok && message.icon == Icon::Information &&
                          message.title != "No Server Access!";
    const bool asks = message.buttons != Buttons::Ok && message.buttons != Buttons::RetryClose &&
                      message.buttons != Buttons::RetryIgnoreClose;
    const bool risky = message.text.find(" cannot be kept: ") != std::string::npos;
    if ((!harmless && !asks) || risky) complaints.push_back(message.text);
    if (risky) return Answer::No;
    switch (message.buttons) {
        case Buttons::Ok:
        case Buttons::OkCancel:
            return Answer::Ok;
        case Buttons::YesNo:
        case Buttons::YesNoCancel:
            return Answer::Yes;
        default:
            return ++retries_ < 3 ? Answer::Retry : Answer::Close;
    }
}

void NotingScreen::showCaption(const std::string& caption) {
    RecordingScreen::showCaption(caption);
    Watch::note(caption);
}

void WatchedDesk::start() {
    program_.reset();
    int waits = 0;
    const auto wait = [waits](const FileError& error) mutable {
        if (++waits % 50 == 0) throw error;  // the user gives up
    };
    try {
        program_ = std::make_unique<Program>(
            Environment{desktop, documents(), {}, {[] { return kToday; }, [] {}}, wait}, prompts);
    } catch (const StartGivenUp&) {
        return;
    }
    program_->commands.setScreen(&screen);
    program_->start();
}

void WatchedDesk::address(AddressSide side, const std::string& name, const std::string& text) {
    program_->addresses.Combo_Change(side, name);
    program_->addresses.Field_Change(side, text);
    program_->addresses.Changed_Click(side);
}

void WatchedDesk::item(const std::string& description) {
    program_->stock.boxes = {"Tools", "Ames", "ea", description, "12.50"};
    program_->stock.SaveNewStockItem_Click();
}

std::string WatchedDesk::told() const {
    std::string told;
    for (const auto& lines : {prompts.complaints, screen.failures}) {
        for (const std::string& line : lines)
            told += line + "\n";
    }
    return told;
}

const std::vector<Work>& works() {
    using enum AddressSide;
    static const std::vector<Work> all{
        {"Start the program", "old", nothing, start},
        {"Start it for the first time", "new", nothing, start, true},
        {"Open an order", "old", start, [](WatchedDesk& desk) { desk.open("000001"); }},
        {"Look at an order without a number", "old", start,
         [](WatchedDesk& desk) { desk.program().viewer.MakeOrder_Click(); }},
        {"Save an order", "old", atAnn,
         [](WatchedDesk& desk) {
             desk.type(&Order::ByEd, "Dee");
             desk.type(&Order::TermsEd, "net 30");
             desk.save();
         }},
        {"Save an order that a colleague has saved", "old",
         [](WatchedDesk& desk) {
             atAnn(desk);
             desk.type(&Order::ByEd, "Dee");
             colleagueSaves("000001");
         },
         [](WatchedDesk& desk) { desk.save(); }},
        {"Save an order for the first time", "old",
         [](WatchedDesk& desk) {
             desk.start();
             desk.type(&Order::ByEd, "Dee");
             addLine(desk, "Rope");
         },
         [](WatchedDesk& desk) { desk.save(); }},
        {"Save one under a number that a colleague has drawn", "old",
         [](WatchedDesk& desk) {
             desk.start();
             desk.type(&Order::ByEd, "Dee");
             colleagueSaves("000004");
         },
         [](WatchedDesk& desk) { desk.save(); }},
        {"Save the first order of all", "new",
         [](WatchedDesk& desk) {
             desk.start();
             desk.type(&Order::ByEd, "Dee");
         },
         [](WatchedDesk& desk) { desk.save(); }},
        {"Begin a new order", "old", start,
         [](WatchedDesk& desk) { desk.program().editor.NewPO_Click(); }, true},
        {"Copy an order", "old", atAnn,
         [](WatchedDesk& desk) { desk.program().editor.Save_PO_Click(); }, true},
        {"Make ten copies", "old", atAnn,
         [](WatchedDesk& desk) { desk.program().editor.make10_Click(); }, true},
        {"Delete an order", "old", start,
         [](WatchedDesk& desk) { desk.program().editor.POPop_delete_Click("000002"); }},
        {"Rebuild the list of orders", "old",
         [](WatchedDesk& desk) {
             const std::size_t length = recordSize(kOrderIndexLayout);
             std::filesystem::resize_file(data("po_data.dat"), 2 * length);
             desk.start();
         },
         rebuild},
        {"Take back the deletion of an order", "old",
         [](WatchedDesk& desk) {
             desk.start();
             desk.program().editor.POPop_delete_Click("000002");
         },
         takeBack},
        {"Save a new address", "old", start,
         [](WatchedDesk& desk) { desk.address(Vendor, "Cole", "4 Mill Lane"); }},
        {"Save the first address of all", "new", start,
         [](WatchedDesk& desk) { desk.address(Vendor, "Cole", "4 Mill Lane"); }},
        {"Change an address", "old", start,
         [](WatchedDesk& desk) { desk.address(Vendor, "Ames", "5 Mill Lane"); }},
        {"Rename an address", "old",
         [](WatchedDesk& desk) {
             desk.start();
             desk.program().addresses.Combo_Change(Vendor, "Boyd");
         },
         [](WatchedDesk& desk) { desk.program().addresses.rename(Vendor); }},
        {"Delete an address", "old", start,
         [](WatchedDesk& desk) {
             desk.program().addresses.Combo_Change(Vendor, "Ames");
             desk.program().addresses.Delete_Click(Vendor);
         }},
        {"Take back the deletion of an address", "old",
         [](WatchedDesk& desk) {
             desk.start();
             desk.program().addresses.Combo_Change(Vendor, "Ames");
             desk.program().addresses.Delete_Click(Vendor);
         },
         takeBack},
        {"Import contacts", "old",
         [](WatchedDesk& desk) {
             chooses(desk, "contacts.dat");
             desk.program().contactImport.selectFile();
         },
         [](WatchedDesk& desk) { desk.program().contactImport.ImportKettlebyVendors_Click(); },
         true},
        {"Import vendors from a table", "old",
         [](WatchedDesk& desk) {
             chooses(desk, "vendors.csv");
             desk.program().tableImport.mu_ImportTable_Click();
             desk.program().tableImport.setSkipsKnown(false);
         },
         [](WatchedDesk& desk) { desk.program().tableImport.Import_Click(); }},
        {"Import stock items from a table", "old",
         [](WatchedDesk& desk) {
             chooses(desk, "items.csv");
             desk.program().tableImport.mu_ImportTable_Click();
             desk.program().tableImport.setSkipsKnown(false);
         },
         [](WatchedDesk& desk) { desk.program().tableImport.Import_Click(); }},
        {"Save a new stock item", "old", start, [](WatchedDesk& desk) { desk.item("Rope"); }, true},
        {"Save the first stock item of all", "new", start,
         [](WatchedDesk& desk) { desk.item("Rope"); }, true},
        {"Change a stock item", "old", atItem,
         [](WatchedDesk& desk) {
             desk.program().stock.boxes.StockCatCombo = "Hardware";
             desk.program().stock.boxes.StockUnitCostEd = "99";
             desk.program().stock.SaveChangedStockItem_Click();
         }},
        {"Delete a stock item", "old", atItem,
         [](WatchedDesk& desk) { desk.program().stock.DeleteStockItem_Click(); }},
        {"Take back the deletion of a stock item", "old",
         [](WatchedDesk& desk) {
             atItem(desk);
             desk.program().stock.DeleteStockItem_Click();
         },
         takeBack},
        {"Set a quantity on hand", "old", atItem,
         [](WatchedDesk& desk) { desk.program().stock.ItemsPopOnHand_Click(1); }},
        {"Import stock items", "old", [](WatchedDesk& desk) { chooses(desk, "more.sid"); },
         [](WatchedDesk& desk) { desk.program().stockExchange.mu_ImportStockItems_Click(); }},
        {"Export stock items", "old", [](WatchedDesk& desk) { chooses(desk, "items.sid"); },
         [](WatchedDesk& desk) { desk.program().stockExchange.mu_ExportStockItems_Click(); }},
        {"Export stock items to the catalogue itself", "old",
         [](WatchedDesk& desk) {
             desk.start();
             desk.prompts.chosen = data("po_stock.dat");
         },
         [](WatchedDesk& desk) { desk.program().stockExchange.mu_ExportStockItems_Click(); }},
        {"Leave a box with a new text", "old",
         [](WatchedDesk& desk) {
             desk.start();
             desk.type(&Order::FOBEd, "Oldtown");
         },
         [](WatchedDesk& desk) { desk.program().histories.AddToUserFields(); }},
        {"Forget a text of a box", "old",
         [](WatchedDesk& desk) {
             desk.start();
             desk.program().histories.GotFocus(&Order::ByEd);
             desk.program().histories.CurrentHistoryText = "Ann";
         },
         [](WatchedDesk& desk) { desk.program().histories.RemoveHistoryEntry(); }},
        {"Leave the program, which stores the settings", "old",
         [](WatchedDesk& desk) {
             desk.start();
             desk.program().settings.IDText1 = "Larkfield Joinery";
         },
         [](WatchedDesk& desk) {
             desk.program().leave({3000, 3000, 30, 30});
         }},
        {"Choose a picture for the form", "old", start,
         [](WatchedDesk& desk) {
             desk.program().settingsEditor.SelectGraphic_Click(at("logo.gif"));
         }},
        {"Back up", "old",
         [](WatchedDesk& desk) {
             desk.start();
             desk.program().backup.mu_DataBackup_Click();
         },
         copyFiles},
        {"Restore", "old",
         [](WatchedDesk& desk) {
             desk.start();
             desk.program().backup.mu_DataRestore_Click();
         },
         copyFiles},
        {"Export the list of orders", "old", [](WatchedDesk& desk) { chooses(desk, "orders.csv"); },
         [](WatchedDesk& desk) { desk.program().csvExport.mu_DataExport_Click(); }},
        {"Export the lines of the orders", "old",
         [](WatchedDesk& desk) {
             chooses(desk, "orders.csv");
             desk.prompts.filter = 2;
         },
         [](WatchedDesk& desk) { desk.program().csvExport.mu_DataExport_Click(); }},
        {"Save an order as PDF", "old", atAnn,
         [](WatchedDesk& desk) {
             desk.program().viewer.savePdf(at("000001.pdf"), "%PDF-1.4, or nearly so");
         }},
        {"Save a picture of the spending", "old", start,
         [](WatchedDesk& desk) {
             desk.program().spending.savePicture(at("spending.png"), "PNG, or nearly so");
         }},
        {"Mail an order as PDF", "old", atAnn,
         [](WatchedDesk& desk) { desk.program().viewer.mailPdf("%PDF-1.4, or nearly so"); }, true},
    };
    return all;
}

const Files& filesOf(const std::string& office) {
    static std::map<std::string, Files> made;
    const auto [entry, isNew] = made.try_emplace(office);
    if (isNew && office == "old") {
        putBack({});
        WatchedDesk desk;
        makeOldOffice(desk);
        entry->second = filesNow();
    }
    return entry->second;
}

}  // namespace bramblet::test
