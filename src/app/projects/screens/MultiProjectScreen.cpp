#include "app/projects/screens/MultiProjectScreen.h"

#include "app/projects/screens/ProjectScreen.h"
#include "app/projects/screens/ProjectSheets.h"
#include "app/projects/screens/ProjectTabStrip.h"
#include "ui/look/Layout.h"
#include "ui/look/Look.h"
#include "ui/sheets/Alert.h"
#include "ui/sheets/Sheets.h"

#include <QPainter>
#include <QShortcut>
#include <QStackedWidget>
#include <utility>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr int margin = 8;
constexpr int gapUnderTabs = 4;
constexpr int fadeMilliseconds = 120;

/// A picture of the area that fades out over it; ignores the pointer and destroys itself.
class FadingPicture final : public QWidget {
public:
    explicit FadingPicture(QWidget& area) : QWidget(&area), m_picture(area.grab()) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        resize(area.size());
        const auto fade = [this](double opacity) {
            m_opacity = opacity;
            update();
        };
        glide(*this, 1, 0, fadeMilliseconds, fade, [this] { deleteLater(); });
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setOpacity(m_opacity);
        painter.drawPixmap(0, 0, m_picture);
    }

private:
    QPixmap m_picture;
    double m_opacity = 1;
};

/// Call before the area's content changes: a picture of the present content fades out over it. Does nothing
/// with reduced motion or while the area is hidden.
void crossFade(QWidget& area) {
    if (!motionAllowed() || !area.isVisible())
        return;
    auto* picture = new FadingPicture(area);
    picture->show();
    picture->raise();
}

} // namespace

MultiProjectScreen::MultiProjectScreen(MultiProjectView& view, const ProjectScreenServices& services,
                                       QWidget* parent)
    : Screen(parent), m_services(services), m_view(view),
      m_strip(new ProjectTabStrip({.select = [this](int tab) { m_view.selectTab(tab); },
                                   .step = [this](int steps) { m_view.stepTabs(steps); },
                                   .createProject = [this] { openNewProject(); },
                                   .resetAllData = [this] { confirmResetAllData(); }})),
      m_tabs(new QStackedWidget), m_project(new ProjectScreen(services, m_view.projectView())) {
    m_tabs->addWidget(m_project);
    // The tabs' contents extend to the window's edges: they have their own margins, inside what scrolls, so
    // that focus rings are whole.
    Column{Row{expanding(m_strip)}.margins({margin, margin, margin, 0}), space(gapUnderTabs),
           expanding(m_tabs)}
        .applyTo(*this);
    addShortcuts();
    observe(m_services.store);
    observe(m_view);
}

void MultiProjectScreen::addShortcuts() {
    const auto add = [this](const QKeySequence& keys, int steps) {
        auto* shortcut = new QShortcut(keys, this);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, this, [this, steps] { m_view.stepTabs(steps); });
    };
    add(Qt::ControlModifier | Qt::Key_PageUp, -1);
    add(Qt::ControlModifier | Qt::Key_PageDown, 1);
}

MultiProjectScreen::Revisions MultiProjectScreen::revisions() const {
    return {.projects = m_services.store.projects.revision(),
            .selectedProjectIndex = m_services.store.selectedProjectIndex.revision(),
            .activeEntries = m_services.store.activeEntries.revision(),
            .isAutoTrackingSelected = m_view.isAutoTrackingSelected()};
}

void MultiProjectScreen::refresh() {
    if (m_shown == revisions())
        return;
    const bool isFirst = !std::exchange(m_shown, revisions()).has_value();
    const bool isOther = std::exchange(m_shownTab, m_view.selectedTab()) != m_view.selectedTab();
    if (isOther)
        crossFade(*m_tabs);
    m_project->setView(m_view.projectView());
    m_tabs->setCurrentWidget(selectedScreen());
    m_strip->setContent({.tabs = m_view.tabs(),
                         .selectedTab = m_view.selectedTab(),
                         .currentProject = m_view.lastSelectedIndex()});
    if (isOther && !isFirst)
        m_strip->announceSelectedTab();
}

QWidget* MultiProjectScreen::selectedScreen() {
    if (!m_view.isAutoTrackingSelected())
        return m_project;
    if (m_autoTracking == nullptr) {
        const auto& make = m_services.actions.makeAutoTrackingPanel;
        m_autoTracking = make ? make() : new QWidget;
        m_tabs->addWidget(m_autoTracking);
    }
    return m_autoTracking;
}

void MultiProjectScreen::openNewProject() { presentSheet(*this, makeNewProjectSheet(m_services.store)); }

void MultiProjectScreen::confirmResetAllData() {
    presentAlert(*this,
                 {.title = u"Alle Daten löschen?"_s,
                  .message = u"Diese Aktion kann nicht rückgängig gemacht werden. Alle Projekte und "
                             "Zeiterfassungen werden gelöscht."_s},
                 [this] { m_view.resetAllData(); });
}

} // namespace brisklog
