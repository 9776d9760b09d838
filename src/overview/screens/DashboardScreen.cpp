#include "overview/screens/DashboardScreen.h"

#include "overview/screens/ActiveTimerPanel.h"
#include "overview/screens/BarChart.h"
#include "overview/screens/ProjectOverviewRowView.h"
#include "ui/controls/Card.h"
#include "ui/lists/ScrollArea.h"
#include "ui/look/Figures.h"
#include "ui/look/Hairline.h"
#include "ui/look/Label.h"
#include "ui/look/Layout.h"
#include "ui/look/Text.h"

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr int margin = 12;
constexpr int cardGap = 20;
constexpr int rowHeight = 44;
constexpr QMargins cardMargins{16, 12, 16, 14};
constexpr BarChart::Look weekLook{
    .barColor = &Palette::chartBar, .height = 200, .barWidth = 26, .gutter = 44};
constexpr BarChart::Look revenueLook{
    .barColor = &Palette::greenFill, .height = 120, .barWidth = 44, .gutter = 58};

FigureLabel* figure(FontRole font, ColorRole color = &Palette::text) {
    return new FigureLabel({}, font, color, Qt::AlignRight | Qt::AlignVCenter);
}

Label* heading(const QString& text) { return new Label(text, FontRole::heading15); }

/// A caption and, at the right, its figure.
Row sum(const QString& caption, FontRole font, FigureLabel* figure, ColorRole captionColor) {
    return Row{new Label(caption, font, captionColor), stretch(), figure};
}

/// One of the large figures at the top.
QWidget* largeSum(const QString& caption, FigureLabel* figure) {
    auto* row = new QWidget;
    row->setFixedHeight(rowHeight);
    sum(caption, FontRole::body13, figure, &Palette::text).applyTo(*row);
    return row;
}

QWidget* card(Column content) {
    auto* made = new Card;
    content.margins(cardMargins).applyTo(*made);
    return made;
}

Hairline* hairline() { return new Hairline(Hairline::Kind::card); }

} // namespace

DashboardScreen::DashboardScreen(const DashboardPlatform& platform, QWidget* parent)
    : Screen(parent), m_view(platform) {
    auto* content = new QWidget;
    Column{dailyOverview(), weeklyOverview(), runningTimers(), finance(), stretch()}
        .spacing(cardGap)
        .margins(margin)
        .applyTo(*content);
    auto* scrollArea = new ScrollArea(content);
    // There is nothing to press, but whoever has only the keyboard wants to see all of it.
    scrollArea->setFocusPolicy(Qt::TabFocus);
    scrollArea->setAccessibleName(u"Dashboard"_s);
    Column{expanding(scrollArea)}.applyTo(*this);
    observe(m_view);
    observe(m_view.store());
}

QWidget* DashboardScreen::dailyOverview() {
    m_currentDate = new Label({}, FontRole::caption11, &Palette::secondary);
    m_todaysWork = figure(FontRole::figure22);
    m_totalWork = figure(FontRole::figure22);
    m_projects = new RowColumn<ProjectOverviewRowView>(0);
    m_totalEarnings = figure(FontRole::figure22Bold, &Palette::green);
    return card({heading(u"Arbeitszeitübersicht"_s), m_currentDate, space(4),
                 largeSum(u"Arbeitszeit heute:"_s, m_todaysWork), hairline(),
                 largeSum(u"Gesamtarbeitszeit:"_s, m_totalWork), space(8),
                 new Label(u"Projekte Übersicht"_s, FontRole::body13Semibold), space(2), m_projects,
                 space(12),
                 sum(u"Gesamtverdienst"_s, FontRole::body13Bold, m_totalEarnings, &Palette::text)});
}

QWidget* DashboardScreen::weeklyOverview() {
    m_week = new BarChart(weekLook);
    m_weeklyTotal = figure(FontRole::body13Semibold);
    m_averagePerDay = figure(FontRole::body13Semibold);
    return card({heading(u"Wochenübersicht"_s), space(8), m_week, space(10), hairline(), space(8),
                 sum(u"Gesamt diese Woche:"_s, FontRole::body13, m_weeklyTotal, &Palette::secondary),
                 space(4),
                 sum(u"Durchschnitt pro Tag:"_s, FontRole::body13, m_averagePerDay, &Palette::secondary)});
}

QWidget* DashboardScreen::runningTimers() {
    m_noTimers = new Label(u"Keine aktiven Timer"_s, FontRole::body13, &Palette::secondary);
    m_timers = new RowColumn<ActiveTimerPanel>(8);
    m_timers->hide();
    return card({heading(u"Laufende Timer"_s), space(8), m_noTimers, m_timers});
}

QWidget* DashboardScreen::finance() {
    m_revenue = new BarChart(revenueLook);
    m_currentMonth = figure(FontRole::title17, &Palette::green);
    m_total = figure(FontRole::title17, &Palette::green);
    return card({heading(u"Finanzen & Abrechnung"_s), space(8),
                 new Label(u"Monatlicher Umsatz"_s, FontRole::body13Semibold), space(4), m_revenue, space(10),
                 hairline(), space(8),
                 sum(u"Aktueller Monat:"_s, FontRole::body13, m_currentMonth, &Palette::text), space(2),
                 sum(u"Gesamt:"_s, FontRole::body13, m_total, &Palette::text)});
}

void DashboardScreen::refresh() {
    const DashboardContent content = m_view.content();
    const auto show = [](auto* label, const std::string& text) { label->setValue(screenText(text)); };
    show(m_currentDate, content.currentDate);
    show(m_todaysWork, content.todaysWork);
    show(m_totalWork, content.totalWork);
    m_projects->show(content.projects, &ProjectOverviewRowView::setProject);
    show(m_totalEarnings, content.totalEarnings);
    m_week->setContent(content.week);
    show(m_weeklyTotal, content.weeklyTotal);
    show(m_averagePerDay, content.averagePerDay);
    m_timers->show(content.timers, &ActiveTimerPanel::setTimer);
    m_noTimers->setVisible(!content.hasTimers);
    m_revenue->setContent(content.revenue);
    show(m_currentMonth, content.currentMonth);
    show(m_total, content.totalEarnings);
}

void DashboardScreen::showEvent(QShowEvent* event) {
    m_view.appear();
    Screen::showEvent(event);
}

void DashboardScreen::hideEvent(QHideEvent* event) {
    m_view.disappear();
    Screen::hideEvent(event);
}

} // namespace brisklog
