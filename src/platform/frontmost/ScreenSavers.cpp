#include "platform/frontmost/ScreenSavers.h"

#include "platform/bus/DBusCall.h"

#include <array>

namespace brisklog {
namespace {

using namespace Qt::StringLiterals;

/// A screen saver's name on the bus, which is that of its interface too, and its object.
struct ScreenSaver {
    QString service;
    QString path;
};

/// KDE and others; GNOME; Xfce; MATE; Cinnamon.
const std::array screenSavers{
    ScreenSaver{u"org.freedesktop.ScreenSaver"_s, u"/org/freedesktop/ScreenSaver"_s},
    ScreenSaver{u"org.gnome.ScreenSaver"_s, u"/org/gnome/ScreenSaver"_s},
    ScreenSaver{u"org.xfce.ScreenSaver"_s, u"/org/xfce/ScreenSaver"_s},
    ScreenSaver{u"org.mate.ScreenSaver"_s, u"/org/mate/ScreenSaver"_s},
    ScreenSaver{u"org.cinnamon.ScreenSaver"_s, u"/org/cinnamon/ScreenSaver"_s},
};

/// One that is not running is not started.
QDBusMessage activeQuestion(const ScreenSaver& saver) {
    auto question = QDBusMessage::createMethodCall(saver.service, saver.path, saver.service, u"GetActive"_s);
    question.setAutoStartService(false);
    return question;
}

} // namespace

ScreenSavers::ScreenSavers(const QDBusConnection& bus) {
    m_watcher.setConnection(bus);
    m_watcher.setWatchMode(QDBusServiceWatcher::WatchForUnregistration);
    QObject::connect(&m_watcher, &QDBusServiceWatcher::serviceUnregistered, &m_context,
                     [this](const QString& service) { m_active.erase(service); });
    for (const ScreenSaver& saver : screenSavers) {
        m_watcher.addWatchedService(saver.service);
        const auto answered = [this, service = saver.service](const QDBusMessage& message) {
            note(service, message);
        };
        m_signals.push_back(std::make_unique<DBusSignal>(
            bus,
            DBusSignalAddress{
                .service = saver.service, .path = {}, .interface = saver.service, .name = u"ActiveChanged"_s},
            answered));
        callLater(bus, activeQuestion(saver), m_context, answered);
    }
}

/// Both an answer and a signal have the state as their argument; an error has a text.
void ScreenSavers::note(const QString& service, const QDBusMessage& message) {
    const QVariant state = message.arguments().value(0);
    if (state.metaType() != QMetaType::fromType<bool>())
        return;
    if (state.toBool())
        m_active.insert(service);
    else
        m_active.erase(service);
}

} // namespace brisklog
