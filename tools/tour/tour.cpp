// The guided tour: takes the program's windows down the road of one order, on a sample company that
// it types in itself, and keeps a picture of each window. The sample data folder stays behind.
//
//     bramblet_tour [--dark] [--twice] FOLDER
//
// FOLDER gets the pictures, at twice the scale when asked for, and "documents" below it the sample
// company's home folder. It runs offscreen unless QT_QPA_PLATFORM says otherwise.

#include "app/main_window.h"
#include "driver/driver.h"
#include "platform/dialog_prompts.h"
#include "platform/qt_text.h"
#include "platform/system_desktop.h"
#include "platform/theme.h"
#include "tour/sample_company.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCalendarWidget>
#include <QDir>
#include <QFile>
#include <QMenu>
#include <QPainter>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <iostream>

namespace bramblet::tour {
namespace {

constexpr CivilDate kTourDay{2026, 3, 4};

QString name(const char* text) {
    return QString::fromLatin1(text);
}

class Tour {
  public:
    Tour(MainWindow& window, QString folder)
        : window_(window), driver_(window), folder_(std::move(folder)) {
        driver_.complain = [this](const QString& complaint) {
            std::cerr << qPrintable(complaint) << std::endl;
            complaints_ = true;
        };
    }

    /// False when something was not as it should be.
    bool run() {
        window_.resize(1100, 760);
        window_.activateWindow();
        Driver::settle();
        picture("01-first-start");
        typeAddresses();
        for (std::size_t i = 0; i < kOrders.size(); ++i)
            writeOrder(kOrders[i], i == 8);
        openAndChange();
        copyOrder();
        catalogue();
        sizes();
        return !complaints_ && driver_.allAnswered();
    }

    /// In a second office: takes the catalogue over.
    bool takeOver() {
        driver_.answer(name("It is strongly suggested"), QMessageBox::Ok);
        driver_.chooseFile(catalogueFile());
        driver_.onNextDialog([&](QWidget& dialog) {
            pictureWith("14-imported", dialog);
            qobject_cast<QMessageBox*>(&dialog)->button(QMessageBox::Ok)->click();
        });
        driver_.click(name("HideOrders"));
        driver_.trigger(name("mu_ImportStockItems"));
        return !complaints_ && driver_.allAnswered() &&
               driver_.rows(name("StockGrid")) == static_cast<int>(kItems.size());
    }

  private:
    QString catalogueFile() const { return folder_ + name("/catalogue.sid"); }

    void typeAddresses() {
        typeSide(kVendors, "ToCombo", "ToField", "ChangedVendor");
        typeSide(kDestinations, "ShipToCombo", "ShipToField", "ChangedDest");
    }

    void typeSide(const std::vector<SampleAddress>& addresses, const char* nameBox,
                  const char* addressBox, const char* save) {
        for (const auto& address : addresses) {
            driver_.type(name(nameBox), name(address.name));
            driver_.type(name(addressBox), name(address.address));
            driver_.click(name(save));
        }
    }

    void writeOrder(const SampleOrder& order, bool withPictures) {
        driver_.answer(name("Create blank new order ?"), QMessageBox::Yes);
        driver_.click(name("NewPO"));
        driver_.click(name(order.requisition ? "OptionRe" : "OptionPO"));
        driver_.pick(name("ToCombo"), name(order.vendor));
        driver_.pick(name("ShipToCombo"), name(order.shipTo));
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
            driver_.type(name(box), name(text));
        if (withPictures) calendar();
        for (std::size_t i = 0; i < order.lines.size(); ++i) {
            addLine(order.lines[i], withPictures && i == 0);
        }
        if (order.received) driver_.click(name("MarkReceivedCheck"));
        driver_.click(name("TotalUp"));
        if (withPictures) {
            picture("04-order");
            lineMenu();
        }
        driver_.click(name("SaveChanges"));
    }

    void addLine(const SampleLine& line, bool withPicture) {
        driver_.onNextDialog([&](QWidget& dialog) {
            driver_.type(name("Text1"), name(line.description));
            driver_.type(name("QEd"), name(line.quantity));
            driver_.type(name("DescriptionUnitCombo"), name(line.unit));
            driver_.type(name("UCEd"), name(line.unitCost));
            if (withPicture) pictureWith("03-line", dialog);
            driver_.click(name("Save"));
        });
        driver_.trigger(name("OrderPop_OneTime"));
    }

    void calendar() {
        driver_.click(name("ShipDatePicker"));
        QWidget* popup = driver_.control(name("MonthView1"))->parentWidget();
        pictureWith("02-calendar", *popup);
        popup->hide();
    }

    void lineMenu() {
        driver_.clickCell(name("OrderGrid"), 1, 4, Qt::RightButton);
        auto* menu = driver_.find<QMenu>(name("OrderPop"));
        pictureWith("05-line-menu", *menu);
        menu->close();
    }

    /// Opens an order from the list, changes it, and meets the question on the way to another.
    void openAndChange() {
        driver_.clickCell(name("POGrid"), 3, 3);
        picture("06-saved-orders");
        driver_.click(name("MarkReceivedCheck"));
        driver_.onNextDialog([&](QWidget& dialog) {
            pictureWith("07-save-question", dialog);
            qobject_cast<QMessageBox*>(&dialog)->button(QMessageBox::Yes)->click();
        });
        driver_.clickCell(name("POGrid"), 2, 3);
        driver_.clickHeading(name("POGrid"), 3);
        picture("08-sorted-by-vendor");
    }

    void copyOrder() {
        driver_.answer(name("Create new purchase order based on details"), QMessageBox::Yes);
        driver_.click(name("Save_PO"));
        picture("09-copy");
    }

    /// Types the catalogue, picks from it into a new order, and writes it out.
    void catalogue() {
        driver_.click(name("HideOrders"));
        for (const auto& item : kItems) {
            driver_.type(name("StockCatCombo"), name(item.category));
            driver_.type(name("StockVendorCombo"), name(item.vendor));
            driver_.type(name("StockUnitCombo"), name(item.unit));
            driver_.type(name("StockDescriptionEd"), name(item.description));
            driver_.type(name("StockUnitCostEd"), name(item.unitCost));
            driver_.click(name("SaveNewStockItem"));
        }
        driver_.answer(name("Create blank new order ?"), QMessageBox::Yes);
        driver_.click(name("NewPO"));
        driver_.click(name("OptionPO"));
        driver_.pick(name("ToCombo"), name("Eastgate Hardware Supply"));
        driver_.pick(name("ShipToCombo"), name("Workshop"));
        driver_.type(name("ByEd"), name("Tom Reed"));
        driver_.type(name("TermsEd"), name("Net 30"));
        driver_.click(name("VendorItemsCheck"));
        for (const int row : {0, 3, 4, 0, 7, 0}) {
            driver_.doubleClickCell(name("StockGrid"), row, 3);
        }
        picture("10-picking-stock-items");
        driver_.clickCell(name("StockGrid"), 2, 3, Qt::RightButton);
        auto* menu = driver_.find<QMenu>(name("itemspop"));
        pictureWith("11-stock-menu", *menu);
        menu->close();
        driver_.click(name("SaveChanges"));
        driver_.click(name("VendorItemsCheck"));
        driver_.clickHeading(name("StockGrid"), 0);
        picture("12-catalogue");
        driver_.chooseFile(catalogueFile());
        driver_.onNextDialog([&](QWidget& dialog) {
            pictureWith("13-exported", dialog);
            qobject_cast<QMessageBox*>(&dialog)->button(QMessageBox::Ok)->click();
        });
        driver_.trigger(name("mu_ExportStockItems"));
        driver_.click(name("ViewExisting"));
    }

    void sizes() {
        driver_.clickCell(name("POGrid"), 4, 3);
        window_.resize(1024, 700);
        picture("20-at-1024x700");
        window_.resize(1920, 1040);
        picture("21-maximised");
    }

    void picture(const char* file) { save(file, Driver::picture(window_)); }

    /// The main window with another one in front of it.
    void pictureWith(const char* file, QWidget& front) {
        QPixmap whole = Driver::picture(window_);
        const QPixmap above = Driver::picture(front);
        QPainter painter(&whole);
        const QPoint place = front.mapToGlobal(QPoint()) - window_.mapToGlobal(QPoint());
        const QRect frame(place, front.size());
        painter.fillRect(window_.rect(), QColor(0, 0, 0, 40));
        painter.fillRect(frame.adjusted(-1, -1, 1, 1), borderColour());
        painter.drawPixmap(place, above);
        painter.end();
        save(file, whole);
    }

    void save(const char* file, const QPixmap& picture) {
        const QString path = folder_ + QLatin1Char('/') + name(file) + name(".png");
        if (!picture.save(path)) driver_.complain(name("The picture was not saved: ") + path);
    }

    MainWindow& window_;
    Driver driver_;
    QString folder_;
    bool complaints_ = false;
};

/// Starts the program in a home folder of its own and takes `road` through it.
std::string inOffice(const QString& documents, const std::function<void(MainWindow&)>& road) {
    QDir(documents).removeRecursively();
    QDir().mkpath(documents);
    DialogPrompts prompts;
    Waiting waiting;
    const Clock clock{[] { return *toDayCount(kTourDay); }, [&] { waiting.waitOneSecond(); }};
    SystemDesktop desktop;
    Program program({desktop, pathFromQt(documents), RegionalFormats{}, clock,
                     [&](const FileError& error) { waiting.waitForFile(error); }},
                    prompts);
    MainWindow window(program, prompts, waiting);
    window.show();
    program.start();
    road(window);
    window.close();
    return program.folder.DataPath();
}

int runTour(const QString& folder) {
    bool good = true;
    QFile::remove(folder + name("/catalogue.sid"));
    const std::string data = inOffice(folder + name("/documents"), [&](MainWindow& window) {
        good = Tour(window, folder).run();
    });
    inOffice(folder + name("/second-office"),
             [&](MainWindow& window) { good = Tour(window, folder).takeOver() && good; });
    std::cout << "The pictures are in " << qPrintable(QDir(folder).absolutePath())
              << "\nThe sample company's data folder is " << data << std::endl;
    return good ? EXIT_SUCCESS : EXIT_FAILURE;
}

#ifdef _WIN32
/// The windows come up on the real screen, which has to be large enough for every picture.
void chooseScreen(bool twice) {
    if (twice) qputenv("QT_SCALE_FACTOR", "2");
}
#else
/// Chooses a screen in memory that is large enough for every picture.
void chooseScreen(bool twice) {
    if (qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) return;
    const QString file = QDir::tempPath() + name("/bramblet-tour-screen.json");
    QFile screen(file);
    if (!screen.open(QIODevice::WriteOnly)) return;
    screen.write(
        "{\"synchronousWindowSystemEvents\":false,\"screens\":[{\"name\":\"tour\",\"x\":0,"
        "\"y\":0,\"width\":2400,\"height\":1400,\"logicalDpi\":96,\"dpr\":1}]}");
    screen.close();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + QFile::encodeName(file));
    if (twice) qputenv("QT_SCALE_FACTOR", "2");
}
#endif

}  // namespace
}  // namespace bramblet::tour

int main(int argc, char** argv) {
    using namespace bramblet;
    tour::chooseScreen(std::find(argv, argv + argc, std::string("--twice")) != argv + argc);
    // The driver sees into Qt's dialogs only, not into the system's own.
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    QStringList arguments = QApplication::arguments().mid(1);
    const bool dark = arguments.removeOne(QStringLiteral("--dark"));
    arguments.removeOne(QStringLiteral("--twice"));
    if (arguments.size() != 1) {
        std::cerr << "usage: bramblet_tour [--dark] [--twice] FOLDER" << std::endl;
        return 2;
    }
    applyTheme(application, dark ? Theme::Dark : Theme::Light);
    return tour::runTour(QDir(arguments.first()).absolutePath());
}
