#pragma once

#include "core/TimeTrackingStore.h"
#include "foundation/Calendar.h"
#include "invoice/InvoiceEntryRowView.h"
#include "invoice/InvoiceView.h"

#include <QAbstractListModel>
#include <optional>

namespace brisklog {

/// The invoice sheet's rows for a list view. It keeps no copy: it only remembers how many rows the list was
/// told about.
class InvoiceEntryModel final : public QAbstractListModel {
public:
    InvoiceEntryModel(InvoiceView& view, const Clock& clock)
        : m_view(view), m_clock(clock), m_calendar(clock.calendar()) {}

    /// What the row shows.
    [[nodiscard]] InvoiceEntryRowView row(const QModelIndex& index) const;

    [[nodiscard]] Date now() const { return m_clock.now(); }

    /// The calendar as of the last `synchronise`.
    [[nodiscard]] const Calendar& calendar() const { return m_calendar; }

    /// Deletes the row's entry.
    void deleteEntry(const QModelIndex& index);

    /// Tells the list what changed in the view's rows since the last call.
    void synchronise();

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    [[nodiscard]] bool hasRow(const QModelIndex& index) const;
    [[nodiscard]] int currentCount() const;

    InvoiceView& m_view;
    const Clock& m_clock;
    Calendar m_calendar;
    int m_count = 0;
    std::optional<std::uint64_t> m_revision;
};

} // namespace brisklog
