#pragma once

#include "profile/FileItem.h"

#include <QAbstractListModel>

namespace brisklog {

/// The logo picker's entries as items of a list view.
class FileItemModel final : public QAbstractListModel {
public:
    explicit FileItemModel(QObject* parent = nullptr) : QAbstractListModel(parent) {}

    void setItems(std::vector<FileItem> items);

    /// Null for a row that does not exist.
    [[nodiscard]] const FileItem* item(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;

    /// The name; for screen readers, folders are also described as such.
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

private:
    std::vector<FileItem> m_items;
};

} // namespace brisklog
