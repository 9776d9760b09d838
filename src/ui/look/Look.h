#pragma once

class QApplication;

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

} // namespace brisklog
