#include "gui/platform/undo_key.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextDocument>

namespace bramblet {
namespace {

bool hasTypingToUndo(const QObject* box) {
    if (const auto* text = qobject_cast<const QPlainTextEdit*>(box))
        return text->document()->isUndoAvailable();
    const auto* list = qobject_cast<const QComboBox*>(box);
    const auto* line = list != nullptr ? list->lineEdit() : qobject_cast<const QLineEdit*>(box);
    return line != nullptr && line->isUndoAvailable();
}

}  // namespace

void UndoKey::watch(const QWidget& widget) {
    for (QComboBox* box : widget.findChildren<QComboBox*>())
        box->installEventFilter(this);
    for (QLineEdit* box : widget.findChildren<QLineEdit*>())
        box->installEventFilter(this);
    for (QPlainTextEdit* box : widget.findChildren<QPlainTextEdit*>())
        box->installEventFilter(this);
}

/// A box claims its keys before the shortcuts of the window are looked at, this one even if it has
/// no use for it.
bool UndoKey::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::ShortcutOverride) return false;
    const auto* const key = static_cast<QKeyEvent*>(event);
    if (!key->matches(QKeySequence::Undo) || hasTypingToUndo(watched)) return false;
    event->ignore();
    return true;
}

}  // namespace bramblet
