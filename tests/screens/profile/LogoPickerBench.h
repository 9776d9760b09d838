#pragma once

#include "platform/pictures/QtImages.h"
#include "profile/screens/LogoPickerWindow.h"
#include "support/RecordingFiles.h"
#include "support/RecordingLog.h"
#include "support/SamplePictures.h"
#include "support/TemporaryHome.h"
#include "support/VirtualBackground.h"
#include "support/screen/ScreenTest.h"
#include "support/screen/Windows.h"
#include "ui/lists/RowList.h"
#include "ui/sheets/SheetHost.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QTest>

namespace brisklog::test {

/// Stands for the popover.
class HostWindow final : public QWidget, public SheetHost {
public:
    [[nodiscard]] std::shared_ptr<void> holdOpen() override { return hold; }

    /// Counted only when it could succeed: a modal window would keep the focus.
    void takeFocusBack() override { focusReturns += QApplication::activeModalWidget() == nullptr ? 1 : 0; }

    [[nodiscard]] bool isHeldOpen() const { return hold.use_count() > 1; }

    std::shared_ptr<void> hold = std::make_shared<int>();
    int focusReturns = 0;
};

/// The logo picker over a real home, opened from a window that stands for the popover.
class LogoPickerBench : public ScreenTest {
protected:
    LogoPickerBench() {
        host.resize(370, 650);
        showActive(host);
    }

    /// Opens the window and lets folder and thumbnails load.
    void open() {
        controller.present("Logo auswählen",
                           [this](std::string bytes) { chosen.push_back(std::move(bytes)); });
        ASSERT_NE(window(), nullptr);
        ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
        finish();
    }

    void finish() {
        settle();
        folders.runAll();
        settle();
        pictures.runAll();
        settle();
    }

    [[nodiscard]] static LogoPickerWindow* window() { return visibleWindow<LogoPickerWindow>(); }

    [[nodiscard]] static RowList& tiles() { return *findFirst<RowList>(*window()); }

    [[nodiscard]] static QStringList names() {
        QStringList names;
        for (int row = 0; row < tiles().model()->rowCount(); ++row)
            names.append(tiles().model()->index(row, 0).data().toString());
        return names;
    }

    [[nodiscard]] static QRect cell(int row) { return tiles().visualRect(tiles().model()->index(row, 0)); }

    static void click(int row) {
        QTest::mouseClick(tiles().viewport(), Qt::LeftButton, Qt::NoModifier, cell(row).center());
    }

    [[nodiscard]] static QAbstractButton& button(const QString& name) {
        auto* const found = findNamed<QAbstractButton>(*window(), name);
        EXPECT_NE(found, nullptr) << name.toStdString();
        return *found;
    }

    [[nodiscard]] static bool shows(const QString& text) {
        for (const auto* const label : window()->findChildren<QLabel*>())
            if (label->isVisible() && label->text() == text)
                return true;
        return false;
    }

    [[nodiscard]] std::filesystem::path folder() const { return home.path() / "Pictures"; }

    void addPicture(const std::string& name, int width = 40, int height = 20) {
        writeFile(folder() / name, encoded(fourQuarters(width, height), "PNG"));
    }

    TemporaryHome home;
    RecordingFiles files;
    RecordingLog log;
    QtImages images;
    VirtualBackground folders;
    VirtualBackground pictures;
    HostWindow host;
    std::vector<std::string> chosen;
    LogoPickerWindowController controller{{.picker = {files, images, folders, log},
                                           .pictures = pictures,
                                           .parentWindow = [this]() -> QWidget* { return &host; }}};
};

} // namespace brisklog::test
