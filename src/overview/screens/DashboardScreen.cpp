#include "overview/screens/DashboardScreen.h"

#include "overview/screens/ActiveTimerPanel.h"
#include "overview/screens/BarChart.h"
#include "ui/controls/Card.h"
#include "ui/lists/ScrollArea.h"
#include "ui/look/Figures.h"
#include "ui/look/FocusRing.h"
#include "ui/look/Hairline.h"
#include "ui/look/Layout.h"
#include "ui/look/ScreenReader.h"
#include "ui/look/Text.h"

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr int margin = 12;
constexpr int cardGap = 20;
constexpr int largeSumHeight = 44;
constexpr int ringRadius = 6;
constexpr QMargins cardPadding{16, 12, 16, 13};
constexpr BarChart::Look weekLook{
    .barColor = &Palette::chartBar, .height = 200, .barWidth = 26, .gutter = 44};
constexpr BarChart::Look revenueLook{
    .barColor = &Palette::greenFill, .height = 120, .barWidth = 44, .gutter = 58};

Label* heading(const QString& text, FontRole font = FontRole::heading15) {
    return asHeading(new Label(text, font));
}

QWidget* card(const Column& content) { return new Card(content, cardPadding); }

Hairline* hairline() { return new Hairline(Hairline::Kind::card); }

} // namespace

/// A column of panels, one for each row to show. Panels are reused.
template <class Panel>
class PanelColumn final : public QWidget {
public:
    explicit PanelColumn(int spacing) : m_spacing(spacing) {}

    template <class Row>
    void setRows(const std::vector<Row>& rows) {
        if (rows.size() != m_panels.size())
            resizeTo(rows.size());
        for (std::size_t i = 0; i < rows.size(); ++i)
            m_panels[i]->setRow(rows[i]);
    }

private:
    void resizeTo(std::size_t count) {
        while (m_panels.size() > count) {
            delete m_panels.back();
            m_panels.pop_back();
        }
        while (m_panels.size() < count)
            m_panels.push_back(new Panel(this));
        Column column{};
        for (Panel* panel : m_panels)
            column.add(panel);
        column.spacing(m_spacing).applyTo(*this);
        setVisible(count > 0);
    }

    int m_spacing;
    std::vector<Panel*> m_panels;
};

/// One project's working time and, where it has a rate, its earnings.
class ProjectOverviewPanel final : public QWidget {
public:
    explicit ProjectOverviewPanel(QWidget* parent)
        : QWidget(parent), m_name(new ElidedLabel({}, FontRole::body13)),
          m_workingTime(new FigureLabel({}, FontRole::caption11Medium)),
          m_earningsCaption(new Label(u"Verdienst:"_s, FontRole::caption11, &Palette::secondary)),
          m_earnings(new FigureLabel({}, FontRole::caption11Semibold, &Palette::green,
                                     Qt::AlignRight | Qt::AlignVCenter)) {
        setAccessibleRole(*this, QAccessible::Grouping);
        auto* caption = new Label(u"Arbeitszeit:"_s, FontRole::caption11, &Palette::secondary);
        Column{space(8), m_name,
               space(3), Row{caption, m_workingTime, stretch(), m_earningsCaption, m_earnings}.spacing(4),
               space(8), hairline()}
            .applyTo(*this);
    }

    void setRow(const ProjectOverviewRow& project) {
        m_name->setValue(screenText(project.name));
        if (accessibleName() != m_name->text())
            setAccessibleName(m_name->text());
        m_workingTime->setValue(screenText(project.workingTime));
        m_earnings->setValue(screenText(project.earnings.value_or("")));
        m_earnings->setVisible(project.earnings.has_value());
        m_earningsCaption->setVisible(project.earnings.has_value());
    }

private:
    ElidedLabel* m_name;
    FigureLabel* m_workingTime;
    QWidget* m_earningsCaption;
    FigureLabel* m_earnings;
};

struct DashboardScreen::SumLook {
    FontRole figure;
    ColorRole figureColor = &Palette::text;
    FontRole caption = FontRole::body13;
    ColorRole captionColor = &Palette::text;
};

DashboardScreen::DashboardScreen(const DashboardServices& services, QWidget* parent)
    : Screen(parent), m_view(services) {
    auto* scrollArea = new ScrollArea(
        asWidget(Column{dailyOverview(), weeklyOverview(), runningTimers(), finance(), stretch()}
                     .spacing(cardGap)
                     .margins(margin)));
    // Has nothing to press, but must be scrollable with the keyboard.
    scrollArea->setFocusPolicy(Qt::TabFocus);
    scrollArea->setAccessibleName(u"Dashboard"_s);
    setAccessibleRole(*scrollArea, QAccessible::Pane);
    FocusRing::attach(*scrollArea, ringRadius, FocusRing::Place::inside);
    Column{expanding(scrollArea)}.applyTo(*this);
    observe(m_view);
    observe(m_view.store());
}

QWidget* DashboardScreen::dailyOverview() {
    constexpr SumLook total{
        .figure = FontRole::figure22Bold, .figureColor = &Palette::green, .caption = FontRole::body13Bold};
    m_projects = new PanelColumn<ProjectOverviewPanel>(0);
    return card(
        {heading(u"Arbeitszeitübersicht"_s),
         showing(&DashboardContent::currentDate, new Label({}, FontRole::caption11, &Palette::secondary)),
         space(4), largeSum(u"Arbeitszeit heute:"_s, &DashboardContent::todaysWork), hairline(),
         largeSum(u"Gesamtarbeitszeit:"_s, &DashboardContent::totalWork), space(8),
         heading(u"Projekte Übersicht"_s, FontRole::body13Semibold), space(2), m_projects, space(12),
         sum(u"Gesamtverdienst"_s, &DashboardContent::totalEarnings, total)});
}

QWidget* DashboardScreen::weeklyOverview() {
    constexpr SumLook quiet{.figure = FontRole::body13Semibold, .captionColor = &Palette::secondary};
    m_week = new BarChart(weekLook);
    m_week->setAccessibleName(u"Wochenübersicht"_s);
    return card({heading(u"Wochenübersicht"_s), space(8), m_week, space(10), hairline(), space(8),
                 sum(u"Gesamt diese Woche:"_s, &DashboardContent::weeklyTotal, quiet), space(4),
                 sum(u"Durchschnitt pro Tag:"_s, &DashboardContent::averagePerDay, quiet)});
}

QWidget* DashboardScreen::runningTimers() {
    m_noTimers = new Label(u"Keine aktiven Timer"_s, FontRole::body13, &Palette::secondary);
    m_timers = new PanelColumn<ActiveTimerPanel>(8);
    m_timers->hide();
    return card({heading(u"Laufende Timer"_s), space(8), m_noTimers, m_timers});
}

QWidget* DashboardScreen::finance() {
    constexpr SumLook money{.figure = FontRole::title17, .figureColor = &Palette::green};
    m_revenue = new BarChart(revenueLook);
    m_revenue->setAccessibleName(u"Monatlicher Umsatz"_s);
    return card({heading(u"Finanzen & Abrechnung"_s), space(8),
                 heading(u"Monatlicher Umsatz"_s, FontRole::body13Semibold), space(4), m_revenue, space(10),
                 hairline(), space(8), sum(u"Aktueller Monat:"_s, &DashboardContent::currentMonth, money),
                 space(2), sum(u"Gesamt:"_s, &DashboardContent::totalEarnings, money)});
}

LayoutBox DashboardScreen::sum(const QString& caption, Text figure, const SumLook& look) {
    auto* label = new FigureLabel({}, look.figure, look.figureColor, Qt::AlignRight | Qt::AlignVCenter);
    return Row{new Label(caption, look.caption, look.captionColor), stretch(), showing(figure, label)};
}

QWidget* DashboardScreen::largeSum(const QString& caption, Text figure) {
    return asBar(sum(caption, figure, {.figure = FontRole::figure22}), largeSumHeight);
}

template <class AnyLabel>
AnyLabel* DashboardScreen::showing(Text text, AnyLabel* label) {
    m_texts.push_back({text, label});
    return label;
}

void DashboardScreen::refresh() {
    const DashboardContent content = m_view.content();
    for (const ShownText& shown : m_texts)
        shown.label->setValue(screenText(content.*shown.text));
    m_projects->setRows(content.projects);
    m_week->setContent(content.week);
    m_timers->setRows(content.timers);
    m_noTimers->setVisible(!content.hasTimers);
    m_revenue->setContent(content.revenue);
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
