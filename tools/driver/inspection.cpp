#include "driver/inspection.h"

#include "gui/platform/theme.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessible>
#include <QComboBox>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QRegularExpression>
#include <QScrollArea>
#include <QTextBrowser>

#include <algorithm>

namespace bramblet {
namespace {

constexpr double kLeastContrast = 4.5;
constexpr int kRounding = 1;  // pixels

bool isOfQt(const QWidget& window) {
    return qobject_cast<const QMessageBox*>(&window) != nullptr ||
           qobject_cast<const QFileDialog*>(&window) != nullptr ||
           qobject_cast<const QInputDialog*>(&window) != nullptr ||
           window.inherits("QPrintDialog") || window.inherits("QPrintPreviewDialog");
}

/// Part of another control, which stands for it.
bool isPart(const QWidget& control) {
    const QWidget* const parent = control.parentWidget();
    return control.objectName().startsWith("qt_") || control.focusProxy() != nullptr ||
           qobject_cast<const QComboBox*>(parent) != nullptr || parent->inherits("QTabBar") ||
           parent->inherits("QAbstractSpinBox") || parent->inherits("QAbstractScrollArea") ||
           parent->inherits("QMenuBar") || parent->inherits("QLineEdit") ||
           parent->inherits("QCalendarWidget");
}

/// Whether all of it can be seen, or scrolled to.
bool isWithin(const QWidget& control, const QWidget& window) {
    for (const QWidget* up = control.parentWidget(); up != nullptr && up != &window;
         up = up->parentWidget()) {
        if (qobject_cast<const QAbstractScrollArea*>(up) != nullptr) return true;
    }
    const QRect place(control.mapTo(&window, QPoint()), control.size());
    return window.rect().adjusted(-kRounding, -kRounding, kRounding, kRounding).contains(place);
}

/// The least in which all of it can be read.
QSize leastSize(const QWidget& control) {
    const auto* label = qobject_cast<const QLabel*>(&control);
    const auto* button = qobject_cast<const QAbstractButton*>(&control);
    if (label != nullptr && label->wordWrap()) return {0, label->heightForWidth(label->width())};
    if (button != nullptr && !button->isCheckable()) {
        const QSize text = button->fontMetrics().size(Qt::TextShowMnemonic, button->text());
        return {text.width(), 0};
    }
    return control.minimumSizeHint();
}

bool isCut(const QWidget& control) {
    const QSize least = leastSize(control);
    return control.width() + kRounding < least.width() ||
           control.height() + kRounding < least.height();
}

class Inspection {
  public:
    explicit Inspection(const QWidget& window) : window_(window) {
        for (const auto* control : window.findChildren<const QWidget*>()) {
            if (control->isVisible() && control->window() == &window && !isPart(*control))
                look(*control);
        }
        if (const auto* bar = window.findChild<const QMenuBar*>()) lookAt(*bar);
    }

    QStringList found;

  private:
    void complainOf(const QWidget& control, const QString& words) {
        const QString name = control.objectName().isEmpty() ? control.metaObject()->className()
                                                            : control.objectName();
        found.append(window_.objectName() + ": " + name + " " + words);
    }

    void look(const QWidget& control) {
        const bool isLabel = qobject_cast<const QLabel*>(&control) != nullptr;
        const auto* button = qobject_cast<const QAbstractButton*>(&control);
        if (control.focusPolicy() != Qt::NoFocus && !isLabel) lookAtFocus(control);
        if (button != nullptr) {
            if (control.toolTip().isEmpty()) complainOf(control, "has no tip");
            take(control, button->text());
        }
        if (const auto* label = qobject_cast<const QLabel*>(&control); label && label->buddy())
            take(control, label->text());
        if (!isLabel && button == nullptr && control.focusPolicy() == Qt::NoFocus) return;
        if (isCut(control) || !isWithin(control, window_)) complainOf(control, "is cut off");
        if (control.isEnabled()) lookAtColours(control);
    }

    void lookAtFocus(const QWidget& control) {
        QAccessibleInterface* const told =
            QAccessible::queryAccessibleInterface(const_cast<QWidget*>(&control));
        const QString name = told == nullptr ? QString() : told->text(QAccessible::Name);
        if (name.isEmpty() || name.contains(QRegularExpression("&\\w")))
            complainOf(control, "has no good name for screen readers: " + name);
        if (told == nullptr || told->role() == QAccessible::NoRole ||
            told->role() == QAccessible::Client)
            complainOf(control, "has no role for screen readers");
        const auto* box = qobject_cast<const QLineEdit*>(&control);
        const auto* choice = qobject_cast<const QRadioButton*>(&control);
        // Of radio buttons, the one that is chosen; boxes that only show something are read.
        const bool passed =
            (box != nullptr && box->isReadOnly()) || (choice != nullptr && !choice->isChecked());
        if ((control.focusPolicy() & Qt::TabFocus) == 0 && !passed)
            complainOf(control, "is not reached by Tab");
        const auto* text = qobject_cast<const QPlainTextEdit*>(&control);
        const auto* view = qobject_cast<const QAbstractItemView*>(&control);
        if ((text != nullptr && !text->tabChangesFocus()) ||
            (view != nullptr && view->tabKeyNavigation()))
            complainOf(control, "is not left by Tab");
    }

    void lookAtColours(const QWidget& control) {
        const QPalette colours = control.palette();
        const bool own = control.backgroundRole() == QPalette::Window;
        const double ratio =
            contrast(colours.color(own ? QPalette::WindowText : control.foregroundRole()),
                     colours.color(control.backgroundRole()));
        if (ratio < kLeastContrast)
            complainOf(control, QString("is hard to read: %1").arg(ratio, 0, 'f', 1));
    }

    void take(const QWidget& control, const QString& caption) {
        const QString letter = QKeySequence::mnemonic(caption).toString();
        if (letter.isEmpty()) return;
        if (letters_.contains(letter)) complainOf(control, "shares its letter: " + letter);
        letters_.append(letter);
    }

    void lookAt(const QMenuBar& bar) {
        for (const QAction* entry : bar.actions()) {
            take(bar, entry->text());
            QStringList letters;
            for (const QAction* command : entry->menu()->actions()) {
                const QString letter = QKeySequence::mnemonic(command->text()).toString();
                if (!command->isVisible() || letter.isEmpty()) continue;
                if (letters.contains(letter))
                    complainOf(*entry->menu(), "has two commands with " + letter);
                letters.append(letter);
            }
        }
    }

    const QWidget& window_;
    QStringList letters_;
};

}  // namespace

QStringList shortcomingsOf(const QWidget& window) {
    const bool isOurs = !isOfQt(window) && window.windowType() != Qt::Popup;
    return isOurs ? Inspection(window).found : QStringList();
}

}  // namespace bramblet
