#include "profile/screens/FileItemModel.h"

#include "ui/look/Painting.h"
#include "ui/look/Text.h"

using namespace Qt::StringLiterals;

namespace brisklog {

void FileItemModel::setItems(std::vector<FileItem> items) {
    beginResetModel();
    m_items = std::move(items);
    endResetModel();
}

const FileItem* FileItemModel::item(int row) const {
    const bool exists = row >= 0 && std::cmp_less(row, m_items.size());
    return exists ? &m_items[static_cast<std::size_t>(row)] : nullptr;
}

int FileItemModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_items.size());
}

QVariant FileItemModel::data(const QModelIndex& index, int role) const {
    const FileItem* const found = item(index.row());
    if (!found)
        return {};
    if (role == Qt::DisplayRole)
        return onOneLine(screenText(found->name()));
    if (role == Qt::AccessibleDescriptionRole && found->isDirectory)
        return u"Ordner"_s;
    return {};
}

} // namespace brisklog
