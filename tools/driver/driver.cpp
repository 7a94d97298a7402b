#include "driver/driver.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTableView>
#include <QTest>

#include <algorithm>
#include <cstdlib>
#include <iostream>

namespace bramblet {
namespace {

constexpr int kWatchEvery = 20;      // milliseconds
constexpr int kPatience = 3000;      // for a dialog that nobody expects
constexpr int kLastPatience = 6000;  // before giving up on one that does not close

}  // namespace

Driver::Driver(QWidget& window) : window_(window) {
    complain = [](const QString& complaint) { std::cerr << qPrintable(complaint) << std::endl; };
    QObject::connect(&watch_, &QTimer::timeout, [this] { lookForDialog(); });
    watch_.start(kWatchEvery);
}

QWidget* Driver::control(const QString& name) const {
    QWidgetList places = QApplication::topLevelWidgets();
    places.prepend(&window_);
    if (QWidget* const modal = QApplication::activeModalWidget()) places.prepend(modal);
    for (QWidget* place : places) {
        if (place->objectName() == name) return place;
        if (auto* found = place->findChild<QWidget*>(name)) return found;
    }
    giveUp("There is no " + name);
}

void Driver::click(const QString& button) {
    QWidget* const target = control(button);
    if (!target->isEnabled()) complain(button + " is disabled");
    leaveList(target);
    QTest::mouseClick(target, Qt::LeftButton);
    settle();
}

void Driver::doubleClick(const QString& name) {
    QWidget* const target = control(name);
    leaveList(target);
    QTest::mouseDClick(target, Qt::LeftButton);
    settle();
}

void Driver::type(const QString& box, const QString& text) {
    QWidget* const target = control(box);
    focus(target);
    QTest::keySequence(target, QKeySequence::SelectAll);
    if (text.isEmpty()) QTest::keyClick(target, Qt::Key_Delete);
    for (const QChar c : text) {
        if (c == '\n') {
            QTest::keyClick(target, Qt::Key_Return);
        } else {
            QTest::sendKeyEvent(QTest::Click, target, Qt::Key_unknown, QString(c), Qt::NoModifier);
        }
    }
    settle();
}

void Driver::pick(const QString& comboBox, const QString& entry) {
    auto* const combo = find<QComboBox>(comboBox);
    focus(combo);
    combo->showPopup();
    settle();
    const int index = combo->findText(entry, Qt::MatchExactly);
    if (index < 0) giveUp(entry + " is not in " + comboBox);
    QAbstractItemView* const list = combo->view();
    list->setCurrentIndex(combo->model()->index(index, 0));
    QTest::keyClick(list, Qt::Key_Return);
    settle();
}

/// Going elsewhere closes an open list, such as one of suggestions.
void Driver::leaveList(QWidget* target) {
    QWidget* const popup = QApplication::activePopupWidget();
    if (popup == nullptr || popup == target || popup->isAncestorOf(target)) return;
    popup->close();
    settle();
}

/// Focus and shortcuts work only in the active window.
void Driver::focus(QWidget* target) {
    leaveList(target);
    if (!target->isActiveWindow()) {
        target->window()->activateWindow();
        settle();
    }
    target->setFocus();
}

void Driver::press(const QString& name, Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QWidget* const target = control(name);
    focus(target);
    QTest::keyClick(target, key, modifiers);
    settle();
}

void Driver::trigger(const QString& action) {
    auto* const found = window_.findChild<QAction*>(action);
    if (found == nullptr) giveUp("There is no command " + action);
    if (!found->isEnabled()) complain(action + " is disabled");
    found->trigger();
    settle();
}

void Driver::clickCell(const QString& grid, int row, int column, Qt::MouseButton button) {
    auto* const view = find<QTableView>(grid);
    leaveList(view);
    QTest::mouseClick(view->viewport(), button, {}, cellRect(view, row, column).center());
    settle();
}

void Driver::doubleClickCell(const QString& grid, int row, int column) {
    clickCell(grid, row, column);
    auto* const view = find<QTableView>(grid);
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, cellRect(view, row, column).center());
    settle();
}

void Driver::openMenu(const QString& comboBox) {
    QWidget* const edit = find<QComboBox>(comboBox)->lineEdit();
    const QPoint place(4, edit->height() - 4);
    QContextMenuEvent click(QContextMenuEvent::Mouse, place, edit->mapToGlobal(place));
    QApplication::sendEvent(edit, &click);
    settle();
}

void Driver::clickHeading(const QString& grid, int column) {
    QHeaderView* const header = find<QTableView>(grid)->horizontalHeader();
    const int x = header->sectionViewportPosition(column) + header->sectionSize(column) / 2;
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, QPoint(x, header->height() / 2));
    settle();
}

QString Driver::text(const QString& box) const {
    QWidget* const target = control(box);
    if (auto* combo = qobject_cast<QComboBox*>(target)) return combo->currentText();
    if (auto* line = qobject_cast<QLineEdit*>(target)) return line->text();
    if (auto* label = qobject_cast<QLabel*>(target)) return label->text();
    return find<QPlainTextEdit>(box)->toPlainText();
}

QString Driver::cell(const QString& grid, int row, int column) const {
    const QAbstractItemModel* const model = find<QTableView>(grid)->model();
    return model->index(row, column).data().toString();
}

int Driver::rows(const QString& grid) const {
    return find<QTableView>(grid)->model()->rowCount();
}

void Driver::onNextDialog(std::function<void(QWidget& dialog)> use) {
    expected_.push_back(std::move(use));
}

void Driver::inDialog(const QString& opener, std::function<void(QWidget& dialog)> use) {
    QWidget* const before = QApplication::activeModalWidget();
    onNextDialog(std::move(use));
    if (window_.findChild<QAction*>(opener) != nullptr) {
        trigger(opener);
    } else {
        click(opener);
    }
    // Not every window keeps its opener waiting.
    const auto closed = [&] {
        return allAnswered() && QApplication::activeModalWidget() == before;
    };
    if (!QTest::qWaitFor(closed)) giveUp(opener + " did not open a window, or it did not close");
}

void Driver::answer(const QString& part, QMessageBox::StandardButton button) {
    onNextDialog([this, part, button](QWidget& dialog) {
        auto* const box = qobject_cast<QMessageBox*>(&dialog);
        if (box == nullptr) giveUp("No message box came for: " + part);
        if (!box->text().contains(part)) complain(part + " / came: " + box->text());
        QWidget* const pressed = box->button(button);
        if (pressed == nullptr) giveUp("No such button: " + box->text());
        QTest::mouseClick(pressed, Qt::LeftButton);
    });
}

void Driver::chooseFile(const QString& path, int type, std::function<void(QWidget& dialog)> look) {
    onNextDialog([=, this](QWidget& dialog) {
        auto* const name = dialog.findChild<QLineEdit*>("fileNameEdit");
        auto* const types = dialog.findChild<QComboBox*>("fileTypeCombo");
        if (name == nullptr) giveUp("No choice of a file came for " + path);
        if (type != 0) types->setCurrentIndex(type);
        if (look) look(dialog);
        name->setText(path);
        QTest::keyClick(name, Qt::Key_Return);
    });
}

QPixmap Driver::picture(QWidget& window) {
    settle();
    return window.grab();
}

void Driver::settle() {
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
}

void Driver::giveUp(const QString& why) const {
    complain(why);
    std::exit(1);
}

/// Hands a modal window that has opened to whoever expects it. One that nobody expects is a
/// complaint, and is closed so that the rest can go on.
void Driver::lookForDialog() {
    QWidget* const modal = QApplication::activeModalWidget();
    if (modal == nullptr) {
        handled_ = nullptr;
        unexpectedFor_ = 0;
        return;
    }
    // One dialog may open another; it is still in use once the other has gone.
    if (std::find(inUse_.begin(), inUse_.end(), modal) != inUse_.end()) {
        unexpectedFor_ = 0;
        return;
    }
    if (modal != handled_ && !expected_.empty() && modal->isVisible()) {
        handled_ = modal;
        inUse_.emplace_back(modal);
        // Not from within this timer's call, which has to go on watching while the dialog is in
        // use.
        QTimer::singleShot(0, modal, [this, use = expected_.front(), dialog = handled_] {
            // Where the system lets only the person at the keyboard bring a window forward, the
            // dialog would not get the keys.
            dialog->activateWindow();
            settle();
            use(*dialog);
            std::erase(inUse_, dialog);
            handled_ = dialog;
        });
        expected_.pop_front();
        return;
    }
    unexpectedFor_ += kWatchEvery;
    if (unexpectedFor_ == kPatience) {
        complain("A dialog nobody answers: " + modal->windowTitle());
        modal->close();
    }
    if (unexpectedFor_ > kLastPatience) giveUp("A dialog does not close");
}

QRect Driver::cellRect(QAbstractItemView* view, int row, int column) const {
    const QModelIndex index = view->model()->index(row, column);
    if (!index.isValid()) giveUp(view->objectName() + " has no such cell");
    view->scrollTo(index);
    settle();
    return view->visualRect(index);
}

}  // namespace bramblet
