// Uses the program's windows as a person does: finds controls by name, clicks, types, answers
// message boxes. The guided tour and the window tests drive the windows through it.
#pragma once

#include <QMessageBox>
#include <QPixmap>
#include <QPointer>
#include <QString>
#include <QTimer>
#include <QWidget>

#include <deque>
#include <functional>
#include <vector>

class QAbstractItemView;

namespace bramblet {

class Driver {
  public:
    explicit Driver(QWidget& window);

    /// The control with this name, in the main window or any other that is open. A missing one is a
    /// complaint, and ends the program, since nothing that follows would mean anything.
    QWidget* control(const QString& name) const;
    template <class Control>
    Control* find(const QString& name) const {
        auto* const found = qobject_cast<Control*>(control(name));
        if (found == nullptr) giveUp(name + " is of another kind");
        return found;
    }

    void click(const QString& button);
    void doubleClick(const QString& control);
    /// Selects what a box (or combo box, or text box) holds and types over it.
    void type(const QString& box, const QString& text);
    /// Opens a combo box and picks an entry with the keyboard.
    void pick(const QString& comboBox, const QString& entry);
    void press(const QString& control, Qt::Key key, Qt::KeyboardModifiers modifiers = {});
    void trigger(const QString& action);
    void clickCell(const QString& grid, int row, int column,
                   Qt::MouseButton button = Qt::LeftButton);
    void doubleClickCell(const QString& grid, int row, int column);
    /// Opens the menu of a combo box's text, as a right click does.
    void openMenu(const QString& comboBox);
    void clickHeading(const QString& grid, int column);

    /// What a box shows, or a grid's cell.
    QString text(const QString& box) const;
    QString cell(const QString& grid, int row, int column) const;
    int rows(const QString& grid) const;
    bool isEnabled(const QString& control) const { return this->control(control)->isEnabled(); }

    /// The next modal window is handed to `use`, which must end it.
    void onNextDialog(std::function<void(QWidget& dialog)> use);
    /// A command or a button opens a window; it is handed to `use`, which must end it.
    void inDialog(const QString& opener, std::function<void(QWidget& dialog)> use);
    /// The next modal window is a message box that says `part`; it is answered.
    void answer(const QString& part, QMessageBox::StandardButton button = QMessageBox::Ok);
    /// The next modal window is a file dialog; this path is typed into it, once one of the types
    /// of files has been chosen and `look` has seen it.
    void chooseFile(const QString& path, int type = 0,
                    std::function<void(QWidget& dialog)> look = {});
    /// Whether every expected dialog has come.
    bool allAnswered() const { return expected_.empty(); }

    /// A picture of a window, without a window manager's frame.
    static QPixmap picture(QWidget& window);

    /// Lets the windows catch up.
    static void settle();

    /// Called with whatever was not as expected.
    std::function<void(const QString& complaint)> complain;

  private:
    [[noreturn]] void giveUp(const QString& why) const;
    void lookForDialog();
    static void leaveList(QWidget* target);
    static void focus(QWidget* target);
    QRect cellRect(QAbstractItemView* view, int row, int column) const;

    QWidget& window_;
    QTimer watch_;
    std::deque<std::function<void(QWidget&)>> expected_;
    QPointer<QWidget> handled_;
    std::vector<QPointer<QWidget>> inUse_;  ///< dialogs, each opened from the one before
    int unexpectedFor_ = 0;
};

}  // namespace bramblet
