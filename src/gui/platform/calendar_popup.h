// The month calendar that opens under a date box.
#pragma once

#include "core/platform/dates.h"

#include <QFrame>

#include <functional>

class QCalendarWidget;

namespace bramblet {

/// Closes on Escape or a click elsewhere.
class CalendarPopup : public QFrame {
  public:
    /// `firstDayOfWeek` is 1 for Monday to 7 for Sunday.
    explicit CalendarPopup(int firstDayOfWeek, QWidget* parent);

    /// Opens under `box` at `day`; `chosen` is called with the day that is clicked.
    void openUnder(QWidget* box, DayCount day, std::function<void(DayCount)> chosen);

  private:
    QCalendarWidget* calendar_;
    std::function<void(DayCount)> chosen_;
};

}  // namespace bramblet
