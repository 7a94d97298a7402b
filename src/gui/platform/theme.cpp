#include "gui/platform/theme.h"

#include "gui/platform/icons.h"
#include "gui/platform/qt_text.h"

#include <QApplication>
#include <QColor>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleOption>

#include <cmath>
#include <utility>
#include <vector>

namespace bramblet {
namespace {

/// A colour of each theme, in their order, and all that has it.
struct Colour {
    std::array<const char*, kThemes.size()> ofThemes;
    std::vector<QPalette::ColorRole> roles;
};
const std::vector<Colour> kColours{
    {{"#f3f4f6", "#202226", "#ffffff", "#000000"}, {QPalette::Window}},
    {{"#ffffff", "#282b30", "#ffffff", "#000000"}, {QPalette::Base}},
    {{"#f8f8fb", "#2c2f35", "#ffffff", "#000000"}, {QPalette::AlternateBase}},
    {{"#1c2128", "#e7e9ec", "#000000", "#ffffff"},
     {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}},
    {{"#646b75", "#979ea8", "#333333", "#dddddd"}, {QPalette::PlaceholderText}},
    {{"#fafafb", "#31343a", "#ffffff", "#000000"}, {QPalette::Button}},
    {{"#d3d7de", "#41454d", "#000000", "#ffffff"}, {QPalette::Mid, QPalette::Midlight}},
    {{"#5b3f8c", "#7c5fb5", "#37006e", "#ffff00"}, {QPalette::Highlight}},
    {{"#ffffff", "#ffffff", "#ffffff", "#000000"},
     {QPalette::HighlightedText, QPalette::BrightText}},
    {{"#5b3f8c", "#b49be6", "#37006e", "#ffff00"}, {QPalette::Link, QPalette::LinkVisited}},
    {{"#fffdf2", "#33363d", "#ffffff", "#000000"}, {QPalette::ToolTipBase}},
};
const std::vector<Colour> kDisabledColours{
    {{"#8a919b", "#7d848e", "#5c5c5c", "#a0a0a0"},
     {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}},
};

/// The colours of one widget, while they are its own.
class Recolouring : public QObject {
  public:
    Recolouring(QWidget* widget, std::function<void(QPalette&)> change)
        : QObject(widget), widget_(widget), change_(std::move(change)) {
        setObjectName(kName);
        widget->installEventFilter(this);
        apply();
    }

    static constexpr auto kName = QLatin1String("Recolouring");

  protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::PaletteChange && !applying_) apply();
        return false;
    }

  private:
    void apply() {
        QPalette colours = QApplication::palette();
        colours.setResolveMask(0);  // what is not changed goes on following the application's
        change_(colours);
        applying_ = true;
        widget_->setPalette(colours);
        applying_ = false;
    }

    QWidget* widget_;
    std::function<void(QPalette&)> change_;
    bool applying_ = false;
};

constexpr int kRowAir = 6;        // between the rows of a list
constexpr double kPlainEdge = 7;  // contrast
constexpr int kButtonAir = 14;    // beside a button's caption

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
        if (element == PE_FrameLineEdit || element == PE_Frame || element == PE_PanelButtonCommand)
            outline(*option, *painter);
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

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
        if (control == CC_ComboBox) outline(*option, *painter);
    }

    QIcon standardIcon(StandardPixmap which, const QStyleOption* option,
                       const QWidget* widget) const override {
        const QIcon sign = signIcon(which);
        return sign.isNull() ? QProxyStyle::standardIcon(which, option, widget) : sign;
    }

  private:
    /// In themes of high contrast boxes are told from their ground by nothing but their edge.
    static void outline(const QStyleOption& option, QPainter& painter) {
        const QColor edge = option.palette.color(QPalette::Mid);
        if (contrast(edge, option.palette.color(QPalette::Window)) < kPlainEdge) return;
        painter.save();
        painter.setPen(option.state.testFlag(State_HasFocus) ? option.palette.color(QPalette::Link)
                                                             : edge);
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(option.rect.adjusted(0, 0, -1, -1));
        painter.restore();
    }
};

}  // namespace

QPalette paletteOf(Theme theme) {
    const auto place = static_cast<std::size_t>(theme);
    QPalette palette;
    const auto take = [&](QPalette::ColorGroup group, const std::vector<Colour>& colours) {
        for (const Colour& colour : colours) {
            for (const auto role : colour.roles)
                palette.setColor(group, role, QColor(colour.ofThemes.at(place)));
        }
    };
    take(QPalette::All, kColours);
    take(QPalette::Disabled, kDisabledColours);
    return palette;
}

Theme themeLike(const QPalette& system) {
    constexpr double kHighContrast = 20;  // others keep clear of pure black and white
    const QColor window = system.color(QPalette::Window);
    const bool dark = window.lightness() < 128;
    if (contrast(system.color(QPalette::WindowText), window) < kHighContrast)
        return dark ? Theme::Dark : Theme::Light;
    return dark ? Theme::HighContrastDark : Theme::HighContrastLight;
}

// No style sheet: each widget would be looked up in it when it is made.
void applyTheme(Theme theme) {
    if (dynamic_cast<RoomyStyle*>(QApplication::style()) == nullptr)
        QApplication::setStyle(new RoomyStyle);
    QApplication::setPalette(paletteOf(theme));
}

void recolour(QWidget* widget, std::function<void(QPalette& colours)> change) {
    delete widget->findChild<QObject*>(Recolouring::kName, Qt::FindDirectChildrenOnly);
    new Recolouring(widget, std::move(change));
}

double contrast(const QColor& text, const QColor& ground) {
    const auto linear = [](double share) {
        return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    const auto light = [&](const QColor& colour) {
        return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
               0.0722 * linear(colour.blueF()) + 0.05;
    };
    const double a = light(text);
    const double b = light(ground);
    return a > b ? a / b : b / a;
}

QColor blend(const QColor& from, const QColor& to, double share) {
    const auto mixed = [share](int a, int b) { return qRound(a + share * (b - a)); };
    return {mixed(from.red(), to.red()), mixed(from.green(), to.green()),
            mixed(from.blue(), to.blue())};
}

}  // namespace bramblet
