#include "foundation/Calendar.h"

#include <QDateTime>
#include <cmath>

namespace brisklog {
namespace {

constexpr double millisecondsPerSecond = 1000;

qint64 unixMilliseconds(Date date) {
    return std::llround((date.secondsSinceReference + secondsFromUnixEpochToReference) *
                        millisecondsPerSecond);
}

} // namespace

Calendar::Calendar(QTimeZone zone) : m_zone(std::move(zone)) {}

Calendar Calendar::current() { return Calendar(QTimeZone::systemTimeZone()); }

Date Calendar::addingDays(Date date, int days) const {
    const QDateTime before = QDateTime::fromMSecsSinceEpoch(unixMilliseconds(date), m_zone);
    const QDateTime after = before.addDays(days);
    const double moved = static_cast<double>(after.toMSecsSinceEpoch() - before.toMSecsSinceEpoch());
    return date.addingSeconds(moved / millisecondsPerSecond);
}

} // namespace brisklog
