#include "autotrack/screens/AutoTrackingScreen.h"

#include "ui/controls/Button.h"
#include "ui/controls/Switch.h"
#include "ui/lists/ScrollArea.h"
#include "ui/look/Label.h"
#include "ui/look/Layout.h"
#include "ui/look/ScreenReader.h"
#include "ui/look/Symbols.h"
#include "ui/look/Text.h"
#include "ui/sheets/Alert.h"
#include "ui/sheets/SheetWindow.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr int sideMargin = 12;
constexpr int gapUnderTabs = 10;
constexpr int dotSize = 10;
constexpr int dotGap = 6;
constexpr int bottomMargin = 12;

template <class AnyLabel>
void showText(AnyLabel& label, const std::optional<std::string>& text) {
    label.setVisible(text.has_value());
    label.setValue(screenText(text.value_or("")));
}

} // namespace

TrackingDot::TrackingDot(QWidget* parent) : QWidget(parent) { setFixedSize(dotSize, dotSize); }

void TrackingDot::setOn(bool isOn) {
    m_isOn = isOn;
    update();
}

void TrackingDot::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Palette& palette = Palette::current();
    paintSymbol(painter, rect(), m_isOn ? u"circle.fill"_s : u"circle"_s, dotSize,
                m_isOn ? palette.greenFill : palette.secondary);
}

AutoTrackingScreen::AutoTrackingScreen(AutoTrackingManager& manager, FrontmostApplication& frontmost,
                                       QWidget* calendar, QWidget* parent)
    : Screen(parent), m_view(manager, frontmost), m_switch(new Switch(u"Automatische Zeiterfassung"_s)),
      m_dot(new TrackingDot), m_status(new Label),
      m_current(new ElidedLabel({}, FontRole::caption11, &Palette::secondary)),
      m_unavailability(new Label({}, FontRole::caption11, &Palette::secondary, Label::Lines::wrapped)) {
    auto* const clear = new Button(u"Daten löschen"_s, Button::Kind::textual);
    clear->setSymbol(u"trash"_s);
    clear->setTextColor(&Palette::red);
    clear->onClick([this] { confirmClearing(); });
    m_switch->onToggled([this](bool isOn) { m_view.setTracking(isOn); });
    auto* const content = asWidget(Column{
        Row{asHeading(new Label(u"Automatische Zeiterfassung"_s, FontRole::title17)), stretch(), m_switch},
        space(10), Row{m_dot, m_status, stretch()}.spacing(dotGap), space(4), statusLines(), space(16),
        calendar, stretch(),
        Row{stretch(), clear,
            stretch()}}.margins({sideMargin, gapUnderTabs, sideMargin, bottomMargin}));
    Column{expanding(new ScrollArea(content))}.applyTo(*this);
    observe(m_view);
    observe(manager);
    observe(frontmost);
}

/// What is being recorded, or why nothing is. One line is reserved when there is neither.
QWidget* AutoTrackingScreen::statusLines() {
    auto* const lines = asWidget(Column{m_current, m_unavailability}.margins({dotSize + dotGap, 0, 0, 0}));
    lines->setMinimumHeight(lineHeight(FontRole::caption11));
    return lines;
}

void AutoTrackingScreen::refresh() {
    m_switch->setOn(m_view.isTracking());
    m_dot->setOn(m_view.isTracking());
    m_status->setValue(screenText(m_view.status()));
    m_status->setColor(m_view.isTracking() ? &Palette::text : &Palette::secondary);
    showText(*m_current, m_view.current());
    const QString before = m_unavailability->text();
    showText(*m_unavailability, m_view.unavailability());
    if (m_unavailability->text() != before)
        announce(*this, m_unavailability->text());
}

void AutoTrackingScreen::confirmClearing() {
    m_view.showingClearDataAlert = true;
    SheetWindow& alert =
        presentAlert(*this,
                     {.title = u"Daten löschen"_s,
                      .message = u"Möchtest du wirklich alle automatisch erfassten Daten löschen?"_s},
                     [this] { m_view.clearData(); });
    alert.onClosed([this] { m_view.showingClearDataAlert = false; });
}

} // namespace brisklog
