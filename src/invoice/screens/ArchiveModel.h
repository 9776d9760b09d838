#pragma once

#include "invoice/ArchiveSheetView.h"
#include "ui/lists/RowListModel.h"

#include <optional>

namespace brisklog {

/// A row of the archive: the explanation at the top, a month's title, or an invoice.
struct ArchiveRow {
    enum class Kind { explanation, month, invoice };

    Kind kind = Kind::explanation;
    /// The month's key, or the invoice's id as text.
    std::string key;
    std::string title;
    ArchivedInvoice invoice;
    /// Whether the invoice is the first or last of its month.
    bool isFirst = false;
    bool isLast = false;

    [[nodiscard]] const std::string& identity() const { return key; }
};

/// The archive for a list view.
class ArchiveModel final : public RowListModel<ArchiveRow> {
public:
    ArchiveModel(const TimeTrackingStore& timeStore, const ArchiveSheetView& view)
        : m_timeStore(timeStore), m_view(view) {}

    /// Tells the list what changed in the archive since the last call, also through a change of the time
    /// zone.
    void synchronise();

    /// The row of the invoice with that id; an invalid index when there is none.
    [[nodiscard]] QModelIndex indexOf(const Uuid& id) const;
    /// The row of the first invoice listed.
    [[nodiscard]] QModelIndex firstInvoice() const;

    /// The details of an invoice for screen readers.
    [[nodiscard]] QString spokenDetails(const ArchiveRow& row) const;

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    /// Only invoices can be reached with the keyboard.
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    [[nodiscard]] QString spokenText(const ArchiveRow& row) const;

    const TimeTrackingStore& m_timeStore;
    const ArchiveSheetView& m_view;
    std::optional<std::uint64_t> m_revision;
    std::optional<Calendar> m_calendar;
};

} // namespace brisklog
