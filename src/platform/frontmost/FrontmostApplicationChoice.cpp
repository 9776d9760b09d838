#include "platform/frontmost/FrontmostApplicationChoice.h"

#include "platform/bus/LastingBus.h"
#include "platform/frontmost/DesktopFrontmostApplication.h"
#include "platform/frontmost/GnomeFrontmostWindow.h"
#include "platform/frontmost/KWinFrontmostWindow.h"
#include "platform/frontmost/WlrootsFrontmostWindow.h"
#include "platform/frontmost/X11FrontmostWindow.h"
#include "platform/x11/X11Connection.h"

#include <QByteArray>
#include <algorithm>
#include <functional>
#include <string_view>
#include <vector>
#include <xcb/randr.h>

namespace brisklog {
namespace {

bool hasExtension(const X11Connection& server, std::string_view name) {
    const auto question =
        xcb_query_extension(server.raw(), static_cast<std::uint16_t>(name.size()), name.data());
    const auto reply = owned(xcb_query_extension_reply(server.raw(), question, nullptr));
    return reply && reply->present != 0;
}

bool isNamedForWayland(const X11Connection& server, xcb_randr_output_t output) {
    const auto question = xcb_randr_get_output_info(server.raw(), output, XCB_CURRENT_TIME);
    const auto reply = owned(xcb_randr_get_output_info_reply(server.raw(), question, nullptr));
    if (!reply)
        return false;
    const std::string_view name(reinterpret_cast<const char*>(xcb_randr_get_output_info_name(reply.get())),
                                static_cast<std::size_t>(xcb_randr_get_output_info_name_length(reply.get())));
    return name.starts_with("XWAYLAND");
}

/// Whether the X server runs on Wayland: newer ones have an extension that says so, older ones use special
/// output names.
bool isXWayland(const X11Connection& server) {
    if (hasExtension(server, "XWAYLAND"))
        return true;
    if (!hasExtension(server, "RANDR"))
        return false;
    const auto question = xcb_randr_get_screen_resources_current(server.raw(), server.root());
    const auto reply = owned(xcb_randr_get_screen_resources_current_reply(server.raw(), question, nullptr));
    if (!reply)
        return false;
    const auto* const outputs = xcb_randr_get_screen_resources_current_outputs(reply.get());
    return std::any_of(outputs, outputs + reply->num_outputs,
                       [&server](xcb_randr_output_t output) { return isNamedForWayland(server, output); });
}

/// Whether the desktop runs on Wayland, even if this program is shown through its X server.
bool isWaylandSession() {
    if (!qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") || qgetenv("XDG_SESSION_TYPE") == "wayland")
        return true;
    const X11Connection server;
    return !server.isOpen() || isXWayland(server);
}

using Maker = std::function<std::unique_ptr<FrontmostWindow>(const QDBusConnection&)>;

template <class Way>
std::unique_ptr<FrontmostWindow> make(const QDBusConnection& /*bus*/) {
    return std::make_unique<Way>();
}

template <class Way>
std::unique_ptr<FrontmostWindow> makeOnBus(const QDBusConnection& bus) {
    return std::make_unique<Way>(bus);
}

/// In the order in which they are tried.
std::vector<Maker> waysOfAsking() {
    if (isWaylandSession())
        return {make<WlrootsFrontmostWindow>, makeOnBus<GnomeFrontmostWindow>,
                makeOnBus<KWinFrontmostWindow>};
    return {make<X11FrontmostWindow>};
}

/// Asks in the first way that works on this desktop; in the last one while none does, because what it needs
/// may start later.
class FirstAnsweringWindow final : public FrontmostWindow {
public:
    /// Takes at least one way; each is made only when all before it have turned out to be unavailable.
    explicit FirstAnsweringWindow(std::vector<Maker> ways) : m_ways(std::move(ways)) { choose(); }

    [[nodiscard]] Availability availability() const override { return m_chosen->availability(); }

    void beginWatching() override {
        m_isWatching = true;
        m_chosen->beginWatching();
    }

    void endWatching() override {
        m_isWatching = false;
        m_chosen->endWatching();
    }

    [[nodiscard]] const InFront& inFront() override { return m_chosen->inFront(); }

    [[nodiscard]] InFront behind(const OwnWindows& own) override { return m_chosen->behind(own); }

    [[nodiscard]] std::optional<std::string> windowIcon() override { return m_chosen->windowIcon(); }

private:
    struct Way {
        std::unique_ptr<FrontmostWindow> window;
        Subscription subscription;
    };

    void choose() {
        FrontmostWindow* const before = std::exchange(m_chosen, &firstThatAnswers());
        if (!m_isWatching || m_chosen == before)
            return;
        if (before != nullptr)
            before->endWatching();
        m_chosen->beginWatching();
    }

    FrontmostWindow& firstThatAnswers() {
        for (std::size_t index = 0;; ++index) {
            if (index == m_made.size())
                makeNextWay();
            FrontmostWindow& window = *m_made[index].window;
            if (window.availability() != Availability::unavailable || index + 1 == m_ways.size())
                return window;
        }
    }

    void makeNextWay() {
        auto window = m_ways[m_made.size()](m_bus.connection());
        auto subscription = window->observe([this] {
            choose();
            announce();
        });
        m_made.push_back({std::move(window), std::move(subscription)});
    }

    /// What was made for a bus that has gone is dead.
    void startOver() {
        m_chosen = nullptr;
        m_made.clear();
        choose();
        announce();
    }

    std::vector<Maker> m_ways;
    LastingBus m_bus{QDBusConnection::SessionBus, [this] { startOver(); }};
    bool m_isWatching = false;
    std::vector<Way> m_made;
    FrontmostWindow* m_chosen = nullptr;
};

} // namespace

std::unique_ptr<FrontmostApplication> chooseFrontmostApplication(OwnWindows own) {
    return std::make_unique<DesktopFrontmostApplication>(
        std::make_unique<FirstAnsweringWindow>(waysOfAsking()), std::make_unique<DesktopUserPresence>(),
        std::move(own));
}

} // namespace brisklog
