#include "gui/platform/loss_hint.h"

#include "gui/platform/qt_text.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextBlock>
#include <QTextDocument>

namespace bramblet {
namespace {

/// The character, or its number if it cannot be seen.
QString named(char32_t character) {
    if (QChar::isPrint(character) && !QChar::isMark(character))
        return u"\"%1\""_s.arg(QString::fromUcs4(&character, 1));
    const QString number = QString::number(static_cast<uint>(character), 16).toUpper();
    return u"U+%1"_s.arg(number, 4, QLatin1Char('0'));
}

}  // namespace

QString lossIn(const QString& text) {
    const auto lost = firstLost(text);
    if (!lost) return {};
    return u"Orders cannot hold the character %1: it becomes \"?\"."_s.arg(named(*lost));
}

void LossHint::watch(const QWidget& widget) {
    for (QLineEdit* box : widget.findChildren<QLineEdit*>())
        connect(box, &QLineEdit::textEdited, this, [this](const QString& t) { look(t); });
    for (QPlainTextEdit* box : widget.findChildren<QPlainTextEdit*>()) {
        const QTextDocument* document = box->document();
        // By the time of `textChanged` the box may show the text as it is held.
        connect(
            document, &QTextDocument::contentsChange, this,
            [this, document](int place, int, int added) { lookAtBlocks(*document, place, added); });
    }
}

/// Whole lines, since an accent belongs to the letter before it.
void LossHint::lookAtBlocks(const QTextDocument& document, int place, int length) {
    QTextBlock block = document.findBlock(place);
    for (; !told_ && block.isValid() && block.position() <= place + length; block = block.next())
        look(block.text());
}

void LossHint::look(const QString& text) {
    if (told_) return;
    const QString line = lossIn(text);
    if (!line.isEmpty()) told_ = tell_(line);
}

}  // namespace bramblet
