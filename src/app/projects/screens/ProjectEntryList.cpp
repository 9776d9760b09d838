#include "app/projects/screens/ProjectEntryList.h"

#include "app/projects/screens/ProjectEntryRowView.h"
#include "ui/lists/RowList.h"
#include "ui/look/Painting.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr int border = 1;
/// The line under the last row, and the card's shadow.
constexpr int bottomEdge = 2;
/// How far a card that does not end inside the window is drawn past its edge.
constexpr int beyond = 16;

} // namespace

ProjectEntryList::ProjectEntryList(const TimeTrackingStore& store, const Clock& clock, QWidget* parent)
    : QWidget(parent), m_view(new RowList(RowList::RowHeights::alike, this)),
      m_model(new ProjectEntryModel(store, clock, this)) {
    m_view->setRows(*m_model, *new ProjectEntryRowView(*m_model, *m_view));
    m_view->setAccessibleName(u"Zeiterfassungen"_s);
    // Another project's list begins at its top.
    connect(m_model, &QAbstractItemModel::modelReset, m_view, &QAbstractItemView::scrollToTop);
}

void ProjectEntryList::showProject(int projectIndex) {
    if (!m_model->showProject(projectIndex))
        return;
    place();
    m_view->viewport()->update();
}

QWidget* ProjectEntryList::tabStop() const { return m_view; }

QRect ProjectEntryList::cardArea() const {
    const qint64 wanted = border + qint64(m_model->rowCount()) * ProjectEntryRowView::rowHeight + bottomEdge;
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
