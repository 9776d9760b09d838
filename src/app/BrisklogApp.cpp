#include "app/BrisklogApp.h"

#include "app/ContentScreen.h"
#include "app/PopoverWindow.h"
#include "app/projects/screens/MultiProjectScreen.h"
#include "autotrack/screens/AutoTrackingScreen.h"
#include "invoice/InvoiceGenerator.h"
#include "invoice/screens/ArchiveSheetScreen.h"
#include "invoice/screens/InvoiceScreen.h"
#include "overview/screens/CalendarScreen.h"
#include "overview/screens/DashboardScreen.h"
#include "profile/screens/CustomerScreen.h"
#include "profile/screens/ProfileScreen.h"
#include "settings/screens/SettingsScreen.h"
#include "ui/look/Palette.h"
#include "ui/look/ScreenReader.h"
#include "ui/look/Text.h"
#include "ui/sheets/Alert.h"
#include "ui/sheets/SheetWindow.h"
#include "ui/sheets/Sheets.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace brisklog {

using namespace Qt::StringLiterals;

namespace {

/// How long a desktop may take to show its panel.
constexpr TimeInterval panelTimeout = 3;

/// Makes the toolkit's own texts (file dialog, menus of fields) and dates German. Without the translations
/// package its texts stay English.
void installGermanTexts(QCoreApplication& application) {
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    auto* const translator = new QTranslator(&application);
    if (translator->load(u"qtbase_de"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(translator);
}

} // namespace

BrisklogApp::BrisklogApp(Outside outside)
    : m_outside(std::move(outside)),
      m_documents({.pdf = m_outside.pdf,
                   .clock = m_outside.clock,
                   .savePanel = m_outside.savePanel,
                   .files = m_outside.files,
                   .log = m_outside.log,
                   .profile = [this]() -> const UserProfile& { return profile(); }}),
      m_dayWindows(m_outside.images, [this] { return m_popover; }),
      m_delegate({.userDefaults = m_outside.userDefaults,
                  .systemAppearance = m_outside.systemAppearance,
                  .makePopover = [this] { return makePopover(); },
                  .makeStatusItem = [this] { return makeStatusItem(); }}) {}

BrisklogApp::~BrisklogApp() = default;

void BrisklogApp::launch() {
    m_delegate.applicationDidFinishLaunching();
    m_panelTimeout = m_outside.runLoop.runAfter(panelTimeout, [this] {
        if (!m_statusItem->isReachable())
            m_popover->showAsWindow();
    });
}

AppSettings& BrisklogApp::settings() {
    if (!m_settings)
        m_settings.emplace(SettingsPlatform{
            .files = m_outside.files, .userDefaults = m_outside.userDefaults, .log = m_outside.log});
    return *m_settings;
}

UserProfile& BrisklogApp::profile() {
    if (!m_profile)
        m_profile.emplace(ProfileServices{.files = m_outside.files,
                                          .userDefaults = m_outside.userDefaults,
                                          .log = m_outside.log,
                                          .logoPicker = &m_outside.logoPicker});
    return *m_profile;
}

std::unique_ptr<Popover> BrisklogApp::makePopover() {
    auto popover =
        std::make_unique<PopoverWindow>(PopoverWindow::Parts{.loadContent = [this] { loadContent(); },
                                                             .makeScreen = [this] { return makeScreen(); },
                                                             .quit = [this] { quit(); },
                                                             .leaveWindow = [this] { leaveWindow(); },
                                                             .windowServer = m_outside.windowServer});
    m_popover = popover.get();
    return popover;
}

std::unique_ptr<StatusItem> BrisklogApp::makeStatusItem() {
    auto item = m_outside.makeStatusItem();
    item->addMenuEntry("Öffnen", [this] { open(); });
    if (!m_outside.handbook.empty())
        item->addMenuEntry("Handbuch", [this] { m_outside.openLink(m_outside.handbook); });
    item->addMenuEntry("Beenden", [this] { quit(); });
    m_statusItem = item.get();
    return item;
}

void BrisklogApp::loadContent() {
    m_content = std::make_unique<ContentView>(projectsSection, settings(),
                                              StorePlatform{.files = m_outside.files,
                                                            .userDefaults = m_outside.userDefaults,
                                                            .clock = m_outside.clock,
                                                            .runLoop = m_outside.runLoop,
                                                            .log = m_outside.log});
    loadProjects();
    m_settingsSubscription = settings().observe([this] {
        // Observers are notified before the change takes effect.
        m_colorSchemeChange = m_outside.runLoop.runAfter(0, [this] { followColorScheme(); });
    });
    followColorScheme();
}

void BrisklogApp::loadProjects() {
    TimeTrackingStore& store = m_content->timeStore;
    const auto exportProject = [this, &store](const Project& project) {
        exportReport(store, project, m_documents);
    };
    m_projects = std::make_unique<MultiProjectView>(
        ProjectServices{
            .store = store,
            .clock = m_outside.clock,
            .runLoop = m_outside.runLoop,
            .exportReport = exportProject,
            .announce = [this](const std::string& text) { announce(*m_popover, screenText(text)); }},
        AutoTrackingPlatform{.frontmost = m_outside.frontmost,
                             .userDefaults = m_outside.userDefaults,
                             .clock = m_outside.clock,
                             .runLoop = m_outside.runLoop,
                             .log = m_outside.log});
}

void BrisklogApp::followColorScheme() { applyColorScheme(m_content->colorScheme()); }

QWidget* BrisklogApp::makeScreen() {
    // Deferred until here for a faster start: none of the toolkit's own texts are visible earlier.
    installGermanTexts(*QCoreApplication::instance());
    return new ContentScreen(*m_content, [this](int section) { return makeSection(section); });
}

QWidget* BrisklogApp::makeSection(int section) {
    switch (section) {
    case dashboardSection:
        return new DashboardScreen(
            {.store = m_content->timeStore, .clock = m_outside.clock, .runLoop = m_outside.runLoop});
    case profileSection:
        return new ProfileScreen(profile(), m_outside.images);
    case settingsSection:
        return makeSettingsSection();
    default:
        return makeProjectsSection();
    }
}

QWidget* BrisklogApp::makeSettingsSection() {
    return new SettingsScreen(
        settings(),
        {.makeArchiveSheet = [this] { return makeArchiveSheet(m_content->timeStore, m_outside.clock); },
         .openLink = m_outside.openLink});
}

QWidget* BrisklogApp::makeProjectsSection() {
    TimeTrackingStore& store = m_content->timeStore;
    const ProjectActions actions{
        .openCustomers = [&store](QWidget& from) { presentSheet(from, makeCustomerSheet(store)); },
        .openInvoice =
            [this, &store](QWidget& from, int projectIndex) {
                presentSheet(from, makeInvoiceSheet(store, projectIndex, m_documents, m_notificationCenter));
            },
        .makeAutoTrackingPanel = [this] { return makeAutoTrackingPanel(); }};
    return new MultiProjectScreen(*m_projects, {.store = store,
                                                .clock = m_outside.clock,
                                                .notifications = m_notificationCenter,
                                                .actions = actions});
}

QWidget* BrisklogApp::makeAutoTrackingPanel() {
    AutoTrackingManager& manager = m_projects->autoTrackingManager;
    auto* const calendar =
        new CalendarScreen({.autoTrackingManager = manager,
                            .detailWindows = m_detailWindows,
                            .clock = m_outside.clock,
                            .tick = m_content->timeStore,
                            .showDetailWindow = [this](const DetailWindowContent& content,
                                                       const std::weak_ptr<DetailWindowDelegate>& delegate) {
                                return m_dayWindows.show(content, delegate);
                            }});
    return new AutoTrackingScreen(manager, m_outside.frontmost, calendar);
}

void BrisklogApp::open() {
    if (m_statusItem->isReachable())
        m_delegate.openPopover();
    else
        m_popover->showAsWindow();
}

QString BrisklogApp::lostTimers() const {
    return m_content->timeStore.activeEntries->empty() ? QString()
                                                       : u"Laufende Timer gehen beim Beenden verloren."_s;
}

QString BrisklogApp::restingTracking() const {
    const bool isRecording = m_projects->autoTrackingManager.isTracking && m_outside.frontmost.mayReport();
    return isRecording ? u"Die automatische Zeiterfassung ruht, bis Brisklog wieder gestartet wird."_s
                       : QString();
}

void BrisklogApp::quit() { quitUnlessLosing(lostTimers()); }

void BrisklogApp::leaveWindow() {
    if (m_statusItem->isReachable())
        return m_popover->close();
    quitUnlessLosing((lostTimers() + u' ' + restingTracking()).trimmed());
}

void BrisklogApp::quitUnlessLosing(const QString& loss) {
    if (loss.isEmpty())
        return m_outside.terminate();
    open();
    if (m_quitQuestion && m_quitQuestion->isVisible())
        return;
    m_quitQuestion =
        &presentAlert(m_popover->frontWindow(),
                      {.title = u"Brisklog beenden?"_s, .message = loss, .actionCaption = u"Beenden"_s},
                      m_outside.terminate);
}

} // namespace brisklog
