#pragma once

#include <QDBusArgument>
#include <QList>
#include <QString>

namespace brisklog {

/// One way by which a file belongs to a filter, in the portal's form.
struct PortalFilterRule {
    enum Kind : uint { pattern = 0, mediaType = 1 };

    uint kind = pattern;
    QString text;
};

/// A choice of files by name or type, in the portal's form.
struct PortalFileFilter {
    QString name;
    QList<PortalFilterRule> rules;
};

/// PDF documents; makes the types known to the bus as well.
[[nodiscard]] PortalFileFilter pdfFilter();

QDBusArgument& operator<<(QDBusArgument& argument, const PortalFilterRule& rule);
const QDBusArgument& operator>>(const QDBusArgument& argument, PortalFilterRule& rule);
QDBusArgument& operator<<(QDBusArgument& argument, const PortalFileFilter& filter);
const QDBusArgument& operator>>(const QDBusArgument& argument, PortalFileFilter& filter);

} // namespace brisklog
