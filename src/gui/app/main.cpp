// The program's entry point: it knows every part, and does nothing itself.

#include "core/app/open_home.h"
#include "gui/app/main_window.h"
#include "gui/app/start_notice.h"
#include "gui/platform/dialog_prompts.h"
#include "gui/platform/end_signals.h"
#include "gui/platform/qt_text.h"
#include "gui/platform/system_desktop.h"
#include "gui/platform/system_formats.h"
#include "gui/platform/theme.h"
#include "gui/platform/waiting.h"

#include <QApplication>
#include <QFileInfo>
#include <QFileSystemWatcher>
#include <QIcon>
#include <QMessageBox>
#include <QSessionManager>
#include <QStandardPaths>
#include <QTimer>

#include <chrono>
#include <cstdlib>
#include <thread>

using namespace Qt::StringLiterals;

namespace bramblet {
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

    MainWindow* window = nullptr;

  protected:
    /// Told to quit by the system, it does not close the windows, each with its question.
    bool event(QEvent* event) override {
        const bool told = event->type() == QEvent::Quit && window != nullptr && window->isVisible();
        if (!told) return QApplication::event(event);
        window->end();
        return true;
    }
};

}  // namespace
}  // namespace bramblet

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
    const std::filesystem::path folder = pathFromQt(documents);
    SystemDesktop desktop;
    OpenHome home(Program::homeFolderIn(folder));
    const auto moment = [] { std::this_thread::sleep_for(std::chrono::milliseconds(50)); };
    // A catalogue file, when the user has opened one.
    std::filesystem::path file;
    if (const QStringList given = QApplication::arguments(); given.size() > 1)
        file = pathFromQt(QFileInfo(given[1]).absoluteFilePath());
    if (!home.enter(prompts, desktop, moment, file)) return EXIT_SUCCESS;
    const auto program =
        loadProgram({desktop, folder, systemRegionalFormats(), clock,
                     [&waiting](const FileError& error) { waiting.waitForFile(error); }},
                    prompts, waiting);
    if (!program) return EXIT_SUCCESS;
    MainWindow window(*program, prompts, waiting);
    window.show();
    program->start();

    application.window = &window;
    onSystemLook(window, [] { applyTheme(systemTheme()); });
    const auto endSession = [&window](QSessionManager& session) {
        if (!window.endSession([&] { return session.allowsInteraction(); })) session.cancel();
        session.release();
    };
    QObject::connect(&application, &QApplication::commitDataRequest, &window, endSession,
                     Qt::DirectConnection);
    // At the end of a session Windows lets nothing come after this.
    QObject::connect(&application, &QApplication::aboutToQuit, [&home] { home.leave(); });
#ifndef _WIN32
    onEndSignals(window, [&window] { window.end(); });
#endif
    const auto answer = [&] {
        const auto called = home.wasCalled();
        if (!called) return;
        window.comeToFront();
        if (!called->empty()) window.offerImport(*called);
    };
    QFileSystemWatcher door({pathToQt(Program::homeFolderIn(folder))});
    QObject::connect(&door, &QFileSystemWatcher::directoryChanged, &window, answer);
    answer();
    if (!file.empty()) window.offerImport(file);
    return QApplication::exec();
}
