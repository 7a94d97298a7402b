#include "gui/platform/history_box.h"

#include "gui/platform/qt_text.h"

#include <QApplication>
#include <QCompleter>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QStringListModel>

#include <utility>

namespace bramblet {
namespace {

bool isShiftDelete(const QKeyEvent& event) {
    return event.key() == Qt::Key_Delete && event.modifiers() == Qt::ShiftModifier;
}

}  // namespace

HistoryBox::HistoryBox(const char* name, const QString& accessibleName, const QString& tip)
    : model_(new QStringListModel(this)) {
    setObjectName(QLatin1String(name));
    setToolTip(tip);
    setModel(model_);
    setEditable(true);
    for (QWidget* told : {static_cast<QWidget*>(this), static_cast<QWidget*>(lineEdit())})
        told->setAccessibleName(QString(accessibleName).remove(u'&'));  // it may be a caption
    setInsertPolicy(NoInsert);
    // Qt's own handling of a finished edit would pick an entry that differs only in letter case.
    disconnect(lineEdit(), &QLineEdit::editingFinished, this, nullptr);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(8);
    completer()->setCompletionMode(QCompleter::PopupCompletion);
    completer()->setCaseSensitivity(Qt::CaseInsensitive);
}

/// Its two lists are made when they are first needed: a window has many boxes.
void HistoryBox::makeLists() {
    if (std::exchange(listsMade_, true)) return;
    for (QAbstractItemView* list : {view(), completer()->popup()}) {
        // Long lists open at once if every row is known to be as high as the first.
        qobject_cast<QListView*>(list)->setUniformItemSizes(true);
        list->installEventFilter(this);
    }
}

void HistoryBox::offerToForget(std::function<MayForget> mayForget) {
    mayForget_ = std::move(mayForget);
    lineEdit()->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(lineEdit(), &QWidget::customContextMenuRequested, this,
            [this](const QPoint& place) { openMenu(lineEdit()->mapToGlobal(place)); });
    lineEdit()->installEventFilter(this);
}

void HistoryBox::suggestFromInside() {
    completer()->setFilterMode(Qt::MatchContains);
}

void HistoryBox::setEntries(const std::vector<std::string>& entries) {
    if (entries == entries_) return;
    entries_ = entries;
    QStringList texts;
    texts.reserve(static_cast<qsizetype>(entries.size()));
    for (const auto& entry : entries)
        texts.append(toQt(entry));
    keepingText([&] {
        model_->setStringList(texts);
        setCurrentIndex(-1);
    });
}

/// Changes the list, or the place in it, but neither the text shown nor what of it is selected.
void HistoryBox::keepingText(const std::function<void()>& change) {
    const QSignalBlocker quiet(this);
    const QString shown = currentText();
    const int cursor = lineEdit()->cursorPosition();
    const int selected = lineEdit()->selectionStart();
    const int length = lineEdit()->selectionLength();
    change();
    setEditText(shown);
    lineEdit()->setCursorPosition(cursor);
    if (selected >= 0) lineEdit()->setSelection(selected, length);
}

void HistoryBox::showPopup() {
    makeLists();
    emit opening();
    goToShownEntry();
    QComboBox::showPopup();
}

bool HistoryBox::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (watched == completer()->popup()) {
            const bool pointedAt = completer()->popup()->currentIndex().isValid();
            if (pointedAt && key->key() == Qt::Key_Tab) return takeSuggestion();
            if (pointedAt && isShiftDelete(*key)) return forgetSuggestion();
        } else if (takesKey(*key)) {
            return true;
        }
    }
    return QComboBox::eventFilter(watched, event);
}

/// Tab takes the highlighted suggestion, as Enter does, and goes on to the next box.
bool HistoryBox::takeSuggestion() {
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QApplication::sendEvent(completer()->popup(), &enter);
    focusNextChild();
    return true;
}

/// Forgets the highlighted suggestion; the others stay, with the one that moved up highlighted.
bool HistoryBox::forgetSuggestion() {
    QAbstractItemView* const popup = completer()->popup();
    const int row = popup->currentIndex().row();
    const QString entry = popup->currentIndex().data().toString();
    if (!mayForget_ || !mayForget_(entry)) return false;
    emit forget(entry);
    completer()->setCompletionPrefix(currentText());  // the list has changed
    const int left = currentText().isEmpty() ? 0 : completer()->completionCount();
    if (left == 0) {
        popup->hide();
        return true;
    }
    completer()->complete();
    popup->setCurrentIndex(completer()->completionModel()->index(qMin(row, left - 1), 0));
    return true;
}

void HistoryBox::keyPressEvent(QKeyEvent* event) {
    if (takesKey(*event)) return;
    if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down) goToShownEntry();
    QComboBox::keyPressEvent(event);
}

/// The arrow keys and the opened list start from the entry whose text is shown, if there is one.
void HistoryBox::goToShownEntry() {
    keepingText([this] {
        setCurrentIndex(findText(currentText(), Qt::MatchExactly | Qt::MatchCaseSensitive));
    });
}

/// Shift+Delete forgets an entry, unless only part of the text is selected; then it cuts, as usual.
bool HistoryBox::takesKey(const QKeyEvent& event) {
    if (!isShiftDelete(event) || !mayForget_) return false;
    const int row = view()->currentIndex().row();
    const bool open = view()->isVisible();
    const QString selected = lineEdit()->selectedText();
    if (!open && !selected.isEmpty() && selected != currentText()) return false;  // cuts it
    const QString entry = open && row >= 0 ? itemText(row) : currentText();
    if (!mayForget_(entry)) return false;
    if (entry.isEmpty()) return true;
    emit forget(entry);
    // In the open list, the highlight goes to the entry that moved up.
    if (open) view()->setCurrentIndex(model()->index(qMin(row, count() - 1), 0));
    return true;
}

void HistoryBox::focusInEvent(QFocusEvent* event) {
    makeLists();
    QComboBox::focusInEvent(event);
    // On getting the focus, the line edit begins to show a suggestion that is only highlighted as
    // if it had been taken.
    disconnect(completer(), qOverload<const QString&>(&QCompleter::highlighted), lineEdit(),
               nullptr);
    emit focused();
}

void HistoryBox::contextMenuEvent(QContextMenuEvent* event) {
    if (!mayForget_) return QComboBox::contextMenuEvent(event);
    openMenu(event->globalPos());
}

/// The usual menu of a box, except that "Delete" forgets the entry shown.
void HistoryBox::openMenu(const QPoint& place) {
    QMenu* const menu = lineEdit()->createStandardContextMenu();
    menu->setObjectName(u"EditPop"_s);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (QAction* entry : menu->actions()) {
        if (entry->text() != u"Delete"_s) continue;
        entry->setObjectName(u"EditPop_Delete"_s);
        if (!mayForget_(currentText())) continue;
        disconnect(entry, nullptr, lineEdit(), nullptr);
        entry->setShortcut(QKeySequence(u"Shift+Del"_s));
        entry->setEnabled(!currentText().isEmpty());
        connect(entry, &QAction::triggered, this, [this] { emit forget(currentText()); });
    }
    menu->addSeparator();
    menu->addActions(actions());
    menu->popup(place);
}

/// Scrolling past must not change an order.
void HistoryBox::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

}  // namespace bramblet
