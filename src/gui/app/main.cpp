// The program's entry point: it knows every part, and does nothing itself.

#include "gui/app/main_window.h"
#include "gui/app/start_notice.h"
#include "gui/platform/dialog_prompts.h"
#include "gui/platform/qt_text.h"
#include "gui/platform/system_desktop.h"
#include "gui/platform/system_formats.h"
#include "gui/platform/theme.h"
#include "gui/platform/waiting.h"

#include <QApplication>
#include <QIcon>
#include <QMessageBox>
#include <QStandardPaths>
#include <QTimer>

#include <chrono>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

/// An error that nobody foresaw ends the command that met it, not the program and with it an
/// unsaved order.
class Application : public QApplication {
  public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override {
        try {
            return QApplication::notify(receiver, event);
        } catch (const std::exception& error) {
            QMessageBox::critical(
                activeWindow(), u"Bramblet"_s,
                u"This could not be done: %1"_s.arg(QString::fromLocal8Bit(error.what())));
            return false;
        }
    }
};

}  // namespace

int main(int argc, char** argv) {
    using namespace bramblet;
    Application application(argc, argv);
    QApplication::setApplicationName(u"Bramblet"_s);
    applyTheme(systemTheme());
#ifndef _WIN32
    // Windows takes the icon from the executable; elsewhere it is installed alongside the program.
    QApplication::setDesktopFileName(u"bramblet"_s);
    // Searching the themes for it takes a while: the first window is painted before.
    constexpr std::chrono::milliseconds kPainted{300};
    QTimer::singleShot(kPainted,
                       [] { QApplication::setWindowIcon(QIcon::fromTheme(u"bramblet"_s)); });
#endif

    Waiting waiting;
    DialogPrompts prompts;
    Clock clock = systemClock();
    clock.waitOneSecond = [&waiting] { waiting.waitOneSecond(); };
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    SystemDesktop desktop;
    const auto program =
        loadProgram({desktop, pathFromQt(documents), systemRegionalFormats(), clock,
                     [&waiting](const FileError& error) { waiting.waitForFile(error); }},
                    prompts, waiting);
    if (!program) return EXIT_SUCCESS;
    MainWindow window(*program, prompts, waiting);
    window.show();
    program->start();
    return QApplication::exec();
}
