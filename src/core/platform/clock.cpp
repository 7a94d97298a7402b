#include "core/platform/clock.h"

#include <array>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <thread>

namespace bramblet {
namespace {

const std::tm& localTime() {
    const std::time_t now = std::time(nullptr);
    return *std::localtime(&now);
}

}  // namespace

std::string timeText(const Clock& clock) {
    const CivilDate day = toCivilDate(clock.today());
    const int second = clock.secondOfDay();
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02d %02d%02d%02d", day.year, day.month,
                  day.day, second / 3600, second / 60 % 60, second % 60);
    return text.data();
}

Clock systemClock() {
    return {[] {
                const std::tm& now = localTime();
                return *toDayCount({now.tm_year + 1900, now.tm_mon + 1, now.tm_mday});
            },
            [] { std::this_thread::sleep_for(std::chrono::seconds(1)); },
            [] {
                const std::tm& now = localTime();
                return (now.tm_hour * 60 + now.tm_min) * 60 + now.tm_sec;
            }};
}

}  // namespace bramblet
