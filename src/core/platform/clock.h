// The two things that the core asks of the clock; tests supply their own.
#pragma once

#include "core/platform/dates.h"

#include <functional>

namespace bramblet {

struct Clock {
    std::function<DayCount()> today;
    /// Returns when the clock has moved on by one second since the call.
    std::function<void()> waitOneSecond;
};

/// The machine's clock, in local time. Its wait blocks.
Clock systemClock();

}  // namespace bramblet
