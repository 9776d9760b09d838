#pragma once

#include "platform/FrontmostApplication.h"

namespace brisklog {

/// A desktop that tells ordinary programs nothing.
class UnavailableFrontmostApplication final : public FrontmostApplication {
public:
    [[nodiscard]] Availability availability() const override { return Availability::unavailable; }

    void beginWatching() override {}

    void endWatching() override {}

    [[nodiscard]] std::optional<DesktopApplication> current() override { return std::nullopt; }

    [[nodiscard]] std::optional<std::string> iconPng(const DesktopApplication&) override {
        return std::nullopt;
    }
};

} // namespace brisklog
