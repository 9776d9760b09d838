#include "app/projects/screens/TimerPanel.h"

#include "ui/controls/SymbolButton.h"
#include "ui/look/Figures.h"
#include "ui/look/Label.h"
#include "ui/look/Painting.h"
#include "ui/look/ScreenReader.h"
#include "ui/look/Text.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr int rowHeight = 54;
constexpr int radius = 8;
constexpr int textLeft = 15;
constexpr int nameTop = 7;
constexpr int nameHeight = 16;
constexpr int durationTop = 23;
constexpr int durationHeight = 24;
constexpr int buttonSize = 36;
constexpr int buttonGap = 4;
constexpr int buttonRight = 6;
/// Between the texts and the buttons.
constexpr int gap = 6;
constexpr QRect timeEdge{5, 8, 3, rowHeight - 16};

} // namespace

TimerPanel::TimerPanel(const TimerRow& timer, const Actions& actions, QWidget* parent)
    : QWidget(parent), m_timer(timer), m_name(new ElidedLabel({}, FontRole::tab12Medium)),
      m_duration(new FigureLabel(screenText(timer.duration), FontRole::title17)),
      m_pauseButton(new SymbolButton({}, {}, SymbolButton::Size::timer)),
      m_stopButton(new SymbolButton(u"stop.fill"_s, u"Stoppen"_s, SymbolButton::Size::timer)) {
    for (QWidget* part : std::initializer_list<QWidget*>{m_name, m_duration, m_pauseButton, m_stopButton})
        part->setParent(this);
    m_pauseButton->onClick([this, actions] { actions.pauseOrResume(m_timer); });
    m_stopButton->onClick([this, actions] { actions.stop(m_timer.entryId); });
    m_stopButton->setColor(&Palette::text);
    setFixedHeight(rowHeight);
    setAccessibleRole(*this, QAccessible::Grouping);
    showName();
    showState();
}

std::vector<QWidget*> TimerPanel::tabStops() const { return {m_pauseButton, m_stopButton}; }

QSize TimerPanel::sizeHint() const { return {0, rowHeight}; }

void TimerPanel::setTimer(const TimerRow& timer) {
    const TimerRow before = std::exchange(m_timer, timer);
    m_duration->setValue(screenText(timer.duration));
    if (timer.taskName != before.taskName)
        showName();
    if (timer.isPaused != before.isPaused)
        showState();
}

void TimerPanel::appear() {
    m_newcomer.appear(*this, [this] { update(); });
}

void TimerPanel::showName() {
    const QString name = screenText(m_timer.taskName);
    m_name->setValue(name);
    m_stopButton->setAccessibleDescription(name);
    showState();
}

void TimerPanel::showState() {
    const bool isPaused = m_timer.isPaused;
    m_duration->setColor(isPaused ? &Palette::orange : &Palette::blue);
    m_pauseButton->setSymbol(isPaused ? u"play.fill"_s : u"pause.fill"_s);
    m_pauseButton->setColor(isPaused ? &Palette::orangeFill : &Palette::blue);
    m_pauseButton->setTooltip(isPaused ? u"Fortsetzen"_s : u"Pausieren"_s);
    m_pauseButton->setAccessibleDescription(screenText(m_timer.taskName));
    setAccessibleName(
        u"Timer: %1, %2"_s.arg(screenText(m_timer.taskName), isPaused ? u"pausiert"_s : u"läuft"_s));
    update();
}

void TimerPanel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Palette& palette = Palette::current();
    const QColor& hue = m_timer.isPaused ? palette.orangeFill : palette.blueFill;
    fillRounded(painter, rect(), radius, blendedOver(withOpacity(hue, 0.08), palette.card));
    fillRounded(painter, rect(), radius, m_newcomer.ground());
    frameRounded(painter, rect(), radius, withOpacity(hue, 0.16));
    paintTimeEdge(painter, timeEdge, m_timer.isPaused ? palette.orangeFill : palette.blue);
}

void TimerPanel::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    const int buttonTop = (rowHeight - buttonSize) / 2;
    const int stopLeft = width() - buttonRight - buttonSize;
    const int pauseLeft = stopLeft - buttonGap - buttonSize;
    const int textWidth = pauseLeft - gap - textLeft;
    m_name->setGeometry(textLeft, nameTop, textWidth, nameHeight);
    m_duration->setGeometry(textLeft, durationTop, textWidth, durationHeight);
    m_pauseButton->setGeometry(pauseLeft, buttonTop, buttonSize, buttonSize);
    m_stopButton->setGeometry(stopLeft, buttonTop, buttonSize, buttonSize);
}

} // namespace brisklog
