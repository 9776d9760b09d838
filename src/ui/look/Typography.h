#pragma once

class QFont;

namespace brisklog {

/// The role of a text determines its size (in pixels, the number in the name) and weight.
enum class FontRole {
    figure22,
    figure22Bold,
    title17,
    heading15,
    body13,
    body13Medium,
    body13Semibold,
    body13Bold,
    tab12,
    tab12Medium,
    tab12Semibold,
    tab12Bold,
    caption11,
    caption11Medium,
    caption11Semibold,
};

[[nodiscard]] const QFont& fontFor(FontRole role);

/// The distance between the tops of successive lines.
[[nodiscard]] int lineHeight(FontRole role);

} // namespace brisklog
