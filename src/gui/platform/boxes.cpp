#include "gui/platform/boxes.h"

#include "gui/platform/history_box.h"
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

QLabel* quietLabel(const char* name, const QString& tip) {
    auto* label = new QLabel;
    label->setObjectName(QLatin1String(name));
    label->setToolTip(tip);
    label->setForegroundRole(QPalette::PlaceholderText);
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

QLineEdit* lineEdit(const char* name, const QString& tip, int limit) {
    auto* box = new QLineEdit;
    box->setObjectName(QLatin1String(name));
    box->setToolTip(tip);
    if (limit > 0) box->setMaxLength(limit);
    return box;
}

void showOnly(QLineEdit* box) {
    box->setReadOnly(true);
    box->setFocusPolicy(Qt::ClickFocus);
    QPalette plain = box->palette();
    plain.setBrush(QPalette::Base, plain.window());
    box->setPalette(plain);
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

void BoundBoxes::bind(QLineEdit* box, Held held, const Typed& typed) {
    QObject::connect(box, &QLineEdit::textEdited, box,
                     [typed](const QString& text) { typed(fromQt(text)); });
    shows_.push_back([box, held = std::move(held)] { showText(box, held()); });
}

void BoundBoxes::bind(HistoryBox* box, Held held, const Typed& typed) {
    bind(box->lineEdit(), std::move(held), typed);
    QObject::connect(box, &QComboBox::textActivated, box,
                     [typed](const QString& text) { typed(fromQt(text)); });
}

void BoundBoxes::refresh() const {
    for (const auto& show : shows_)
        show();
}

}  // namespace bramblet
