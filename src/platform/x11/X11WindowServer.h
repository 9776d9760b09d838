#pragma once

#include "platform/WindowServer.h"
#include "platform/x11/X11Connection.h"

#include <string>
#include <vector>

class QSocketNotifier;

namespace brisklog {

/// The X server, observed over a separate connection without grabbing anything.
class X11WindowServer final : public WindowServer {
public:
    X11WindowServer();
    ~X11WindowServer() override;

    Subscription watchPointer(std::function<void()> pressed) override;
    Subscription watchTrays(std::function<void()> appeared) override;
    [[nodiscard]] bool hasTray() const override;
    [[nodiscard]] bool knowsPointer() const override;
    void completeActivation(const std::string& token) override;
    void keepOutOfTaskBar(std::uint32_t window) override;

private:
    [[nodiscard]] std::vector<xcb_client_message_event_t> portions(const std::string& text,
                                                                   xcb_window_t sender) const;
    void findInputExtension();
    /// Selects raw events of all pointers from now on.
    void selectInput(std::uint32_t events) const;
    void handleEvents();
    void handleEvent(const xcb_generic_event_t& event) const;

    X11Connection m_server;
    xcb_atom_t m_traySelection = m_server.atom("_NET_SYSTEM_TRAY_S0");
    xcb_atom_t m_managerMessage = m_server.atom("MANAGER");
    std::uint8_t m_inputExtension = 0;
    std::function<void()> m_pressed;
    std::function<void()> m_trayAppeared;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace brisklog
