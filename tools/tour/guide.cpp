#include "tour/guide.h"

#include "gui/platform/theme.h"

#include <QApplication>
#include <QPainter>

#include <iostream>

namespace bramblet::tour {
namespace {

constexpr int kAir = 6;      // around the part of a window
constexpr int kInset = 10;   // of a number from the edge of what it points at
constexpr int kBubble = 26;  // a number's disc
constexpr int kShade = 40;   // darkening of what lies behind a dialog, of 255
constexpr int kNoShade = 0;

/// Part of a picture, in the window's own pixels.
QPixmap cut(const QPixmap& picture, const QRect& part) {
    const double scale = picture.devicePixelRatio();
    return picture.copy(
        QRectF(part.x() * scale, part.y() * scale, part.width() * scale, part.height() * scale)
            .toRect());
}

QPixmap framed(QPixmap picture) {
    QPainter painter(&picture);
    painter.setPen(borderColour());
    const QSize size = (picture.size() / picture.devicePixelRatio());
    painter.drawRect(0, 0, size.width() - 1, size.height() - 1);
    return picture;
}

}  // namespace

Guide::Guide(MainWindow& window, const Album& album)
    : window_(window), driver_(window), album_(album) {
    driver_.complain = [this](const QString& complaint) {
        std::cerr << qPrintable(complaint) << std::endl;
        complaints_ = true;
    };
}

void Guide::picture(const char* file) {
    picture(file, window_);
}

void Guide::picture(const char* file, QWidget& window) {
    expect(album_.keep(name(file), Driver::picture(window)), file);
}

void Guide::pictureWith(const char* file, QWidget& front) {
    expect(album_.keep(name(file), windowWith(front, kShade)), file);
}

void Guide::help(const char* file, QWidget& window) {
    keepForHelp(file, Driver::picture(window));
}

void Guide::help(const char* file, const std::vector<const char*>& controls) {
    keepForHelp(file, cut(Driver::picture(window_), around(controls, kAir)));
}

void Guide::helpWith(const char* file, QWidget& front, const std::vector<const char*>& controls,
                     int air) {
    const QRect above(front.mapToGlobal(QPoint()) - window_.mapToGlobal(QPoint()), front.size());
    const QRect part = around(controls, air) | above.adjusted(-air, -air, air, air);
    keepForHelp(file, cut(windowWith(front, kNoShade), part & window_.rect()));
}

void Guide::helpWithCallouts(const char* file, const std::vector<Callout>& callouts) {
    QPixmap whole = Driver::picture(window_);
    QPainter painter(&whole);
    painter.setRenderHint(QPainter::Antialiasing);
    QFont font = painter.font();
    font.setBold(true);
    font.setPixelSize(kBubble * 6 / 10);
    painter.setFont(font);
    int number = 0;
    for (const Callout& callout : callouts) {
        const QWidget* control = driver_.control(name(callout.control));
        const QRect area(control->mapTo(&window_, QPoint()), control->size());
        QRect bubble(0, 0, kBubble, kBubble);
        bubble.moveCenter(area.center());
        const int inwards = callout.outside ? -kInset - kBubble : kInset;
        if (callout.place & Qt::AlignLeft) bubble.moveLeft(area.left() + inwards);
        if (callout.place & Qt::AlignRight) bubble.moveRight(area.right() - inwards);
        if (callout.place & Qt::AlignBottom) bubble.moveBottom(area.bottom() - kInset);
        painter.setPen(QPen(Qt::white, 2));
        painter.setBrush(QColor(0xc2, 0x41, 0x0c));
        painter.drawEllipse(bubble);
        painter.drawText(bubble, Qt::AlignCenter, QString::number(++number));
    }
    painter.end();
    keepForHelp(file, whole);
}

void Guide::readme(const char* file, QWidget& window) {
    expect(album_.keepForReadme(name(file), framed(Driver::picture(window))), file);
}

QPixmap Guide::windowWith(QWidget& front, int shade) {
    QPixmap whole = Driver::picture(window_);
    const QPixmap above = Driver::picture(front);
    QPainter painter(&whole);
    const QPoint place = front.mapToGlobal(QPoint()) - window_.mapToGlobal(QPoint());
    painter.fillRect(window_.rect(), QColor(0, 0, 0, shade));
    painter.fillRect(QRect(place, front.size()).adjusted(-1, -1, 1, 1), borderColour());
    painter.drawPixmap(place, above);
    painter.end();
    return whole;
}

QRect Guide::around(const std::vector<const char*>& controls, int air) const {
    QRect part;
    for (const char* control : controls) {
        const QWidget* widget = driver_.control(name(control));
        part |= QRect(widget->mapTo(&window_, QPoint()), widget->size());
    }
    return part.adjusted(-air, -air, air, air) & window_.rect();
}

void Guide::keepForHelp(const char* file, const QPixmap& picture) {
    expect(album_.keepForHelp(name(file), framed(picture)), file);
}

void Guide::expect(bool kept, const char* file) {
    if (!kept) driver_.complain(name("The picture was not saved: ") + name(file));
}

}  // namespace bramblet::tour
