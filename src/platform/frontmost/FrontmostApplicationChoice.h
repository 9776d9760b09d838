#pragma once

#include "platform/FrontmostApplication.h"

#include <functional>
#include <memory>
#include <vector>

namespace brisklog {

/// Tries one way of asking after the other and stays with the first that answers on this desktop.
class FirstAnsweringApplication final : public FrontmostApplication {
public:
    using Maker = std::function<std::unique_ptr<FrontmostApplication>()>;

    /// Each way is begun only when all before it have turned out unavailable. None at all is unavailable.
    explicit FirstAnsweringApplication(std::vector<Maker> ways);

    [[nodiscard]] Availability availability() const override;
    void beginWatching() override;
    void endWatching() override;
    [[nodiscard]] std::optional<DesktopApplication> current() override;
    [[nodiscard]] std::optional<std::string> iconPng(const DesktopApplication& application) override;

private:
    void tryNextWays();
    void hearAnnouncement();

    std::vector<Maker> m_ways;
    std::size_t m_nextWay = 0;
    bool m_isWatching = false;
    bool m_hasAnswered = false;
    std::unique_ptr<FrontmostApplication> m_way;
    Subscription m_subscription;
    /// Ways that gave up are kept: one of them may be in the midst of its announcement.
    std::vector<std::unique_ptr<FrontmostApplication>> m_givenUp;
};

/// Who tells the frontmost application on the running desktop. Under Wayland never the X11 way: the X server
/// there knows nothing of native windows, and their time would go to the program before.
[[nodiscard]] std::unique_ptr<FrontmostApplication> chooseFrontmostApplication();

} // namespace brisklog
