#include "gui/platform/qt_text.h"
#include "gui/platform/system_desktop.h"
#include "gui/platform/theme.h"

#include <QApplication>
#include <QEvent>
#include <QEventLoop>
#include <QPalette>
#include <QProcess>
#include <QTimer>
#include <QWidget>

#include <utility>

namespace bramblet {
namespace {

// Milliseconds. A tool that answers a question is quick; one that opens something may turn into the
// program that it opens.
constexpr int kAnswerPatience = 8000;
constexpr int kOpenPatience = 1500;
// Exit code of the xdg tools when a program they need is missing.
constexpr int kToolMissing = 3;

/// Sees the event that the system's change of its look sends to each window.
class LookWatch : public QObject {
  public:
    LookWatch(QWidget& window, std::function<void()> changed)
        : QObject(&window), changed_(std::move(changed)) {
        window.installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::ThemeChange) QTimer::singleShot(0, this, changed_);
        return false;
    }

  private:
    std::function<void()> changed_;
};

/// How far a tool got, and what it wrote.
struct Outcome {
    bool started = false;
    int exitCode = 0;
    QByteArray output;

    bool success() const { return started && exitCode == 0; }
};

/// Runs a tool to its end, or until our patience runs out; the windows stay alive meanwhile. The
/// tool and what it opens live on without us: the process owns itself, and one that is still
/// running is never waited for again, nor ended with this program.
Outcome run(QProcess* tool, const char* name, const QStringList& arguments, int patience) {
    Outcome outcome;
    QEventLoop loop;  // the connections to it go with it
    QObject::connect(tool, &QProcess::finished, tool, &QObject::deleteLater);
    QObject::connect(tool, &QProcess::finished, &loop, [&](int exitCode) {
        outcome.exitCode = exitCode;
        loop.quit();
    });
    QObject::connect(tool, &QProcess::readyReadStandardOutput, &loop,
                     [&] { outcome.output += tool->readAllStandardOutput(); });
    tool->start(QLatin1String(name), arguments, QIODevice::ReadOnly);
    outcome.started = tool->waitForStarted();
    if (!outcome.started) {
        tool->deleteLater();
        return outcome;
    }
    QTimer::singleShot(patience, &loop, &QEventLoop::quit);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    return outcome;
}

/// What a tool writes; empty if it fails.
QString answerOf(const char* name, const QStringList& arguments) {
    const Outcome outcome = run(new QProcess, name, arguments, kAnswerPatience);
    return outcome.success() ? QString::fromUtf8(outcome.output).trimmed() : QString();
}

/// Has a tool open something, with nothing that connects the two to this program.
Outcome openWithTool(const char* name, const QStringList& arguments) {
    auto* tool = new QProcess;
    tool->setStandardInputFile(QProcess::nullDevice());
    tool->setStandardOutputFile(QProcess::nullDevice());
    tool->setStandardErrorFile(QProcess::nullDevice());
    return run(tool, name, arguments, kOpenPatience);
}

}  // namespace

Theme systemTheme() {
    QApplication::setPalette(QPalette());
    return themeLike(QApplication::palette());
}

void onSystemLook(QWidget& window, std::function<void()> changed) {
    new LookWatch(window, std::move(changed));
}

std::filesystem::path SystemDesktop::programFor(const std::filesystem::path& path) {
    const QString type = answerOf("xdg-mime", {u"query"_s, u"filetype"_s, pathToQt(path)});
    if (type.isEmpty()) return {};
    return pathFromQt(answerOf("xdg-mime", {u"query"_s, u"default"_s, type}));
}

bool SystemDesktop::openWith(const std::filesystem::path&, const std::string& address) {
    return openWithTool("xdg-open", {toQt(address)}).success();
}

bool SystemDesktop::open(const std::filesystem::path& path) {
    return openWithTool("xdg-open", {pathToQt(path)}).success();
}

MailResult SystemDesktop::compose(const Mail& mail) {
    QStringList arguments{u"--utf8"_s, u"--subject"_s, toQt(mail.subject), u"--body"_s,
                          toQt(mail.text)};
    for (const auto& attachment : mail.attachments)
        arguments << u"--attach"_s << pathToQt(attachment);
    const Outcome mailer = openWithTool("xdg-email", arguments);
    if (!mailer.started || mailer.exitCode == kToolMissing) return MailResult::NoMailProgram;
    return mailer.success() ? MailResult::HandedOver : MailResult::Failed;
}

bool SystemDesktop::openHelpFile(const std::filesystem::path&) {
    return false;
}

}  // namespace bramblet
