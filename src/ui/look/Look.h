#pragma once

#include <functional>

class QApplication;
class QObject;
class QVariantAnimation;

namespace brisklog {

/// Whether things may move to explain a change.
enum class Motion { full, reduced };

/// What the environment says about motion; reads variables only, asks nobody.
[[nodiscard]] Motion motionFromEnvironment();

/// Gives the application our fonts, tooltips (after 600 ms) and focus habits. Called once, before the first
/// widget; `applyColorScheme` then chooses the colours.
void installLook(QApplication& application, Motion motion);

/// Whether an animation may run; without the look installed none does.
[[nodiscard]] bool motionAllowed();

/// Moves from one value to the other, slower and slower, calls `each` on the way and `ended` at the end. The
/// animation belongs to the owner and destroys itself; where nothing may move, all is done at once and there
/// is none.
QVariantAnimation* glide(QObject& owner, double from, double to, int milliseconds,
                         std::function<void(double)> each, std::function<void()> ended = {});

} // namespace brisklog
