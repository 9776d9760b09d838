#include "platform/loop/SystemClock.h"

#include <chrono>

namespace brisklog {

Date SystemClock::now() const {
    const std::chrono::duration<double> sinceUnixEpoch = std::chrono::system_clock::now().time_since_epoch();
    return Date::fromSecondsSince1970(sinceUnixEpoch.count());
}

} // namespace brisklog
