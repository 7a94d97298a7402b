#include "gui/platform/boxes.h"

#include "gui/platform/icons.h"
#include "gui/platform/literals.h"
#include "gui/platform/qt_text.h"
#include "gui/platform/theme.h"

#include <QPlainTextEdit>
#include <QTextCursor>
#include <QTextDocument>

namespace bramblet {
QLabel* boxLabel(const QString& caption, QWidget* buddy) {
    auto* label = new QLabel(caption);
    label->setBuddy(buddy);
    label->setObjectName(buddy->objectName() + u"Label"_s);
    return label;
}

QToolButton* toolButton(const char* name, Drawing drawing, const QString& caption,
                        const QString& tip) {
    auto* button = new QToolButton;
    button->setObjectName(QLatin1String(name));
    button->setIcon(icon(drawing));
    button->setToolTip(tip);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    if (caption.isEmpty()) {
        button->setAccessibleName(tip);
    } else {
        button->setText(caption);
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    }
    return button;
}

namespace {

void show(QLineEdit* box, const QString& wanted) {
    if (box->text() == wanted) return;
    const int cursor = box->cursorPosition();
    const QSignalBlocker quiet(box);
    box->setText(wanted);
    box->setCursorPosition(box->hasFocus() ? cursor : 0);
}

}  // namespace

void showText(QLineEdit* box, const std::string& text) {
    show(box, toQt(text));
}

void showPath(QLineEdit* box, const std::filesystem::path& path) {
    show(box, pathToQt(path));
}

void markRefused(QLineEdit* box, bool refused) {
    QPalette palette;
    if (refused) palette.setColor(QPalette::Base, refusedColour());
    box->setPalette(palette);
}

QString linesIn(const QPlainTextEdit* box) {
    // toPlainText would turn no-break spaces into ordinary ones.
    QString lines = box->document()->toRawText();
    return lines.replace(QChar::ParagraphSeparator, QLatin1Char('\n'))
        .replace(QChar::LineSeparator, QLatin1Char('\n'));
}

void showText(QPlainTextEdit* box, const std::string& lines) {
    const QString wanted = linesToQt(lines);
    if (linesIn(box) == wanted) return;
    const int position = box->textCursor().position();
    const QSignalBlocker quiet(box);
    box->setPlainText(wanted);
    if (!box->hasFocus()) return;
    QTextCursor cursor = box->textCursor();
    cursor.setPosition(qMin(position, static_cast<int>(wanted.size())));
    box->setTextCursor(cursor);
}

}  // namespace bramblet
