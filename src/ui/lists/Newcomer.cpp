#include "ui/lists/Newcomer.h"

#include "ui/look/Look.h"
#include "ui/look/Palette.h"

#include <QVariantAnimation>
#include <utility>

namespace brisklog {
namespace {

/// Longer than other movements, because nobody is waiting for it: the eye has to find it first.
constexpr int fadeMilliseconds = 1200;
constexpr double opacityAtFirst = 0.2;

} // namespace

void Newcomer::appear(QObject& owner, std::function<void()> changed) {
    // The one before may still be fading.
    delete m_fading;
    const auto fade = [this, changed = std::move(changed)](double strength) {
        m_strength = strength;
        changed();
    };
    fade(1);
    m_fading = glide(owner, 1, 0, fadeMilliseconds, fade);
}

QColor Newcomer::ground() const {
    return withOpacity(Palette::current().blueFill, opacityAtFirst * m_strength);
}

} // namespace brisklog
