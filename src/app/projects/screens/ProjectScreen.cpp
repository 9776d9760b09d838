#include "app/projects/screens/ProjectScreen.h"

#include "app/projects/ProjectView.h"
#include "app/projects/screens/ProjectEntryList.h"
#include "app/projects/screens/ProjectSheets.h"
#include "app/projects/screens/TimerList.h"
#include "ui/controls/Button.h"
#include "ui/controls/CountBadge.h"
#include "ui/controls/EmptyState.h"
#include "ui/controls/NavigationButton.h"
#include "ui/controls/SectionHeader.h"
#include "ui/controls/SymbolButton.h"
#include "ui/controls/TextField.h"
#include "ui/lists/ScrollArea.h"
#include "ui/look/Hairline.h"
#include "ui/look/Label.h"
#include "ui/look/Layout.h"
#include "ui/look/Painting.h"
#include "ui/look/ScreenReader.h"
#include "ui/look/Text.h"
#include "ui/sheets/Alert.h"
#include "ui/sheets/Sheets.h"

#include <QEvent>
#include <QStackedWidget>
#include <algorithm>
#include <iterator>
#include <utility>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

/// Texts are a little inside the edges of the cards and fields below them.
constexpr int inset = 4;
/// No margin below: the last card extends to the window's edge.
constexpr int margin = 8;
constexpr int headerHeight = 40;
constexpr int actionBarHeight = 38;
/// Two rows of entries.
constexpr int leastEntriesHeight = 110;

QWidget* emptyEntries() {
    auto* content = new EmptyState(
        {.symbol = u"timer"_s,
         .headline = u"Noch keine Zeiterfassungen"_s,
         .sentence = u"Oben eine Aufgabe eingeben und „Start“ wählen. Gestoppte Timer erscheinen hier."_s});
    // Exactly centred it would look too low.
    return asWidget(Column{expanding(content, 17), stretch(3)});
}

} // namespace

ProjectScreen::ProjectScreen(const ProjectScreenServices& services, std::shared_ptr<ProjectView> view,
                             QWidget* parent)
    : Screen(parent), m_services(services), m_view(std::move(view)) {
    makeWidgets();
    makeActions();
    arrange();
    arrangeTabOrder();
    observe(m_services.store);
    watchView();
    m_customersSubscription =
        m_services.notifications.observe(openCustomerManagementNotification, [this] { openCustomers(); });
}

void ProjectScreen::makeWidgets() {
    m_name = asHeading(new ElidedLabel({}, FontRole::title17));
    m_settingsButton = new SymbolButton(u"gearshape.fill"_s, u"Projekteinstellungen"_s);
    m_settingsButton->onClick([this] { openSettings(); });
    m_taskField = new TextField(u"Aufgabe eingeben"_s, TextField::Size::tall);
    m_taskField->onEdited([this](const QString& text) { m_view->taskName = text.toStdString(); });
    m_taskField->onReturn([this] { start(); });
    m_taskField->installEventFilter(this);
    m_startButton = new Button(u"Start"_s, Button::Kind::primary, Button::Size::tall);
    m_startButton->onClick([this] { start(); });
    m_noTimers = new Label(u"Keine aktiven Timer"_s, FontRole::caption11, &Palette::secondary);
    m_timers =
        new TimerList({.pauseOrResume = [this](const TimerRow& timer) { m_view->pauseOrResume(timer); },
                       .stop = [this](const Uuid& entryId) { stop(entryId); }});
    m_count = new CountBadge;
    m_entriesOrNone = new QStackedWidget;
    // Many timers may take up the rest of its space; on low screens the whole screen scrolls.
    m_entriesOrNone->setMinimumHeight(leastEntriesHeight);
    m_entries = new ProjectEntryList(m_services.store, m_services.clock);
    m_noEntries = emptyEntries();
    m_entriesOrNone->addWidget(m_entries);
    m_entriesOrNone->addWidget(m_noEntries);
}

void ProjectScreen::makeActions() {
    m_exportButton = new NavigationButton(
        {.icon = u"arrow.down.doc"_s, .label = u"PDF Export"_s, .action = [this] { m_view->exportPDF(); }});
    m_customersButton = new NavigationButton(
        {.icon = u"person.crop.circle"_s, .label = u"Kunde"_s, .action = [this] { openCustomers(); }});
    m_invoiceButton = new NavigationButton(
        {.icon = u"doc.text"_s, .label = u"Rechnung"_s, .action = [this] { openInvoice(); }, .accent = true});
    m_resetButton = new SymbolButton(u"trash"_s, u"Alle Einträge löschen"_s, SymbolButton::Size::normal,
                                     SymbolButton::Purpose::deleting);
    m_resetButton->onClick([this] { confirmReset(); });
}

void ProjectScreen::arrange() {
    auto* timersHeader = new SectionHeader(u"Aktive Zeiterfassung"_s, u"timer"_s);
    auto* entriesHeader = asHeading(new Label(u"Zeiterfassungen"_s, FontRole::body13Semibold));
    auto* const content = asWidget(
        Column{header(), Row{m_taskField, m_startButton}.spacing(8), space(12),
               Row{space(inset), timersHeader, stretch(), m_noTimers, space(inset)}, m_timers, space(12),
               actionBar(), space(10), Row{space(inset), entriesHeader, space(6), m_count, stretch()},
               space(6), expanding(m_entriesOrNone)}
            .margins({margin, 0, margin, 0}));
    Column{expanding(new ScrollArea(content))}.applyTo(*this);
}

void ProjectScreen::arrangeTabOrder() {
    std::vector<QWidget*> stops{m_settingsButton, m_taskField, m_startButton};
    std::ranges::copy(m_timers->tabStops(), std::back_inserter(stops));
    for (QWidget* stop : std::initializer_list<QWidget*>{m_exportButton, m_customersButton, m_invoiceButton,
                                                         m_resetButton, m_entries->tabStop()})
        stops.push_back(stop);
    for (std::size_t i = 1; i < stops.size(); ++i)
        setTabOrder(stops[i - 1], stops[i]);
}

QWidget* ProjectScreen::header() {
    return asBar(Row{space(inset), expanding(m_name), space(8), m_settingsButton}, headerHeight);
}

QWidget* ProjectScreen::actionBar() {
    Row actions{m_exportButton, m_customersButton, m_invoiceButton, stretch(), m_resetButton};
    actions.spacing(4).margins({inset, 0, inset, 0});
    return asBar(Column{new Hairline, space(3), actions, space(3), new Hairline}, actionBarHeight);
}

void ProjectScreen::setView(std::shared_ptr<ProjectView> view) {
    view->isTaskNameFocused = m_view->isTaskNameFocused;
    m_view = std::move(view);
    watchView();
}

void ProjectScreen::watchView() {
    m_viewSubscription = m_view->observe([this] { refreshSoon(); });
    m_shownRevision.reset();
    refreshSoon();
}

void ProjectScreen::refresh() {
    refreshInput();
    refreshTimers();
    refreshProject();
}

void ProjectScreen::refreshInput() {
    const bool isProcessing = m_view->isProcessing;
    m_taskField->setValue(screenText(*m_view->taskName));
    // Not disabled, because that would take the focus away.
    m_taskField->setReadOnly(isProcessing);
    m_startButton->setEnabled(!isProcessing);
}

void ProjectScreen::refreshTimers() {
    const std::vector<TimerRow> timers = m_view->timers();
    m_noTimers->setVisible(timers.empty());
    if (m_timers->setTimers(m_view->project().id, timers))
        arrangeTabOrder();
}

void ProjectScreen::refreshProject() {
    // Every time, because a change of the time zone changes the rows too.
    m_entries->showProject(m_view->projectIndex);
    const std::uint64_t revision = m_services.store.projects.revision();
    if (m_shownRevision == revision)
        return;
    m_shownRevision = revision;
    const Project& project = m_view->project();
    m_name->setValue(onOneLine(screenText(project.name)));
    m_exportButton->setDisabled(!m_view->canExportPDF());
    m_invoiceButton->setDisabled(!m_view->hasProject());
    m_count->setCount(static_cast<int>(project.entries.size()));
    m_entriesOrNone->setCurrentWidget(project.entries.empty() ? m_noEntries : m_entries);
}

void ProjectScreen::showEvent(QShowEvent* event) {
    Screen::showEvent(event);
    if (m_view->isTaskNameFocused)
        m_taskField->setFocus();
}

void ProjectScreen::hideEvent(QHideEvent* event) {
    Screen::hideEvent(event);
    // When the popover is reopened, the user starts by typing, wherever the focus was before.
    if (!window()->isVisible())
        m_view->isTaskNameFocused = true;
}

bool ProjectScreen::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn)
        m_view->isTaskNameFocused = true;
    // When the screen or its window is hidden, the field also loses the focus, but should get it back later.
    else if (event->type() == QEvent::FocusOut && isVisible() && isActiveWindow())
        m_view->isTaskNameFocused = false;
    return Screen::eventFilter(watched, event);
}

void ProjectScreen::start() {
    // First, because screen readers break off what they are saying when the focus moves.
    m_taskField->setFocus();
    m_view->start();
}

void ProjectScreen::stop(const Uuid& entryId) {
    // The row goes, and the toolkit would pass its focus on to the next button: "PDF Export".
    if (m_timers->hasFocusInRow(entryId))
        m_taskField->setFocus(Qt::OtherFocusReason);
    m_entries->awaitEntry(entryId);
    m_view->stop(entryId);
}

void ProjectScreen::openSettings() {
    presentSheet(*this, makeProjectSettingsSheet(m_services.store, m_view->projectIndex));
}

void ProjectScreen::openCustomers() {
    if (m_services.actions.openCustomers)
        m_services.actions.openCustomers(*this);
}

void ProjectScreen::openInvoice() {
    if (m_services.actions.openInvoice)
        m_services.actions.openInvoice(*this, m_view->projectIndex);
}

void ProjectScreen::confirmReset() {
    presentAlert(*this,
                 {.title = u"Alle Einträge löschen?"_s,
                  .message = u"Diese Aktion kann nicht rückgängig gemacht werden."_s},
                 [this] { m_view->resetProject(); });
}

} // namespace brisklog
