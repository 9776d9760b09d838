#pragma once

#include <functional>

class QApplication;
class QObject;
class QVariantAnimation;

namespace brisklog {

/// Whether changes may be animated.
enum class Motion { full, reduced };

/// The motion setting from environment variables alone, without asking the desktop.
[[nodiscard]] Motion motionFromEnvironment();

/// Installs our style, fonts, tooltips (after 600 ms) and support for screen readers. Call once, before
/// creating widgets; `applyColorScheme` then sets the colours.
void installLook(QApplication& application, Motion motion);

/// Whether animations may run; false unless the look is installed.
[[nodiscard]] bool motionAllowed();

/// Animates from one value to the other, decelerating; calls `each` with every value and `ended` at the end.
/// The animation is a child of the owner and destroys itself. With reduced motion it jumps to the end at once
/// and returns null.
QVariantAnimation* glide(QObject& owner, double from, double to, int milliseconds,
                         std::function<void(double)> each, std::function<void()> ended = {});

} // namespace brisklog
