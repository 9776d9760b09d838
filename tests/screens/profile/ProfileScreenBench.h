#pragma once

#include "platform/pictures/QtImages.h"
#include "profile/screens/ProfileScreen.h"
#include "support/MemoryUserDefaults.h"
#include "support/RecordingFiles.h"
#include "support/RecordingLog.h"
#include "support/RecordingLogoPicker.h"
#include "support/TemporaryHome.h"
#include "support/screen/ScreenTest.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>

namespace brisklog::test {

/// The profile section as the popover shows it, over a real profile and its files.
class ProfileScreenBench : public ScreenTest {
protected:
    /// The inside of the popover below its navigation bar.
    static constexpr QSize sectionSize{370, 592};

    void open() {
        screen = std::make_unique<ProfileScreen>(profile, images);
        screen->resize(sectionSize);
        showActive(*screen);
    }

    /// The field with that accessible name and, if given, that example as its accessible description.
    [[nodiscard]] QLineEdit& field(const QString& name, const QString& example = {}) {
        for (auto* const found : screen->findChildren<QLineEdit*>()) {
            const auto* const spoken = QAccessible::queryAccessibleInterface(found);
            if (spoken->text(QAccessible::Name) == name &&
                (example.isEmpty() || spoken->text(QAccessible::Description) == example))
                return *found;
        }
        ADD_FAILURE() << "no field " << name.toStdString();
        std::abort();
    }

    [[nodiscard]] QAbstractButton& button(const QString& name) {
        auto* const found = findNamed<QAbstractButton>(*screen, name);
        EXPECT_NE(found, nullptr) << name.toStdString();
        return *found;
    }

    /// Key by key, because the toolkit's own helper cannot type umlauts.
    static void type(QLineEdit& field, const QString& text) {
        for (const QChar character : text) {
            QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, character);
            QCoreApplication::sendEvent(&field, &press);
        }
    }

    [[nodiscard]] std::filesystem::path folder() const { return home.applicationSupport() / "Pennavo"; }

    [[nodiscard]] std::filesystem::path profileFile() const { return folder() / "profile.json"; }

    TemporaryHome home;
    RecordingFiles files;
    MemoryUserDefaults defaults;
    RecordingLog log;
    RecordingLogoPicker picker;
    QtImages images;
    UserProfile profile{{files, defaults, log, &picker}};
    std::unique_ptr<ProfileScreen> screen;
};

} // namespace brisklog::test
