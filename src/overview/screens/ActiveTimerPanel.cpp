#include "overview/screens/ActiveTimerPanel.h"

#include "ui/look/Figures.h"
#include "ui/look/Label.h"
#include "ui/look/Layout.h"
#include "ui/look/Painting.h"
#include "ui/look/ScreenReader.h"
#include "ui/look/Text.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr int radius = 8;
constexpr int rowHeight = 70;
constexpr QRect timeEdge{5, 9, 3, rowHeight - 18};

/// "Pausiert" in a small orange badge.
class PausedBadge final : public QLabel {
public:
    PausedBadge() : QLabel(u"Pausiert"_s) { setFixedSize(sizeHint()); }

    [[nodiscard]] QSize sizeHint() const override {
        return {textWidth(text(), FontRole::caption11Medium) + 2 * 8,
                lineHeight(FontRole::caption11Medium) + 2 * 2};
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const Palette& palette = Palette::current();
        fillRounded(painter, rect(), 4, withOpacity(palette.orangeFill, 0.2));
        paintText(painter, rect(), text(), FontRole::caption11Medium, palette.orange, Qt::AlignCenter,
                  Qt::ElideNone);
    }
};

} // namespace

ActiveTimerPanel::ActiveTimerPanel(QWidget* parent)
    : QWidget(parent), m_project(new ElidedLabel({}, FontRole::body13Semibold)),
      m_task(new ElidedLabel({}, FontRole::body13, &Palette::secondary)),
      m_started(new Label({}, FontRole::caption11, &Palette::secondary)),
      m_duration(new FigureLabel({}, FontRole::title17, &Palette::blue, Qt::AlignRight | Qt::AlignVCenter)),
      m_paused(new PausedBadge) {
    setFixedHeight(rowHeight);
    setAccessibleRole(*this, QAccessible::Grouping);
    Row{expanding(Column{stretch(), m_project, m_task, m_started, stretch()}), space(8),
        Column{stretch(), aligned(m_duration, Qt::AlignRight), aligned(m_paused, Qt::AlignRight), stretch()}
            .spacing(3)}
        .margins({16, 0, 12, 0})
        .applyTo(*this);
}

void ActiveTimerPanel::setRow(const ActiveTimerRow& timer) {
    m_project->setValue(screenText(timer.projectName));
    m_task->setValue(screenText(timer.taskName));
    m_started->setValue(screenText(timer.started));
    m_duration->setValue(screenText(timer.duration));
    m_duration->setColor(timer.isPaused ? &Palette::orange : &Palette::blue);
    m_paused->setVisible(timer.isPaused);
    m_isPaused = timer.isPaused;
    showName();
    update();
}

void ActiveTimerPanel::showName() {
    const QString name = u"Timer: %1, %2, %3"_s.arg(m_project->text(), m_task->text(),
                                                    m_isPaused ? u"pausiert"_s : u"läuft"_s);
    // Every second there is a new duration, but seldom anything else.
    if (accessibleName() != name)
        setAccessibleName(name);
}

void ActiveTimerPanel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Palette& palette = Palette::current();
    fillRounded(painter, rect(), radius, withOpacity(palette.secondary, 0.05));
    paintTimeEdge(painter, timeEdge, m_isPaused ? palette.orangeFill : palette.blue);
}

} // namespace brisklog
