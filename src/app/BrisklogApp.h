#pragma once

#include "app/AppDelegate.h"
#include "app/ContentView.h"
#include "app/projects/MultiProjectView.h"
#include "foundation/NotificationCenter.h"
#include "invoice/DocumentExport.h"
#include "overview/DetailWindowManager.h"
#include "overview/screens/DayDetailWindow.h"
#include "platform/Images.h"
#include "platform/LargeValueStore.h"
#include "platform/PdfFacility.h"
#include "platform/SavePanel.h"
#include "platform/WindowServer.h"
#include "profile/UserProfile.h"
#include "settings/AppSettings.h"

#include <QPointer>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

class QWidget;

namespace brisklog {

class PopoverWindow;
class SheetWindow;

/// The application object: creates and connects the parts and owns them for the life of the process.
class BrisklogApp {
public:
    /// Everything outside the program that its parts need.
    struct Outside {
        Files& files;
        LargeValueStore& userDefaults;
        Clock& clock;
        RunLoop& runLoop;
        Log& log;
        SavePanel& savePanel;
        PdfFacility& pdf;
        const Images& images;
        FrontmostApplication& frontmost;
        LogoPickerPresenter& logoPicker;
        SystemAppearance& systemAppearance;
        WindowServer& windowServer;
        std::function<std::unique_ptr<StatusItem>()> makeStatusItem;
        std::function<void()> terminate;
        /// Opens a web page or a new e-mail in the desktop's default program; nothing happens where there is
        /// none.
        std::function<void(std::string_view address)> openLink = [](std::string_view) {};
        /// The address of the handbook; empty where it is not installed, and then the menu has no entry for
        /// it.
        std::string handbook{};
    };

    explicit BrisklogApp(Outside outside);
    ~BrisklogApp();

    /// Creates the popover, the main view and the status item; call once. If no panel shows the icon after a
    /// while, the popover opens as a window.
    void launch();

    /// Opens the popover without a click on the icon: at the icon if there is one, else as a window.
    void open();

    /// Quits the program; asks first if there are timers, because they would be lost.
    void quit();

    /// The popover, as the parent of panels; null before launch.
    [[nodiscard]] PopoverWindow* popover() const { return m_popover; }

    /// The process-wide settings, created on first use like the profile. Only the application calls these;
    /// all other parts are passed a reference.
    [[nodiscard]] AppSettings& settings();

private:
    [[nodiscard]] UserProfile& profile();
    [[nodiscard]] std::unique_ptr<Popover> makePopover();
    [[nodiscard]] std::unique_ptr<StatusItem> makeStatusItem();
    void loadContent();
    void loadProjects();
    [[nodiscard]] QWidget* makeScreen();
    [[nodiscard]] QWidget* makeSection(int section);
    [[nodiscard]] QWidget* makeProjectsSection();
    [[nodiscard]] QWidget* makeAutoTrackingPanel();
    [[nodiscard]] QWidget* makeSettingsSection();
    void followColorScheme();
    /// The user closes the window that stands in for the popover: without an icon, nothing of the program
    /// would be left to see, so it ends. It asks first if timers or automatic tracking are running.
    void leaveWindow();
    /// What quitting would lose or leave undone, as a sentence; empty when nothing.
    [[nodiscard]] QString lostTimers() const;
    [[nodiscard]] QString restingTracking() const;
    /// Quits at once if the loss is empty, else asks with it.
    void quitUnlessLosing(const QString& loss);

    Outside m_outside;
    std::optional<AppSettings> m_settings;
    std::optional<UserProfile> m_profile;
    const DocumentFacilities m_documents;
    NotificationCenter m_notificationCenter;
    std::unique_ptr<ContentView> m_content;
    std::unique_ptr<MultiProjectView> m_projects;
    DetailWindowManager m_detailWindows;
    DayDetailWindows m_dayWindows;
    Subscription m_settingsSubscription;
    std::unique_ptr<Timer> m_colorSchemeChange;
    AppDelegate m_delegate;
    PopoverWindow* m_popover = nullptr;
    StatusItem* m_statusItem = nullptr;
    std::unique_ptr<Timer> m_panelTimeout;
    QPointer<SheetWindow> m_quitQuestion;
};

} // namespace brisklog
