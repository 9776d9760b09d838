#pragma once

#include <functional>

namespace brisklog {

/// Light or dark, as preferred by the desktop or the user.
enum class ColorScheme { light, dark };

/// The desktop's own preference.
class SystemAppearance {
public:
    using Answer = std::function<void(ColorScheme)>;

    virtual ~SystemAppearance() = default;

    /// Asks the desktop; `answered` is called once, asynchronously, with light if there is no answer.
    virtual void ask(Answer answered) = 0;
};

} // namespace brisklog
