#include "platform/boxes.h"

#include "platform/icons.h"
#include "platform/qt_text.h"

#include <QCompleter>
#include <QPlainTextEdit>
#include <QTextCursor>

namespace bramblet {

QLabel* boxLabel(const QString& caption, QWidget* buddy) {
    auto* label = new QLabel(caption);
    label->setBuddy(buddy);
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

QComboBox* historyBox(const char* name, const QString& accessibleName) {
    auto* box = new QComboBox;
    box->setObjectName(QLatin1String(name));
    box->setAccessibleName(accessibleName);
    box->setEditable(true);
    box->setInsertPolicy(QComboBox::NoInsert);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(8);
    box->completer()->setCompletionMode(QCompleter::PopupCompletion);
    box->completer()->setCaseSensitivity(Qt::CaseInsensitive);
    return box;
}

void showText(QLineEdit* box, const std::string& text) {
    const QString wanted = toQt(text);
    if (box->text() == wanted) return;
    const int cursor = box->cursorPosition();
    const QSignalBlocker quiet(box);
    box->setText(wanted);
    box->setCursorPosition(box->hasFocus() ? cursor : 0);
}

void showText(QComboBox* box, const std::string& text) {
    const QSignalBlocker quiet(box);
    showText(box->lineEdit(), text);
}

void showText(QPlainTextEdit* box, const std::string& lines) {
    const QString wanted = linesToQt(lines);
    if (box->toPlainText() == wanted) return;
    const int position = box->textCursor().position();
    const QSignalBlocker quiet(box);
    box->setPlainText(wanted);
    if (!box->hasFocus()) return;
    QTextCursor cursor = box->textCursor();
    cursor.setPosition(qMin(position, static_cast<int>(wanted.size())));
    box->setTextCursor(cursor);
}

}  // namespace bramblet
