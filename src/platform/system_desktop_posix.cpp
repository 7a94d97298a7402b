#include "platform/qt_text.h"
#include "platform/system_desktop.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QProcess>
#include <QTimer>

namespace bramblet {
namespace {

constexpr int kPatience = 8000;  // milliseconds
// Exit code of the xdg tools when a program that they need is missing.
constexpr int kToolMissing = 3;

struct Run {
    bool started = false;
    /// Still going after the patience ran out: with these tools, the program that was wanted.
    bool stillRunning = false;
    int exitCode = 0;
    QString output;

    bool succeeded() const { return started && (stillRunning || exitCode == 0); }
};

/// Runs a tool to its end, the windows alive meanwhile, but no longer than the patience lasts; the
/// tool then goes on by itself.
Run run(const char* tool, const QStringList& arguments) {
    auto* process = new QProcess(QCoreApplication::instance());
    QObject::connect(process, &QProcess::finished, process, &QObject::deleteLater);
    QEventLoop loop;
    Run run;
    QObject::connect(process, &QProcess::finished, &loop, [&](int exitCode) {
        run.exitCode = exitCode;
        run.output = QString::fromUtf8(process->readAllStandardOutput()).trimmed();
        loop.quit();
    });
    process->start(QLatin1String(tool), arguments, QIODevice::ReadOnly);
    run.started = process->waitForStarted();
    if (!run.started) {
        process->deleteLater();
        return run;
    }
    QTimer::singleShot(kPatience, &loop, &QEventLoop::quit);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    run.stillRunning = process->state() != QProcess::NotRunning;
    return run;
}

}  // namespace

std::string SystemDesktop::programFor(const std::string& path) {
    const Run type =
        run("xdg-mime", {QStringLiteral("query"), QStringLiteral("filetype"), pathToQt(path)});
    if (!type.succeeded() || type.output.isEmpty()) return {};
    const Run program =
        run("xdg-mime", {QStringLiteral("query"), QStringLiteral("default"), type.output});
    return program.succeeded() ? fromQt(program.output) : std::string();
}

bool SystemDesktop::openWith(const std::string&, const std::string& target) {
    return run("xdg-open", {pathToQt(target)}).succeeded();
}

bool SystemDesktop::open(const std::string& path) {
    return run("xdg-open", {pathToQt(path)}).succeeded();
}

MailResult SystemDesktop::compose(const Mail& mail) {
    QStringList arguments{QStringLiteral("--utf8"), QStringLiteral("--subject"), toQt(mail.subject),
                          QStringLiteral("--body"), toQt(mail.text)};
    for (const auto& attachment : mail.attachments) {
        arguments << QStringLiteral("--attach") << pathToQt(attachment);
    }
    const Run mailer = run("xdg-email", arguments);
    if (!mailer.started || mailer.exitCode == kToolMissing) return MailResult::NoMailProgram;
    return mailer.succeeded() ? MailResult::HandedOver : MailResult::Failed;
}

bool SystemDesktop::openHelpFile(const std::string&) {
    return false;
}

}  // namespace bramblet
