#include "gui/app/start_notice.h"

#include "gui/platform/literals.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

namespace bramblet {

// It has no close button: Stop waiting is the way out.
StartNotice::StartNotice(Waiting& waiting)
    : QWidget(nullptr, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      line_(new QLabel) {
    setObjectName(u"StartNotice"_s);
    setWindowTitle(u"Bramblet"_s);
    line_->setTextFormat(Qt::PlainText);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(16, 14, 16, 14);
    layout->setSpacing(16);
    layout->addWidget(line_, 1);
    layout->addWidget(waiting.makeStopButton());
    connect(&waiting, &Waiting::began, this, &StartNotice::showLine);
    connect(&waiting, &Waiting::ended, this, &QWidget::hide);
}

void StartNotice::showLine(const QString& line) {
    line_->setText(line);
    show();
    raise();
    activateWindow();
}

std::unique_ptr<Program> loadProgram(const Environment& environment, Prompts& prompts,
                                     Waiting& waiting) {
    const StartNotice notice(waiting);
    try {
        return std::make_unique<Program>(environment, prompts);
    } catch (const StartGivenUp&) {
        return nullptr;
    }
}

}  // namespace bramblet
