#pragma once

#include "platform/frontmost/UserPresence.h"

namespace brisklog::test {

/// A user who is there unless the test says otherwise.
class FakeUserPresence final : public UserPresence {
public:
    void beginWatching() override { isWatched = true; }

    void endWatching() override { isWatched = false; }

    [[nodiscard]] bool isAway() const override { return away; }

    void confirm() override { ++confirmations; }

    bool away = false;
    bool isWatched = false;
    int confirmations = 0;
};

} // namespace brisklog::test
