#pragma once

#include <QPoint>
#include <QString>
#include <optional>

class QWidget;

namespace brisklog::test {

/// Takes pictures of the window in both schemes at one and at two pixels per point. Fails when one is a plain
/// area or does not have its scheme's ground colour at `groundAt`. If BRISKLOG_PICTURES names a folder, the
/// larger pictures are kept there for inspection as NAME-light.png and NAME-dark.png. The drawing must be the
/// one accepted in tests/drawn/NAME.txt.
void takePictures(QWidget& window, const QString& name, const std::optional<QPoint>& groundAt = {});
/// The same without the drawing, for what looks different each time.
void takePicturesOnly(QWidget& window, const QString& name, const std::optional<QPoint>& groundAt = {});

} // namespace brisklog::test
