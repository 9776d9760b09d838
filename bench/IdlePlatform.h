#pragma once

#include "platform/Log.h"
#include "platform/RunLoop.h"

namespace brisklog::bench {

/// Prints nothing, because the terminal would be measured too.
class SilentLog final : public Log {
public:
    void print(std::string_view /*line*/) override {}
};

/// No timer fires while something is measured.
class IdleRunLoop final : public RunLoop {
public:
    std::unique_ptr<Timer> repeatEvery(TimeInterval, std::function<void()>) override { return nullptr; }

    std::unique_ptr<Timer> runAfter(TimeInterval, std::function<void()>) override { return nullptr; }
};

} // namespace brisklog::bench
