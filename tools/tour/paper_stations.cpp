// The stations around the printed order: settings, viewer, pages, exports, and the help.

#include "tour/stations.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileInfo>
#include <QListWidget>
#include <QPrintPreviewWidget>

namespace bramblet::tour {
namespace {

/// The order with discount, tax and shipping, as it was typed in.
constexpr const char* kShownOrder = "000009";
constexpr const char* kLongRequest = "000015";

/// Opens a saved order from the list.
void openOrder(Driver& hands, const char* number) {
    for (int row = 0; row < hands.rows(name("POGrid")); ++row) {
        if (hands.cell(name("POGrid"), row, 0) == name(number)) {
            hands.clickCell(name("POGrid"), row, 3);
            return;
        }
    }
    hands.complain(name("There is no order ") + name(number));
}

/// Goes to an entry of one of the chooser's lists and takes it.
void take(Driver& hands, const char* list, const QString& entry, bool enter) {
    auto* const entries = hands.find<QListWidget>(name(list));
    const auto found = entries->findItems(entry, Qt::MatchExactly);
    if (found.isEmpty()) {
        hands.complain(entry + name(" is not in the list"));
        return;
    }
    entries->setCurrentItem(found.first());
    if (enter) hands.press(name(list), Qt::Key_Return);
}

void chooseLetterhead(Guide& guide) {
    Driver& hands = guide.hands();
    hands.onNextDialog([&](QWidget& chooser) {
        // From the data folder up to the tour's folder.
        for (int level = 0; level < 3; ++level)
            take(hands, "Dir1", name(".."), true);
        take(hands, "Dir1", name("artwork"), true);
        take(hands, "File1", name("larkfield.bmp"), false);
        guide.picture("02-graphic-selector", chooser);
        guide.help("graphic", chooser);
        hands.click(name("Command1"));
    });
    hands.click(name("SelectGraphic"));
}

/// Shows the viewer, hands it to `use`, and closes it.
void inViewer(Driver& hands, const std::function<void(QWidget& viewer)>& use) {
    hands.onNextDialog([&](QWidget& viewer) {
        use(viewer);
        hands.click(name("Leave"));
    });
    hands.click(name("MakeOrder"));
    // The viewer is a window of its own, not a question: the main window goes on meanwhile.
    while (!hands.allAnswered() || QApplication::activeModalWidget() != nullptr)
        Driver::settle();
}

/// Makes the form wider and rewrites the order shown, then back again, so that it stays as it was.
void changeLook(Guide& guide, QWidget& viewer) {
    Driver& hands = guide.hands();
    hands.onNextDialog([&](QWidget& settings) {
        for (int i = 0; i < 6; ++i)
            hands.click(name("WidthMore"));
        hands.click(name("ReWrite"));
        guide.picture("22-rewritten-wider", viewer);
        hands.click(name("WidthDefault"));
        hands.click(name("ReWrite"));
        hands.type(name("DataDirectoryEd"), name("S:\\Orders\\po_data\\"));
        guide.picture("23-settings", settings);
        guide.help("settings", settings);
        guide.readme("settings", settings);
        hands.click(name("Close"));
    });
    hands.click(name("Configuration"));
}

/// The pages as the print preview shows them, first one and then all at once.
void preview(Guide& guide) {
    guide.hands().onNextDialog([&](QWidget& dialog) {
        auto* const pages = dialog.findChild<QPrintPreviewWidget*>();
        guide.picture("25-preview", dialog);
        pages->setAllPagesViewMode();
        guide.picture("26-preview-all-pages", dialog);
        guide.help("preview", dialog);
        if (pages->pageCount() < 2) guide.hands().complain(name("The long request has one page"));
        dialog.close();
    });
    guide.hands().click(name("Preview"));
}

void expectFile(Driver& hands, const QString& path) {
    if (QFileInfo(path).size() == 0) hands.complain(path + name(" was not written"));
}

}  // namespace

void setUpCompany(Guide& guide) {
    Driver& hands = guide.hands();
    hands.onNextDialog([&](QWidget&) {
        chooseLetterhead(guide);
        hands.type(name("IDText1"), name("Larkfield Joinery"));
        hands.type(name("IDText2"), name("17 Orchard Lane"));
        hands.type(name("IDText3"), name("Oregon City, OR 97045"));
        hands.type(name("IDText4"), name("Phone 503-555-0100"));
        hands.type(name("IDText5"), {});
        hands.click(name("Command1"));
    });
    hands.trigger(name("mu_Configuration"));
}

void viewOrder(Guide& guide) {
    Driver& hands = guide.hands();
    openOrder(hands, kShownOrder);
    inViewer(hands, [&](QWidget& viewer) {
        guide.picture("20-viewer", viewer);
        viewer.resize(880, 900);
        for (int i = 0; i < 2; ++i)
            hands.trigger(name("mu_ZoomOut"));
        guide.picture("21-viewer-zoomed-out", viewer);
        guide.help("viewer", viewer);
        guide.readme("viewer", viewer);
        changeLook(guide, viewer);
    });
}

void printPages(Guide& guide, const QString& folder) {
    Driver& hands = guide.hands();
    openOrder(hands, kLongRequest);
    inViewer(hands, [&](QWidget& viewer) {
        guide.picture("24-long-request", viewer);
        preview(guide);
        const QString pdf = folder + name("/request.pdf");
        hands.chooseFile(pdf);
        hands.click(name("SavePdf"));
        expectFile(hands, pdf);
    });
}

void exportOrders(Guide& guide, const QString& file) {
    Driver& hands = guide.hands();
    hands.chooseFile(file);
    hands.onNextDialog([&](QWidget& dialog) {
        guide.pictureWith("27-exported-orders", dialog);
        qobject_cast<QMessageBox*>(&dialog)->button(QMessageBox::No)->click();
    });
    hands.trigger(name("mu_DataExport"));
    expectFile(hands, file);
}

void readHelp(Guide& guide) {
    Driver& hands = guide.hands();
    hands.click(name("HelpButton"));
    QWidget* const help = hands.control(name("HelpForm"));
    guide.picture("28-help", *help);
    hands.type(name("HelpSearch"), name("discount"));
    guide.picture("29-help-search", *help);
    hands.type(name("HelpSearch"), {});
    auto* const pages = hands.find<QListWidget>(name("HelpPages"));
    help->resize(1000, 1900);
    for (int page = 0; page < pages->count(); ++page) {
        pages->setCurrentRow(page);
        guide.picture(qPrintable(QStringLiteral("4%1-help-page").arg(page)), *help);
    }
    help->close();
    Driver::settle();
}

}  // namespace bramblet::tour
