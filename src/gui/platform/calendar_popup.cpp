#include "gui/platform/calendar_popup.h"

#include "gui/platform/icons.h"
#include "gui/platform/qt_text.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QScreen>
#include <QTextCharFormat>
#include <QToolButton>
#include <QVBoxLayout>

namespace bramblet {

CalendarPopup::CalendarPopup(int firstDayOfWeek, QWidget* parent) : QFrame(parent, Qt::Popup) {
    setFrameShape(QFrame::StyledPanel);
    calendar_ = new QCalendarWidget;
    calendar_->setObjectName(u"MonthView1"_s);
    calendar_->setFirstDayOfWeek(static_cast<Qt::DayOfWeek>(firstDayOfWeek));
    calendar_->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    calendar_->setMinimumDate(QDate(100, 1, 1));
    calendar_->setMaximumDate(QDate(9999, 12, 31));
    // To an order, weekends are ordinary days; the heading is plain, with the program's arrows.
    QTextCharFormat plain;
    plain.setForeground(palette().text());
    calendar_->setWeekdayTextFormat(Qt::Saturday, plain);
    calendar_->setWeekdayTextFormat(Qt::Sunday, plain);
    const auto setArrow = [this](const char* button, Drawing drawing) {
        if (auto* arrow = calendar_->findChild<QToolButton*>(QLatin1String(button))) {
            arrow->setIcon(icon(drawing));
        }
    };
    setArrow("qt_calendar_prevmonth", Drawing::Previous);
    setArrow("qt_calendar_nextmonth", Drawing::Next);
    if (auto* bar = calendar_->findChild<QWidget*>(u"qt_calendar_navigationbar"_s)) {
        bar->setBackgroundRole(QPalette::Window);
        QPalette calm = QApplication::palette();
        calm.setColor(QPalette::HighlightedText, calm.color(QPalette::Text));
        for (auto* button : bar->findChildren<QToolButton*>())
            button->setPalette(calm);
    }
    // The arrow goes beside the month's name; below its last letter it looks like a comma.
    if (auto* month = calendar_->findChild<QToolButton*>(u"qt_calendar_monthbutton"_s)) {
        month->setStyleSheet(
            u"QToolButton { padding-right: 14px; }"
            "QToolButton::menu-indicator { subcontrol-origin: padding;"
            " subcontrol-position: center right; right: -1px; }"_s);
    }
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(1, 1, 1, 1);
    layout->addWidget(calendar_);
    const auto choose = [this](QDate date) {
        hide();
        const auto day = toDayCount({date.year(), date.month(), date.day()});
        if (day && chosen_) chosen_(*day);
    };
    connect(calendar_, &QCalendarWidget::clicked, this, choose);
    connect(calendar_, &QCalendarWidget::activated, this, [this, choose](QDate date) {
        if (isVisible()) choose(date);  // for the Enter key; a double click has already chosen
    });
}

void CalendarPopup::openUnder(QWidget* box, DayCount day, std::function<void(DayCount)> chosen) {
    chosen_ = std::move(chosen);
    const CivilDate date = toCivilDate(day);
    calendar_->setSelectedDate(QDate(date.year, date.month, date.day));
    adjustSize();
    QPoint place = box->mapToGlobal(QPoint(0, box->height()));
    const QRect screen = box->screen()->availableGeometry();
    const int rightmost = qMin(screen.right(), box->window()->frameGeometry().right()) - width();
    place.setX(qMax(screen.left(), qMin(place.x(), rightmost)));
    if (place.y() + height() > screen.bottom()) {
        place.setY(box->mapToGlobal(QPoint(0, 0)).y() - height());
    }
    move(place);
    show();
    calendar_->setFocus();
}

}  // namespace bramblet
