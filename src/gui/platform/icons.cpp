#include "gui/platform/icons.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

#include <map>
#include <sstream>

namespace bramblet {

constexpr Drawing Drawing::New{
    "M 3 1.5 L 9.5 1.5 L 13 5 L 13 14.5 L 3 14.5 L 3 1.5 "
    "M 9.5 1.5 L 9.5 5 L 13 5 M 8 7 L 8 12 M 5.5 9.5 L 10.5 9.5"};
constexpr Drawing Drawing::Save{
    "M 2 2 L 11.5 2 L 14 4.5 L 14 14 L 2 14 L 2 2 "
    "M 5 2 L 5 5.5 L 10.5 5.5 L 10.5 2 M 4.5 14 L 4.5 9 L 11.5 9 L 11.5 14"};
constexpr Drawing Drawing::Copy{
    "M 2 2 L 10 2 L 10 4.5 M 2 2 L 2 11.5 L 5 11.5 "
    "M 5 4.5 L 14 4.5 L 14 14.5 L 5 14.5 L 5 4.5"};
constexpr Drawing Drawing::Clear{
    "M 6 3 L 14.5 3 L 14.5 13 L 6 13 L 1.5 8 L 6 3 M 7.5 5.5 L 12.5 10.5 "
    "M 12.5 5.5 L 7.5 10.5"};
constexpr Drawing Drawing::TotalUp{
    "M 12.5 4 L 12.5 2 L 3.5 2 L 8.5 8 L 3.5 14 L 12.5 14 L 12.5 12"};
constexpr Drawing Drawing::Calendar{
    "M 2 3.5 L 14 3.5 L 14 14 L 2 14 L 2 3.5 M 2 6.8 L 14 6.8 M 5 1.5 L 5 4.5 "
    "M 11 1.5 L 11 4.5 M 5 9.3 L 6 9.3 M 10 9.3 L 11 9.3 M 5 11.8 L 6 11.8 "
    "M 10 11.8 L 11 11.8"};
constexpr Drawing Drawing::Store{
    "M 8 1.5 L 8 9 M 5 6.2 L 8 9.2 L 11 6.2 M 2 10 L 2 14 L 14 14 L 14 10"};
constexpr Drawing Drawing::Delete{
    "M 2.5 4 L 13.5 4 M 6 4 L 6 2 L 10 2 L 10 4 M 3.8 4 L 4.5 14.5 L 11.5 14.5 "
    "L 12.2 4 M 6.6 6.8 L 6.8 11.8 M 9.4 6.8 L 9.2 11.8"};
constexpr Drawing Drawing::Help{
    "O 8 8 6.5 M 6 6.2 Q 6 4.2 8 4.2 Q 10.2 4.2 10.2 6.1 Q 10.2 7.6 8.6 8.2 "
    "Q 8 8.5 8 9.6 M 8 11.6 L 8 11.9"};
constexpr Drawing Drawing::Previous{"M 10 3 L 5 8 L 10 13"};
constexpr Drawing Drawing::Next{"M 6 3 L 11 8 L 6 13"};
constexpr Drawing Drawing::Up{"M 8 13 L 8 3 M 4 7 L 8 3 L 12 7"};
constexpr Drawing Drawing::Lists{
    "M 2 3.5 L 3 3.5 M 6 3.5 L 14 3.5 M 2 8 L 3 8 M 6 8 L 14 8 M 2 12.5 L 3 12.5 "
    "M 6 12.5 L 14 12.5"};
constexpr Drawing Drawing::View{
    "M 3 1.5 L 13 1.5 L 13 14.5 L 3 14.5 L 3 1.5 M 5.5 4.5 L 10.5 4.5 "
    "M 5.5 7.5 L 10.5 7.5 M 5.5 10.5 L 8.5 10.5"};
constexpr Drawing Drawing::Print{
    "M 4 6 L 4 1.8 L 12 1.8 L 12 6 M 4 11.5 L 1.8 11.5 L 1.8 6 L 14.2 6 "
    "L 14.2 11.5 L 12 11.5 M 4 9.2 L 12 9.2 L 12 14.2 L 4 14.2 L 4 9.2"};
constexpr Drawing Drawing::Preview{
    "M 8.5 14.5 L 2.5 14.5 L 2.5 1.5 L 12 1.5 L 12 6 O 10.3 9.8 2.8 "
    "M 12.4 11.9 L 14.6 14.2"};
constexpr Drawing Drawing::Mail{
    "M 1.5 3.2 L 14.5 3.2 L 14.5 12.8 L 1.5 12.8 L 1.5 3.2 M 1.8 3.6 L 8 8.8 "
    "L 14.2 3.6"};
constexpr Drawing Drawing::Settings{
    "M 1.5 4 L 14.5 4 M 1.5 8 L 14.5 8 M 1.5 12 L 14.5 12 O 5 4 1.6 O 11 8 1.6 "
    "O 6.5 12 1.6"};
constexpr Drawing Drawing::Requisition{
    "M 5.5 3 L 3 3 L 3 14.5 L 13 14.5 L 13 3 L 10.5 3 M 5.5 1.5 L 10.5 1.5 "
    "L 10.5 4.5 L 5.5 4.5 L 5.5 1.5 M 5.8 8 L 10.2 8 M 5.8 11 L 10.2 11"};
constexpr Drawing Drawing::Received{"M 3 8.5 L 6.5 12 L 13 4.5"};
constexpr Drawing Drawing::Close{"M 3.5 3.5 L 12.5 12.5 M 12.5 3.5 L 3.5 12.5"};

namespace {

/// The signs of message boxes: their strokes and the colour of their disc.
struct SignLook {
    const char* strokes;
    const char* disc;
};
const std::map<QStyle::StandardPixmap, SignLook> kSigns{
    {QStyle::SP_MessageBoxInformation, {"M 8 7.3 L 8 11.6 M 8 4.5 L 8 4.7", "#2f6fb3"}},
    {QStyle::SP_MessageBoxQuestion,
     {"M 6 6.1 Q 6 4.2 8 4.2 Q 10 4.2 10 6 Q 10 7.3 8.6 8 Q 8 8.4 8 9.3 M 8 11.5 L 8 11.7",
      "#5b3f8c"}},
    {QStyle::SP_MessageBoxWarning, {"M 8 4.2 L 8 8.9 M 8 11.4 L 8 11.6", "#c77a0a"}},
    {QStyle::SP_MessageBoxCritical, {"M 5.6 5.6 L 10.4 10.4 M 10.4 5.6 L 5.6 10.4", "#b3261e"}},
};

QPainterPath pathOf(const char* strokes) {
    QPainterPath path;
    std::istringstream in(strokes);
    char stroke = 0;
    double x = 0;
    double y = 0;
    while (in >> stroke >> x >> y) {
        if (stroke == 'M') path.moveTo(x, y);
        if (stroke == 'L') path.lineTo(x, y);
        if (stroke == 'Q') {
            double endX = 0;
            double endY = 0;
            in >> endX >> endY;
            path.quadTo(x, y, endX, endY);
        }
        if (stroke == 'O') {
            double radius = 0;
            in >> radius;
            path.addEllipse(QPointF(x, y), radius, radius);
        }
    }
    return path;
}

/// Strokes at whatever size is wanted: in white on a disc, or without one in the colour of the
/// text.
class StrokedIcon : public QIconEngine {
  public:
    explicit StrokedIcon(const char* strokes, const char* disc = nullptr)
        : strokes_(strokes), disc_(disc) {}

    QIconEngine* clone() const override { return new StrokedIcon(strokes_, disc_); }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const qreal scale = qMin(rect.width(), rect.height()) / 16.0;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.topLeft());
        painter->scale(scale, scale);
        if (disc_ != nullptr) {
            painter->setPen(Qt::NoPen);
            painter->setBrush(QColor(disc_));
            painter->drawEllipse(QPointF(8, 8), 7, 7);
        }
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const QColor text = QApplication::palette().color(group, QPalette::ButtonText);
        painter->setPen(QPen(disc_ != nullptr ? Qt::white : text, disc_ != nullptr ? 1.5 : 1.3,
                             Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter->setBrush(Qt::NoBrush);
        painter->drawPath(pathOf(strokes_));
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }

  private:
    const char* strokes_;
    const char* disc_;
};

}  // namespace

QIcon icon(Drawing drawing) {
    return QIcon(new StrokedIcon(drawing.strokes));
}

QIcon signIcon(QStyle::StandardPixmap which) {
    const auto sign = kSigns.find(which);
    return sign == kSigns.end() ? QIcon()
                                : QIcon(new StrokedIcon(sign->second.strokes, sign->second.disc));
}

}  // namespace bramblet
