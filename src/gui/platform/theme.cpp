#include "gui/platform/theme.h"

#include "gui/platform/icons.h"
#include "gui/platform/qt_text.h"

#include <QApplication>
#include <QColor>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleOption>

#include <vector>

namespace bramblet {
namespace {

/// A colour of both themes, and all that has it.
struct Colour {
    const char* light;
    const char* dark;
    std::vector<QPalette::ColorRole> roles;
};
const std::vector<Colour> kColours{
    {"#f3f4f6", "#202226", {QPalette::Window}},
    {"#ffffff", "#282b30", {QPalette::Base}},
    {"#f8f8fb", "#2c2f35", {QPalette::AlternateBase}},
    {"#1c2128",
     "#e7e9ec",
     {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}},
    {"#8a919b", "#7d848e", {QPalette::PlaceholderText}},
    {"#fafafb", "#31343a", {QPalette::Button}},
    {"#d3d7de", "#41454d", {QPalette::Mid, QPalette::Midlight}},
    {"#5b3f8c", "#7c5fb5", {QPalette::Highlight}},
    {"#ffffff", "#ffffff", {QPalette::HighlightedText, QPalette::BrightText}},
    {"#5b3f8c", "#b49be6", {QPalette::Link, QPalette::LinkVisited}},
    {"#fffdf2", "#33363d", {QPalette::ToolTipBase}},
};

QPalette paletteOf(Theme theme) {
    QPalette palette;
    for (const Colour& colour : kColours) {
        for (const auto role : colour.roles)
            palette.setColor(role, QColor(theme == Theme::Dark ? colour.dark : colour.light));
    }
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, palette.color(QPalette::PlaceholderText));
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
        if (metric == PM_ToolTipLabelFrameWidth) return 3;
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

    /// Tips have a quiet border. Fusion's outlines are darker than the window, which hides
    /// unchecked boxes on a dark one.
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override {
        if (element == PE_PanelTipLabel) {
            painter->setPen(option->palette.color(QPalette::Mid));
            painter->setBrush(option->palette.toolTipBase());
            painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
            return;
        }
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
        const QIcon sign = signIcon(which);
        return sign.isNull() ? QProxyStyle::standardIcon(which, option, widget) : sign;
    }
};

}  // namespace

// No style sheet: each widget would be looked up in it when it is made.
void applyTheme(Theme theme) {
    QApplication::setStyle(new RoomyStyle);
    QApplication::setPalette(paletteOf(theme));
}

QColor blend(const QColor& from, const QColor& to, double share) {
    const auto mixed = [share](int a, int b) { return qRound(a + share * (b - a)); };
    return {mixed(from.red(), to.red()), mixed(from.green(), to.green()),
            mixed(from.blue(), to.blue())};
}

}  // namespace bramblet
