#include "platform/boxes.h"

#include "platform/icons.h"
#include "platform/qt_text.h"

#include <QCompleter>
#include <QPlainTextEdit>
#include <QTextCursor>
#include <QTextDocument>
#include <QWheelEvent>

namespace bramblet {
namespace {

class HistoryBox : public QComboBox {
  protected:
    /// Scrolling past must not change an order.
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

}  // namespace

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
    auto* box = new HistoryBox;
    box->setObjectName(QLatin1String(name));
    box->setAccessibleName(accessibleName);
    box->setEditable(true);
    box->setInsertPolicy(QComboBox::NoInsert);
    // Qt's own handling of a finished edit would pick the entry that matches but for letter case.
    QObject::disconnect(box->lineEdit(), &QLineEdit::editingFinished, box, nullptr);
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
    // The keys go on from the entry that is shown.
    const int shown = box->findText(toQt(text), Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (box->currentIndex() != shown) {
        const int cursor = box->lineEdit()->cursorPosition();
        box->setCurrentIndex(shown);
        showText(box->lineEdit(), text);
        if (box->hasFocus()) box->lineEdit()->setCursorPosition(cursor);
    }
    showText(box->lineEdit(), text);
}

QString linesIn(const QPlainTextEdit* box) {
    // toPlainText would make no-break blanks plain ones.
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
