#include "core/app/program.h"

#include "core/platform/amount_text.h"
#include "core/platform/path_text.h"
#include "core/platform/sorting.h"
#include "core/platform/text.h"

namespace bramblet {

Program::Program(Environment environment, Prompts& prompts)
    : environment_(std::move(environment)),
      files_(environment_.waitForFile),
      settingsFile_(files_, homeFolderIn(environment_.documentsFolder)),
      keptOrders_(files_, environment_.clock, settingsFile_.homeFolder()),
      mailedPdfs_(files_, environment_.clock, settingsFile_.homeFolder()),
      settings(settingsFile_.LoadConfig(prompts)),
      folder(pathOfFolder(settings.DataDirectory)),
      taxFreight(isOn(settings.TaxFreight)),
      commands(folder, prompts),
      undo(commands),
      open(commands, taxFreight, environment_.formats),
      stock(files_, commands, undo, settings, open, environment_.formats),
      stockExchange(files_, commands, open, stock),
      addresses(files_, commands, undo, open, stock),
      histories(files_, commands, open, addresses),
      index(files_, folder.file("po_data.dat"), environment_.formats, environment_.clock),
      savedOrders(commands, index, environment_.formats),
      documents(files_, commands, environment_.clock),
      lastPaid(files_, folder, savedOrders, environment_.formats),
      spending(files_, commands, savedOrders, environment_.formats),
      listRebuild(files_, commands, index, savedOrders, documents, environment_.formats),
      editor({files_, commands, undo, settings, taxFreight, environment_.formats,
              environment_.clock, open, addresses, histories, index, savedOrders, stock, documents,
              lastPaid}),
      lines(commands, undo, open, environment_.formats),
      contactImport(files_, commands, addresses, environment_.formats),
      tableImport(files_, commands, open, addresses, stockExchange, environment_.formats),
      viewer(files_, commands, settings, editor, open, mailedPdfs_, environment_.desktop),
      csvExport(files_, commands, index, environment_.formats, environment_.desktop),
      backup(files_, commands, settings, settingsFile_, environment_.clock,
             {addresses, savedOrders, stock, histories}),
      settingsEditor(files_, commands, settings),
      browser(files_, settingsFile_.homeFolder(), environment_.desktop, commands) {
    stock.VendorItemsCheck = leadingNumber(trimmedField(settings.VendorItemsCheck)) != 0;
    folder.CheckDataPath(prompts);
}

void Program::start() {
    commands.run([&] {
        if (folder.DataPathOK()) {
            addresses.clearLeftover();
            addresses.PopAddyLists();
            savedOrders.PopPOGrid();
        }
        stock.PopStockList();
        editor.clearOrder();
        Order order = open.order();
        order.DiscountFactorEd.clear();
        order.TaxFactorEd.clear();
        if (isOn(settings.RequisitionMode)) order.kind = OrderKind::Requisition;
        open.replace(std::move(order));
        histories.AddToUserFields();
        open.markSaved();
        const std::string kept = keptOrders_.news();
        if (!kept.empty()) commands.say(kept, Loss::Order);
    });
}

void Program::lookAround() {
    mailedPdfs_.removeOld();
    if (!folder.DataPathOK() || commands.running()) return;
    commands.edit([&] {
        std::vector<std::filesystem::path> names;
        try {
            names = files_.withoutRetry().fileNames(folder.DataPath());
        } catch (const Fault&) {
            return;  // whatever needs the folder next says what is wrong with it
        }
        documents.recoverLeftovers(names);
        listRebuild.tellOfStrays(names);
        backup.remind(names);
    });
}

void Program::lookForNews() {
    if (!folder.DataPathOK() || commands.running()) return;
    savedOrders.lookForNews();
    stock.lookForNews();
}

Program::Leave Program::leave(const WindowPlace& place) {
    Leave result = Leave::Now;
    commands.run([&] {
        const OrderEditor::Offer offer = editor.offerToSave("Bramblet", "Save PO?");
        if (offer == OrderEditor::Offer::NotSaved) {
            tellWhyNotLeft();
            result = Leave::Stay;
        } else if (offer == OrderEditor::Offer::GoOn) {
            settled_ = open.order();
            takeSettings(place);
            saveSettings();
        } else {
            result = Leave::Cancelled;  // the settings are not written: that is intended
        }
    });
    return result;
}

void Program::leaveUnasked(const WindowPlace& place) {
    // Nobody is there to be told of a fault.
    try {
        if (settled_ != open.order()) editor.keepUnsaved(keptOrders_);
        settled_ = open.order();
    } catch (const FileError&) {
    }
    takeSettings(place);
    try {
        settingsFile_.SaveConfig(settings);
    } catch (const FileError&) {
    }
}

void Program::takeSettings(const WindowPlace& place) {
    settings.RequisitionMode = flag(open.order().kind == OrderKind::Requisition);
    const auto twips = [](double value) {
        return fitted(generalText(value, RegionalFormats{}), 5);
    };
    settings.VendorItemsCheck = stock.VendorItemsCheck ? "1" : "0";
    settings.WindowHeight = twips(place.height);
    settings.WindowWidth = twips(place.width);
    settings.WindowTop = twips(place.top);
    settings.WindowLeft = twips(place.left);
}

/// Uses a box: nobody who is about to leave looks at the status bar for news.
void Program::tellWhyNotLeft() {
    const std::string failures = commands.takeFailures();
    if (failures.empty()) return;  // a box has already said so
    commands.tell(failures + "\r\n\r\nBramblet stays open, so that nothing is lost.", "Bramblet",
                  Icon::Exclamation);
}

void Program::saveSettings() {
    for (;;) {
        try {
            settingsFile_.SaveConfig(settings);
            return;
        } catch (const FileError& error) {
            const Message message{"The settings were not saved in " + shown(error.path()) + ": " +
                                      error.inWords() +
                                      ".\r\n\r\nTry again, or close without saving them?",
                                  "Bramblet", Buttons::RetryClose, Icon::Exclamation};
            if (commands.prompts().ask(message) != Answer::Retry) return;
        }
    }
}

WindowPlace Program::windowPlace() const {
    const auto twips = [](const std::string& field) { return leadingNumber(trimmedField(field)); };
    return {twips(settings.WindowHeight), twips(settings.WindowWidth), twips(settings.WindowTop),
            twips(settings.WindowLeft)};
}

void Program::configure() {
    commands.run([&] {
        commands.screen().configure();
        // The list of stock items may have gained or lost a column.
        if (folder.DataPathOK()) stock.PopStockList();
    });
}

void Program::mu_About() {
    commands.run([&] {
        commands.tell("Quenmoor \"Bramblet\"\r\nVersion 1.5, January 17, 2004", "About Bramblet");
    });
}

std::filesystem::path Program::homeFolderIn(const std::filesystem::path& documentsFolder) {
    return withSeparator(documentsFolder / "Quenmoor");
}

}  // namespace bramblet
