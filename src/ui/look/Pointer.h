#pragma once

#include <functional>

class QObject;

namespace brisklog {

/// Runs it once no mouse button is down: at once, or after the release. Never after the owner is destroyed.
/// For whatever moves things: what is under the pointer stays there between press and release.
void onceNoButtonIsDown(QObject& owner, std::function<void()> action);

} // namespace brisklog
