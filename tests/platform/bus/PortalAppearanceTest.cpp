#include "platform/bus/PortalAppearance.h"

#include "platform/DesktopFixture.h"

#include <QElapsedTimer>
#include <QTimer>
#include <gmock/gmock.h>
#include <optional>

namespace brisklog::test {
namespace {

using namespace Qt::StringLiterals;

class PortalAppearanceTest : public DesktopWithBus {
public:
    [[nodiscard]] std::optional<ColorScheme> answer() {
        PortalAppearance appearance(bus());
        std::optional<ColorScheme> given;
        appearance.ask([&given](ColorScheme scheme) { given = scheme; });
        EXPECT_FALSE(given) << "the answer comes asynchronously";
        EXPECT_TRUE(waitUntil([&given] { return given.has_value(); }));
        return given;
    }
};

TEST_F(PortalAppearanceTest, theDesktopsDarkIsDark) {
    startPortal({u"scheme=1"_s});
    EXPECT_EQ(answer(), ColorScheme::dark);
    EXPECT_EQ(calls(), "Read org.freedesktop.appearance color-scheme\n");
}

TEST_F(PortalAppearanceTest, anAnswerWrappedOnceIsUnderstoodToo) {
    startPortal({u"scheme=1"_s, u"plain"_s});
    EXPECT_EQ(answer(), ColorScheme::dark);
}

TEST_F(PortalAppearanceTest, everythingElseIsLight) {
    startPortal({u"scheme=2"_s});
    EXPECT_EQ(answer(), ColorScheme::light);
}

TEST_F(PortalAppearanceTest, withoutAPortalItIsLight) { EXPECT_EQ(answer(), ColorScheme::light); }

TEST_F(PortalAppearanceTest, aSilentPortalIsLightAndKeepsNobodyWaiting) {
    startPortal({u"silent"_s});
    PortalAppearance appearance(bus());
    std::optional<ColorScheme> given;
    QElapsedTimer elapsed;
    elapsed.start();
    appearance.ask([&given](ColorScheme scheme) { given = scheme; });
    EXPECT_LT(elapsed.elapsed(), 1000);
    EXPECT_TRUE(waitUntil([&given] { return given.has_value(); }));
    EXPECT_EQ(given, ColorScheme::light);
}

using PortalAppearanceWithoutBus = Desktop;

TEST_F(PortalAppearanceWithoutBus, itIsLight) {
    PortalAppearance appearance;
    std::optional<ColorScheme> given;
    appearance.ask([&given](ColorScheme scheme) { given = scheme; });
    EXPECT_FALSE(given);
    EXPECT_TRUE(waitUntil([&given] { return given.has_value(); }));
    EXPECT_EQ(given, ColorScheme::light);
}

} // namespace
} // namespace brisklog::test
