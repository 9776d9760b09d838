#pragma once

#include <memory>
#include <string>
#include <vector>
#include <wayland-server-core.h>

class QSocketNotifier;

namespace brisklog::test {

/// A compositor that shows nothing and sends whatever window events a test wants, in any order.
/// WAYLAND_DISPLAY points to it as long as it exists.
class FakeCompositor {
public:
    enum class Offer { nothing, windows };

    explicit FakeCompositor(Offer offer);
    ~FakeCompositor();
    FakeCompositor(const FakeCompositor&) = delete;
    FakeCompositor& operator=(const FakeCompositor&) = delete;

    /// How many clients are listening for windows at present.
    [[nodiscard]] std::size_t listeners() const { return m_managers.size(); }

    /// How many windows the only listener has not released.
    [[nodiscard]] std::size_t heldWindows() const { return m_windows.size(); }

    /// Send the protocol's events to the first listener.
    wl_resource* openWindow();
    void tellTitle(wl_resource* window, const std::string& title);
    void tellApplicationId(wl_resource* window, const std::string& id);
    void tellState(wl_resource* window, const std::vector<std::uint32_t>& states);
    void tellDone(wl_resource* window);
    void tellClosed(wl_resource* window);
    void tellFinished();
    void withdraw();

    /// Drops the connections of those who listen for windows, as compositors do to clients that do not read.
    void dropListeners();

    static constexpr std::uint32_t maximized = 0;
    static constexpr std::uint32_t activated = 2;

private:
    static void bind(wl_client* client, void* data, std::uint32_t version, std::uint32_t id);
    static int handleRequest(const void* implementation, void* resource, std::uint32_t request,
                             const wl_message* message, wl_argument* arguments);

    wl_display* m_display;
    wl_global* m_global = nullptr;
    std::vector<wl_resource*> m_managers;
    std::vector<wl_resource*> m_windows;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace brisklog::test
