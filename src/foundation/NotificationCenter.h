#pragma once

#include "foundation/Observable.h"

#include <map>
#include <memory>
#include <string>

namespace brisklog {

/// Asks for the customer screens to be opened.
inline constexpr const char* openCustomerManagementNotification = "OpenCustomerManagement";

/// Carries named messages between parts of the program that do not know each other.
class NotificationCenter {
public:
    /// Calls `observer` at every `post` of that name until the subscription ends.
    Subscription observe(const std::string& name, std::function<void()> observer);

    /// Notifies all observers of that name before it returns; having none is not an error.
    void post(const std::string& name);

private:
    class Channel final : public ObservableObject {};

    std::map<std::string, std::unique_ptr<Channel>> m_channels;
};

} // namespace brisklog
