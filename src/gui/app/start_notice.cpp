#include "gui/app/start_notice.h"

#include "gui/platform/boxes.h"
#include "gui/platform/qt_text.h"

namespace bramblet {

std::unique_ptr<Program> loadProgram(const Environment& environment, Prompts& prompts,
                                     Waiting& waiting) {
    // It has no close button: Stop waiting is the way out.
    QWidget notice(nullptr, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
    notice.setObjectName(u"StartNotice"_s);
    notice.setWindowTitle(u"Bramblet"_s);
    auto* line = new QLabel;
    line->setTextFormat(Qt::PlainText);
    fill(&notice, row(16, {grow(line), waiting.makeStopButton()}), QMargins(16, 14, 16, 14));
    QObject::connect(&waiting, &Waiting::began, &notice, [&notice, line](const QString& awaited) {
        line->setText(awaited);
        notice.show();
        notice.raise();
        notice.activateWindow();
    });
    QObject::connect(&waiting, &Waiting::ended, &notice, &QWidget::hide);
    try {
        return std::make_unique<Program>(environment, prompts);
    } catch (const StartGivenUp&) {
        return nullptr;
    }
}

}  // namespace bramblet
