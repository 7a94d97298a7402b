#include "gui/platform/find_box.h"

#include "gui/platform/qt_text.h"

#include <QApplication>
#include <QKeyEvent>

namespace bramblet {
namespace {

constexpr int kLeastCharacters = 14;
constexpr int kMostCharacters = 26;

}  // namespace

FindBox::FindBox(const char* name) {
    setObjectName(QLatin1String(name));
    setAccessibleName(u"Find in the list"_s);
    setPlaceholderText(u"Find (Ctrl+F)"_s);
    setToolTip(
        u"Show only rows that hold all of these words, in any order; Esc shows all again."_s);
    setClearButtonEnabled(true);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget* before, QWidget* now) {
        if (now == this && before != nullptr) before_ = before;
    });
    setMinimumWidth(fontMetrics().averageCharWidth() * kLeastCharacters);
    setMaximumWidth(fontMetrics().averageCharWidth() * kMostCharacters);
}

void FindBox::enter() {
    setFocus(Qt::ShortcutFocusReason);
    selectAll();
}

void FindBox::leave() {
    before_ != nullptr && before_->isVisible() ? before_->setFocus() : void(focusNextChild());
}

void FindBox::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    emit entered();
}

void FindBox::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Escape:
            emit allWanted();
            return text().isEmpty() ? leave() : clear();
        case Qt::Key_Down:
        case Qt::Key_Return:
        case Qt::Key_Enter:
            emit listWanted();
            return;
        default:
            QLineEdit::keyPressEvent(event);
    }
}

}  // namespace bramblet
