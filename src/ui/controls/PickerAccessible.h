#pragma once

class QAccessibleInterface;
class QObject;
class QString;

namespace brisklog {

/// Describes a Picker to screen readers: the toolkit would call it by its current choice and never by its own
/// name. Null for every other object.
[[nodiscard]] QAccessibleInterface* pickerAccessible(const QString& className, QObject* object);

} // namespace brisklog
