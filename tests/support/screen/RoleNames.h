#pragma once

#include <QColor>
#include <QString>

class QFont;

namespace brisklog::test {

/// The name of the font role with that size and weight; size and weight where there is none.
[[nodiscard]] QString fontRoleName(const QFont& font);

/// The name of the colour role that has the one colour in the light and the other in the dark scheme, with
/// its opacity, or of a role blended over a ground; else the roles or colours of both schemes. An invalid
/// colour stands for any.
[[nodiscard]] QString colorRoleName(const QColor& light, const QColor& dark);

/// Every font role with its size, line height and weight, and every colour role with its colour in the light
/// and the dark scheme, each on a line of its own.
[[nodiscard]] QString tableOfRoles();

} // namespace brisklog::test
