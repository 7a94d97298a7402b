#include "gui/platform/icons.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

#include <array>

namespace bramblet {
namespace {

/// Strokes on a 16 by 16 grid: "M x y" moves, "L x y" draws a line, "Q x y x y" a curve with one
/// control point, "O x y r" a circle. In the order of Drawing.
constexpr std::array kStrokes{
    // New
    "M 3 1.5 L 9.5 1.5 L 13 5 L 13 14.5 L 3 14.5 L 3 1.5 "
    "M 9.5 1.5 L 9.5 5 L 13 5 M 8 7 L 8 12 M 5.5 9.5 L 10.5 9.5",
    // Save
    "M 2 2 L 11.5 2 L 14 4.5 L 14 14 L 2 14 L 2 2 "
    "M 5 2 L 5 5.5 L 10.5 5.5 L 10.5 2 M 4.5 14 L 4.5 9 L 11.5 9 L 11.5 14",
    // Copy
    "M 2 2 L 10 2 L 10 4.5 M 2 2 L 2 11.5 L 5 11.5 "
    "M 5 4.5 L 14 4.5 L 14 14.5 L 5 14.5 L 5 4.5",
    // Clear
    "M 6 3 L 14.5 3 L 14.5 13 L 6 13 L 1.5 8 L 6 3 M 7.5 5.5 L 12.5 10.5 "
    "M 12.5 5.5 L 7.5 10.5",
    // TotalUp
    "M 12.5 4 L 12.5 2 L 3.5 2 L 8.5 8 L 3.5 14 L 12.5 14 L 12.5 12",
    // Calendar
    "M 2 3.5 L 14 3.5 L 14 14 L 2 14 L 2 3.5 M 2 6.8 L 14 6.8 M 5 1.5 L 5 4.5 "
    "M 11 1.5 L 11 4.5 M 5 9.3 L 6 9.3 M 10 9.3 L 11 9.3 M 5 11.8 L 6 11.8 "
    "M 10 11.8 L 11 11.8",
    // Store
    "M 8 1.5 L 8 9 M 5 6.2 L 8 9.2 L 11 6.2 M 2 10 L 2 14 L 14 14 L 14 10",
    // Delete
    "M 2.5 4 L 13.5 4 M 6 4 L 6 2 L 10 2 L 10 4 M 3.8 4 L 4.5 14.5 L 11.5 14.5 "
    "L 12.2 4 M 6.6 6.8 L 6.8 11.8 M 9.4 6.8 L 9.2 11.8",
    // Help
    "O 8 8 6.5 M 6 6.2 Q 6 4.2 8 4.2 Q 10.2 4.2 10.2 6.1 Q 10.2 7.6 8.6 8.2 "
    "Q 8 8.5 8 9.6 M 8 11.6 L 8 11.9",
    // Folder
    "M 1.5 3 L 6 3 L 7.5 5 L 14.5 5 L 14.5 13.5 L 1.5 13.5 L 1.5 3",
    // Previous
    "M 10 3 L 5 8 L 10 13",
    // Next
    "M 6 3 L 11 8 L 6 13",
    // Up
    "M 8 13 L 8 3 M 4 7 L 8 3 L 12 7",
    // Lists
    "M 2 3.5 L 3 3.5 M 6 3.5 L 14 3.5 M 2 8 L 3 8 M 6 8 L 14 8 M 2 12.5 L 3 12.5 "
    "M 6 12.5 L 14 12.5",
    // View
    "M 3 1.5 L 13 1.5 L 13 14.5 L 3 14.5 L 3 1.5 M 5.5 4.5 L 10.5 4.5 "
    "M 5.5 7.5 L 10.5 7.5 M 5.5 10.5 L 8.5 10.5",
    // Print
    "M 4 6 L 4 1.8 L 12 1.8 L 12 6 M 4 11.5 L 1.8 11.5 L 1.8 6 L 14.2 6 "
    "L 14.2 11.5 L 12 11.5 M 4 9.2 L 12 9.2 L 12 14.2 L 4 14.2 L 4 9.2",
    // Preview
    "M 8.5 14.5 L 2.5 14.5 L 2.5 1.5 L 12 1.5 L 12 6 O 10.3 9.8 2.8 "
    "M 12.4 11.9 L 14.6 14.2",
    // Mail
    "M 1.5 3.2 L 14.5 3.2 L 14.5 12.8 L 1.5 12.8 L 1.5 3.2 M 1.8 3.6 L 8 8.8 "
    "L 14.2 3.6",
    // Settings
    "M 1.5 4 L 14.5 4 M 1.5 8 L 14.5 8 M 1.5 12 L 14.5 12 O 5 4 1.6 O 11 8 1.6 "
    "O 6.5 12 1.6",
    // Close
    "M 3.5 3.5 L 12.5 12.5 M 12.5 3.5 L 3.5 12.5",
};
static_assert(kStrokes.size() == static_cast<std::size_t>(Drawing::Close) + 1);

QPainterPath pathOf(const char* strokes) {
    QPainterPath path;
    const QStringList words = QString::fromLatin1(strokes).split(QLatin1Char(' '));
    const auto number = [&](qsizetype i) { return words[i].toDouble(); };
    for (qsizetype i = 0; i < words.size();) {
        if (words[i] == QLatin1String("M")) {
            path.moveTo(number(i + 1), number(i + 2));
            i += 3;
        } else if (words[i] == QLatin1String("L")) {
            path.lineTo(number(i + 1), number(i + 2));
            i += 3;
        } else if (words[i] == QLatin1String("Q")) {
            path.quadTo(number(i + 1), number(i + 2), number(i + 3), number(i + 4));
            i += 5;
        } else {
            path.addEllipse(QPointF(number(i + 1), number(i + 2)), number(i + 3), number(i + 3));
            i += 4;
        }
    }
    return path;
}

/// What a sign is drawn with: its strokes and the colour of its disc.
struct SignLook {
    const char* strokes;
    const char* colour;
};
SignLook lookOf(Sign sign) {
    switch (sign) {
        case Sign::Information:
            return {"M 8 7.3 L 8 11.6 M 8 4.5 L 8 4.7", "#2f6fb3"};
        case Sign::Question:
            return {
                "M 6 6.1 Q 6 4.2 8 4.2 Q 10 4.2 10 6 Q 10 7.3 8.6 8 Q 8 8.4 8 9.3 "
                "M 8 11.5 L 8 11.7",
                "#5b3f8c"};
        case Sign::Warning:
            return {"M 8 4.2 L 8 8.9 M 8 11.4 L 8 11.6", "#c77a0a"};
        case Sign::Critical:
            return {"M 5.6 5.6 L 10.4 10.4 M 10.4 5.6 L 5.6 10.4", "#b3261e"};
    }
    return {"", "#000000"};
}

/// An icon drawn on a 16 by 16 grid, at whatever size is wanted.
class PaintedIcon : public QIconEngine {
  public:
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const qreal scale = qMin(rect.width(), rect.height()) / 16.0;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.topLeft());
        painter->scale(scale, scale);
        draw(*painter, mode);
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }

  protected:
    virtual void draw(QPainter& painter, QIcon::Mode mode) const = 0;

    static void stroke(QPainter& painter, const char* strokes, const QColor& colour, qreal width) {
        painter.setPen(QPen(colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.setBrush(Qt::NoBrush);
        painter.drawPath(pathOf(strokes));
    }
};

class DrawingIcon : public PaintedIcon {
  public:
    explicit DrawingIcon(Drawing drawing) : drawing_(drawing) {}
    QIconEngine* clone() const override { return new DrawingIcon(drawing_); }

  protected:
    void draw(QPainter& painter, QIcon::Mode mode) const override {
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const QColor colour = QApplication::palette().color(group, QPalette::ButtonText);
        stroke(painter, kStrokes[static_cast<std::size_t>(drawing_)], colour, 1.3);
    }

  private:
    Drawing drawing_;
};

class SignIcon : public PaintedIcon {
  public:
    explicit SignIcon(Sign sign) : sign_(sign) {}
    QIconEngine* clone() const override { return new SignIcon(sign_); }

  protected:
    void draw(QPainter& painter, QIcon::Mode) const override {
        const SignLook look = lookOf(sign_);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(look.colour));
        painter.drawEllipse(QPointF(8, 8), 7, 7);
        stroke(painter, look.strokes, Qt::white, 1.5);
    }

  private:
    Sign sign_;
};

}  // namespace

QIcon icon(Drawing drawing) {
    return QIcon(new DrawingIcon(drawing));
}

QIcon icon(Sign sign) {
    return QIcon(new SignIcon(sign));
}

}  // namespace bramblet
