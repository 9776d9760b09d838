#include "platform/x11/X11Watcher.h"

#include "platform/x11/X11Connection.h"

#include <QSocketNotifier>
#include <array>
#include <cstring>
#include <string>
#include <xcb/xinput.h>

namespace brisklog {
namespace {

/// The highest response number an event can have; the top bit marks events sent by other programs.
constexpr std::uint8_t eventNumberMask = 0x7F;

} // namespace

X11Watcher::X11Watcher(Handlers handlers)
    : m_handlers(std::move(handlers)), m_connection(xcb_connect(nullptr, nullptr)) {
    if (xcb_connection_has_error(m_connection) == 0)
        connectToServer();
}

X11Watcher::~X11Watcher() {
    m_notifier.reset();
    xcb_disconnect(m_connection);
}

void X11Watcher::connectToServer() {
    m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
    m_traySelection = atom("_NET_SYSTEM_TRAY_S0");
    m_managerMessage = atom("MANAGER");
    // A new tray tells the root window so.
    const std::uint32_t mask = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(m_connection, m_root, XCB_CW_EVENT_MASK, &mask);
    if (const auto* const extension = xcb_get_extension_data(m_connection, &xcb_input_id);
        extension != nullptr && extension->present != 0) {
        m_inputExtension = extension->major_opcode;
        const auto version = owned(xcb_input_xi_query_version_reply(
            m_connection, xcb_input_xi_query_version(m_connection, 2, 0), nullptr));
    }
    xcb_flush(m_connection);
    m_notifier =
        std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(m_connection), QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(),
                     [this] { handleEvents(); });
}

std::uint32_t X11Watcher::atom(const char* name) const {
    const auto cookie = xcb_intern_atom(m_connection, 0, static_cast<std::uint16_t>(std::strlen(name)), name);
    const auto reply = owned(xcb_intern_atom_reply(m_connection, cookie, nullptr));
    return reply ? reply->atom : static_cast<std::uint32_t>(XCB_ATOM_NONE);
}

bool X11Watcher::hasTray() const {
    if (m_traySelection == XCB_ATOM_NONE)
        return false;
    const auto cookie = xcb_get_selection_owner(m_connection, m_traySelection);
    const auto reply = owned(xcb_get_selection_owner_reply(m_connection, cookie, nullptr));
    return reply && reply->owner != XCB_WINDOW_NONE;
}

void X11Watcher::watchPointer(bool enabled) {
    if (m_inputExtension == 0)
        return;

    struct {
        xcb_input_event_mask_t head;
        std::uint32_t mask;
    } request{};

    request.head.deviceid = XCB_INPUT_DEVICE_ALL_MASTER;
    request.head.mask_len = 1;
    request.mask = enabled ? XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS : 0;
    xcb_input_xi_select_events(m_connection, m_root, 1, &request.head);
    xcb_flush(m_connection);
}

void X11Watcher::keepOutOfTaskBar(std::uint32_t window) {
    if (m_notifier == nullptr)
        return;
    const std::array states{atom("_NET_WM_STATE_SKIP_TASKBAR"), atom("_NET_WM_STATE_SKIP_PAGER")};
    xcb_change_property(m_connection, XCB_PROP_MODE_APPEND, window, atom("_NET_WM_STATE"), XCB_ATOM_ATOM, 32,
                        states.size(), states.data());
    // Answered only once the server has it: the window is shown over another connection.
    const auto sync =
        owned(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
}

void X11Watcher::handleEvents() {
    while (const auto event = owned(xcb_poll_for_event(m_connection))) {
        const std::uint8_t number = event->response_type & eventNumberMask;
        if (number == XCB_GE_GENERIC) {
            const auto& generic = reinterpret_cast<const xcb_ge_generic_event_t&>(*event);
            if (generic.extension == m_inputExtension && generic.event_type == XCB_INPUT_RAW_BUTTON_PRESS)
                m_handlers.pointerPressed();
        } else if (number == XCB_CLIENT_MESSAGE) {
            const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(*event);
            if (message.type == m_managerMessage && message.data.data32[1] == m_traySelection)
                m_handlers.trayAppeared();
        }
    }
    // The server is gone: the toolkit notices by itself and ends the program.
    if (xcb_connection_has_error(m_connection) != 0)
        m_notifier->setEnabled(false);
}

} // namespace brisklog
