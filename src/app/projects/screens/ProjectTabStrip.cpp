#include "app/projects/screens/ProjectTabStrip.h"

#include "ui/controls/Menu.h"
#include "ui/controls/SymbolButton.h"
#include "ui/look/Figures.h"
#include "ui/look/Painting.h"
#include "ui/look/ScreenReader.h"
#include "ui/look/Symbols.h"
#include "ui/look/Text.h"

#include <QPainter>
#include <QWheelEvent>
#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr int stripHeight = 34;
constexpr int buttonSize = 28;
constexpr int buttonGap = 2;
/// Between the tabs and the buttons.
constexpr int gapBeforeButtons = 8;
constexpr int buttonTop = 2;
constexpr int dividerHeight = 14;
constexpr int menuWidth = 322;
/// The wheel delta of one notch.
constexpr int wheelNotch = 120;
constexpr QSize overflowSize{46, 30};
constexpr int overflowRadius = 6;
constexpr int overflowGap = 5;
constexpr int chevronSize = 12;

QString autoTrackingLabel() { return u"Auto-Tracking"_s; }

ColorRole symbolColor(TimerActivity timers) {
    switch (timers) {
    case TimerActivity::running:
        return &Palette::blue;
    case TimerActivity::allPaused:
        return &Palette::orangeFill;
    case TimerActivity::none:
        break;
    }
    return nullptr;
}

QString stateText(TimerActivity timers) {
    switch (timers) {
    case TimerActivity::running:
        return u"Timer läuft"_s;
    case TimerActivity::allPaused:
        return u"Pausiert"_s;
    case TimerActivity::none:
        break;
    }
    return {};
}

} // namespace

/// Shows the number of projects and opens the menu that lists them.
class TabOverflowButton final : public Clickable {
public:
    explicit TabOverflowButton(QWidget* parent) : Clickable(overflowRadius, parent) {
        setToolTip(u"Alle Projekte"_s);
        setAccessibleName(u"Alle Projekte"_s);
        setAccessibleRole(*this, QAccessible::ButtonMenu);
    }

    void setCount(int count) { setCaption(QString::number(count)); }

    [[nodiscard]] QSize sizeHint() const override { return overflowSize; }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const Palette& palette = Palette::current();
        if (isHovered() || isDown())
            fillRounded(painter, rect(), overflowRadius, withOpacity(palette.control, isDown() ? 0.9 : 0.7));
        const int number = figureWidth(caption(), FontRole::tab12Medium);
        const int left = (width() - number - overflowGap - chevronSize) / 2;
        paintFigures(painter, QRect(left, 0, number, height()), caption(), FontRole::tab12Medium,
                     palette.text, Qt::AlignLeft | Qt::AlignVCenter);
        paintSymbol(painter, QRect(left + number + overflowGap, 0, chevronSize, height()), u"chevron.down"_s,
                    chevronSize, palette.text);
    }
};

ProjectTabStrip::ProjectTabStrip(const Actions& actions, QWidget* parent)
    : QWidget(parent), m_actions(actions), m_tabArea(new QWidget(this)) {
    setFixedHeight(stripHeight);
    setAccessibleRole(*m_tabArea, QAccessible::PageTabList);
    m_tabArea->setAccessibleName(u"Projekte"_s);
    addTabButton();
    m_overflowButton = new TabOverflowButton(this);
    m_overflowButton->onClick([this] { openMenu(); });
    m_autoTrackingButton = new ProjectTabButton(m_tabArea);
    m_autoTrackingButton->onClick([this] { selectAutoTracking(); });
    m_autoTrackingButton->onStep(m_actions.step);
    m_newProjectButton = new SymbolButton(u"plus"_s, u"Neues Projekt"_s, SymbolButton::Size::normal,
                                          SymbolButton::Purpose::acting, this);
    m_newProjectButton->onClick(m_actions.createProject);
    m_resetButton = new SymbolButton(u"trash"_s, u"Alle Daten zurücksetzen"_s, SymbolButton::Size::normal,
                                     SymbolButton::Purpose::acting, this);
    m_resetButton->onClick(m_actions.resetAllData);
}

void ProjectTabStrip::addTabButton() {
    auto* button = new ProjectTabButton(m_tabArea);
    const std::size_t slot = m_tabButtons.size();
    button->onClick([this, slot] { m_actions.select(m_layout.projects[slot].projectIndex); });
    button->onStep(m_actions.step);
    m_tabButtons.push_back(button);
    // In the tab order it comes after the tab before it, not after the buttons created earlier.
    if (slot > 0)
        setTabOrder(m_tabButtons[slot - 1], button);
}

void ProjectTabStrip::selectAutoTracking() { m_actions.select(static_cast<int>(m_content.tabs.size())); }

bool ProjectTabStrip::isAutoTrackingSelected() const {
    return std::cmp_equal(m_content.selectedTab, m_content.tabs.size());
}

void ProjectTabStrip::setContent(const Content& content) {
    if (content == m_content)
        return;
    const bool isMove = content.selectedTab != m_content.selectedTab && isTabFocused();
    m_content = content;
    measure();
    place();
    if (isMove)
        focusSelectedTab();
}

void ProjectTabStrip::measure() {
    std::vector<int> widths;
    QStringList names;
    for (std::size_t index = 0; index < m_content.tabs.size(); ++index) {
        const QString name = screenText(m_content.tabs[index].name);
        const auto position = static_cast<qsizetype>(index);
        // Measuring is expensive, and names seldom change.
        const bool isKnown = position < m_names.size() && m_names[position] == name;
        widths.push_back(isKnown ? m_widths[index] : ProjectTabButton::naturalWidth(name));
        names.push_back(name);
    }
    m_widths = std::move(widths);
    m_names = std::move(names);
}

void ProjectTabStrip::place() {
    const int buttons = 2 * buttonSize + buttonGap;
    m_layout = layoutTabStrip({.projectWidths = m_widths,
                               .autoTrackingWidth = ProjectTabButton::naturalWidth(autoTrackingLabel()),
                               .currentProject = m_content.currentProject,
                               .isAutoTrackingSelected = isAutoTrackingSelected(),
                               .availableWidth = width() - buttons - gapBeforeButtons});
    m_tabArea->setGeometry(0, 0, width() - buttons - gapBeforeButtons, stripHeight);
    placeTabs();
    m_overflowButton->setVisible(m_layout.overflow.has_value());
    m_overflowButton->setCount(static_cast<int>(m_content.tabs.size()));
    if (m_layout.overflow)
        m_overflowButton->setGeometry(m_layout.overflow->x, buttonTop, m_layout.overflow->width,
                                      m_overflowButton->sizeHint().height());
    m_newProjectButton->setGeometry(width() - buttons, buttonTop, buttonSize, buttonSize);
    m_resetButton->setGeometry(width() - buttonSize, buttonTop, buttonSize, buttonSize);
    update();
}

void ProjectTabStrip::placeTabs() {
    while (m_tabButtons.size() < m_layout.projects.size())
        addTabButton();
    for (std::size_t slot = 0; slot < m_tabButtons.size(); ++slot)
        if (slot < m_layout.projects.size())
            placeTab(slot, m_layout.projects[slot]);
        else
            takeTabAway(*m_tabButtons[slot]);
    m_autoTrackingButton->setContent({.label = autoTrackingLabel(),
                                      .symbol = u"chart.bar.fill"_s,
                                      .isSelected = isAutoTrackingSelected()});
    m_autoTrackingButton->setForm(m_layout.showsAutoTrackingLabel ? ProjectTabButton::Form::labelled
                                                                  : ProjectTabButton::Form::symbolOnly);
    m_autoTrackingButton->setGeometry(m_layout.autoTracking.x, 0, m_layout.autoTracking.width, stripHeight);
}

void ProjectTabStrip::placeTab(std::size_t slot, const TabPlacement& placement) {
    ProjectTabButton& button = *m_tabButtons[slot];
    const bool isSelected = placement.projectIndex == m_content.selectedTab;
    const TimerActivity timers = m_content.tabs[static_cast<std::size_t>(placement.projectIndex)].timers;
    button.setContent({.label = m_names[placement.projectIndex],
                       .symbol = u"clock.circle.fill"_s,
                       .symbolColor = symbolColor(timers),
                       .state = stateText(timers),
                       .isSelected = isSelected});
    // The project tabs are a single tab stop: the selected tab, or the first while "Auto-Tracking" or none is
    // selected.
    const bool hasSelected = !isAutoTrackingSelected() && m_content.selectedTab != noTab;
    const bool isStop = isSelected || (!hasSelected && slot == 0);
    button.setFocusPolicy(isStop ? Qt::TabFocus : Qt::NoFocus);
    button.setGeometry(placement.x, 0, placement.width, stripHeight);
    button.show();
}

void ProjectTabStrip::takeTabAway(ProjectTabButton& button) {
    button.setContent({});
    button.hide();
}

bool ProjectTabStrip::isTabFocused() const {
    return m_autoTrackingButton->hasFocus() ||
           std::ranges::any_of(m_tabButtons, [](const auto* button) { return button->hasFocus(); });
}

void ProjectTabStrip::focusSelectedTab() {
    if (isAutoTrackingSelected())
        return m_autoTrackingButton->focusVisibly();
    for (std::size_t slot = 0; slot < m_layout.projects.size(); ++slot)
        if (m_layout.projects[slot].projectIndex == m_content.selectedTab)
            m_tabButtons[slot]->focusVisibly();
}

void ProjectTabStrip::announceSelectedTab() {
    if (isTabFocused())
        return;
    const QString tab = isAutoTrackingSelected() ? autoTrackingLabel() : m_names.value(m_content.selectedTab);
    announce(*this, u"Angezeigt: "_s + tab);
}

void ProjectTabStrip::openMenu() {
    MenuContent menu;
    menu.width = menuWidth;
    menu.place = PopupPlace::middleOfWindow;
    for (int index = 0; std::cmp_less(index, m_content.tabs.size()); ++index) {
        const ColorRole color = symbolColor(m_content.tabs[static_cast<std::size_t>(index)].timers);
        menu.items.push_back({.text = m_names[index],
                              .chosen = [this, index] { m_actions.select(index); },
                              .isChecked = index == m_content.selectedTab,
                              .symbol = u"clock.circle.fill"_s,
                              .symbolColor = color ? color : &Palette::secondary});
    }
    menu.items.push_back(MenuItem::divider());
    menu.items.push_back({.text = autoTrackingLabel(),
                          .chosen = [this] { selectAutoTracking(); },
                          .isChecked = isAutoTrackingSelected(),
                          .symbol = u"chart.bar.fill"_s});
    showMenu(*m_overflowButton, menu);
}

void ProjectTabStrip::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QColor line = withOpacity(Palette::current().secondary, 0.2);
    paintHairline(painter, QRect(0, height() - 1, width(), 1), line);
    if (m_layout.overflow)
        paintHairline(painter,
                      QRect(m_layout.overflow->x + m_layout.overflow->width, (height() - dividerHeight) / 2,
                            1, dividerHeight),
                      line);
}

void ProjectTabStrip::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    place();
}

void ProjectTabStrip::wheelEvent(QWheelEvent* event) {
    const QPoint delta = event->angleDelta();
    m_wheelTravel += delta.y() != 0 ? delta.y() : delta.x();
    // Touchpads report fractions of a notch.
    if (const int notches = m_wheelTravel / wheelNotch; notches != 0) {
        m_wheelTravel -= notches * wheelNotch;
        m_actions.step(-notches);
    }
    event->accept();
}

} // namespace brisklog
