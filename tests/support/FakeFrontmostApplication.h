#pragma once

#include "platform/FrontmostApplication.h"

#include <map>

namespace brisklog::test {

/// A desktop whose frontmost application is what the test says, with a record of what it was asked.
class FakeFrontmostApplication final : public FrontmostApplication {
public:
    [[nodiscard]] Availability availability() const override { return m_availability; }

    void beginWatching() override { isWatched = true; }

    void endWatching() override { isWatched = false; }

    [[nodiscard]] std::optional<DesktopApplication> current() override {
        ++timesAsked;
        return isWatched ? m_current : std::nullopt;
    }

    [[nodiscard]] std::optional<std::string> iconPng(const DesktopApplication& application) override {
        iconsAskedFor.push_back(application.bundleIdentifier.value_or(""));
        const auto found = icons.find(iconsAskedFor.back());
        return found == icons.end() ? std::nullopt : std::optional(found->second);
    }

    /// The application with this name and identifier comes to the front.
    void show(const std::string& name, const std::string& identifier) { show({name, identifier}); }

    void show(const DesktopApplication& application) { m_current = application; }

    /// No application is in front.
    void showNothing() { m_current.reset(); }

    void setAvailability(Availability availability) {
        announce();
        m_availability = availability;
    }

    /// By identifier; all other applications have no icon.
    std::map<std::string, std::string> icons;
    bool isWatched = false;
    int timesAsked = 0;
    std::vector<std::string> iconsAskedFor;

private:
    Availability m_availability = Availability::available;
    std::optional<DesktopApplication> m_current;
};

} // namespace brisklog::test
