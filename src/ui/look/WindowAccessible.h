#pragma once

#include <QString>

class QAccessibleInterface;
class QObject;

namespace brisklog {

/// For the toolkit's accessibility: windows that also list the menus and calendars open over them. The
/// toolkit leaves out popups, so that a screen reader could follow the focus into a menu, but not look around
/// in it.
QAccessibleInterface* windowAccessible(const QString& className, QObject* object);

} // namespace brisklog
