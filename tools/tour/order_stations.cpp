// The stations in the main window: addresses, orders, the catalogue.

#include "gui/platform/qt_text.h"
#include "gui/platform/theme.h"
#include "tour/sample_company.h"
#include "tour/stations.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QClipboard>
#include <QDeadlineTimer>
#include <QMenu>
#include <QTabWidget>

namespace bramblet::tour {
namespace {

/// The order that most pictures show, by its place in the sample company's list.
constexpr std::size_t kShownOrder = 8;

void typeSide(Guide& guide, const std::vector<SampleAddress>& addresses, const char* nameBox,
              const char* addressBox, const char* save) {
    for (const auto& address : addresses) {
        guide.type(nameBox, address.name);
        guide.type(addressBox, address.address);
        guide.click(save);
    }
}

void newOrder(Guide& guide, bool requisition, const char* vendor, const char* shipTo) {
    guide.answer("Create blank new order ?", QMessageBox::Yes);
    guide.click("NewPO");
    guide.click(requisition ? "OptionRe" : "OptionPO");
    guide.pick("ToCombo", vendor);
    guide.pick("ShipToCombo", shipTo);
}

void calendar(Guide& guide) {
    guide.click("OrderDatePicker");
    QWidget* popup = guide.control("MonthView1")->parentWidget();
    guide.pictureWith("03-calendar", *popup);
    guide.helpWith("calendar", *popup, {"OrderDateEd"}, 1);
    popup->hide();
}

void addLine(Guide& guide, const SampleLine& line, bool withPicture) {
    guide.inDialog("OrderPop_OneTime", [&](QWidget& dialog) {
        guide.type("Text1", line.description);
        guide.type("QEd", line.quantity);
        guide.type("DescriptionUnitCombo", line.unit);
        guide.type("UCEd", line.unitCost);
        if (withPicture) {
            guide.pictureWith("04-line", dialog);
            guide.help("line", dialog);
        }
        guide.click("Save");
    });
}

void lineMenu(Guide& guide) {
    guide.clickCell("OrderGrid", 1, 4, Qt::RightButton);
    auto* menu = guide.find<QMenu>("OrderPop");
    guide.pictureWith("06-line-menu", *menu);
    guide.helpWith("line-menu", *menu, {"OrderGrid"}, 8);
    menu->close();
}

void pasteLines(Guide& guide) {
    QApplication::clipboard()->setText(
        "Description\tQty\tUnit\tUnit price\tTotal\n"
        "Deck screws 3 in\t6\tbox\t11.90\t71.40\n"
        "Joist hangers\t24\tea\t2.15\t51.60\n"
        "Concrete mix 60 lb\t12\tbag\ton request\t\n");
    guide.inDialog("OrderPop_Paste", [&](QWidget& dialog) {
        guide.pictureWith("06-paste", dialog);
        guide.help("paste", dialog);
        guide.click("Cancel");
    });
}

/// A line is deleted, and comes back.
void undoDeletion(Guide& guide) {
    const int lines = guide.rows("OrderGrid");
    guide.press("OrderGrid", Qt::Key_Delete);
    guide.picture("06-line-deleted");
    guide.help("undo", {"FindEd", "HideOrders", "Undo"});
    guide.press("Undo", Qt::Key_Space);
    if (guide.rows("OrderGrid") != lines) guide.complain("The line is not back");
}

/// Once the order is written: its parts, for the help.
void picturesOfOrder(Guide& guide) {
    guide.picture("05-order");
    guide.help("number", {"Label11", "MarkReceivedCheck"});
    guide.help("address", {"ToCombo", "DeleteVendor", "ToField"});
    guide.help("totals", {"DiscountLab", "SubTotalEd", "OrderTotalEd"});
    lineMenu(guide);
    pasteLines(guide);
    undoDeletion(guide);
}

void writeOrder(Guide& guide, const SampleOrder& order, bool withPictures) {
    newOrder(guide, order.requisition, order.vendor, order.shipTo);
    const std::vector<std::pair<const char*, const char*>> boxes{
        {"OrderDateEd", order.orderDate},
        {"ShipDateEd", order.onSite},
        {"JobNumberEd", order.job},
        {"ByEd", order.by},
        {"ShipViaEd", order.via},
        {"FOBEd", order.fob},
        {"TermsEd", order.terms},
        {"CommentsEd", order.comments},
        {"DiscountFactorEd", order.discountFactor},
        {"TaxFactorEd", order.taxFactor},
        {"ShippingEd", order.shipping},
    };
    for (const auto& [box, text] : boxes)
        guide.type(box, text);
    if (withPictures) {
        calendar(guide);
        histories(guide);
    }
    for (std::size_t i = 0; i < order.lines.size(); ++i)
        addLine(guide, order.lines[i], withPictures && i == 0);
    if (order.received) guide.click("MarkReceivedCheck");
    guide.click("TotalUp");
    if (withPictures) picturesOfOrder(guide);
    guide.click("SaveChanges");
}

void typeItems(Guide& guide) {
    for (const auto& item : kItems) {
        guide.type("StockCatCombo", item.category);
        guide.type("StockVendorCombo", item.vendor);
        guide.type("StockUnitCombo", item.unit);
        guide.type("StockDescriptionEd", item.description);
        guide.type("StockUnitCostEd", item.unitCost);
        guide.click("SaveNewStockItem");
    }
}

void pickItems(Guide& guide) {
    newOrder(guide, false, "Eastgate Hardware Supply", "Workshop");
    guide.type("ByEd", "Tom Reed");
    guide.type("TermsEd", "Net 30");
    guide.click("VendorItemsCheck");
    for (const int row : {0, 3, 4, 0, 7, 0})
        guide.doubleClickCell("StockGrid", row, 3);
    guide.picture("11-picking-stock-items");
    guide.readme("picking", guide.window());
    guide.help("picking", {"StockGrid", "DeleteStockItem", "VendorItemsCheck", "ViewExisting"});
    guide.help("stock-editor", {"StockCatCombo", "AddToOrder", "DeleteStockItem", "FileOrderTag"});
    guide.clickCell("StockGrid", 2, 3, Qt::RightButton);
    auto* menu = guide.find<QMenu>("itemspop");
    guide.pictureWith("12-stock-menu", *menu);
    menu->close();
    guide.click("SaveChanges");
    guide.click("VendorItemsCheck");
}

}  // namespace

void typeAddresses(Guide& guide) {
    typeSide(guide, kVendors, "ToCombo", "ToField", "ChangedVendor");
    typeSide(guide, kDestinations, "ShipToCombo", "ShipToField", "ChangedDest");
}

void writeOrders(Guide& guide) {
    for (std::size_t i = 0; i < kOrders.size(); ++i)
        writeOrder(guide, kOrders[i], i == kShownOrder);
}

void openAndChange(Guide& guide) {
    guide.clickCell("POGrid", 3, 3);
    guide.picture("07-saved-orders");
    guide.readme("main-window", guide.window());
    guide.helpWithCallouts("window", {{"MakeOrder", Qt::AlignRight, true},
                                      {"MarkReceivedCheck", Qt::AlignRight, true},
                                      {"ToField", Qt::AlignRight | Qt::AlignBottom},
                                      {"ShipToField", Qt::AlignRight | Qt::AlignBottom},
                                      {"ShipViaEd", Qt::AlignHCenter},
                                      {"OrderGrid", Qt::AlignRight | Qt::AlignBottom},
                                      {"SubTotalEd", Qt::AlignLeft},
                                      {"ListCheckPO", Qt::AlignLeft, true}});
    guide.help("saved-orders", {"POGrid", "FindEd", "HideOrders"});
    guide.type("FindEd", "site 2026");
    guide.picture("19-found");
    guide.help("find", {"POGrid", "FindEd", "HideOrders"});
    guide.press("FindEd", Qt::Key_Escape);
    guide.click("MarkReceivedCheck");
    guide.pictureOfNext("08-save-question", QMessageBox::Yes, "save-question");
    guide.clickCell("POGrid", 2, 3);
    guide.clickHeading("POGrid", 3);
    guide.picture("09-sorted-by-vendor");
}

void copyOrder(Guide& guide) {
    guide.answer("Create new purchase order based on details", QMessageBox::Yes);
    guide.click("Save_PO");
    guide.picture("10-copy");
    guide.onNextDialog([&](QWidget& dialog) {
        const QDeadlineTimer soon(5000);
        while (guide.text("LastPaid").isEmpty() && !soon.hasExpired())
            QApplication::processEvents();
        guide.pictureWith("10-last-paid", dialog);
        guide.help("last-paid", dialog);
        guide.click("Cancel");
    });
    guide.doubleClickCell("OrderGrid", 0, 4);
    guide.click("SaveChanges");
}

void catalogue(Guide& guide, const QString& file) {
    guide.click("HideOrders");
    typeItems(guide);
    pickItems(guide);
    guide.clickHeading("StockGrid", 0);
    guide.picture("13-catalogue");
    guide.chooseFile(file.chopped(4));  // the ending is added
    guide.pictureOfNext("14-exported", QMessageBox::Ok);
    guide.trigger("mu_ExportStockItems");
}

void spending(Guide& guide) {
    guide.click("ViewExisting");
    guide.inDialog("mu_Spending", [&](QWidget& dialog) {
        guide.pictureWith("14-spending", dialog);
        guide.help("spending", dialog);
        guide.find<QTabWidget>("SpendingTabs")->setCurrentIndex(1);
        guide.pictureWith("14-spending-by-month", dialog);
        guide.find<QTabWidget>("SpendingTabs")->setCurrentIndex(0);
        guide.press("SpendingVendors", Qt::Key_Down);
        guide.press("SpendingVendors", Qt::Key_Return);
    });
    guide.picture("14-spending-of-one");
    guide.help("spending-one", {"POGrid", "FindEd", "HideOrders"});
    guide.click("ShownOnly");
    guide.click("HideOrders");
}

void longRequest(Guide& guide) {
    newOrder(guide, true, "Eastgate Hardware Supply", "Main Store");
    guide.type("ByEd", "Mary Cole");
    guide.type("ShipDateEd", "4/1/2026");
    guide.type("CommentsEd", "Yearly list: please quote delivered, and say what you do not stock");
    for (int row = 0; row < guide.rows("StockGrid"); ++row)
        guide.doubleClickCell("StockGrid", row, 3);
    for (const std::size_t order : {2u, 3u, 6u, 7u, 10u, 11u}) {
        for (const SampleLine& line : kOrders[order].lines)
            addLine(guide, line, false);
    }
    guide.click("SaveChanges");
    guide.picture("16-long-request");
    guide.click("ViewExisting");
}

void typeWhatWillNotPrint(Guide& guide) {
    guide.type("CommentsEd", u"Boards of \u2265 8 ft"_s);
    guide.expectStatus(u"Orders cannot hold the character \"\u2265\""_s);
    guide.picture("01-will-not-print");
    guide.help("character", {"FindEd", "HideOrders", "Label16"});
    guide.type("CommentsEd", "");
}

void sizes(Guide& guide) {
    guide.clickCell("POGrid", 4, 3);
    guide.window().resize(1024, 700);
    guide.picture("30-at-1024x700");
    guide.window().resize(1920, 1040);
    guide.picture("31-maximised");
}

void followDesktop(Guide& guide) {
    const Theme own = themeLike(QApplication::palette());
    for (const Theme theme : kThemes) {
        applyTheme(theme);
        Driver::settle();
        guide.picture("61-desktop-" + QString::number(static_cast<int>(theme)));
        if (theme == Theme::Dark) guide.help("dark", guide.window());
    }
    applyTheme(own);
    Driver::settle();
}

void takeOver(Guide& guide, const QString& file) {
    guide.answer("It is strongly suggested");
    guide.chooseFile(file);
    guide.pictureOfNext("15-imported", QMessageBox::Ok);
    guide.click("HideOrders");
    guide.trigger("mu_ImportStockItems");
    if (guide.rows("StockGrid") != static_cast<int>(kItems.size()))
        guide.complain("The catalogue was not taken over whole");
}

}  // namespace bramblet::tour
