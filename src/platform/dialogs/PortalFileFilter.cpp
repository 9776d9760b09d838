#include "platform/dialogs/PortalFileFilter.h"

#include <QDBusMetaType>

namespace brisklog {

using namespace Qt::StringLiterals;

PortalFileFilter pdfFilter() {
    qDBusRegisterMetaType<PortalFilterRule>();
    qDBusRegisterMetaType<QList<PortalFilterRule>>();
    qDBusRegisterMetaType<PortalFileFilter>();
    qDBusRegisterMetaType<QList<PortalFileFilter>>();
    return {u"PDF-Dokumente"_s,
            {{PortalFilterRule::pattern, u"*.pdf"_s}, {PortalFilterRule::mediaType, u"application/pdf"_s}}};
}

QDBusArgument& operator<<(QDBusArgument& argument, const PortalFilterRule& rule) {
    argument.beginStructure();
    argument << rule.kind << rule.text;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, PortalFilterRule& rule) {
    argument.beginStructure();
    argument >> rule.kind >> rule.text;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const PortalFileFilter& filter) {
    argument.beginStructure();
    argument << filter.name << filter.rules;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, PortalFileFilter& filter) {
    argument.beginStructure();
    argument >> filter.name >> filter.rules;
    argument.endStructure();
    return argument;
}

} // namespace brisklog
