#include "FakeCompositor.h"

#include "platform/frontmost/ForeignToplevelProtocol.h"

#include <QSocketNotifier>
#include <algorithm>
#include <cstdlib>
#include <filesystem>

namespace brisklog::test {
namespace {

using foreigntoplevel::HandleEvent;
using foreigntoplevel::ManagerEvent;

template <class Event, class... Arguments>
void post(wl_resource* resource, Event event, Arguments... arguments) {
    wl_resource_post_event(resource, static_cast<std::uint32_t>(event), arguments...);
    wl_client_flush(wl_resource_get_client(resource));
}

/// Removes the resource from the list it is on.
void forget(wl_resource* resource) {
    std::erase(*static_cast<std::vector<wl_resource*>*>(wl_resource_get_user_data(resource)), resource);
}

} // namespace

FakeCompositor::FakeCompositor(Offer offer) : m_display(wl_display_create()) {
    std::filesystem::create_directories(std::getenv("XDG_RUNTIME_DIR"));
    ::setenv("WAYLAND_DISPLAY", wl_display_add_socket_auto(m_display), 1);
    if (offer == Offer::windows)
        m_global = wl_global_create(m_display, &foreigntoplevel::manager, 1, this, bind);
    auto* const loop = wl_display_get_event_loop(m_display);
    m_notifier = std::make_unique<QSocketNotifier>(wl_event_loop_get_fd(loop), QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this, loop] {
        wl_event_loop_dispatch(loop, 0);
        wl_display_flush_clients(m_display);
    });
}

FakeCompositor::~FakeCompositor() {
    m_notifier.reset();
    wl_display_destroy_clients(m_display);
    wl_display_destroy(m_display);
    ::unsetenv("WAYLAND_DISPLAY");
}

void FakeCompositor::bind(wl_client* client, void* data, std::uint32_t version, std::uint32_t id) {
    auto& self = *static_cast<FakeCompositor*>(data);
    auto* const resource =
        wl_resource_create(client, &foreigntoplevel::manager, static_cast<int>(version), id);
    wl_resource_set_dispatcher(resource, handleRequest, nullptr, &self.m_managers, forget);
    self.m_managers.push_back(resource);
}

/// The only request expected is the one that releases a window.
int FakeCompositor::handleRequest(const void* /*implementation*/, void* resource, std::uint32_t request,
                                  const wl_message* /*message*/, wl_argument* /*arguments*/) {
    if (request == foreigntoplevel::destroyHandle)
        wl_resource_destroy(static_cast<wl_resource*>(resource));
    return 0;
}

wl_resource* FakeCompositor::openWindow() {
    auto* const manager = m_managers.front();
    auto* const window = wl_resource_create(wl_resource_get_client(manager), &foreigntoplevel::handle, 1, 0);
    wl_resource_set_dispatcher(window, handleRequest, nullptr, &m_windows, forget);
    m_windows.push_back(window);
    post(manager, ManagerEvent::toplevel, window);
    return window;
}

void FakeCompositor::tellTitle(wl_resource* window, const std::string& title) {
    post(window, HandleEvent::title, title.c_str());
}

void FakeCompositor::tellApplicationId(wl_resource* window, const std::string& id) {
    post(window, HandleEvent::applicationId, id.c_str());
}

void FakeCompositor::tellState(wl_resource* window, const std::vector<std::uint32_t>& states) {
    wl_array array;
    wl_array_init(&array);
    for (const std::uint32_t state : states)
        *static_cast<std::uint32_t*>(wl_array_add(&array, sizeof state)) = state;
    post(window, HandleEvent::state, &array);
    wl_array_release(&array);
}

void FakeCompositor::tellDone(wl_resource* window) { post(window, HandleEvent::done); }

void FakeCompositor::tellClosed(wl_resource* window) { post(window, HandleEvent::closed); }

void FakeCompositor::tellFinished() { post(m_managers.front(), ManagerEvent::finished); }

void FakeCompositor::withdraw() {
    wl_global_destroy(m_global);
    m_global = nullptr;
    wl_display_flush_clients(m_display);
}

void FakeCompositor::dropListeners() {
    while (!m_managers.empty())
        wl_client_destroy(wl_resource_get_client(m_managers.front()));
}

} // namespace brisklog::test
