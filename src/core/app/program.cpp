#include "core/app/program.h"

#include "core/platform/amount_text.h"
#include "core/platform/path_text.h"
#include "core/platform/sorting.h"
#include "core/platform/text.h"

namespace bramblet {

Program::Program(Environment environment, Prompts& prompts)
    : environment_(std::move(environment)),
      prompts_(prompts),
      files_(environment_.waitForFile),
      settingsFile_(files_, homeFolderIn(environment_.documentsFolder)),
      settings(settingsFile_.LoadConfig(prompts)),
      folder(pathOfFolder(settings.DataDirectory)),
      taxFreight(isOn(settings.TaxFreight)),
      addresses(files_, folder, prompts, open),
      histories(files_, folder, prompts, open, addresses),
      index(files_, folder.file("po_data.dat"), environment_.formats, environment_.clock),
      savedOrders(index, folder, environment_.formats, prompts),
      stock(files_, folder, settings, open, environment_.formats, prompts),
      stockExchange(files_, folder, open, stock, prompts),
      editor({files_, folder, settings, taxFreight, environment_.formats, environment_.clock,
              prompts, open, addresses, histories, index, savedOrders, stock}),
      lines(open, environment_.formats, prompts),
      contactImport(files_, folder, addresses, prompts),
      viewer(files_, folder, settings, editor, open, environment_.desktop, prompts),
      csvExport(files_, folder, index, environment_.formats, environment_.desktop, prompts),
      backup(files_, folder, settings, prompts),
      settingsEditor(files_, folder, settings, prompts),
      browser(files_, settingsFile_.homeFolder(), environment_.desktop, prompts) {
    prompts.onCommand = [this] { open.showCaption(kUsualCaption); };
    lines.totalUp = [this] { editor.TotalUp_Click(); };
    addresses.onVendorPicked = [this] { stock.PopStockList(); };
    backup.onRestored = [this] { refillLists(); };
    stock.VendorItemsCheck = leadingNumber(trimmedField(settings.VendorItemsCheck)) != 0;
    folder.CheckDataPath(files_, prompts);
}

void Program::start() {
    const Prompts::Command command(prompts_);
    if (folder.DataPathOK()) {
        addresses.clearLeftover();
        addresses.PopAddyLists();
        savedOrders.PopPOGrid();
    }
    stock.PopStockList();
    editor.clearOrder();
    open.order.DiscountFactorEd.clear();
    open.order.TaxFactorEd.clear();
    histories.AddToUserFields();
    if (isOn(settings.RequisitionMode)) open.order.kind = OrderKind::Requisition;
    open.Save_POEnabled = false;
    open.markSaved();
    open.onChange();
}

Program::Leave Program::leave(const WindowPlace& place) {
    const Prompts::Command command(prompts_);
    switch (editor.offerToSave("Bramblet", "Save PO?")) {
        case OrderEditor::Offer::Cancelled:
            return Leave::Now;  // by design, without writing the settings
        case OrderEditor::Offer::NotSaved:
            tellWhyNotLeft();
            return Leave::Stay;
        case OrderEditor::Offer::GoOn:
            break;
    }
    settings.RequisitionMode = flag(open.order.kind == OrderKind::Requisition);
    const auto twips = [](double value) { return generalText(value, RegionalFormats{}); };
    settings.VendorItemsCheck = stock.VendorItemsCheck ? "1" : "0";
    settings.WindowHeight = fitted(twips(place.height), 5);
    settings.WindowWidth = fitted(twips(place.width), 5);
    settings.WindowTop = fitted(twips(place.top), 5);
    settings.WindowLeft = fitted(twips(place.left), 5);
    saveSettings();
    return Leave::Now;
}

/// Uses a box: nobody who is about to leave looks at the status bar for news.
void Program::tellWhyNotLeft() {
    const std::string failures = prompts_.takeFailures();
    if (failures.empty()) return;  // a box has already said so
    prompts_.ask({failures + "\r\n\r\nBramblet stays open, so that nothing is lost.", "Bramblet",
                  Buttons::Ok, Icon::Exclamation});
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
            if (prompts_.ask(message) != Answer::Retry) return;
        }
    }
}

WindowPlace Program::windowPlace() const {
    const auto twips = [](const std::string& field) { return leadingNumber(trimmedField(field)); };
    return {twips(settings.WindowHeight), twips(settings.WindowWidth), twips(settings.WindowTop),
            twips(settings.WindowLeft)};
}

void Program::refillLists() {
    const Prompts::Command command(prompts_);
    addresses.refreshNames();
    savedOrders.PopPOGrid();
    stock.PopStockList();
    histories.reload();
}

void Program::mu_About() {
    prompts_.clearLine();
    prompts_.ask({"Quenmoor \"Bramblet\"\r\nVersion 1.5, January 17, 2004", "About Bramblet",
                  Buttons::Ok, Icon::Information});
}

std::filesystem::path Program::homeFolderIn(const std::filesystem::path& documentsFolder) {
    return withSeparator(documentsFolder / "Quenmoor");
}

}  // namespace bramblet
