// The guided tour: takes the program's windows through the course of an order, for a sample company
// that it types in itself, and keeps a picture of each window. It leaves the sample data folder
// behind.
//
//     bramblet_tour [--theme THEME] [--large] [--twice] [--docs DOCS] FOLDER
//
// THEME is light, dark, or one of high contrast: contrast, contrast-dark. With --large, text is
// twice as large. FOLDER gets the pictures, at twice the scale if asked for, and, in "documents"
// below it, the sample company's home folder. DOCS/help and DOCS/pictures get the documentation's
// pictures. The tour runs offscreen unless QT_QPA_PLATFORM says otherwise.

#include "gui/platform/dialog_prompts.h"
#include "gui/platform/qt_text.h"
#include "gui/platform/theme.h"
#include "tour/quiet_desktop.h"
#include "tour/stations.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFile>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <iostream>

namespace bramblet::tour {
namespace {

constexpr CivilDate kTourDay{2026, 3, 4};
constexpr CivilDate kLater{2026, 3, 14};
constexpr int kTourSecond = (16 * 60 + 20) * 60;  // of the day: twenty past four

/// Starts the program in a home folder of its own on a `day` and takes it along `road`, which gets
/// its window and its data folder.
QString inOffice(const QString& documents, const CivilDate& day,
                 const std::function<void(MainWindow&, const QString& data)>& road) {
    DialogPrompts prompts;
    Waiting waiting;
    const Clock clock{[&] { return *toDayCount(day); }, [&] { waiting.waitOneSecond(); },
                      [] { return kTourSecond; }};
    QuietDesktop desktop;
    Program program({desktop, pathFromQt(documents), RegionalFormats{}, clock,
                     [&](const FileError& error) { waiting.waitForFile(error); }},
                    prompts);
    MainWindow window(program, prompts, waiting);
    window.show();
    program.start();
    const QString data = pathToQt(program.folder.DataPath());
    road(window, data);
    window.close();
    return data;
}

/// The sample company's letterhead, in a folder where it can be chosen.
bool layOutArtwork(const QString& folder) {
    const QString file = folder + "/larkfield.bmp";
    QFile::remove(file);
    return QDir().mkpath(folder) && QFile::copy(":/artwork/larkfield.bmp", file) &&
           QFile::setPermissions(
               file, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
}

QString backupFolder(const Album& album) {
    return album.folder() + "/backup";
}

bool throughFirstOffice(MainWindow& window, const Album& album) {
    Guide guide(window, album);
    window.resize(1100, 760);
    window.activateWindow();
    Driver::settle();
    guide.picture("01-first-start");
    typeWhatWillNotPrint(guide);
    setUpCompany(guide);
    typeAddresses(guide);
    writeOrders(guide);
    openAndChange(guide);
    copyOrder(guide);
    catalogue(guide, album.folder() + "/catalogue.sid");
    spending(guide);
    longRequest(guide);
    viewOrder(guide);
    printPages(guide, album.folder());
    exportOrders(guide, album.folder() + "/orders.csv");
    importContacts(guide, album.folder());
    importTable(guide, album.folder());
    backUp(guide, backupFolder(album));
    readHelp(guide);
    sizes(guide);
    return guide.good();
}

bool throughSecondOffice(MainWindow& window, const Album& album, const QString& data) {
    Guide guide(window, album);
    takeOver(guide, album.folder() + "/catalogue.sid");
    restore(guide, backupFolder(album));
    rebuildList(guide, data);
    return guide.good();
}

bool backInFirstOffice(MainWindow& window, const Album& album) {
    Guide guide(window, album);
    window.resize(1100, 760);
    window.activateWindow();
    Driver::settle();
    beReminded(guide);
    followDesktop(guide);
    return guide.good();
}

int runTour(const Album& album) {
    const QString& folder = album.folder();
    for (const char* file :
         {"/catalogue.sid", "/contacts.dat", "/pricelist.csv", "/orders.csv", "/request.pdf"})
        QFile::remove(folder + file);
    QDir(backupFolder(album)).removeRecursively();
    const QString first = folder + "/documents", second = folder + "/second-office";
    for (const QString& office : {first, second}) {
        QDir(office).removeRecursively();
        QDir().mkpath(office);
    }
    bool good = layOutArtwork(folder + "/artwork");
    const QString data = inOffice(first, kTourDay, [&](MainWindow& window, const QString&) {
        good = throughFirstOffice(window, album) && good;
    });
    inOffice(second, kTourDay, [&](MainWindow& window, const QString& its) {
        good = throughSecondOffice(window, album, its) && good;
    });
    inOffice(first, kLater, [&](MainWindow& window, const QString&) {
        good = backInFirstOffice(window, album) && good;
    });
    std::cout << "The pictures are in " << qPrintable(QDir(folder).absolutePath())
              << "\nThe sample company's data folder is " << qPrintable(data) << std::endl;
    return good ? EXIT_SUCCESS : EXIT_FAILURE;
}

#ifdef _WIN32
/// The windows open on the real screen, which has to be large enough for every picture.
void chooseScreen(bool twice) {
    if (twice) qputenv("QT_SCALE_FACTOR", "2");
}
#else
/// Chooses an in-memory screen that is large enough for every picture.
void chooseScreen(bool twice) {
    if (qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) return;
    const QString file = QDir::tempPath() + "/bramblet-tour-screen.json";
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
    const auto has = [&](const char* option) {
        return std::find(argv, argv + argc, std::string(option)) != argv + argc;
    };
    tour::chooseScreen(has("--twice") || has("--docs"));
    // The driver sees only into Qt's dialogs, not the system's own.
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addPositionalArgument("FOLDER", "Gets the pictures.");
    parser.addOption({"theme", "light, dark, contrast or contrast-dark.", "THEME", "light"});
    parser.addOption({"large", "Text twice as large."});
    parser.addOption({"twice", "Pictures at twice the scale."});
    parser.addOption({"docs", "Make the documentation's pictures too.", "DOCS"});
    parser.process(application);
    if (parser.positionalArguments().size() != 1) parser.showHelp(2);
    const QStringList themes{"light", "dark", "contrast", "contrast-dark"};  // as in kThemes
    const auto theme = themes.indexOf(parser.value("theme"));
    if (theme < 0) parser.showHelp(2);
    applyTheme(kThemes[static_cast<std::size_t>(theme)]);
    if (parser.isSet("large")) {
        QFont font = QApplication::font();
        font.setPointSizeF(2 * font.pointSizeF());
        QApplication::setFont(font);
    }
    const auto absolute = [](const QString& path) {
        return path.isEmpty() ? path : QDir(path).absolutePath();
    };
    return tour::runTour(
        {absolute(parser.positionalArguments().first()), absolute(parser.value("docs"))});
}
