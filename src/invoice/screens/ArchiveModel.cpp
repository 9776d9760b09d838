#include "invoice/screens/ArchiveModel.h"

#include "ui/lists/RowList.h"
#include "ui/look/Text.h"

#include <QAccessible>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

void append(std::vector<ArchiveRow>& rows, ArchiveGroup group) {
    rows.push_back({.kind = ArchiveRow::Kind::month, .key = group.key, .title = group.title, .invoice = {}});
    const std::size_t first = rows.size();
    for (ArchivedInvoice& invoice : group.invoices) {
        ArchiveRow& row = rows.emplace_back();
        row.kind = ArchiveRow::Kind::invoice;
        row.key = invoice.id.text();
        row.title = archiveNumber(invoice);
        row.invoice = std::move(invoice);
    }
    rows.at(first).isFirst = true;
    rows.back().isLast = true;
}

QVariant roleOf(ArchiveRow::Kind kind) {
    switch (kind) {
    case ArchiveRow::Kind::explanation:
        return QAccessible::StaticText;
    case ArchiveRow::Kind::month:
        return QAccessible::Heading;
    case ArchiveRow::Kind::invoice:
        break;
    }
    return {};
}

} // namespace

void ArchiveModel::synchronise() {
    const std::uint64_t revision = m_timeStore.archivedInvoices.revision();
    const Calendar calendar = m_view.calendar();
    if (m_revision == revision && m_calendar == calendar)
        return;
    m_revision = revision;
    m_calendar = calendar;
    std::vector<ArchiveRow> rows;
    rows.push_back({.kind = ArchiveRow::Kind::explanation,
                    .key = {},
                    .title = ArchiveSheetView::explanation,
                    .invoice = {}});
    for (ArchiveGroup& group : m_view.groups())
        append(rows, std::move(group));
    takeRows(std::move(rows));
}

QModelIndex ArchiveModel::indexOf(const Uuid& id) const {
    for (int row = 0; row < rowCount(); ++row)
        if (const ArchiveRow& shown = rowAt(index(row));
            shown.kind == ArchiveRow::Kind::invoice && shown.invoice.id == id)
            return index(row);
    return {};
}

QModelIndex ArchiveModel::firstInvoice() const {
    // After the explanation and the newest month's title.
    constexpr int first = 2;
    return index(first);
}

QString ArchiveModel::spokenText(const ArchiveRow& row) const {
    if (row.kind != ArchiveRow::Kind::invoice)
        return screenText(row.title);
    const QString closed = screenText(row.title) + u", "_s + screenText(archiveCustomer(row.invoice));
    return m_view.isOpen(row.invoice.id) ? closed + u", "_s + spokenDetails(row) : closed;
}

QString ArchiveModel::spokenDetails(const ArchiveRow& row) const {
    const ArchiveDetails details = m_view.details(row.invoice);
    return u"Datum: %1, Zeit: %2, Betrag: %3"_s.arg(screenText(details.date), screenText(details.time),
                                                    screenText(details.amount));
}

QVariant ArchiveModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    if (role == Qt::DisplayRole)
        return screenText(rowAt(index).title);
    if (role == Qt::AccessibleTextRole)
        return spokenText(rowAt(index));
    if (role == RowList::accessibleRole)
        return roleOf(rowAt(index).kind);
    if (role == RowList::isOpenRole && rowAt(index).kind == ArchiveRow::Kind::invoice)
        return m_view.isOpen(rowAt(index).invoice.id);
    return {};
}

Qt::ItemFlags ArchiveModel::flags(const QModelIndex& index) const {
    const bool isInvoice =
        checkIndex(index, CheckIndexOption::IndexIsValid) && rowAt(index).kind == ArchiveRow::Kind::invoice;
    return isInvoice ? Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren : Qt::NoItemFlags;
}

} // namespace brisklog
