// Being ended from outside: by a signal, in the middle of anything, and by a second start.

#include "gui/desk.h"
#include "gui/platform/end_signals.h"

#include <QProcess>

#include <csignal>

namespace bramblet::test {
namespace {

constexpr int kPatience = 10000;  // milliseconds

/// Names of the files and folders in a folder.
QStringList namesIn(const std::filesystem::path& folder) {
    return QDir(pathToQt(folder)).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden);
}

class EndSignals : public Desk {
  protected:
    void SetUp() override {
        Desk::SetUp();
        newOrder();
    }
    void TearDown() override {
        for (const int number : {SIGTERM, SIGHUP, SIGINT})
            std::signal(number, SIG_DFL);
        Desk::TearDown();
    }
    QStringList kept() const { return namesIn(program->folder.DataPath() / "kept"); }
    /// Runs the program until `command` has ended it.
    void expectKeptAfter(const std::function<void()>& command) {
        std::filesystem::remove_all(program->folder.DataPath() / "kept");
        driver->clickCell("POGrid", 0, 0);
        type("JobNumberEd", text("JobNumberEd") + "1");
        onEndSignals(*window, [this] { window->end(); });
        QTimer::singleShot(0, window.get(), command);
        QTimer::singleShot(kPatience, window.get(), [] { QApplication::exit(1); });
        EXPECT_EQ(QApplication::exec(), 0);
        EXPECT_EQ(kept(), QStringList{"000001 unsaved 2026-03-04 143005.htm"});
        EXPECT_FALSE(program->commands.running());
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
        EXPECT_TRUE(window->isVisible());
        open();
        EXPECT_TRUE(window->statusBar()->currentMessage().contains("kept the unsaved order as"));
    }
};

TEST_F(EndSignals, KeepTheOrderAndTheSettings) {
    program->settings.NumberPrefix = "X-";
    expectKeptAfter([] {
        std::raise(SIGHUP);
        std::raise(SIGHUP);  // a terminal that is closed may send it twice
        std::raise(SIGTERM);
    });
    EXPECT_EQ(trimmedField(program->settings.NumberPrefix), "X-");
}

TEST_F(EndSignals, TheEndOfASessionAsksWhereItMay) {
    const auto mayAsk = [] { return true; };
    EXPECT_TRUE(window->endSession([] { return ADD_FAILURE() << "nothing to ask", true; }));
    type("JobNumberEd", "17");
    driver->answer("Save changes to Bramblet Number 000001 ?", QMessageBox::Cancel);
    EXPECT_FALSE(window->endSession(mayAsk));
    EXPECT_TRUE(kept().isEmpty());
    driver->answer("Save changes to Bramblet Number 000001 ?", QMessageBox::Yes);
    EXPECT_TRUE(window->endSession(mayAsk));
    EXPECT_FALSE(program->open.OrderDirty());
    type("JobNumberEd", "18");
    EXPECT_TRUE(window->endSession([] { return false; }));
    EXPECT_EQ(kept(), QStringList{"000001 unsaved 2026-03-04 143005.htm"});
    open();
}

TEST_F(EndSignals, GiveUpWhatIsUnderWay) {
    const auto inDialogOf = [&](const std::function<void()>& command) {
        driver->onNextDialog([](QWidget&) { std::raise(SIGTERM); });
        command();
    };
    const std::vector<std::pair<const char*, std::function<void()>>> cases{
        {"a question", [&] { inDialogOf([&] { click("NewPO"); }); }},
        {"the question before leaving", [&] { inDialogOf([&] { window->close(); }); }},
        {"a dialog", [&] { inDialogOf([&] { driver->trigger("OrderPop_OneTime"); }); }},
        {"a choice of a file", [&] { inDialogOf([&] { driver->trigger("mu_DataExport"); }); }},
        {"two windows",
         [&] {
             driver->onNextDialog([&](QWidget&) { inDialogOf([&] { click("Preview"); }); });
             click("MakeOrder");
         }},
        {"an open list",
         [&] {
             driver->find<QComboBox>("ToCombo")->showPopup();
             std::raise(SIGTERM);
         }},
        {"waiting for a file",
         [&] {
             obstruct(program->folder.file("000001.htm"));
             QTimer::singleShot(300, window.get(), [] { std::raise(SIGTERM); });
             click("SaveChanges");
         }},
    };
    for (const auto& [underWay, command] : cases) {
        SCOPED_TRACE(underWay);
        expectKeptAfter(command);
    }
}

/// The program itself, as a process, in a home of its own.
class Processes : public ::testing::Test {
  protected:
    void SetUp() override {
        std::filesystem::create_directories(home());
        std::filesystem::permissions(folder.path(), std::filesystem::perms::owner_all);
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char* variable : {"HOME", "XDG_CONFIG_HOME", "XDG_RUNTIME_DIR"})
            environment.insert(variable, pathToQt(folder.path()));
        for (QProcess* process : {&first, &second}) {
            process->setProgram(QStringLiteral(BRAMBLET_PROGRAM));
            process->setProcessEnvironment(environment);
        }
    }
    void TearDown() override {
        for (QProcess* process : {&first, &second}) {
            process->kill();
            process->waitForFinished();
        }
    }
    /// Starts the first one and waits until it answers calls.
    void startFirst() {
        first.start();
        ASSERT_TRUE(first.waitForStarted());
        const std::filesystem::path call = home() / "bramblet.call";
        const auto waitUntil = [](const std::function<bool()>& reached) {
            return QTest::qWaitFor(reached, kPatience);
        };
        ASSERT_TRUE(waitUntil([&] { return namesIn(home()).contains("po_data"); }));
        writeFile(call, "");
        ASSERT_TRUE(waitUntil([&] { return !std::filesystem::exists(call); }));
    }
    std::filesystem::path home() const { return folder / "Documents" / "Quenmoor"; }
    std::filesystem::path sign() const { return home() / "bramblet.open"; }

    TemporaryFolder folder;
    QProcess first, second;
};

TEST_F(Processes, OnOneHomeThereIsOneThatEndsByASignalAndLeavesNothing) {
    startFirst();
    const std::string owner = contentOf(sign());
    EXPECT_TRUE(owner.find(std::to_string(first.processId())) != std::string::npos) << owner;
    second.start();
    ASSERT_TRUE(second.waitForFinished(kPatience));
    EXPECT_EQ(second.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(second.exitCode(), 0);
    EXPECT_EQ(contentOf(sign()), owner);
    first.terminate();
    ASSERT_TRUE(first.waitForFinished(kPatience));
    EXPECT_EQ(first.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(namesIn(home()), (QStringList{"po14.cfg", "po15.cfg", "po_data"}));
}

TEST_F(Processes, ACrashKeepsNobodyOut) {
    startFirst();
    const std::string crashed = contentOf(sign());
    first.kill();
    ASSERT_TRUE(first.waitForFinished());
    EXPECT_EQ(contentOf(sign()), crashed);
    second.start();
    EXPECT_TRUE(QTest::qWaitFor([&] { return contentOf(sign()) != crashed; }, kPatience));
    EXPECT_EQ(second.state(), QProcess::Running);
}

}  // namespace
}  // namespace bramblet::test
