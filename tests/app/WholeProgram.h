#pragma once

#include "app/BrisklogApp.h"
#include "app/PopoverWindow.h"
#include "platform/documents/CairoPdfFacility.h"
#include "platform/pictures/QtImages.h"
#include "support/FakeClock.h"
#include "support/FakeFrontmostApplication.h"
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
#include <vector>

namespace brisklog::test {

class SilentStatusItem final : public StatusItem {
public:
    void setDescription(const std::string& /*description*/) override {}

    void setAction(std::function<void()> action) override { click = std::move(action); }

    [[nodiscard]] std::optional<ScreenRectangle> anchor() const override { return std::nullopt; }

    std::function<void()> click;
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

    /// Launched once the test has prepared what it finds.
    explicit WholeProgram(const Preparation& prepare) {
        prepare(userDefaults, frontmost);
        app.launch();
    }

    /// The button with that name that is shown in any window.
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
    SilentStatusItem* statusItem = nullptr;
    bool hasStatusItem = true;
    int terminations = 0;
    std::vector<std::string> openedLinks;
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
                     .makeStatusItem =
                         [this] {
                             auto item = std::make_unique<SilentStatusItem>();
                             statusItem = item.get();
                             return item;
                         },
                     .hasStatusItem = [this] { return hasStatusItem; },
                     .x11 = nullptr,
                     .terminate = [this] { ++terminations; },
                     .openLink = [this](std::string_view address) { openedLinks.emplace_back(address); }}};
};

} // namespace brisklog::test
