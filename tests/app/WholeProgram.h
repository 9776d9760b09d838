#pragma once

#include "app/BrisklogApp.h"
#include "app/PopoverWindow.h"
#include "platform/documents/CairoPdfFacility.h"
#include "platform/pictures/QtImages.h"
#include "support/FakeClock.h"
#include "support/FakeFrontmostApplication.h"
#include "support/FakeWindowServer.h"
#include "support/MemoryUserDefaults.h"
#include "support/RecordingFiles.h"
#include "support/RecordingLog.h"
#include "support/RecordingLogoPicker.h"
#include "support/RecordingSavePanel.h"
#include "support/TemporaryHome.h"
#include "support/VirtualRunLoop.h"
#include "support/screen/ScreenTest.h"

#include <QAbstractButton>
#include <QApplication>
#include <QTest>
#include <string>
#include <utility>
#include <vector>

namespace brisklog::test {

class SilentStatusItem final : public StatusItem {
public:
    /// Reachable as long as `isReachable` is true.
    explicit SilentStatusItem(const bool& isReachable) : m_isReachable(isReachable) {}

    void setDescription(const std::string& /*description*/) override {}

    void setAction(std::function<void()> action) override { click = std::move(action); }

    void addMenuEntry(const std::string& caption, std::function<void()> action) override {
        menu.emplace_back(caption, std::move(action));
    }

    [[nodiscard]] bool isReachable() const override { return m_isReachable; }

    [[nodiscard]] std::optional<ScreenRectangle> anchor() const override { return std::nullopt; }

    std::function<void()> click;
    std::vector<std::pair<std::string, std::function<void()>>> menu;

private:
    const bool& m_isReachable;
};

class SilentAppearance final : public SystemAppearance {
public:
    void ask(Answer /*answered*/) override {}
};

/// The whole program over a real home, on the toolkit's offscreen platform.
class WholeProgram : public ScreenTest {
protected:
    using Preparation = std::function<void(MemoryUserDefaults&, FakeFrontmostApplication&)>;

    WholeProgram() { app.launch(); }

    explicit WholeProgram(std::string address) : handbook(std::move(address)) { app.launch(); }

    /// Launches the program once `prepare` has set up what it will find.
    explicit WholeProgram(const Preparation& prepare) {
        prepare(userDefaults, frontmost);
        app.launch();
    }

    /// The visible button with that name in any window; null when there is none.
    static QAbstractButton* button(const QString& name) {
        for (QWidget* const widget : QApplication::allWidgets()) {
            auto* const candidate = qobject_cast<QAbstractButton*>(widget);
            if (candidate != nullptr && candidate->isVisible() &&
                (candidate->text() == name || candidate->accessibleName() == name ||
                 candidate->toolTip() == name))
                return candidate;
        }
        return nullptr;
    }

    void click(const QString& name) {
        auto* const found = button(name);
        ASSERT_NE(found, nullptr) << name.toStdString();
        QTest::mouseClick(found, Qt::LeftButton);
        settle();
    }

    void startTimer(const QString& task) {
        QTest::keyClicks(QApplication::focusWidget(), task);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        runLoop.advance(1);
        settle();
    }

    /// Another program's window becomes active.
    static void turnElsewhere() {
        QApplication::setActiveWindow(nullptr);
        QTest::qWait(1);
    }

    void turn() {
        runLoop.advance(0);
        settle();
    }

    TemporaryHome home;
    RecordingFiles files;
    MemoryUserDefaults userDefaults;
    FakeClock clock;
    VirtualRunLoop runLoop{clock};
    RecordingLog log;
    RecordingSavePanel savePanel;
    CairoPdfFacility pdf;
    QtImages images;
    FakeFrontmostApplication frontmost;
    RecordingLogoPicker logoPicker;
    SilentAppearance appearance;
    FakeWindowServer windowServer;
    SilentStatusItem* statusItem = nullptr;
    bool hasStatusItem = true;
    int terminations = 0;
    std::vector<std::string> openedLinks;
    std::string handbook;
    BrisklogApp app{{.files = files,
                     .userDefaults = userDefaults,
                     .clock = clock,
                     .runLoop = runLoop,
                     .log = log,
                     .savePanel = savePanel,
                     .pdf = pdf,
                     .images = images,
                     .frontmost = frontmost,
                     .logoPicker = logoPicker,
                     .systemAppearance = appearance,
                     .windowServer = windowServer,
                     .makeStatusItem =
                         [this] {
                             auto item = std::make_unique<SilentStatusItem>(hasStatusItem);
                             statusItem = item.get();
                             return item;
                         },
                     .terminate = [this] { ++terminations; },
                     .openLink = [this](std::string_view address) { openedLinks.emplace_back(address); },
                     .handbook = handbook}};
};

} // namespace brisklog::test
