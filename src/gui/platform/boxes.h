// Makes the small controls of the panels and dialogs, puts them in rows and columns, and keeps
// boxes showing the texts that they should.
#pragma once

#include <QBoxLayout>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>

#include <functional>
#include <initializer_list>
#include <string>
#include <type_traits>
#include <vector>

class QMenu;
class QPlainTextEdit;

namespace bramblet {

class HistoryBox;
struct Drawing;

/// A label with a mnemonic for `buddy`.
QLabel* boxLabel(const QString& caption, QWidget* buddy);

QLabel* namedLabel(const char* name, const QString& tip = {});

/// A grey line of text.
QLabel* quietLabel(const char* name, const QString& tip);

/// A line of text for which there may be little room: dots stand for the rest then, and its tip, if
/// it has no other, is the whole text.
QLabel* elidedLabel(const char* name, Qt::TextElideMode mode);

using Command = std::function<void()>;

/// A button with an icon, and a caption beside it unless `caption` is empty.
QToolButton* toolButton(const char* name, Drawing drawing, const QString& caption,
                        const QString& tip, const Command& command);

/// The same with an edge that always shows.
QToolButton* edgedButton(const char* name, Drawing drawing, const QString& caption,
                         const QString& tip, const Command& command);

/// A push button, check box or radio button. Enter presses a push button only if it is the default.
template <class Button = QPushButton>
Button* button(const char* name, const QString& caption, const QString& tip,
               const Command& command = {}) {
    auto* button = new Button(caption);
    button->setObjectName(QLatin1String(name));
    button->setToolTip(tip);
    if constexpr (std::is_same_v<Button, QPushButton>) button->setAutoDefault(false);
    if (command) QObject::connect(button, &QAbstractButton::clicked, button, command);
    return button;
}

QAction* addEntry(QMenu* menu, const char* name, const QString& caption, const QKeySequence& keys,
                  const Command& command);

/// A box for one line of text, of at most `limit` characters if that is not 0.
QLineEdit* lineEdit(const char* name, const QString& tip, int limit = 0);

/// Makes a box that only shows its text look like it.
void showOnly(QLineEdit* box);

/// What stands in a row or a column: a control, another layout, or room.
struct Part {
    Part(QWidget* widget, int share = 0)
        : addTo([=](QBoxLayout& box) { box.addWidget(widget, share); }) {}
    Part(QLayout* layout, int share = 0)
        : addTo([=](QBoxLayout& box) { box.addLayout(layout, share); }) {}
    explicit Part(std::function<void(QBoxLayout& box)> room) : addTo(std::move(room)) {}

    std::function<void(QBoxLayout& box)> addTo;
};
/// Room of so many pixels.
Part gap(int pixels);
/// The room that is left.
Part spring();
/// A control or a layout that takes the room that is left, or its share of it.
template <class Shown>
Part grow(Shown* shown, int share = 1) {
    return {shown, share};
}

/// `spacing` is in pixels, or the style's if -1.
QBoxLayout* row(int spacing, std::initializer_list<Part> parts);
QBoxLayout* column(int spacing, std::initializer_list<Part> parts);

/// Gives a widget its layout, which fills it but for `margins`.
QWidget* fill(QWidget* widget, QLayout* layout, const QMargins& margins = {});

/// Puts `text` into a box that shows something else, leaving the cursor where it was. Sends no
/// editing signal.
void showText(QLineEdit* box, const QString& text);
void showText(QPlainTextEdit* box, const QString& lines);

/// Tints a box whose text cannot be accepted, or shows it as usual again.
void markRefused(QLineEdit* box, bool refused);

/// The lines of a box as they stand in it; no-break spaces are kept.
QString linesIn(const QPlainTextEdit* box);

/// Boxes that show what is held elsewhere, and pass on what is typed or chosen in them.
class BoundBoxes {
  public:
    using Held = std::function<std::string()>;
    using Typed = std::function<void(const std::string& text)>;
    void bind(QLineEdit* box, Held held, const Typed& typed);
    void bind(HistoryBox* box, Held held, const Typed& typed);

    /// A box for a member of `values`.
    template <class Box, class Values>
    void bind(Box* box, Values& values, std::string Values::*member) {
        bind(
            box, [&values, member] { return values.*member; },
            [&values, member](const std::string& text) { values.*member = text; });
    }
    template <class Values>
    void bind(QCheckBox* box, Values& values, bool Values::*member) {
        QObject::connect(box, &QCheckBox::toggled, box,
                         [&values, member](bool checked) { values.*member = checked; });
        shows_.push_back([box, &values, member] { box->setChecked(values.*member); });
    }

    /// Shows what is held now.
    void refresh() const;

  private:
    std::vector<std::function<void()>> shows_;
};

}  // namespace bramblet
