#include "gui/orders/bar_chart.h"

#include "gui/platform/qt_text.h"

#include <QAccessibleWidget>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <QtMath>

namespace bramblet {
namespace {

constexpr int kAir = 4;                // above and below all bars
constexpr int kGap = 8;                // beside them
constexpr double kMostForNames = 0.4;  // of the width
constexpr int kLeastWidth = 40;        // in characters

/// A bar has half a line's height for air, above and below.
double lineHeightOf(const QFontMetricsF& font) {
    return 1.5 * font.height();
}

/// The widest of the texts.
template <class TextOf>
double widest(const QFontMetricsF& font, const std::vector<SpendingBar>& bars, TextOf textOf) {
    double width = 0;
    for (const SpendingBar& bar : bars)
        width = qMax(width, font.horizontalAdvance(toQt(textOf(bar))));
    return width;
}

QAccessibleInterface* accessibleChart(const QString&, QObject* object) {
    auto* const chart = qobject_cast<BarChart*>(object);
    return chart == nullptr
               ? nullptr
               : new QAccessibleWidget(chart, QAccessible::Chart, chart->accessibleName());
}

}  // namespace

BarChart::BarChart(const char* name, const QString& accessibleName,
                   const std::vector<SpendingBar>& bars, QWidget* parent)
    : QWidget(parent), bars_(bars) {
    QAccessible::installFactory(accessibleChart);  // before it is asked for
    setObjectName(QLatin1String(name));
    setAccessibleName(accessibleName);
    setToolTip(u"Click a bar to list its orders."_s);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setCursor(Qt::PointingHandCursor);
    makeCurrent(0);
}

double BarChart::lineHeight() const {
    return lineHeightOf(QFontMetricsF(font(), this));
}

int BarChart::paint(QPainter& painter, const QRectF& area, const std::vector<SpendingBar>& bars,
                    int first, const Inks& inks) {
    const QFontMetricsF font(painter.font(), painter.device());
    const double air = font.height() / 4;
    const double height = lineHeightOf(font);
    const double names = qMin(widest(font, bars, [](const SpendingBar& bar) { return bar.name; }),
                              area.width() * kMostForNames);
    const double amounts = widest(font, bars, [](const SpendingBar& bar) { return bar.amount; });
    const double left = area.left() + names + 2 * air;
    const double room = qMax(0.0, area.right() - left - amounts - 2 * air);
    int bar = first;
    double top = area.top();
    for (; bar < static_cast<int>(bars.size()) && top + height <= area.bottom() + 1; ++bar) {
        const SpendingBar& shown = bars[static_cast<std::size_t>(bar)];
        const QRectF line(area.left(), top, area.width(), height);
        const double length = room * shown.length;
        painter.setPen(inks.text);
        painter.drawText(QRectF(line.left(), top, names, height), Qt::AlignVCenter | Qt::AlignRight,
                         font.elidedText(toQt(shown.name), Qt::ElideRight, names));
        painter.drawText(QRectF(left + length + air, top, amounts + 2 * air, height),
                         Qt::AlignVCenter | Qt::AlignLeft, toQt(shown.amount));
        if (length > 0) {
            painter.setPen(QPen(inks.bar, 0));
            painter.setBrush(shown.others ? QBrush(inks.bar, Qt::BDiagPattern) : QBrush(inks.bar));
            painter.drawRect(QRectF(left, top + air, length, height - 2 * air));
        }
        top += height;
    }
    painter.setPen(QPen(inks.text, 0));
    painter.drawLine(QPointF(left, area.top()), QPointF(left, top));
    return bar;
}

QSize BarChart::sizeHint() const {
    const QFontMetricsF font(this->font(), this);
    const int lines = static_cast<int>(bars_.size());
    return {qCeil(font.averageCharWidth() * kLeastWidth), qCeil(lineHeight() * lines) + 2 * kAir};
}

void BarChart::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Base));
    const QRectF area = QRectF(rect()).adjusted(kGap, kAir, -kGap, -kAir);
    paint(painter, area, bars_, 0,
          {palette().color(QPalette::Text), palette().color(QPalette::Link)});
    if (!hasFocus()) return;
    const double line = lineHeight();
    QPen edge(palette().color(QPalette::Text));
    edge.setStyle(Qt::DotLine);
    painter.setPen(edge);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRectF(2, kAir + current_ * line, width() - 5, line - 1));
}

/// -1 where there is none.
int BarChart::barAt(const QPointF& place) const {
    const int bar = qFloor((place.y() - kAir) / lineHeight());
    return rect().contains(place.toPoint()) && bar < static_cast<int>(bars_.size()) ? bar : -1;
}

void BarChart::makeCurrent(int bar) {
    current_ = qBound(0, bar, static_cast<int>(bars_.size()) - 1);
    if (!bars_.empty())
        setAccessibleDescription(toQt(bars_[static_cast<std::size_t>(current_)].words));
    update();
}

bool BarChart::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const int bar = barAt(help->pos());
    if (bar < 0) return QWidget::event(event);
    QToolTip::showText(
        help->globalPos(),
        u"%1\nClick to list them."_s.arg(toQt(bars_[static_cast<std::size_t>(bar)].words)), this);
    return true;
}

void BarChart::keyPressEvent(QKeyEvent* event) {
    const int last = static_cast<int>(bars_.size()) - 1;
    switch (event->key()) {
        case Qt::Key_Up:
            makeCurrent(current_ - 1);
            break;
        case Qt::Key_Down:
            makeCurrent(current_ + 1);
            break;
        case Qt::Key_Home:
            makeCurrent(0);
            break;
        case Qt::Key_End:
            makeCurrent(last);
            break;
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Space:
            if (last >= 0) emit barChosen(current_);
            return;
        default:
            return QWidget::keyPressEvent(event);
    }
    emit barReached(current_);
}

void BarChart::mouseMoveEvent(QMouseEvent* event) {
    setCursor(barAt(event->position()) >= 0 ? Qt::PointingHandCursor : Qt::ArrowCursor);
}

void BarChart::mouseReleaseEvent(QMouseEvent* event) {
    const int bar = barAt(event->position());
    if (event->button() != Qt::LeftButton || bar < 0) return;
    makeCurrent(bar);
    emit barChosen(bar);
}

void BarChart::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    emit barReached(current_);
}

}  // namespace bramblet
