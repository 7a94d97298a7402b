#include "tour/guide.h"

#include "driver/inspection.h"

#include <QAbstractButton>
#include <QApplication>
#include <QPainter>
#include <QStatusBar>
#include <QTest>

#include <iostream>

namespace bramblet::tour {
namespace {

constexpr int kAir = 6;      // around the part of a window
constexpr int kInset = 10;   // of a number from the edge of what it points at
constexpr int kBubble = 26;  // a number's disc
constexpr int kShade = 40;   // darkening of what lies behind a dialog, of 255
constexpr int kNoShade = 0;
constexpr int kHelpWidth = 1360;  // of the help's text, at twice the scale
constexpr int kReadmeWidth = 1600;

/// Part of a picture, in the window's own pixels.
QPixmap cut(const QPixmap& picture, const QRect& part) {
    const double scale = picture.devicePixelRatio();
    return picture.copy(
        QRectF(part.x() * scale, part.y() * scale, part.width() * scale, part.height() * scale)
            .toRect());
}

QPixmap framed(QPixmap picture) {
    QPainter painter(&picture);
    painter.setPen(QApplication::palette().color(QPalette::Mid));
    const QSize size = (picture.size() / picture.devicePixelRatio());
    painter.drawRect(0, 0, size.width() - 1, size.height() - 1);
    return picture;
}

}  // namespace

Guide::Guide(MainWindow& window, const Album& album)
    : Driver(window), window_(window), album_(album) {
    complain = [this](const QString& complaint) {
        std::cerr << qPrintable(complaint) << std::endl;
        complaints_ = true;
    };
}

void Guide::picture(const QString& file, QWidget& window) {
    expect(album_.keep(file, Driver::picture(window)), file);
    inspect(window);
}

void Guide::inspect(const QWidget& window) {
    for (const QString& shortcoming : shortcomingsOf(window))
        complain(shortcoming);
}

void Guide::pictureWith(const QString& file, QWidget& front) {
    expect(album_.keep(file, windowWith(front, kShade)), file);
    inspect(front);
}

void Guide::pictureOfNext(const QString& file, QMessageBox::StandardButton button,
                          const QString& helpFile) {
    onNextDialog([=, this](QWidget& dialog) {
        if (dialog.parentWidget() == &window_) {
            pictureWith(file, dialog);
        } else {
            picture(file, dialog);
        }
        if (!helpFile.isEmpty()) help(helpFile, dialog);
        qobject_cast<QMessageBox*>(&dialog)->button(button)->click();
    });
}

void Guide::expectStatus(const QString& start) {
    constexpr int kPatience = 5000;  // milliseconds: some lines come when nothing else goes on
    const auto line = [&] { return window_.statusBar()->currentMessage(); };
    if (!QTest::qWaitFor([&] { return line().startsWith(start); }, kPatience))
        complain("The status line says \"" + line() + "\"");
}

void Guide::help(const QString& file, QWidget& window) {
    keepForHelp(file, Driver::picture(window));
}

void Guide::help(const QString& file, const std::vector<const char*>& controls) {
    keepForHelp(file, cut(Driver::picture(window_), around(controls, kAir)));
}

void Guide::helpWith(const QString& file, QWidget& front, const std::vector<const char*>& controls,
                     int air) {
    const QRect above(front.mapToGlobal(QPoint()) - window_.mapToGlobal(QPoint()), front.size());
    const QRect part = around(controls, air) | above.adjusted(-air, -air, air, air);
    keepForHelp(file, cut(windowWith(front, kNoShade), part & window_.rect()));
}

void Guide::helpWithCallouts(const QString& file, const std::vector<Callout>& callouts) {
    QPixmap whole = Driver::picture(window_);
    QPainter painter(&whole);
    painter.setRenderHint(QPainter::Antialiasing);
    QFont font = painter.font();
    font.setBold(true);
    font.setPixelSize(kBubble * 6 / 10);
    painter.setFont(font);
    int number = 0;
    for (const Callout& callout : callouts) {
        const QWidget* target = control(callout.control);
        const QRect area(target->mapTo(&window_, QPoint()), target->size());
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

void Guide::readme(const QString& file, QWidget& window) {
    expect(album_.keepFor("pictures", file, framed(Driver::picture(window)), kReadmeWidth), file);
}

QPixmap Guide::windowWith(QWidget& front, int shade) {
    QPixmap whole = Driver::picture(window_);
    const QPixmap above = Driver::picture(front);
    QPainter painter(&whole);
    const QPoint place = front.mapToGlobal(QPoint()) - window_.mapToGlobal(QPoint());
    painter.fillRect(window_.rect(), QColor(0, 0, 0, shade));
    painter.fillRect(QRect(place, front.size()).adjusted(-1, -1, 1, 1),
                     QApplication::palette().color(QPalette::Mid));
    painter.drawPixmap(place, above);
    painter.end();
    return whole;
}

QRect Guide::around(const std::vector<const char*>& controls, int air) const {
    QRect part;
    for (const char* each : controls) {
        const QWidget* widget = control(each);
        part |= QRect(widget->mapTo(&window_, QPoint()), widget->size());
    }
    return part.adjusted(-air, -air, air, air) & window_.rect();
}

void Guide::keepForHelp(const QString& file, const QPixmap& picture) {
    expect(album_.keepFor("help", file, framed(picture), kHelpWidth), file);
}

void Guide::expect(bool kept, const QString& file) {
    if (!kept) complain("The picture was not saved: " + file);
}

}  // namespace bramblet::tour
