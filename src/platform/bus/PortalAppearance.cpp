#include "platform/bus/PortalAppearance.h"

#include "platform/bus/DBusCall.h"

#include <QDBusVariant>
#include <utility>

namespace brisklog {
namespace {

using namespace Qt::StringLiterals;

constexpr int millisecondsForAnswer = 5000;
constexpr uint prefersDark = 1;

QDBusMessage question() {
    auto message = QDBusMessage::createMethodCall(u"org.freedesktop.portal.Desktop"_s,
                                                  u"/org/freedesktop/portal/desktop"_s,
                                                  u"org.freedesktop.portal.Settings"_s, u"Read"_s);
    message.setArguments({u"org.freedesktop.appearance"_s, u"color-scheme"_s});
    return message;
}

/// The portal wraps its values once more than documented, which may change.
QVariant unwrapped(QVariant value) {
    while (value.metaType() == QMetaType::fromType<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

/// An error has a text as its argument, which is not a preference.
ColorScheme schemeFrom(const QDBusMessage& answer) {
    const QVariant value = unwrapped(answer.arguments().value(0));
    const bool isDark = value.metaType() == QMetaType::fromType<uint>() && value.toUInt() == prefersDark;
    return isDark ? ColorScheme::dark : ColorScheme::light;
}

} // namespace

PortalAppearance::PortalAppearance(QDBusConnection bus) : m_bus(std::move(bus)) {}

void PortalAppearance::ask(Answer answered) {
    callLater(
        m_bus, question(), m_context,
        [answered = std::move(answered)](const QDBusMessage& answer) { answered(schemeFrom(answer)); },
        millisecondsForAnswer);
}

} // namespace brisklog
