// What the core asks of the clock; tests supply their own.
#pragma once

#include "core/platform/dates.h"

#include <functional>
#include <string>

namespace bramblet {

struct Clock {
    std::function<DayCount()> today;
    /// Returns when the clock has moved on by one second since the call.
    std::function<void()> waitOneSecond;
    /// Since midnight. For the names of files.
    std::function<int()> secondOfDay = [] { return 0; };
};

/// Now, for example "2026-11-21 143005".
std::string timeText(const Clock& clock);

/// The machine's clock, in local time. Its wait blocks.
Clock systemClock();

}  // namespace bramblet
