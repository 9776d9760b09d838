#pragma once

#include <QPoint>
#include <QString>
#include <optional>

class QWidget;

namespace brisklog::test {

/// Takes the window in both schemes at one and at two pixels a point, and fails where one is a plain area, or
/// is not on its scheme's ground at `groundAt`. With BRISKLOG_PICTURES naming a folder the larger pictures
/// are kept there as NAME-light.png and NAME-dark.png, to be looked at.
void takePictures(QWidget& window, const QString& name, const std::optional<QPoint>& groundAt = {});

} // namespace brisklog::test
