#include "platform/frontmost/FrontmostApplicationChoice.h"

#include "platform/frontmost/KWinFrontmostApplication.h"
#include "platform/frontmost/WlrootsFrontmostApplication.h"
#include "platform/frontmost/X11FrontmostApplication.h"
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

using Maker = std::function<std::unique_ptr<FrontmostApplication>()>;

template <class Way>
std::unique_ptr<FrontmostApplication> make() {
    return std::make_unique<Way>();
}

/// In the order in which they are tried. Further ways are added before the last one, which is kept while none
/// has answered: KWin may start later.
std::vector<Maker> waysOfAsking() {
    if (isWaylandSession())
        return {make<WlrootsFrontmostApplication>, make<KWinFrontmostApplication>};
    return {make<X11FrontmostApplication>};
}

/// Tries one way of asking after the other and keeps the first that works on this desktop.
class FirstAnsweringApplication final : public FrontmostApplication {
public:
    /// Takes at least one way; each is started only when all before it have turned out to be unavailable.
    explicit FirstAnsweringApplication(std::vector<Maker> ways) : m_ways(std::move(ways)) { tryNextWays(); }

    [[nodiscard]] Availability availability() const override { return m_way->availability(); }

    void beginWatching() override {
        m_isWatching = true;
        m_way->beginWatching();
    }

    void endWatching() override {
        m_isWatching = false;
        m_way->endWatching();
    }

    [[nodiscard]] std::optional<DesktopApplication> current() override { return m_way->current(); }

    [[nodiscard]] std::optional<std::string> iconPng(const DesktopApplication& application) override {
        return m_way->iconPng(application);
    }

private:
    /// The last way is kept even if it does not work yet: a window manager may start later.
    void tryNextWays() {
        while (m_nextWay < m_ways.size() && (!m_way || m_way->availability() == Availability::unavailable)) {
            if (m_way) {
                m_way->endWatching();
                m_givenUp.push_back(std::move(m_way));
            }
            m_way = m_ways[m_nextWay++]();
            m_subscription = m_way->observe([this] { handleAnnouncement(); });
            if (m_isWatching)
                m_way->beginWatching();
        }
        m_hasAnswered = availability() == Availability::available;
    }

    /// A way that has worked once is kept, even if it becomes unavailable.
    void handleAnnouncement() {
        if (!m_hasAnswered)
            tryNextWays();
        announce();
    }

    std::vector<Maker> m_ways;
    std::size_t m_nextWay = 0;
    bool m_isWatching = false;
    bool m_hasAnswered = false;
    std::unique_ptr<FrontmostApplication> m_way;
    Subscription m_subscription;
    /// Abandoned ways are kept alive, because one of them may be in the middle of its announcement.
    std::vector<std::unique_ptr<FrontmostApplication>> m_givenUp;
};

} // namespace

std::unique_ptr<FrontmostApplication> chooseFrontmostApplication() {
    return std::make_unique<FirstAnsweringApplication>(waysOfAsking());
}

} // namespace brisklog
