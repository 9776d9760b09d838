#include "platform/loop/SystemClock.h"

#include "foundation/Calendar.h"

#include <QLocale>
#include <chrono>

namespace brisklog {
namespace {

QTimeZone currentZone() {
    const QTimeZone zone = QTimeZone::systemTimeZone();
    if (zone.isValid())
        return zone;
    // TZ may name a file, which the toolkit does not read: at least the current offset is then right.
    return QTimeZone(QDateTime::currentDateTime().offsetFromUtc());
}

} // namespace

Date SystemClock::now() const {
    const std::chrono::duration<double> sinceUnixEpoch = std::chrono::system_clock::now().time_since_epoch();
    return Date::fromSecondsSince1970(sinceUnixEpoch.count());
}

Calendar SystemClock::calendar() const { return Calendar(currentZone(), QLocale::system().firstDayOfWeek()); }

} // namespace brisklog
