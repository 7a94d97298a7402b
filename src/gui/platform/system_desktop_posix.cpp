#include "gui/platform/literals.h"
#include "gui/platform/qt_text.h"
#include "gui/platform/system_desktop.h"

#include <QEventLoop>
#include <QProcess>
#include <QTimer>

namespace bramblet {
namespace {

// Milliseconds. A tool that answers a question is quick; one that opens something may turn into the
// program that it opens.
constexpr int kAnswerPatience = 8000;
constexpr int kOpenPatience = 1500;
// Exit code of the xdg tools when a program they need is missing.
constexpr int kToolMissing = 3;

/// A tool run to its end, or until our patience runs out; the windows stay alive meanwhile.
class Tool {
  public:
    Tool(const char* name, const QStringList& arguments) : process_(new QProcess) {
        QObject::connect(process_, &QProcess::finished, process_, &QObject::deleteLater);
        process_->setProgram(QLatin1String(name));
        process_->setArguments(arguments);
    }

    /// What it writes; empty if it fails.
    QString answer() {
        QObject::connect(process_, &QProcess::readyReadStandardOutput, &receiver_, [this] {
            output_ += QString::fromUtf8(process_->readAllStandardOutput());
        });
        run(kAnswerPatience);
        output_ = output_.trimmed();
        return succeeded() ? output_ : QString();
    }

    /// The tool and what it opens live on without us: nothing connects them to this program, and a
    /// process that is still running is never waited for again, nor ended with this program.
    void open() {
        process_->setStandardInputFile(QProcess::nullDevice());
        process_->setStandardOutputFile(QProcess::nullDevice());
        process_->setStandardErrorFile(QProcess::nullDevice());
        run(kOpenPatience);
    }

    bool started() const { return started_; }
    int exitCode() const { return exitCode_; }
    bool succeeded() const { return started_ && exitCode_ == 0; }

  private:
    void run(int patience) {
        QEventLoop loop;
        QObject::connect(process_, &QProcess::finished, &loop, [&](int exitCode) {
            exitCode_ = exitCode;
            loop.quit();
        });
        process_->start(QIODevice::ReadOnly);
        started_ = process_->waitForStarted();
        if (!started_) {
            process_->deleteLater();
            return;
        }
        QTimer::singleShot(patience, &loop, &QEventLoop::quit);
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    }

    QProcess* process_;  ///< owns itself, since it may outlive the Tool
    QObject receiver_;   ///< goes with the Tool, and its connections with it
    bool started_ = false;
    int exitCode_ = 0;
    QString output_;
};

bool opens(const QString& target) {
    Tool tool("xdg-open", {target});
    tool.open();
    return tool.succeeded();
}

}  // namespace

std::filesystem::path SystemDesktop::programFor(const std::filesystem::path& path) {
    const auto query = [](const char* what, const QString& about) {
        return Tool("xdg-mime", {u"query"_s, QLatin1String(what), about}).answer();
    };
    const QString type = query("filetype", pathToQt(path));
    return type.isEmpty() ? std::filesystem::path() : pathFromQt(query("default", type));
}

bool SystemDesktop::openWith(const std::filesystem::path&, const std::string& address) {
    return opens(toQt(address));
}

bool SystemDesktop::open(const std::filesystem::path& path) {
    return opens(pathToQt(path));
}

MailResult SystemDesktop::compose(const Mail& mail) {
    QStringList arguments{u"--utf8"_s, u"--subject"_s, toQt(mail.subject), u"--body"_s,
                          toQt(mail.text)};
    for (const auto& attachment : mail.attachments) {
        arguments << u"--attach"_s << pathToQt(attachment);
    }
    Tool mailer("xdg-email", arguments);
    mailer.open();
    if (!mailer.started() || mailer.exitCode() == kToolMissing) return MailResult::NoMailProgram;
    return mailer.succeeded() ? MailResult::HandedOver : MailResult::Failed;
}

bool SystemDesktop::openHelpFile(const std::filesystem::path&) {
    return false;
}

}  // namespace bramblet
