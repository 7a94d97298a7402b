// The stations in the main window: addresses, orders, the catalogue.

#include "tour/sample_company.h"
#include "tour/stations.h"

#include <QAbstractButton>
#include <QCalendarWidget>
#include <QMenu>

namespace bramblet::tour {
namespace {

/// The order that most pictures show, by its place in the sample company's list.
constexpr std::size_t kShownOrder = 8;

void press(QWidget& box, QMessageBox::StandardButton button) {
    qobject_cast<QMessageBox*>(&box)->button(button)->click();
}

void typeSide(Driver& hands, const std::vector<SampleAddress>& addresses, const char* nameBox,
              const char* addressBox, const char* save) {
    for (const auto& address : addresses) {
        hands.type(name(nameBox), name(address.name));
        hands.type(name(addressBox), name(address.address));
        hands.click(name(save));
    }
}

void newOrder(Driver& hands, bool requisition, const char* vendor, const char* shipTo) {
    hands.answer(name("Create blank new order ?"), QMessageBox::Yes);
    hands.click(name("NewPO"));
    hands.click(name(requisition ? "OptionRe" : "OptionPO"));
    hands.pick(name("ToCombo"), name(vendor));
    hands.pick(name("ShipToCombo"), name(shipTo));
}

void calendar(Guide& guide) {
    Driver& hands = guide.hands();
    hands.click(name("OrderDatePicker"));
    QWidget* popup = hands.control(name("MonthView1"))->parentWidget();
    guide.pictureWith("03-calendar", *popup);
    guide.helpWith("calendar", *popup, {"OrderDateEd"}, 1);
    popup->hide();
}

void addLine(Guide& guide, const SampleLine& line, bool withPicture) {
    Driver& hands = guide.hands();
    hands.onNextDialog([&](QWidget& dialog) {
        hands.type(name("Text1"), name(line.description));
        hands.type(name("QEd"), name(line.quantity));
        hands.type(name("DescriptionUnitCombo"), name(line.unit));
        hands.type(name("UCEd"), name(line.unitCost));
        if (withPicture) {
            guide.pictureWith("04-line", dialog);
            guide.help("line", dialog);
        }
        hands.click(name("Save"));
    });
    hands.trigger(name("OrderPop_OneTime"));
}

void lineMenu(Guide& guide) {
    guide.hands().clickCell(name("OrderGrid"), 1, 4, Qt::RightButton);
    auto* menu = guide.hands().find<QMenu>(name("OrderPop"));
    guide.pictureWith("06-line-menu", *menu);
    guide.helpWith("line-menu", *menu, {"OrderGrid"}, 8);
    menu->close();
}

/// Once the order is written: its parts, for the help.
void picturesOfOrder(Guide& guide) {
    guide.picture("05-order");
    guide.help("number", {"Label11", "MarkReceivedCheck"});
    guide.help("address", {"ToCombo", "DeleteVendor", "ToField"});
    guide.help("totals", {"DiscountLab", "SubTotalEd", "OrderTotalEd"});
    lineMenu(guide);
}

void writeOrder(Guide& guide, const SampleOrder& order, bool withPictures) {
    Driver& hands = guide.hands();
    newOrder(hands, order.requisition, order.vendor, order.shipTo);
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
        hands.type(name(box), name(text));
    if (withPictures) {
        calendar(guide);
        histories(guide);
    }
    for (std::size_t i = 0; i < order.lines.size(); ++i)
        addLine(guide, order.lines[i], withPictures && i == 0);
    if (order.received) hands.click(name("MarkReceivedCheck"));
    hands.click(name("TotalUp"));
    if (withPictures) picturesOfOrder(guide);
    hands.click(name("SaveChanges"));
}

void typeItems(Driver& hands) {
    for (const auto& item : kItems) {
        hands.type(name("StockCatCombo"), name(item.category));
        hands.type(name("StockVendorCombo"), name(item.vendor));
        hands.type(name("StockUnitCombo"), name(item.unit));
        hands.type(name("StockDescriptionEd"), name(item.description));
        hands.type(name("StockUnitCostEd"), name(item.unitCost));
        hands.click(name("SaveNewStockItem"));
    }
}

void pickItems(Guide& guide) {
    Driver& hands = guide.hands();
    newOrder(hands, false, "Eastgate Hardware Supply", "Workshop");
    hands.type(name("ByEd"), name("Tom Reed"));
    hands.type(name("TermsEd"), name("Net 30"));
    hands.click(name("VendorItemsCheck"));
    for (const int row : {0, 3, 4, 0, 7, 0})
        hands.doubleClickCell(name("StockGrid"), row, 3);
    guide.picture("11-picking-stock-items");
    guide.readme("picking", guide.window());
    guide.help("picking", {"StockGrid", "DeleteStockItem", "VendorItemsCheck", "ViewExisting"});
    guide.help("stock-editor", {"StockCatCombo", "AddToOrder", "DeleteStockItem", "FileOrderTag"});
    hands.clickCell(name("StockGrid"), 2, 3, Qt::RightButton);
    auto* menu = hands.find<QMenu>(name("itemspop"));
    guide.pictureWith("12-stock-menu", *menu);
    menu->close();
    hands.click(name("SaveChanges"));
    hands.click(name("VendorItemsCheck"));
}

}  // namespace

void typeAddresses(Guide& guide) {
    typeSide(guide.hands(), kVendors, "ToCombo", "ToField", "ChangedVendor");
    typeSide(guide.hands(), kDestinations, "ShipToCombo", "ShipToField", "ChangedDest");
}

void writeOrders(Guide& guide) {
    for (std::size_t i = 0; i < kOrders.size(); ++i)
        writeOrder(guide, kOrders[i], i == kShownOrder);
}

void openAndChange(Guide& guide) {
    Driver& hands = guide.hands();
    hands.clickCell(name("POGrid"), 3, 3);
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
    guide.help("saved-orders", {"POGrid", "BottomLabel", "HideOrders"});
    hands.click(name("MarkReceivedCheck"));
    hands.onNextDialog([&](QWidget& dialog) {
        guide.pictureWith("08-save-question", dialog);
        guide.help("save-question", dialog);
        press(dialog, QMessageBox::Yes);
    });
    hands.clickCell(name("POGrid"), 2, 3);
    hands.clickHeading(name("POGrid"), 3);
    guide.picture("09-sorted-by-vendor");
}

void copyOrder(Guide& guide) {
    guide.hands().answer(name("Create new purchase order based on details"), QMessageBox::Yes);
    guide.hands().click(name("Save_PO"));
    guide.picture("10-copy");
}

void catalogue(Guide& guide, const QString& file) {
    Driver& hands = guide.hands();
    hands.click(name("HideOrders"));
    typeItems(hands);
    pickItems(guide);
    hands.clickHeading(name("StockGrid"), 0);
    guide.picture("13-catalogue");
    hands.chooseFile(file);
    hands.onNextDialog([&](QWidget& dialog) {
        guide.pictureWith("14-exported", dialog);
        press(dialog, QMessageBox::Ok);
    });
    hands.trigger(name("mu_ExportStockItems"));
}

void longRequest(Guide& guide) {
    Driver& hands = guide.hands();
    newOrder(hands, true, "Eastgate Hardware Supply", "Main Store");
    hands.type(name("ByEd"), name("Mary Cole"));
    hands.type(name("ShipDateEd"), name("4/1/2026"));
    hands.type(name("CommentsEd"),
               name("Yearly list: please quote delivered, and say what you do not stock"));
    for (int row = 0; row < hands.rows(name("StockGrid")); ++row)
        hands.doubleClickCell(name("StockGrid"), row, 3);
    for (const std::size_t order : {2u, 3u, 6u, 7u, 10u, 11u}) {
        for (const SampleLine& line : kOrders[order].lines)
            addLine(guide, line, false);
    }
    hands.click(name("SaveChanges"));
    guide.picture("16-long-request");
    hands.click(name("ViewExisting"));
}

void sizes(Guide& guide) {
    guide.hands().clickCell(name("POGrid"), 4, 3);
    guide.window().resize(1024, 700);
    guide.picture("30-at-1024x700");
    guide.window().resize(1920, 1040);
    guide.picture("31-maximised");
}

void takeOver(Guide& guide, const QString& file) {
    Driver& hands = guide.hands();
    hands.answer(name("It is strongly suggested"), QMessageBox::Ok);
    hands.chooseFile(file);
    hands.onNextDialog([&](QWidget& dialog) {
        guide.pictureWith("15-imported", dialog);
        press(dialog, QMessageBox::Ok);
    });
    hands.click(name("HideOrders"));
    hands.trigger(name("mu_ImportStockItems"));
    if (hands.rows(name("StockGrid")) != static_cast<int>(kItems.size()))
        hands.complain(name("The catalogue was not taken over whole"));
}

}  // namespace bramblet::tour
