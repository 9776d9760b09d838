#include "TrackerFixture.h"

#include <QDateTime>

namespace brisklog::test {

Date inBerlin(const char* isoTime) {
    QDateTime local = QDateTime::fromString(QString::fromUtf8(isoTime), Qt::ISODate);
    local.setTimeZone(QTimeZone("Europe/Berlin"));
    return Date{static_cast<double>(local.toSecsSinceEpoch()) - secondsFromUnixEpochToReference};
}

} // namespace brisklog::test
