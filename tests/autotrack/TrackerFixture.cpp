#include "TrackerFixture.h"

#include <QDateTime>

namespace brisklog::test {

std::vector<std::string> namesOf(const DailyAppUsage& day) {
    std::vector<std::string> names;
    for (const AppUsageSession& session : day.sessions)
        names.push_back(session.appName);
    return names;
}

Date inBerlin(const char* isoTime) {
    QDateTime local = QDateTime::fromString(QString::fromUtf8(isoTime), Qt::ISODate);
    local.setTimeZone(QTimeZone("Europe/Berlin"));
    return Date::fromSecondsSince1970(static_cast<double>(local.toSecsSinceEpoch()));
}

} // namespace brisklog::test
