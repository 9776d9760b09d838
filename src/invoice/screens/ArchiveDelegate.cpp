#include "invoice/screens/ArchiveDelegate.h"

#include "foundation/Text.h"
#include "invoice/screens/ArchiveDetailsPanel.h"
#include "invoice/screens/ArchiveModel.h"
#include "ui/controls/SectionHeader.h"
#include "ui/look/FocusRing.h"
#include "ui/look/Label.h"
#include "ui/look/Painting.h"
#include "ui/look/Symbols.h"
#include "ui/look/Text.h"

#include <QPainter>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr int side = 16;
constexpr int inset = 12;
constexpr int radius = 6;
constexpr int explanationInset = 18;
constexpr int marginAbove = 12;
constexpr int marginBelow = 15;
constexpr int monthAbove = 14;
constexpr int monthBelow = 6;
constexpr int headHeight = 46;
constexpr int numberTop = 7;
constexpr int chevronSize = 14;
constexpr int chevronEdge = 8;
constexpr int panelRight = 8;
constexpr int gapUnderPanel = 8;
/// How far a card that continues in the next row is drawn past this row's edge.
constexpr int beyond = 20;

constexpr FontRole explanationFont = FontRole::tab12;
constexpr FontRole monthFont = FontRole::body13Semibold;
constexpr FontRole numberFont = FontRole::body13Medium;
constexpr FontRole customerFont = FontRole::caption11;

QString oneLine(const std::string& utf8) { return screenText(text::onOneLine(utf8)); }

QRect headIn(const QRect& item) { return {side, item.top(), item.width() - 2 * side, headHeight}; }

QRect panelIn(const QRect& item) {
    const QRect head = headIn(item);
    return {head.left() + inset, head.bottom() + 1, head.width() - inset - panelRight,
            ArchiveDetailsPanel::panelHeight};
}

QRect chevronIn(const QRect& item) {
    const QRect head = headIn(item);
    return {head.right() + 1 - chevronEdge - chevronSize, head.top(), chevronSize, head.height()};
}

/// The line of a head that starts `top` pixels below the head's top.
QRect lineIn(const QRect& item, int top, FontRole font) {
    const QRect head = headIn(item);
    const int left = head.left() + inset;
    return {left, head.top() + top, chevronIn(item).left() - inset - left, lineHeight(font)};
}

QRect numberIn(const QRect& item) { return lineIn(item, numberTop, numberFont); }

QRect customerIn(const QRect& item) { return lineIn(item, numberTop + lineHeight(numberFont), customerFont); }

void paintMonth(QPainter& painter, const QRect& item, const QString& title, const Palette& palette) {
    const QRect line(explanationInset, item.top() + monthAbove, item.width() - 2 * explanationInset,
                     lineHeight(monthFont));
    paintSectionHeader(painter, line, title, u"calendar"_s, palette);
}

/// The part of the month's card that lies in this row.
void paintCardPart(QPainter& painter, const QRect& item, const ArchiveRow& row, const Palette& palette) {
    const QRect part(side, item.top(), item.width() - 2 * side, item.height());
    paintCard(painter, part.adjusted(0, row.isFirst ? 0 : -beyond, 0, row.isLast ? 0 : beyond), palette);
    if (!row.isLast)
        paintHairline(painter, QRect(part.left() + inset, part.bottom(), part.width() - 2 * inset, 1),
                      palette.line);
}

} // namespace

ArchiveDelegate::ArchiveDelegate(const ArchiveModel& model, const ArchiveSheetView& view, RowList& list)
    : RowDelegate(list), m_model(model), m_view(view) {}

RowPart ArchiveDelegate::partAt(const QRect& area, const QPoint& point, const QModelIndex& index) const {
    const bool isInvoice = m_model.rowAt(index).kind == ArchiveRow::Kind::invoice;
    return isInvoice && headIn(area).contains(point) ? RowPart::row : RowPart::none;
}

QRect ArchiveDelegate::pressArea(const QRect& area, const QModelIndex& index) const {
    return m_model.rowAt(index).kind == ArchiveRow::Kind::invoice ? headIn(area) : area;
}

void ArchiveDelegate::setMoving(const QModelIndex& index, double shown) {
    m_moving = index;
    m_movingShown = shown;
    Q_EMIT sizeHintChanged(index);
}

int ArchiveDelegate::detailsHeight(const QModelIndex& index) const {
    constexpr int whole = ArchiveDetailsPanel::panelHeight + gapUnderPanel;
    if (m_moving == index)
        return qRound(whole * m_movingShown);
    return m_view.isOpen(m_model.rowAt(index).invoice.id) ? whole : 0;
}

int ArchiveDelegate::explanationHeight() const {
    const int width = list().viewport()->width() - 2 * explanationInset;
    return marginAbove + wrappedHeight(oneLine(ArchiveSheetView::explanation), explanationFont, width);
}

QSize ArchiveDelegate::sizeOf(const QModelIndex& index) const {
    const ArchiveRow& row = m_model.rowAt(index);
    if (row.kind == ArchiveRow::Kind::explanation)
        return {0, explanationHeight()};
    if (row.kind == ArchiveRow::Kind::month)
        return {0, monthAbove + lineHeight(monthFont) + monthBelow};
    const bool isVeryLast = index.row() == m_model.rowCount() - 1;
    return {0, headHeight + detailsHeight(index) + (row.isLast ? cardShadow : 0) +
                   (isVeryLast ? marginBelow : 0)};
}

void ArchiveDelegate::paintRow(QPainter& painter, const PaintedRow& row) const {
    const Palette& palette = Palette::current();
    const ArchiveRow& shown = m_model.rowAt(row.index);
    painter.setClipRect(row.area, Qt::IntersectClip);
    if (shown.kind == ArchiveRow::Kind::explanation)
        paintWrapped(painter, row.area.adjusted(explanationInset, marginAbove, -explanationInset, 0),
                     oneLine(shown.title), explanationFont, palette.secondary);
    else if (shown.kind == ArchiveRow::Kind::month)
        paintMonth(painter, row.area, oneLine(shown.title), palette);
    else
        paintInvoice(painter, row, palette);
}

void ArchiveDelegate::paintInvoice(QPainter& painter, const PaintedRow& row, const Palette& palette) const {
    const bool isVeryLast = row.index.row() == m_model.rowCount() - 1;
    paintCardPart(painter, row.area.adjusted(0, 0, 0, isVeryLast ? -marginBelow : 0),
                  m_model.rowAt(row.index), palette);
    paintHead(painter, row, palette);
    if (row.showsFocusRing)
        paintFocusRing(painter, headIn(row.area).adjusted(6, 5, -6, -6), 4, palette);
}

void ArchiveDelegate::paintHead(QPainter& painter, const PaintedRow& row, const Palette& palette) const {
    const ArchivedInvoice& invoice = m_model.rowAt(row.index).invoice;
    if (list().isHovered(row.index, RowPart::row))
        fillRounded(painter, headIn(row.area).adjusted(4, 3, -4, -4), radius,
                    withOpacity(palette.control, 0.5));
    paintText(painter, numberIn(row.area), oneLine(archiveNumber(invoice)), numberFont,
              invoice.invoiceNumber.empty() ? palette.secondary : palette.text);
    paintText(painter, customerIn(row.area), oneLine(archiveCustomer(invoice)), customerFont,
              palette.secondary);
    paintSymbol(painter, chevronIn(row.area),
                m_view.isOpen(invoice.id) ? u"chevron.down"_s : u"chevron.right"_s, chevronSize,
                palette.secondary);
}

void ArchiveDelegate::updateEditorGeometry(QWidget* panel, const QStyleOptionViewItem& option,
                                           const QModelIndex& index) const {
    QRect place = panelIn(option.rect);
    // While it opens or closes, it is cut off at the row's end.
    place.setHeight(std::min(place.height(), detailsHeight(index)));
    panel->setGeometry(place);
}

QString ArchiveDelegate::tooltipAt(const QRect& area, const QPoint& point, const QModelIndex& index) const {
    if (m_model.rowAt(index).kind != ArchiveRow::Kind::invoice)
        return {};
    const ArchivedInvoice& invoice = m_model.rowAt(index).invoice;
    if (numberIn(area).contains(point))
        return textIfElided(oneLine(archiveNumber(invoice)), numberFont, numberIn(area).width());
    if (customerIn(area).contains(point))
        return textIfElided(oneLine(archiveCustomer(invoice)), customerFont, customerIn(area).width());
    return {};
}

} // namespace brisklog
