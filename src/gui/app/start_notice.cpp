#include "gui/app/start_notice.h"

#include "gui/platform/literals.h"
#include "gui/platform/qt_text.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

namespace bramblet {

// It has no close button: Stop waiting is the way out.
StartNotice::StartNotice(Waiting& waiting)
    : QWidget(nullptr, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      waiting_(waiting),
      line_(new QLabel) {
    setObjectName(u"StartNotice"_s);
    setWindowTitle(u"Bramblet"_s);
    line_->setTextFormat(Qt::PlainText);
    auto* stop = new QToolButton;
    stop->setObjectName(u"StopWaiting"_s);
    stop->setText(u"Stop waiting"_s);
    stop->setToolTip(u"Give up; the file is left as it is."_s);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(16, 14, 16, 14);
    layout->setSpacing(16);
    layout->addWidget(line_, 1);
    layout->addWidget(stop);
    waiting_.setNotice(
        {[this](const std::string& line) { showLine(line); }, [this] { hide(); }, stop});
}

StartNotice::~StartNotice() {
    waiting_.setNotice({});
}

void StartNotice::showLine(const std::string& line) {
    line_->setText(messageToQt(line));
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
