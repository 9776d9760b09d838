#pragma once

#include "platform/frontmost/FrontmostWindow.h"

namespace brisklog::test {

/// A desktop that shows what the test says.
class FakeFrontmostWindow final : public FrontmostWindow {
public:
    [[nodiscard]] Availability availability() const override { return told; }

    void beginWatching() override { isWatched = true; }

    void endWatching() override { isWatched = false; }

    [[nodiscard]] const InFront& inFront() override { return seen; }

    [[nodiscard]] InFront behind(const OwnWindows& /*own*/) override {
        ++timesAskedBehind;
        return uppermostOther;
    }

    Availability told = Availability::available;
    bool isWatched = false;
    InFront seen;
    InFront uppermostOther;
    int timesAskedBehind = 0;
};

} // namespace brisklog::test
