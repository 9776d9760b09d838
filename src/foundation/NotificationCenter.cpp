#include "foundation/NotificationCenter.h"

namespace brisklog {

Subscription NotificationCenter::observe(const std::string& name, std::function<void()> observer) {
    auto& channel = m_channels[name];
    if (!channel)
        channel = std::make_unique<Channel>();
    return channel->observe(std::move(observer));
}

void NotificationCenter::post(const std::string& name) {
    if (const auto found = m_channels.find(name); found != m_channels.end())
        found->second->announce();
}

} // namespace brisklog
