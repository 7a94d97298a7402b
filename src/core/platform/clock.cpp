#include "core/platform/clock.h"

#include <chrono>
#include <ctime>
#include <thread>

namespace bramblet {

Clock systemClock() {
    return {[] {
                const std::time_t now = std::time(nullptr);
                const std::tm* local = std::localtime(&now);
                return *toDayCount({local->tm_year + 1900, local->tm_mon + 1, local->tm_mday});
            },
            [] { std::this_thread::sleep_for(std::chrono::seconds(1)); }};
}

}  // namespace bramblet
