#include "invoice/screens/InvoiceEntryDelegate.h"

#include "invoice/screens/InvoiceEntryModel.h"
#include "ui/controls/CheckBox.h"
#include "ui/controls/SymbolButton.h"
#include "ui/look/Figures.h"
#include "ui/look/FocusRing.h"
#include "ui/look/Label.h"
#include "ui/look/Painting.h"
#include "ui/look/Text.h"

#include <QPainter>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr int rowHeight = 34;
/// Above and below a row, for the focus ring.
constexpr int inset = (InvoiceEntryDelegate::rowStep - rowHeight) / 2;
constexpr int insetLeft = 4;
constexpr int insetRight = 6;
constexpr int padding = 8;
constexpr int gap = 8;
constexpr int radius = 4;
constexpr int boxWidth = 16;
constexpr int dateWidth = 90;
constexpr int durationWidth = 80;
constexpr int amountWidth = 80;
constexpr int trashWidth = 28;
constexpr int trashGap = 4;
constexpr int symbolSize = 18;
constexpr double invoicedOpacity = 0.7;

QRect rowIn(const QRect& item) {
    return item.adjusted(insetLeft, inset, -(insetRight + trashWidth + trashGap), -inset);
}

QRect trashIn(const QRect& item) {
    const int left = item.right() + 1 - insetRight - trashWidth;
    return {left, item.top() + (item.height() - trashWidth) / 2, trashWidth, trashWidth};
}

/// The rectangles of a row's cells.
struct Cells {
    QRect box;
    QRect date;
    QRect name;
    QRect duration;
    QRect amount;
};

/// Numbers wider than their columns grow to the left; the name gets the remaining width.
Cells cellsIn(const QRect& row, int durationTextWidth, int amountTextWidth) {
    const auto cell = [&row](int left, int width) { return QRect(left, row.top(), width, row.height()); };
    Cells cells;
    cells.box = cell(row.left() + padding, boxWidth);
    cells.date = cell(cells.box.right() + 1 + gap, dateWidth);
    const int amount = std::max(amountWidth, amountTextWidth);
    cells.amount = cell(row.right() + 1 - padding - amount, amount);
    const int duration = std::max(durationWidth, durationTextWidth);
    cells.duration = cell(cells.amount.left() - gap - duration, duration);
    const int nameLeft = cells.date.right() + 1 + gap;
    cells.name = cell(nameLeft, std::max(0, cells.duration.left() - gap - nameLeft));
    return cells;
}

QColor groundColor(InvoiceEntryRowView::Ground ground, const Palette& palette) {
    switch (ground) {
    case InvoiceEntryRowView::Ground::invoiced:
        return withOpacity(palette.greenFill, 0.2);
    case InvoiceEntryRowView::Ground::selected:
        return withOpacity(palette.blueFill, 0.1);
    case InvoiceEntryRowView::Ground::plain:
        break;
    }
    return withOpacity(palette.field, 0.2);
}

} // namespace

RowPart InvoiceEntryDelegate::partAt(const QRect& area, const QPoint& point,
                                     const QModelIndex& /*index*/) const {
    if (rowIn(area).contains(point))
        return RowPart::row;
    return trashIn(area).contains(point) ? RowPart::trash : RowPart::none;
}

QSize InvoiceEntryDelegate::sizeOf(const QModelIndex& /*index*/) const { return {0, rowStep}; }

void InvoiceEntryDelegate::paintRow(QPainter& painter, const PaintedRow& row) const {
    const Palette& palette = Palette::current();
    const QRect ground = rowIn(row.area);
    const InvoiceEntryRowView shown = m_model.row(row.index);
    painter.setOpacity(shown.entryStatus.isInvoiced ? invoicedOpacity : 1);
    fillRounded(painter, ground, radius, groundColor(shown.ground(), palette));
    paintCells(painter, ground, shown);
    painter.setOpacity(1);
    const bool isHovered = list().isHovered(row.index, RowPart::trash);
    paintSymbolButton(painter, trashIn(row.area), u"trash"_s, symbolSize,
                      {.color = &Palette::red,
                       .isDeleting = true,
                       .isHovered = isHovered,
                       .isPressed = isHovered && list().isPressed(row.index, RowPart::trash)},
                      palette);
    if (row.showsFocusRing)
        paintFocusRing(painter, QRectF(ground).adjusted(1, 1, -1, -1), radius, palette);
}

void InvoiceEntryDelegate::paintCells(QPainter& painter, const QRect& row,
                                      const InvoiceEntryRowView& shown) const {
    const Palette& palette = Palette::current();
    const QString duration = screenText(shown.duration(m_model.now()));
    const QString amount = screenText(shown.amount(m_model.now()));
    const Cells cells =
        cellsIn(row, figureWidth(duration, FontRole::body13), figureWidth(amount, FontRole::body13Medium));
    constexpr Qt::Alignment left = Qt::AlignLeft | Qt::AlignVCenter;
    constexpr Qt::Alignment right = Qt::AlignRight | Qt::AlignVCenter;
    const auto tick = shown.entryStatus.isSelected ? CheckBoxState::ticked : CheckBoxState::empty;
    paintCheckBox(painter, cells.box, tick, palette);
    paintFigures(painter, cells.date, screenText(shown.date(m_model.calendar())), FontRole::body13,
                 palette.text, left);
    paintText(painter, cells.name, screenText(shown.entryStatus.entry.taskName), FontRole::body13,
              palette.text);
    paintFigures(painter, cells.duration, duration, FontRole::body13, palette.text, right);
    paintFigures(painter, cells.amount, amount, FontRole::body13Medium, palette.text, right);
}

QString InvoiceEntryDelegate::tooltipAt(const QRect& area, const QPoint& point,
                                        const QModelIndex& index) const {
    const RowPart part = partAt(area, point, index);
    if (part == RowPart::none)
        return {};
    if (part == RowPart::trash)
        return u"Eintrag löschen"_s;
    const InvoiceEntryRowView shown = m_model.row(index);
    const Cells cells =
        cellsIn(rowIn(area), figureWidth(screenText(shown.duration(m_model.now())), FontRole::body13),
                figureWidth(screenText(shown.amount(m_model.now())), FontRole::body13Medium));
    const QString name =
        textIfElided(screenText(shown.entryStatus.entry.taskName), FontRole::body13, cells.name.width());
    const QString remark = screenText(shown.remark());
    return name.isEmpty() || remark.isEmpty() ? name + remark : name + u'\n' + remark;
}

} // namespace brisklog
