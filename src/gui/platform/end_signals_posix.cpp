#include "gui/platform/end_signals.h"

#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace bramblet {
namespace {

/// A signal may only be handed on: it comes in the middle of anything.
std::array<int, 2> handedOn{-1, -1};

void handOn(int) {
    const int error = errno;
    [[maybe_unused]] const auto written = ::write(handedOn[1], "", 1);
    errno = error;
}

}  // namespace

void onEndSignals(QObject& receiver, const std::function<void()>& end) {
    if (::pipe2(handedOn.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
    auto* notifier = new QSocketNotifier(handedOn[0], QSocketNotifier::Read, &receiver);
    QObject::connect(notifier, &QSocketNotifier::activated, &receiver, [end] {
        std::array<char, 16> read{};
        while (::read(handedOn[0], read.data(), read.size()) > 0)
            continue;
        end();
    });
    for (const int number : {SIGTERM, SIGHUP, SIGINT}) {
        struct sigaction action {};
        if (::sigaction(number, nullptr, &action) != 0 || action.sa_handler == SIG_IGN) continue;
        action.sa_handler = handOn;
        action.sa_flags = SA_RESTART;
        ::sigaction(number, &action, nullptr);
    }
}

}  // namespace bramblet
