#include "platform/pictures/PngParts.h"

#include <QIODevice>
#include <QtEndian>

namespace brisklog {
namespace {

constexpr qint64 signatureLength = 8;
/// Length and name; the part's bytes and their checksum follow.
constexpr qint64 headLength = 8;
constexpr qint64 checksumLength = 4;
/// The picture itself comes in parts of some kilobytes.
constexpr int mostParts = 1 << 20;

} // namespace

bool claimsMoreThanThereIs(QIODevice& png) {
    qint64 at = signatureLength;
    for (int count = 0; count < mostParts; ++count) {
        const QByteArray head = png.seek(at) ? png.read(headLength) : QByteArray();
        if (head.size() < headLength || head.endsWith("IEND"))
            return false;
        at += headLength + qint64{qFromBigEndian<quint32>(head.data())} + checksumLength;
        if (at > png.size())
            return true;
    }
    return true;
}

} // namespace brisklog
