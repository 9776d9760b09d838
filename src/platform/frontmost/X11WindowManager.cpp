#include "platform/frontmost/X11WindowManager.h"

#include <QSocketNotifier>
#include <algorithm>
#include <utility>

namespace brisklog {
namespace {

constexpr std::uint8_t errorResponse = 0;

} // namespace

X11WindowManager::X11WindowManager(std::function<void()> changed) : m_changed(std::move(changed)) {
    if (!m_server.isOpen())
        return;
    look();
    m_notifier =
        std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(m_server.raw()), QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(),
                     [this] { handleEvents(); });
    // Events that arrived with the replies are already in the queue and never make the socket readable again.
    QMetaObject::invokeMethod(
        m_notifier.get(), [this] { handleEvents(); }, Qt::QueuedConnection);
}

X11WindowManager::~X11WindowManager() = default;

void X11WindowManager::handleEvents() {
    bool hasEvent = false;
    while (const auto event = owned(xcb_poll_for_event(m_server.raw())))
        // Errors arrive here too: a manager's window may have gone before events could be selected on it.
        hasEvent = hasEvent || event->response_type != errorResponse;
    const bool isGone = !m_server.isOpen();
    if (isGone)
        m_notifier->setEnabled(false);
    if (!hasEvent && !isGone)
        return;
    const bool before = tellsActiveWindow();
    look();
    if (before != tellsActiveWindow())
        m_changed();
    QMetaObject::invokeMethod(
        m_notifier.get(), [this] { handleEvents(); }, Qt::QueuedConnection);
}

/// The root window's properties change whenever a window appears or disappears, so they are watched only
/// while there is no manager. The order matters: events are selected before looking, so that nothing is
/// missed.
void X11WindowManager::look() {
    select(m_server.root(), XCB_EVENT_MASK_PROPERTY_CHANGE);
    const xcb_window_t check = checkWindowOf(m_server.root());
    if (check != XCB_WINDOW_NONE)
        select(check, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    m_manager = findManager();
    if (m_manager != XCB_WINDOW_NONE)
        select(m_server.root(), XCB_EVENT_MASK_NO_EVENT);
    xcb_flush(m_server.raw());
}

/// A manager that ended without cleaning up leaves its property on the root window, but the window named
/// there no longer exists.
xcb_window_t X11WindowManager::findManager() const {
    const xcb_window_t check = checkWindowOf(m_server.root());
    if (check == XCB_WINDOW_NONE || checkWindowOf(check) != check || !isSupported(m_activeWindow))
        return XCB_WINDOW_NONE;
    return check;
}

xcb_window_t X11WindowManager::checkWindowOf(xcb_window_t window) const {
    const auto values = m_server.numbers(m_server.askFor(window, m_check));
    return values && !values->empty() ? values->front() : static_cast<xcb_window_t>(XCB_WINDOW_NONE);
}

bool X11WindowManager::isSupported(xcb_atom_t atom) const {
    const auto supported = m_server.numbers(m_server.askFor(m_server.root(), m_supported));
    return supported && std::ranges::find(*supported, atom) != supported->end();
}

void X11WindowManager::select(xcb_window_t window, std::uint32_t events) const {
    xcb_change_window_attributes(m_server.raw(), window, XCB_CW_EVENT_MASK, &events);
}

} // namespace brisklog
