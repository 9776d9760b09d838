#include "ui/lists/RowDelegate.h"

#include "ui/look/Label.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QToolTip>

namespace brisklog {

bool RowDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                            const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip || !index.isValid())
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    const QString shown = tooltipAt(option.rect, event->pos(), index);
    if (shown.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(event->globalPos(), plainTooltip(shown), view->viewport());
    return true;
}

} // namespace brisklog
