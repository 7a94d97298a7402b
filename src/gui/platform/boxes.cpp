#include "gui/platform/boxes.h"

#include "gui/platform/history_box.h"
#include "gui/platform/icons.h"
#include "gui/platform/qt_text.h"
#include "gui/platform/theme.h"

#include <QApplication>
#include <QHelpEvent>
#include <QMenu>
#include <QPainter>
#include <QPlainTextEdit>
#include <QStyle>
#include <QTextCursor>
#include <QTextDocument>
#include <QToolTip>

namespace bramblet {

QLabel* boxLabel(const QString& caption, QWidget* buddy) {
    auto* label = new QLabel(caption);
    label->setBuddy(buddy);
    // The letter underlined is painted by itself: what kerning saves in the caption as a whole, for
    // which a label makes room, would be cut off at its end.
    if (const auto mark = caption.indexOf(u'&'); mark >= 0) {
        const QFontMetrics letters = label->fontMetrics();
        label->setMinimumWidth(letters.horizontalAdvance(caption.left(mark)) +
                               letters.horizontalAdvance(caption.mid(mark + 1, 1)) +
                               letters.horizontalAdvance(caption.mid(mark + 2)));
    }
    label->setObjectName(buddy->objectName() + u"Label"_s);
    return label;
}

QLabel* namedLabel(const char* name, const QString& tip) {
    auto* label = new QLabel;
    label->setObjectName(QLatin1String(name));
    label->setToolTip(tip);
    return label;
}

QLabel* quietLabel(const char* name, const QString& tip) {
    auto* label = namedLabel(name, tip);
    label->setForegroundRole(QPalette::PlaceholderText);
    return label;
}

namespace {

class ElidedLabel : public QLabel {
  public:
    explicit ElidedLabel(Qt::TextElideMode mode) : mode_(mode) {}
    QSize minimumSizeHint() const override {
        return {qMin(fontMetrics().averageCharWidth() * kLeastShown, sizeHint().width()),
                QLabel::minimumSizeHint().height()};
    }

  protected:
    bool event(QEvent* event) override {
        if (event->type() != QEvent::ToolTip || !toolTip().isEmpty()) return QLabel::event(event);
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text(), this);
        return true;
    }
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const QString line = fontMetrics().elidedText(text(), mode_, width());
        style()->drawItemText(&painter, rect(), alignment(), palette(), isEnabled(), line,
                              foregroundRole());
    }

  private:
    static constexpr int kLeastShown = 6;  // characters

    const Qt::TextElideMode mode_;
};

}  // namespace

QLabel* elidedLabel(const char* name, Qt::TextElideMode mode) {
    auto* label = new ElidedLabel(mode);
    label->setObjectName(QLatin1String(name));
    return label;
}

QToolButton* toolButton(const char* name, Drawing drawing, const QString& caption,
                        const QString& tip, const Command& command) {
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
    QObject::connect(button, &QToolButton::clicked, button, command);
    return button;
}

QToolButton* edgedButton(const char* name, Drawing drawing, const QString& caption,
                         const QString& tip, const Command& command) {
    auto* button = toolButton(name, drawing, caption, tip, command);
    button->setAutoRaise(false);
    return button;
}

QAction* addEntry(QMenu* menu, const char* name, const QString& caption, const QKeySequence& keys,
                  const Command& command) {
    QAction* entry = menu->addAction(caption);
    entry->setObjectName(QLatin1String(name));
    entry->setShortcut(keys);
    QObject::connect(entry, &QAction::triggered, entry, command);
    return entry;
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
    recolour(box, [](QPalette& plain) { plain.setBrush(QPalette::Base, plain.window()); });
}

Part gap(int pixels) {
    return Part([=](QBoxLayout& box) { box.addSpacing(pixels); });
}

Part spring() {
    return Part([](QBoxLayout& box) { box.addStretch(1); });
}

namespace {

QBoxLayout* line(QBoxLayout::Direction direction, int spacing, std::initializer_list<Part> parts) {
    auto* line = new QBoxLayout(direction);
    line->setSpacing(spacing);
    for (const Part& part : parts)
        part.addTo(*line);
    return line;
}

}  // namespace

QBoxLayout* row(int spacing, std::initializer_list<Part> parts) {
    return line(QBoxLayout::LeftToRight, spacing, parts);
}

QBoxLayout* column(int spacing, std::initializer_list<Part> parts) {
    return line(QBoxLayout::TopToBottom, spacing, parts);
}

QWidget* fill(QWidget* widget, QLayout* layout, const QMargins& margins) {
    layout->setContentsMargins(margins);
    widget->setLayout(layout);
    return widget;
}

void showText(QLineEdit* box, const QString& text) {
    if (box->text() == text) return;
    const int cursor = box->cursorPosition();
    const QSignalBlocker quiet(box);
    box->setText(text);
    box->setCursorPosition(box->hasFocus() ? cursor : 0);
}

void markRefused(QLineEdit* box, bool refused) {
    recolour(box, [refused](QPalette& tinted) {
        const QColor base = tinted.color(QPalette::Base);
        if (refused) tinted.setColor(QPalette::Base, blend(base, QColor("#d03030"), 0.3));
    });
}

QString linesIn(const QPlainTextEdit* box) {
    // toPlainText would turn no-break spaces into ordinary ones.
    QString lines = box->document()->toRawText();
    return lines.replace(QChar::ParagraphSeparator, QLatin1Char('\n'))
        .replace(QChar::LineSeparator, QLatin1Char('\n'));
}

void showText(QPlainTextEdit* box, const QString& lines) {
    if (linesIn(box) == lines) return;
    const int position = box->textCursor().position();
    const QSignalBlocker quiet(box);
    box->setPlainText(lines);
    if (!box->hasFocus()) return;
    QTextCursor cursor = box->textCursor();
    cursor.setPosition(qMin(position, static_cast<int>(lines.size())));
    box->setTextCursor(cursor);
}

void BoundBoxes::bind(QLineEdit* box, Held held, const Typed& typed) {
    QObject::connect(box, &QLineEdit::textEdited, box,
                     [typed](const QString& text) { typed(fromQt(text)); });
    shows_.push_back([box, held = std::move(held)] { showText(box, toQt(held())); });
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
