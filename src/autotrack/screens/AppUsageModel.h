#pragma once

#include "autotrack/DailyUsageDetailView.h"

#include <QAbstractListModel>

namespace brisklog {

/// A day's applications as items of a list view. They never change.
class AppUsageModel final : public QAbstractListModel {
public:
    explicit AppUsageModel(DailyUsageDetailView detail) : m_detail(std::move(detail)) {}

    [[nodiscard]] const DailyUsageDetailView& detail() const { return m_detail; }

    [[nodiscard]] const AppUsageDetailRow& rowAt(const QModelIndex& index) const {
        return m_detail.rows().at(static_cast<std::size_t>(index.row()));
    }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;

    /// The name; to screen readers with the duration.
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

private:
    DailyUsageDetailView m_detail;
};

} // namespace brisklog
