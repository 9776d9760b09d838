#pragma once

#include <QColor>
#include <QPointer>
#include <functional>

class QVariantAnimation;

namespace brisklog {

/// The ground of what has just come, which fades away once, so that the eye finds it. With reduced motion
/// there is none.
class Newcomer final {
public:
    /// Starts to fade; `changed` is called whenever it is to be painted anew. The owner must be what has
    /// this.
    void appear(QObject& owner, std::function<void()> changed);

    /// To be painted over the usual ground; transparent in the end.
    [[nodiscard]] QColor ground() const;

private:
    double m_strength = 0;
    QPointer<QVariantAnimation> m_fading;
};

} // namespace brisklog
