// The signals with which a system ends its programs (Linux).
#pragma once

#include <functional>

class QObject;

namespace bramblet {

/// From now on SIGTERM, SIGHUP and SIGINT call `end`, from the event loop and as long as `receiver`
/// lives, instead of ending the program at once. One that is ignored stays ignored.
void onEndSignals(QObject& receiver, const std::function<void()>& end);

}  // namespace bramblet
