// The stations around the printed order: settings, viewer, pages, exports, and the help.

#include "tour/stations.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QFileInfo>
#include <QListWidget>
#include <QPrintPreviewWidget>

namespace bramblet::tour {
namespace {

/// The order with discount, tax and shipping, as it was typed in.
constexpr const char* kShownOrder = "000009";
constexpr const char* kLongRequest = "000015";

/// Opens a saved order from the list.
void openOrder(Guide& guide, const QString& number) {
    for (int row = 0; row < guide.rows("POGrid"); ++row) {
        if (guide.cell("POGrid", row, 0) == number) {
            guide.clickCell("POGrid", row, 3);
            return;
        }
    }
    guide.complain("There is no order " + number);
}

/// Goes to an entry of one of the chooser's lists and takes it.
void take(Guide& guide, const QString& list, const QString& entry, bool enter) {
    auto* const entries = guide.find<QListWidget>(list);
    const auto found = entries->findItems(entry, Qt::MatchExactly);
    if (found.isEmpty()) {
        guide.complain(entry + " is not in the list");
        return;
    }
    entries->setCurrentItem(found.first());
    if (enter) guide.press(list, Qt::Key_Return);
}

void chooseLetterhead(Guide& guide) {
    guide.inDialog("SelectGraphic", [&](QWidget& chooser) {
        // From the data folder up to the tour's folder.
        for (int level = 0; level < 3; ++level)
            take(guide, "Dir1", "..", true);
        take(guide, "Dir1", "artwork", true);
        take(guide, "File1", "larkfield.bmp", false);
        guide.picture("02-graphic-selector", chooser);
        guide.help("graphic", chooser);
        guide.click("Command1");
    });
}

/// Makes the form wider and rewrites the order shown, then back again, so that it stays as it was.
void changeLook(Guide& guide, QWidget& viewer) {
    guide.inDialog("Configuration", [&](QWidget& settings) {
        for (int i = 0; i < 6; ++i)
            guide.click("WidthMore");
        guide.click("ReWrite");
        guide.picture("22-rewritten-wider", viewer);
        guide.click("WidthDefault");
        guide.click("ReWrite");
        guide.type("DataDirectoryEd", "S:\\Orders\\po_data\\");
        guide.picture("23-settings", settings);
        guide.help("settings", settings);
        guide.readme("settings", settings);
        guide.click("Close");
    });
}

/// The pages as the print preview shows them, first one and then all at once.
void preview(Guide& guide) {
    guide.inDialog("Preview", [&](QWidget& dialog) {
        auto* const pages = dialog.findChild<QPrintPreviewWidget*>();
        guide.picture("25-preview", dialog);
        pages->setAllPagesViewMode();
        guide.picture("26-preview-all-pages", dialog);
        guide.help("preview", dialog);
        if (pages->pageCount() < 2) guide.complain("The long request has one page");
        dialog.close();
    });
}

void expectFile(Guide& guide, const QString& path) {
    if (QFileInfo(path).size() == 0) guide.complain(path + " was not written");
}

}  // namespace

void setUpCompany(Guide& guide) {
    guide.inDialog("mu_Configuration", [&](QWidget&) {
        chooseLetterhead(guide);
        guide.type("IDText1", "Larkfield Joinery");
        guide.type("IDText2", "17 Orchard Lane");
        guide.type("IDText3", "Oregon City, OR 97045");
        guide.type("IDText4", "Phone 503-555-0100");
        guide.type("IDText5", {});
        guide.click("Command1");
    });
}

void viewOrder(Guide& guide) {
    openOrder(guide, kShownOrder);
    guide.inDialog("MakeOrder", [&](QWidget& viewer) {
        guide.picture("20-viewer", viewer);
        viewer.resize(880, 900);
        for (int i = 0; i < 2; ++i)
            guide.trigger("mu_ZoomOut");
        guide.picture("21-viewer-zoomed-out", viewer);
        guide.help("viewer", viewer);
        guide.readme("viewer", viewer);
        changeLook(guide, viewer);
        guide.click("Leave");
    });
}

void printPages(Guide& guide, const QString& folder) {
    openOrder(guide, kLongRequest);
    guide.inDialog("MakeOrder", [&](QWidget& viewer) {
        guide.picture("24-long-request", viewer);
        preview(guide);
        const QString pdf = folder + "/request.pdf";
        guide.chooseFile(pdf);
        guide.click("SavePdf");
        expectFile(guide, pdf);
        guide.click("Leave");
    });
}

void exportOrders(Guide& guide, const QString& file) {
    guide.chooseFile(file);
    guide.pictureOfNext("27-exported-orders", QMessageBox::No);
    guide.trigger("mu_DataExport");
    expectFile(guide, file);

    constexpr int kLines = 2;
    guide.chooseFile(file, kLines, [&](QWidget& dialog) {
        auto* const types = dialog.findChild<QComboBox*>("fileTypeCombo");
        types->showPopup();
        Driver::settle();
        guide.help("export", *types->view()->window());
        types->hidePopup();
    });
    guide.answer("File already exists", QMessageBox::Yes);
    guide.answer("Data has been exported", QMessageBox::No);
    guide.trigger("mu_DataExport");
}

void readHelp(Guide& guide) {
    guide.click("HelpButton");
    QWidget* const help = guide.control("HelpForm");
    guide.picture("28-help", *help);
    guide.type("HelpSearch", "discount");
    guide.picture("29-help-search", *help);
    guide.type("HelpSearch", {});
    auto* const pages = guide.find<QListWidget>("HelpPages");
    help->resize(1000, 1900);
    for (int page = 0; page < pages->count(); ++page) {
        pages->setCurrentRow(page);
        guide.picture(QString("4%1-help-page").arg(page), *help);
    }
    help->close();
    Driver::settle();
}

}  // namespace bramblet::tour
