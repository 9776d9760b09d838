#include "ui/lists/RowDelegate.h"

#include "ui/look/Label.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace brisklog {

RowDelegate::RowDelegate(RowList& list) : QStyledItemDelegate(&list), m_list(list) {}

RowPart RowDelegate::partAt(const QRect& /*area*/, const QPoint& /*point*/,
                            const QModelIndex& /*index*/) const {
    return RowPart::row;
}

QRect RowDelegate::pressArea(const QRect& area, const QModelIndex& /*index*/) const { return area; }

QString RowDelegate::tooltipAt(const QRect& /*area*/, const QPoint& /*point*/,
                               const QModelIndex& /*index*/) const {
    return {};
}

void RowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const {
    painter->save();
    paintRow(*painter, {.area = option.rect,
                        .index = index,
                        .isUnderPointer = option.state.testFlag(QStyle::State_MouseOver),
                        .showsFocusRing = m_list.showsFocusRing() && m_list.currentIndex() == index});
    painter->restore();
}

QSize RowDelegate::sizeHint(const QStyleOptionViewItem& /*option*/, const QModelIndex& index) const {
    return sizeOf(index);
}

bool RowDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                            const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip || !index.isValid())
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    const QString shown = tooltipAt(option.rect, event->pos(), index);
    if (shown.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(event->globalPos(), plainTooltip(shown), m_list.viewport());
    return true;
}

} // namespace brisklog
