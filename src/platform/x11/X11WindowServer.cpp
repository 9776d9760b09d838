#include "platform/x11/X11WindowServer.h"

#include <QSocketNotifier>
#include <array>
#include <string>
#include <utility>
#include <xcb/xinput.h>

namespace brisklog {
namespace {

/// Extracts the event number; the top bit marks events sent by other programs.
constexpr std::uint8_t eventNumberMask = 0x7F;

/// In the notation of startup messages, in which a backslash goes before whatever would end the text.
std::string endOfActivation(const std::string& token) {
    std::string message = "remove: ID=\"";
    for (const char letter : token) {
        if (letter == '"' || letter == '\\')
            message += '\\';
        message += letter;
    }
    return message + '"';
}

} // namespace

X11WindowServer::X11WindowServer() {
    if (!m_server.isOpen())
        return;
    // A new tray announces itself on the root window.
    const std::uint32_t mask = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(m_server.raw(), m_server.root(), XCB_CW_EVENT_MASK, &mask);
    findInputExtension();
    xcb_flush(m_server.raw());
    m_notifier =
        std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(m_server.raw()), QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(),
                     [this] { handleEvents(); });
}

X11WindowServer::~X11WindowServer() = default;

void X11WindowServer::findInputExtension() {
    const auto* const extension = xcb_get_extension_data(m_server.raw(), &xcb_input_id);
    if (extension == nullptr || extension->present == 0)
        return;
    m_inputExtension = extension->major_opcode;
    const auto question = xcb_input_xi_query_version(m_server.raw(), 2, 0);
    const auto version = owned(xcb_input_xi_query_version_reply(m_server.raw(), question, nullptr));
}

Subscription X11WindowServer::watchPointer(std::function<void()> pressed) {
    m_pressed = std::move(pressed);
    selectInput(XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS);
    return Subscription([this] {
        m_pressed = nullptr;
        selectInput(0);
    });
}

Subscription X11WindowServer::watchTrays(std::function<void()> appeared) {
    m_trayAppeared = std::move(appeared);
    return Subscription([this] { m_trayAppeared = nullptr; });
}

bool X11WindowServer::hasTray() const {
    if (m_traySelection == XCB_ATOM_NONE)
        return false;
    const auto question = xcb_get_selection_owner(m_server.raw(), m_traySelection);
    const auto reply = owned(xcb_get_selection_owner_reply(m_server.raw(), question, nullptr));
    return reply && reply->owner != XCB_WINDOW_NONE;
}

void X11WindowServer::selectInput(std::uint32_t events) const {
    if (m_inputExtension == 0)
        return;

    struct {
        xcb_input_event_mask_t head;
        std::uint32_t mask;
    } request{};

    request.head.deviceid = XCB_INPUT_DEVICE_ALL_MASTER;
    request.head.mask_len = 1;
    request.mask = events;
    xcb_input_xi_select_events(m_server.raw(), m_server.root(), 1, &request.head);
    xcb_flush(m_server.raw());
}

/// Compositors start X servers too, for programs like this one; there, only events over our windows arrive.
bool X11WindowServer::knowsPointer() const {
    return m_server.isOpen() && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

/// Sent to everyone, in portions of one event, from a window made for this message.
void X11WindowServer::completeActivation(const std::string& token) {
    const xcb_window_t sender = xcb_generate_id(m_server.raw());
    xcb_create_window(m_server.raw(), 0, sender, m_server.root(), 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                      XCB_COPY_FROM_PARENT, 0, nullptr);
    for (const xcb_client_message_event_t& part : portions(endOfActivation(token), sender))
        xcb_send_event(m_server.raw(), 0, m_server.root(), XCB_EVENT_MASK_PROPERTY_CHANGE,
                       reinterpret_cast<const char*>(&part));
    xcb_destroy_window(m_server.raw(), sender);
    xcb_flush(m_server.raw());
}

/// The text with its final zero, cut into events; the first one has a type of its own.
std::vector<xcb_client_message_event_t> X11WindowServer::portions(const std::string& text,
                                                                  xcb_window_t sender) const {
    std::vector<xcb_client_message_event_t> events;
    constexpr std::size_t length = sizeof(xcb_client_message_data_t);
    for (std::size_t start = 0; start <= text.size(); start += length) {
        xcb_client_message_event_t event{};
        event.response_type = XCB_CLIENT_MESSAGE;
        event.format = 8;
        event.window = sender;
        event.type = m_server.atom(start == 0 ? "_NET_STARTUP_INFO_BEGIN" : "_NET_STARTUP_INFO");
        text.copy(reinterpret_cast<char*>(event.data.data8), length, start);
        events.push_back(event);
    }
    return events;
}

void X11WindowServer::keepOutOfTaskBar(std::uint32_t window) {
    if (m_notifier == nullptr)
        return;
    const std::array states{m_server.atom("_NET_WM_STATE_SKIP_TASKBAR"),
                            m_server.atom("_NET_WM_STATE_SKIP_PAGER")};
    xcb_change_property(m_server.raw(), XCB_PROP_MODE_APPEND, window, m_server.atom("_NET_WM_STATE"),
                        XCB_ATOM_ATOM, 32, states.size(), states.data());
    // Waits until the server has processed it, because the window is shown over another connection.
    const auto sync =
        owned(xcb_get_input_focus_reply(m_server.raw(), xcb_get_input_focus(m_server.raw()), nullptr));
}

void X11WindowServer::handleEvents() {
    while (const auto event = owned(xcb_poll_for_event(m_server.raw())))
        handleEvent(*event);
    // When the server has gone, the toolkit notices by itself and ends the program.
    if (!m_server.isOpen())
        m_notifier->setEnabled(false);
}

/// Calls copies, because a callback may end its own subscription.
void X11WindowServer::handleEvent(const xcb_generic_event_t& event) const {
    const std::uint8_t number = event.response_type & eventNumberMask;
    if (number == XCB_GE_GENERIC) {
        const auto& input = reinterpret_cast<const xcb_ge_generic_event_t&>(event);
        const bool isPress =
            input.extension == m_inputExtension && input.event_type == XCB_INPUT_RAW_BUTTON_PRESS;
        if (const auto pressed = m_pressed; isPress && pressed)
            pressed();
    } else if (number == XCB_CLIENT_MESSAGE) {
        const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(event);
        const bool isTray = message.type == m_managerMessage && message.data.data32[1] == m_traySelection;
        if (const auto appeared = m_trayAppeared; isTray && appeared)
            appeared();
    }
}

} // namespace brisklog
