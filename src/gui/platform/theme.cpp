#include "gui/platform/theme.h"

#include "gui/platform/icons.h"
#include "gui/platform/literals.h"

#include <QApplication>
#include <QColor>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleOption>

namespace bramblet {
namespace {

struct Colours {
    const char* window;
    const char* base;
    const char* alternate;
    const char* text;
    const char* muted;
    const char* button;
    const char* border;
    const char* accent;
    const char* accentText;
    const char* link;
    const char* tip;
};

constexpr Colours kLight{"#f3f4f6", "#ffffff", "#f8f8fb", "#1c2128", "#8a919b", "#fafafb",
                         "#d3d7de", "#5b3f8c", "#ffffff", "#5b3f8c", "#fffdf2"};
constexpr Colours kDark{"#202226", "#282b30", "#2c2f35", "#e7e9ec", "#7d848e", "#31343a",
                        "#41454d", "#7c5fb5", "#ffffff", "#b49be6", "#33363d"};

QPalette paletteOf(const Colours& colours) {
    QPalette palette;
    const auto set = [&](QPalette::ColorRole role, const char* colour) {
        palette.setColor(role, QColor(colour));
    };
    set(QPalette::Window, colours.window);
    set(QPalette::WindowText, colours.text);
    set(QPalette::Base, colours.base);
    set(QPalette::AlternateBase, colours.alternate);
    set(QPalette::Text, colours.text);
    set(QPalette::Button, colours.button);
    set(QPalette::ButtonText, colours.text);
    set(QPalette::BrightText, colours.accentText);
    set(QPalette::Highlight, colours.accent);
    set(QPalette::HighlightedText, colours.accentText);
    set(QPalette::Link, colours.link);
    set(QPalette::LinkVisited, colours.link);
    set(QPalette::ToolTipBase, colours.tip);
    set(QPalette::ToolTipText, colours.text);
    set(QPalette::PlaceholderText, colours.muted);
    set(QPalette::Mid, colours.border);
    set(QPalette::Midlight, colours.border);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, QColor(colours.muted));
    }
    palette.setColor(QPalette::Inactive, QPalette::Highlight, QColor(colours.accent));
    return palette;
}

constexpr int kRowAir = 6;      // between the rows of a list
constexpr int kButtonAir = 14;  // beside a button's caption

/// Fusion with more room in grids, lists and buttons, and signs of our own.
class RoomyStyle : public QProxyStyle {
  public:
    RoomyStyle() : QProxyStyle(u"Fusion"_s) {}

    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override {
        if (metric == PM_FocusFrameHMargin) return 4;
        if (metric == PM_HeaderMargin) return 5;
        return QProxyStyle::pixelMetric(metric, option, widget);
    }

    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override {
        const QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
        if (type == CT_ItemViewItem) return size + QSize(0, kRowAir);
        if (type != CT_PushButton) return size;
        // Buttons with a short caption have room enough from their minimum width.
        const int wanted = contents.width() + 2 * kButtonAir;
        return size.expandedTo(QSize(wanted, 0));
    }

    /// Not etched: the light edge would make disabled text stand out on a dark window.
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override {
        if (hint == SH_EtchDisabledText) return 0;
        return QProxyStyle::styleHint(hint, option, widget, result);
    }

    /// Fusion's outlines are darker than the window, which hides unchecked boxes on a dark one.
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        const bool round = element == PE_IndicatorRadioButton;
        if (!round && element != PE_IndicatorCheckBox) return;
        if (option->palette.color(QPalette::Window).lightness() >= 128) return;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(option->palette.color(QPalette::PlaceholderText));
        painter->setBrush(Qt::NoBrush);
        const QRectF outline = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
        round ? painter->drawEllipse(outline) : painter->drawRoundedRect(outline, 1.5, 1.5);
        painter->restore();
    }

    QIcon standardIcon(StandardPixmap which, const QStyleOption* option,
                       const QWidget* widget) const override {
        switch (which) {
            case SP_MessageBoxInformation:
                return icon(Sign::Information);
            case SP_MessageBoxQuestion:
                return icon(Sign::Question);
            case SP_MessageBoxWarning:
                return icon(Sign::Warning);
            case SP_MessageBoxCritical:
                return icon(Sign::Critical);
            default:
                return QProxyStyle::standardIcon(which, option, widget);
        }
    }
};

}  // namespace

void applyTheme(QApplication& application, Theme theme) {
    QApplication::setStyle(new RoomyStyle);
    QApplication::setPalette(paletteOf(theme == Theme::Dark ? kDark : kLight));
    application.setStyleSheet(
        u"QToolTip { padding: 3px; border: 1px solid palette(mid); }"
        "QFrame#band { border: 1px solid palette(mid); border-radius: 5px;"
        "              background: palette(alternate-base); }"_s);
}

QColor borderColour() {
    return QApplication::palette().color(QPalette::Mid);
}

QColor refusedColour() {
    constexpr double kShare = 0.3;
    const QColor base = QApplication::palette().color(QPalette::Base);
    const QColor red("#d03030");
    const auto mixed = [](int from, int to) { return qRound(from + kShare * (to - from)); };
    return {mixed(base.red(), red.red()), mixed(base.green(), red.green()),
            mixed(base.blue(), red.blue())};
}

}  // namespace bramblet
