#include "FrontmostExpectations.h"

#include "platform/DesktopFixture.h"

namespace brisklog::test {

DesktopApplication application(const std::string& name, const std::string& identifier) {
    return {.localizedName = name, .bundleIdentifier = identifier};
}

DesktopApplication application(const std::string& name) { return application(name, name); }

bool becomesFrontmost(FrontmostApplication& frontmost, const std::optional<DesktopApplication>& expected) {
    return waitUntil([&] { return frontmost.current() == expected && frontmost.current() == expected; });
}

} // namespace brisklog::test
