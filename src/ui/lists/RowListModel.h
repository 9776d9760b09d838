#pragma once

#include <QAbstractListModel>
#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

namespace brisklog {

/// A list model that stores its rows. When given new rows, it tells the view which were inserted or removed,
/// so that the scroll position is kept. A row's `identity()` says what it stands for, whatever its contents.
template <class Row>
class RowListModel : public QAbstractListModel {
public:
    [[nodiscard]] const Row& rowAt(const QModelIndex& index) const {
        return m_rows.at(static_cast<std::size_t>(index.row()));
    }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const final {
        return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
    }

protected:
    void takeRows(std::vector<Row> rows) {
        const Difference difference = differenceTo(rows);
        if (difference.gone > 0 && difference.come > 0) {
            beginResetModel();
            m_rows = std::move(rows);
            endResetModel();
            return;
        }
        // The height of remaining rows may have changed.
        Q_EMIT layoutAboutToBeChanged();
        if (difference.come > 0)
            beginInsertRows({}, difference.first, difference.first + difference.come - 1);
        else if (difference.gone > 0)
            beginRemoveRows({}, difference.first, difference.first + difference.gone - 1);
        m_rows = std::move(rows);
        if (difference.come > 0)
            endInsertRows();
        else if (difference.gone > 0)
            endRemoveRows();
        Q_EMIT layoutChanged();
    }

private:
    /// The rows removed and inserted between the common beginning and the common end of both lists.
    struct Difference {
        int first;
        int gone;
        int come;
    };

    [[nodiscard]] Difference differenceTo(const std::vector<Row>& rows) const {
        const auto isSame = [](const Row& a, const Row& b) { return a.identity() == b.identity(); };
        const auto [before, now] =
            std::mismatch(m_rows.begin(), m_rows.end(), rows.begin(), rows.end(), isSame);
        const auto [beforeEnd, nowEnd] =
            std::mismatch(m_rows.rbegin(), std::make_reverse_iterator(before), rows.rbegin(),
                          std::make_reverse_iterator(now), isSame);
        return {.first = static_cast<int>(before - m_rows.begin()),
                .gone = static_cast<int>(beforeEnd.base() - before),
                .come = static_cast<int>(nowEnd.base() - now)};
    }

    std::vector<Row> m_rows;
};

} // namespace brisklog
