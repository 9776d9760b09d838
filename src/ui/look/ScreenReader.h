#pragma once

#include <QAccessible>

class QString;
class QWidget;

namespace brisklog {

/// Describes our windows, labels and groups to screen readers as what they are; the toolkit would call most
/// of them fillers. Part of `installLook`.
void installScreenReaderSupport();

/// What screen readers take the widget for. For labels, scroll areas and plain widgets, and for buttons that
/// are something else.
void setAccessibleRole(QWidget& widget, QAccessible::Role role);

/// The role set for the widget, else that one.
[[nodiscard]] QAccessible::Role accessibleRoleOf(const QWidget& widget, QAccessible::Role otherwise);

/// Marks a label as the heading of what follows it. Screen readers jump from heading to heading.
template <class AnyLabel>
AnyLabel* asHeading(AnyLabel* label) {
    setAccessibleRole(*label, QAccessible::Heading);
    return label;
}

/// Makes screen readers say something that is visible elsewhere but does not have the focus: what has become
/// of a timer, an error. Nothing happens while there is none.
void announce(QWidget& from, const QString& text);

} // namespace brisklog
