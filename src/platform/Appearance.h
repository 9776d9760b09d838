#pragma once

#include <functional>

namespace brisklog {

/// Light or dark, as the desktop or the user prefers it.
enum class ColorScheme { light, dark };

/// The desktop's own preference.
class SystemAppearance {
public:
    using Answer = std::function<void(ColorScheme)>;

    virtual ~SystemAppearance() = default;

    /// Asks the desktop; `answered` is called once, later, with light when it has no answer.
    virtual void ask(Answer answered) = 0;
};

} // namespace brisklog
