#include "platform/frontmost/GnomeFrontmostWindow.h"

#include "FakeDesktopService.h"
#include "FrontmostExpectations.h"
#include "platform/DesktopFixture.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <gmock/gmock.h>

namespace brisklog::test {

/// A window as the extension reports it.
struct ReportedWindow {
    QString id;
    QString name;
    uint process = 0;
};

QDBusArgument& operator<<(QDBusArgument& argument, const ReportedWindow& window) {
    argument.beginStructure();
    argument << window.id << window.name << window.process;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, ReportedWindow& window) {
    argument.beginStructure();
    argument >> window.id >> window.name >> window.process;
    argument.endStructure();
    return argument;
}

namespace {

using namespace Qt::StringLiterals;
using Availability = FrontmostApplication::Availability;
using Report = QList<ReportedWindow>;

constexpr double active = 1;
constexpr double inactive = 2;

/// GNOME's shell with our extension, as far as they are asked.
class GnomeFrontmostWindowTest : public DesktopWithBus {
protected:
    void SetUp() override {
        DesktopWithBus::SetUp();
        qDBusRegisterMetaType<ReportedWindow>();
        qDBusRegisterMetaType<Report>();
    }

    void TearDown() override {
        m_frontmost.reset();
        m_shell.reset();
        DesktopWithBus::TearDown();
    }

    void startShell() {
        m_shell.emplace(u"org.gnome.Shell"_s, [this](const QDBusMessage& call) { return answer(call); });
    }

    void endShell() { m_shell.reset(); }

    FakeDesktopService& shell() { return *m_shell; }

    FrontmostApplication& frontmost() { return *m_frontmost; }

    void watch() {
        m_frontmost = applicationsBy<GnomeFrontmostWindow>(bus());
        frontmost().beginWatching();
    }

    void setExtension(const QVariantMap& information) {
        extension = information;
        shell().emitSignal(u"/org/gnome/Shell"_s, u"org.gnome.Shell.Extensions"_s, u"ExtensionStateChanged"_s,
                           {u"brisklog@brisklog.example"_s, information});
    }

    void tell(const Report& report) {
        shell().emitSignal(u"/example/brisklog/Frontmost"_s, u"example.brisklog.Frontmost"_s, u"Changed"_s,
                           {QVariant::fromValue(report)}, bus().baseService());
    }

    [[nodiscard]] bool becomes(Availability expected) {
        return waitUntil([this, expected] { return frontmost().availability() == expected; });
    }

    [[nodiscard]] bool becomes(const std::optional<DesktopApplication>& expected) {
        return becomesFrontmost(frontmost(), expected);
    }

    QVariantMap extension{{u"state"_s, active}};
    Report first{{u"editor"_s, u"Editor"_s, 0}};
    int refusals = 0;

private:
    std::optional<QVariantList> answer(const QDBusMessage& call) {
        if (call.member() == u"GetExtensionInfo"_s)
            return QVariantList{extension};
        if (call.member() == u"Follow"_s && refusals-- <= 0)
            return QVariantList{QVariant::fromValue(first)};
        return std::nullopt;
    }

    std::optional<FakeDesktopService> m_shell;
    std::unique_ptr<FrontmostApplication> m_frontmost;
};

TEST_F(GnomeFrontmostWindowTest, whatTheExtensionTellsIsInFront) {
    startShell();
    watch();
    EXPECT_TRUE(becomes(application("Editor")));
    tell({{u"browser"_s, u""_s, 0}});
    EXPECT_TRUE(becomes(application("browser")));
    tell({});
    EXPECT_TRUE(becomes(bareDesktop));
}

TEST_F(GnomeFrontmostWindowTest, behindAnOwnWindowItNamesTheNext) {
    first = {{u"example.brisklog.Brisklog"_s, u"Brisklog"_s, ownWindows.process}, {u"one"_s, u"one"_s, 0}};
    startShell();
    watch();
    EXPECT_TRUE(becomes(application("one")));
}

TEST_F(GnomeFrontmostWindowTest, anExtensionThatIsOffSaysSoUntilItIsSwitchedOn) {
    extension[u"state"_s] = inactive;
    startShell();
    watch();
    EXPECT_TRUE(becomes(Availability::switchedOff));
    EXPECT_EQ(frontmost().current(), std::nullopt);
    setExtension({{u"state"_s, active}});
    EXPECT_TRUE(becomes(application("Editor")));
    setExtension({{u"state"_s, inactive}});
    EXPECT_TRUE(becomes(Availability::switchedOff));
    EXPECT_EQ(frontmost().current(), std::nullopt);
}

TEST_F(GnomeFrontmostWindowTest, anExtensionThatDoesNotKnowUsYetIsAskedAgain) {
    refusals = 2;
    startShell();
    watch();
    EXPECT_TRUE(becomes(application("Editor")));
}

TEST_F(GnomeFrontmostWindowTest, withoutTheExtensionItIsUnavailable) {
    extension = {};
    startShell();
    watch();
    EXPECT_TRUE(becomes(Availability::unavailable));
    EXPECT_EQ(std::ranges::count(shell().calls, u"Follow"_s), 0);
}

TEST_F(GnomeFrontmostWindowTest, aShellThatEndsAndComesBackIsAskedAgain) {
    startShell();
    watch();
    EXPECT_TRUE(becomes(application("Editor")));
    endShell();
    EXPECT_TRUE(becomes(Availability::unavailable));
    EXPECT_EQ(frontmost().current(), std::nullopt);
    startShell();
    EXPECT_TRUE(becomes(application("Editor")));
}

TEST_F(GnomeFrontmostWindowTest, unwatchedTheExtensionIsLeftAlone) {
    startShell();
    watch();
    EXPECT_TRUE(becomes(application("Editor")));
    frontmost().endWatching();
    EXPECT_EQ(frontmost().current(), std::nullopt);
    EXPECT_TRUE(waitUntil([this] { return shell().calls.back() == u"Leave"_s; }));
    EXPECT_EQ(frontmost().availability(), Availability::available);
}

} // namespace
} // namespace brisklog::test
