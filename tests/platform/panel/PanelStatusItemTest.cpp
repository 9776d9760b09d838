#include "platform/panel/PanelStatusItem.h"

#include "FakePanel.h"
#include "platform/DesktopFixture.h"
#include "platform/bus/DBusSignal.h"
#include "platform/panel/BusTypes.h"
#include "support/FakeClock.h"
#include "support/FakeWindowServer.h"
#include "support/VirtualRunLoop.h"

#include <QCoreApplication>
#include <QFile>
#include <gmock/gmock.h>

namespace brisklog::test {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;

/// The status item in a panel that reads it over the bus. Nobody knows where the pointer is, as under
/// Wayland.
class PanelStatusItemTest : public DesktopWithBus {
protected:
    void SetUp() override {
        DesktopWithBus::SetUp();
        if (HasFatalFailure())
            return;
        windowServer.isPointerKnown = false;
        makeItem();
        startPanel();
        showIcon();
    }

    void TearDown() override {
        item.reset();
        panel.reset();
        DesktopWithBus::TearDown();
    }

    void makeItem() {
        const QString picture = QString::fromStdString((home.path() / "picture.svg").string());
        QFile file(picture);
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write(R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 24 24">)"
                   R"(<rect width="24" height="24" fill="#123456"/></svg>)");
        file.close();
        item.emplace(picture, runLoop, windowServer);
        item->setDescription("Zeiterfassung");
        item->setAction([this] { ++clicks; });
        item->addMenuEntry("Öffnen", [this] { chosen.append(u"Öffnen"_s); });
        item->addMenuEntry("Beenden", [this] { chosen.append(u"Beenden"_s); });
    }

    void startPanel() { panel.emplace(QString::fromUtf8(qgetenv("DBUS_SESSION_BUS_ADDRESS"))); }

    /// A panel that appears is given a second before it gets the icon.
    void showIcon() {
        ASSERT_TRUE(waitUntil([this] {
            runLoop.advance(1);
            return !panel->items.isEmpty();
        }));
    }

    void clickAt(int x, int y) {
        const int before = clicks;
        EXPECT_EQ(panel->call(u"Activate"_s, {x, y}), u""_s);
        EXPECT_TRUE(waitUntil([this, before] { return clicks > before; }));
    }

    FakeClock clock;
    VirtualRunLoop runLoop{clock};
    FakeWindowServer windowServer;
    int clicks = 0;
    QStringList chosen;
    std::optional<PanelStatusItem> item;
    std::optional<FakePanel> panel;
};

TEST_F(PanelStatusItemTest, aClickIsWhereThePanelReportsIt) {
    clickAt(605, 12);
    EXPECT_EQ(item->anchor(), (ScreenRectangle{594, 1, 22, 22}));
    clickAt(300, 12);
    EXPECT_EQ(item->anchor(), (ScreenRectangle{289, 1, 22, 22}));
}

TEST_F(PanelStatusItemTest, aClickThatNobodyReportsHasNoPlace) {
    clickAt(605, 12);
    clickAt(0, 0);
    EXPECT_EQ(item->anchor(), std::nullopt);
}

TEST_F(PanelStatusItemTest, theMiddleButtonOpensTooBecauseSomePanelsKeepTheLeftOneForTheMenu) {
    EXPECT_EQ(panel->call(u"SecondaryActivate"_s, {605, 12}), u""_s);
    EXPECT_TRUE(waitUntil([this] { return clicks == 1; }));
    EXPECT_EQ(item->anchor(), (ScreenRectangle{594, 1, 22, 22}));
}

TEST_F(PanelStatusItemTest, otherGesturesDoNothing) {
    EXPECT_EQ(panel->call(u"ContextMenu"_s, {605, 12}), u""_s);
    EXPECT_EQ(panel->call(u"Scroll"_s, {120, u"vertical"_s}), u""_s);
    QCoreApplication::processEvents();
    EXPECT_EQ(clicks, 0);
}

/// GNOME's asks for this one first, and then for the one that reports the place.
TEST_F(PanelStatusItemTest, aPanelThatTriesAnUnknownMethodIsToldSo) {
    EXPECT_EQ(panel->call(u"XAyatanaSecondaryActivate"_s, {0U}),
              u"org.freedesktop.DBus.Error.UnknownMethod"_s);
}

TEST_F(PanelStatusItemTest, tellsItsNameAndWhatItIsFor) {
    EXPECT_EQ(panel->property(u"Id"_s), u"brisklog"_s);
    EXPECT_EQ(panel->property(u"Title"_s), u"Brisklog"_s);
    EXPECT_EQ(panel->property(u"Status"_s), u"Active"_s);
    EXPECT_EQ(panel->property(u"Category"_s), u"ApplicationStatus"_s);
    EXPECT_EQ(panel->property(u"ItemIsMenu"_s), false);
    EXPECT_EQ(panel->property(u"IconAccessibleDesc"_s), u"Zeiterfassung"_s);
    EXPECT_EQ(qdbus_cast<BusToolTip>(panel->property(u"ToolTip"_s)).title, u"Zeiterfassung"_s);
    EXPECT_FALSE(panel->property(u"Colour"_s).isValid());
}

TEST_F(PanelStatusItemTest, allPropertiesCanBeReadAtOnce) {
    const auto answer = panel->ask(u"/StatusNotifierItem"_s, u"org.freedesktop.DBus.Properties"_s,
                                   u"GetAll"_s, {u"org.kde.StatusNotifierItem"_s});
    const auto all = qdbus_cast<QVariantMap>(answer.arguments().value(0));
    EXPECT_EQ(all.value(u"Title"_s), u"Brisklog"_s);
    EXPECT_EQ(all.value(u"Menu"_s).value<QDBusObjectPath>().path(), u"/MenuBar"_s);
}

/// A name would be looked up in the icon theme and coloured by some panels only, on others not to be seen.
TEST_F(PanelStatusItemTest, givesItsPictureInAllSizesAndNoName) {
    EXPECT_EQ(panel->property(u"IconName"_s), u""_s);
    const auto pictures = qdbus_cast<QList<BusPicture>>(panel->property(u"IconPixmap"_s));
    QList<int> sizes;
    for (const BusPicture& picture : pictures) {
        EXPECT_EQ(picture.width, picture.height);
        EXPECT_EQ(picture.pixels.size(), 4 * picture.width * picture.height);
        EXPECT_EQ(picture.pixels.first(8).toHex(), "ff123456ff123456");
        sizes.append(picture.width);
    }
    EXPECT_THAT(sizes, ElementsAre(16, 22, 24, 32, 44, 48, 64));
}

TEST_F(PanelStatusItemTest, aNewDescriptionIsAnnounced) {
    int announcements = 0;
    const DBusSignal toolTips(
        panel->bus(),
        {panel->items.last(), u"/StatusNotifierItem"_s, u"org.kde.StatusNotifierItem"_s, u"NewToolTip"_s},
        [&announcements](const QDBusMessage&) { ++announcements; });
    item->setDescription("Pause");
    EXPECT_TRUE(waitUntil([&announcements] { return announcements == 1; }));
    EXPECT_EQ(qdbus_cast<BusToolTip>(panel->property(u"ToolTip"_s)).title, u"Pause"_s);
}

TEST_F(PanelStatusItemTest, theMenuHasItsEntriesInOrder) {
    const auto answer = panel->askMenu(u"GetLayout"_s, {0, -1, QStringList()});
    const auto menu = qdbus_cast<BusMenuNode>(answer.value(1));
    EXPECT_EQ(menu.id, 0);
    EXPECT_EQ(menu.properties.value(u"children-display"_s), u"submenu"_s);
    ASSERT_EQ(menu.children.size(), 3);
    EXPECT_EQ(menu.children[0].properties.value(u"label"_s), u"Öffnen"_s);
    EXPECT_EQ(menu.children[1].properties.value(u"type"_s), u"separator"_s);
    EXPECT_EQ(menu.children[2].properties.value(u"label"_s), u"Beenden"_s);
    EXPECT_THAT((QList<int>{menu.children[0].id, menu.children[1].id, menu.children[2].id}),
                ElementsAre(1, 2, 3));
}

TEST_F(PanelStatusItemTest, anEntryOfTheMenuCanBeReadAlone) {
    const auto layout = panel->askMenu(u"GetLayout"_s, {3, 0, QStringList()});
    EXPECT_EQ(qdbus_cast<BusMenuNode>(layout.value(1)).properties.value(u"label"_s), u"Beenden"_s);
    const auto label = panel->askMenu(u"GetProperty"_s, {1, u"label"_s}).value(0);
    EXPECT_EQ(label.value<QDBusVariant>().variant(), u"Öffnen"_s);
    const auto group = panel->askMenu(u"GetGroupProperties"_s,
                                      {QVariant::fromValue(QList<int>{3, 99}), QStringList{u"label"_s}});
    const auto entries = qdbus_cast<QList<BusMenuProperties>>(group.value(0));
    ASSERT_EQ(entries.size(), 1);
    EXPECT_EQ(entries[0].id, 3);
    EXPECT_EQ(entries[0].properties.value(u"label"_s), u"Beenden"_s);
    const auto all =
        panel->askMenu(u"GetGroupProperties"_s, {QVariant::fromValue(QList<int>()), QStringList()});
    EXPECT_EQ(qdbus_cast<QList<BusMenuProperties>>(all.value(0)).size(), 3);
}

TEST_F(PanelStatusItemTest, aChosenEntryRunsWhetherItComesAloneOrWithOthers) {
    const QVariant nothing = QVariant::fromValue(QDBusVariant(0));
    panel->askMenu(u"AboutToShow"_s, {0});
    panel->askMenu(u"Event"_s, {3, u"hovered"_s, nothing, 0U});
    panel->askMenu(u"Event"_s, {3, u"clicked"_s, nothing, 0U});
    panel->askMenu(u"Event"_s, {99, u"clicked"_s, nothing, 0U});
    panel->askMenu(u"EventGroup"_s,
                   {QVariant::fromValue(QList<BusMenuEvent>{{0, u"opened"_s}, {1, u"clicked"_s}})});
    EXPECT_TRUE(waitUntil([this] { return chosen.size() == 2; }));
    EXPECT_EQ(chosen, (QStringList{u"Beenden"_s, u"Öffnen"_s}));
}

TEST_F(PanelStatusItemTest, theActivationTokenIsGivenBackBecauseThePointerStaysBusyUntilThen) {
    EXPECT_EQ(panel->call(u"ProvideXdgActivationToken"_s, {u"token-7"_s}), u""_s);
    EXPECT_THAT(windowServer.completedActivations, ElementsAre("token-7"));
}

TEST_F(PanelStatusItemTest, aPanelThatStartsAnewGetsTheIconAgain) {
    panel.reset();
    startPanel();
    EXPECT_TRUE(waitUntil([this] { return panel->items.size() == 1; }));
    EXPECT_EQ(panel->property(u"Title"_s), u"Brisklog"_s);
}

} // namespace
} // namespace brisklog::test
