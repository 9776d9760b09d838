#include "app/projects/screens/ProjectEntryList.h"

#include "ui/lists/RowDelegate.h"
#include "ui/look/Figures.h"
#include "ui/look/FocusRing.h"
#include "ui/look/Label.h"
#include "ui/look/Layout.h"
#include "ui/look/Painting.h"
#include "ui/look/Pointer.h"
#include "ui/look/Symbols.h"
#include "ui/look/Text.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr int border = 1;
/// The line below the last row, and the card's shadow.
constexpr int bottomEdge = 1 + cardShadow;
/// How far a card that does not end inside the window is drawn past the window's edge.
constexpr int beyond = 16;

constexpr int rowHeight = 50;
constexpr int padding = 12;
constexpr int nameTop = 6;
constexpr int nameHeight = 18;
constexpr int timesTop = 27;
constexpr int timesHeight = 14;
constexpr int earningsSymbol = 13;
constexpr int earningsSymbolGap = 4;
/// Between the name and the earnings.
constexpr int nameGap = 8;
constexpr int timeSymbol = 12;
constexpr int timeSymbolGap = 3;
constexpr int timesGap = 8;
constexpr int narrowTimesGap = 4;
/// The minimum gap between the end time and the duration's symbol.
constexpr int leastGap = 6;
/// Keeps the focus ring inside the row, where the list does not clip it.
constexpr QMargins ringInset{6, 5, 6, 6};

/// Keeps a new row's ground inside the card's corners and off the hairlines.
constexpr QMargins newGroundInset{4, 3, 4, 4};
constexpr int newGroundRadius = 6;

/// The row's texts and their rectangles.
struct RowPlacement {
    QString name;
    QString earnings;
    QString start;
    QString end;
    QString duration;
    QRect nameArea;
    QRect earningsArea;
    QRect timesArea;

    RowPlacement(const ProjectEntryRow& row, const QRect& area)
        : name(screenText(row.taskName)), earnings(screenText(row.earnings)), start(screenText(row.start)),
          end(screenText(row.end)), duration(screenText(row.duration)) {
        const QRect inner = area.adjusted(padding, 0, -padding, 0);
        const int earningsWidth =
            earningsSymbol + earningsSymbolGap + figureWidth(earnings, FontRole::body13Semibold);
        nameArea = {inner.left(), inner.top() + nameTop, inner.width() - earningsWidth - nameGap, nameHeight};
        earningsArea = {inner.right() + 1 - earningsWidth, nameArea.top(), earningsWidth, nameHeight};
        timesArea = {inner.left(), inner.top() + timesTop, inner.width(), timesHeight};
    }
};

int timeWidth(const QString& text) {
    return timeSymbol + timeSymbolGap + figureWidth(text, FontRole::caption11);
}

/// A symbol with its time, starting at `left`.
void paintTime(QPainter& painter, const QRect& line, int left, const QString& symbol, const QString& text,
               const Palette& palette) {
    const QRect area(left, line.top(), timeWidth(text), line.height());
    paintSymbol(painter, QRect(left, line.top(), timeSymbol, line.height()), symbol, timeSymbol,
                palette.secondary);
    paintFigures(painter, area, text, FontRole::caption11, palette.secondary,
                 Qt::AlignRight | Qt::AlignVCenter);
}

void paintTimes(QPainter& painter, const RowPlacement& row, const Palette& palette) {
    const QRect& line = row.timesArea;
    const int durationLeft = line.right() + 1 - figureWidth(row.duration, FontRole::caption11);
    const int symbolLeft = durationLeft - timeSymbol - timeSymbolGap;
    const int times = timeWidth(row.start) + timeWidth(row.end);
    const bool isCrowded = symbolLeft - (line.left() + times + timesGap) < leastGap;
    const int gap = isCrowded ? narrowTimesGap : timesGap;
    paintTime(painter, line, line.left(), u"clock"_s, row.start, palette);
    paintTime(painter, line, line.left() + timeWidth(row.start) + gap, u"clock.fill"_s, row.end, palette);
    // Above a thousand hours the digits need the symbol's place.
    if (symbolLeft >= line.left() + times + gap)
        paintSymbol(painter, QRect(symbolLeft, line.top(), timeSymbol, line.height()), u"timer"_s, timeSymbol,
                    palette.secondary);
    paintFigures(painter, line, row.duration, FontRole::caption11, palette.text,
                 Qt::AlignRight | Qt::AlignVCenter);
}

void paintNameAndEarnings(QPainter& painter, const RowPlacement& row, const Palette& palette) {
    paintText(painter, row.nameArea, row.name, FontRole::body13Medium, palette.text);
    paintSymbol(painter, QRect(row.earningsArea.topLeft(), QSize(earningsSymbol, row.earningsArea.height())),
                u"eurosign"_s, earningsSymbol, palette.secondary);
    paintFigures(painter, row.earningsArea, row.earnings, FontRole::body13Semibold, palette.text,
                 Qt::AlignRight | Qt::AlignVCenter);
}

/// Paints the rows: task and earnings, and below them start, end and duration. Only the task's name is ever
/// shortened; its tooltip then has the full name. A delegate, despite its name.
class ProjectEntryRowView final : public RowDelegate {
public:
    /// A new row's ground; transparent for any other row.
    using GroundOf = std::function<QColor(const QModelIndex& row)>;

    ProjectEntryRowView(const ProjectEntryModel& model, RowList& list, GroundOf groundOf)
        : RowDelegate(list), m_model(model), m_groundOf(std::move(groundOf)) {}

protected:
    [[nodiscard]] QSize sizeOf(const QModelIndex& /*index*/) const override { return {0, rowHeight}; }

    void paintRow(QPainter& painter, const PaintedRow& row) const override {
        const Palette& palette = Palette::current();
        const RowPlacement placed(m_model.row(row.index.row()), row.area);
        fillRounded(painter, row.area.marginsRemoved(newGroundInset), newGroundRadius, m_groundOf(row.index));
        paintNameAndEarnings(painter, placed, palette);
        paintTimes(painter, placed, palette);
        if (row.index.row() + 1 < m_model.rowCount())
            paintHairline(painter,
                          QRect(placed.timesArea.left(), row.area.bottom(), placed.timesArea.width(), 1),
                          palette.line);
        if (row.showsFocusRing)
            paintFocusRing(painter, row.area.marginsRemoved(ringInset), 4, palette);
    }

    [[nodiscard]] QString tooltipAt(const QRect& area, const QPoint& point,
                                    const QModelIndex& index) const override {
        const RowPlacement row(m_model.row(index.row()), area);
        if (!row.nameArea.contains(point))
            return {};
        return textIfElided(row.name, FontRole::body13Medium, row.nameArea.width());
    }

private:
    const ProjectEntryModel& m_model;
    GroundOf m_groundOf;
};

} // namespace

ProjectEntryList::ProjectEntryList(const TimeTrackingStore& store, const Clock& clock, QWidget* parent)
    : QWidget(parent), m_view(new RowList(RowList::RowHeights::alike, this)),
      m_model(new ProjectEntryModel(store, clock, this)) {
    m_view->setRows(*m_model, *new ProjectEntryRowView(*m_model, *m_view, [this](const QModelIndex& row) {
        return row == m_newRow ? m_newcomer.ground() : QColor(Qt::transparent);
    }));
    m_view->setAccessibleName(u"Zeiterfassungen"_s);
    // Another project's list starts at the top.
    connect(m_model, &QAbstractItemModel::modelReset, m_view, &QAbstractItemView::scrollToTop);
    connect(
        m_model, &QAbstractItemModel::rowsInserted, this,
        [this](const QModelIndex&, int, int last) { showIfAwaited(m_model->index(last)); },
        // Once the screen around it has been refreshed too.
        Qt::QueuedConnection);
}

void ProjectEntryList::showIfAwaited(const QModelIndex& row) {
    if (!m_awaited || m_model->idAt(row.row()) != m_awaited)
        return;
    m_awaited.reset();
    m_newRow = row;
    m_newcomer.appear(*this, [this] { m_view->viewport()->update(); });
    onceNoButtonIsDown(*this, [this] {
        layOutNow(*this);
        m_view->scrollTo(m_newRow);
    });
}

void ProjectEntryList::showProject(int projectIndex) {
    if (!m_model->showProject(projectIndex))
        return;
    place();
    m_view->viewport()->update();
    m_view->announceRows();
}

QWidget* ProjectEntryList::tabStop() const { return m_view; }

QRect ProjectEntryList::cardArea() const {
    const qint64 wanted = border + qint64(m_model->rowCount()) * rowHeight + bottomEdge;
    return {0, 0, width(), wanted <= height() ? static_cast<int>(wanted) : height() + beyond};
}

void ProjectEntryList::place() {
    const int rows = cardArea().height() - border - bottomEdge;
    m_view->setGeometry(0, border, width(), std::min(rows, height() - border));
    update();
}

void ProjectEntryList::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintCard(painter, cardArea(), Palette::current());
}

void ProjectEntryList::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    place();
}

} // namespace brisklog
