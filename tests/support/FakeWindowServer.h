#pragma once

#include "platform/WindowServer.h"

#include <string>
#include <utility>
#include <vector>

namespace brisklog::test {

/// A window server whose buttons and trays the test controls.
class FakeWindowServer final : public WindowServer {
public:
    Subscription watchPointer(std::function<void()> pressed) override {
        m_pressed = std::move(pressed);
        return Subscription([this] { m_pressed = nullptr; });
    }

    Subscription watchTrays(std::function<void()> appeared) override {
        m_trayAppeared = std::move(appeared);
        return Subscription([this] { m_trayAppeared = nullptr; });
    }

    [[nodiscard]] bool hasTray() const override { return m_hasTray; }

    [[nodiscard]] bool knowsPointer() const override { return isPointerKnown; }

    void completeActivation(const std::string& token) override { completedActivations.push_back(token); }

    void keepOutOfTaskBar(std::uint32_t window) override { keptOutOfTaskBar.push_back(window); }

    void press() const {
        if (const auto pressed = m_pressed)
            pressed();
    }

    void addTray() {
        m_hasTray = true;
        if (const auto appeared = m_trayAppeared)
            appeared();
    }

    void removeTray() { m_hasTray = false; }

    [[nodiscard]] bool isPointerWatched() const { return m_pressed != nullptr; }

    bool isPointerKnown = true;
    std::vector<std::string> completedActivations;
    std::vector<std::uint32_t> keptOutOfTaskBar;

private:
    std::function<void()> m_pressed;
    std::function<void()> m_trayAppeared;
    bool m_hasTray = false;
};

} // namespace brisklog::test
