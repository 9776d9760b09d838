#pragma once

#include "FrontmostExpectations.h"
#include "WaylandDesktop.h"

#include <functional>

namespace brisklog::test {

/// A real compositor that is asked which application is in front, and the expectations that hold for every
/// compositor.
class CompositorTest : public WaylandDesktop {
protected:
    using MakeFrontmost = std::function<std::unique_ptr<FrontmostApplication>()>;

    void TearDown() override;

    /// Asks the made object from now on; it is available when this returns.
    void ask(const MakeFrontmost& makeFrontmost);

    void stopAsking() { m_frontmost.reset(); }

    FrontmostApplication& frontmost() { return *m_frontmost; }

    [[nodiscard]] bool becomes(const std::optional<DesktopApplication>& expected) {
        return becomesFrontmost(frontmost(), expected);
    }

    /// Installs the desktop entries of two programs, whose windows the expectation then brings to the front.
    void installPrograms();
    void expectProgramsByTheirEntries(const std::function<void(const QString& id)>& bringToFront);

    void expectTheDesktopAfterTheLastWindow();
    void expectUnavailableOnceItEnds();
    void expectNobodyWaitsWhileItHangs();

private:
    MakeFrontmost m_makeFrontmost;
    std::unique_ptr<FrontmostApplication> m_frontmost;
};

} // namespace brisklog::test
