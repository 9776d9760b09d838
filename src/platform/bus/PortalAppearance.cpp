#include "platform/bus/PortalAppearance.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
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

/// The portal wraps its values once more than it says, and may stop to do so.
QVariant unwrapped(QVariant value) {
    while (value.metaType() == QMetaType::fromType<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

ColorScheme schemeFrom(const QDBusMessage& reply) {
    if (reply.type() != QDBusMessage::ReplyMessage)
        return ColorScheme::light;
    const QVariant value = unwrapped(reply.arguments().value(0));
    const bool isDark = value.metaType() == QMetaType::fromType<uint>() && value.toUInt() == prefersDark;
    return isDark ? ColorScheme::dark : ColorScheme::light;
}

} // namespace

PortalAppearance::PortalAppearance(QDBusConnection bus) : m_bus(std::move(bus)) {}

void PortalAppearance::ask(Answer answered) {
    // A call without a bus would never end, not even with an error.
    if (!m_bus.isConnected()) {
        QMetaObject::invokeMethod(
            &m_context, [answered] { answered(ColorScheme::light); }, Qt::QueuedConnection);
        return;
    }
    auto* const watcher =
        new QDBusPendingCallWatcher(m_bus.asyncCall(question(), millisecondsForAnswer), &m_context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, &m_context, [watcher, answered] {
        watcher->deleteLater();
        answered(schemeFrom(watcher->reply()));
    });
}

} // namespace brisklog
