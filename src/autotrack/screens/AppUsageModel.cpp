#include "autotrack/screens/AppUsageModel.h"

#include "foundation/Text.h"
#include "ui/look/Text.h"

using namespace Qt::StringLiterals;

namespace brisklog {

int AppUsageModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_detail.rows().size());
}

QVariant AppUsageModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const AppUsageDetailRow& row = rowAt(index);
    const QString name = screenText(text::onOneLine(row.appName));
    if (role == Qt::DisplayRole)
        return name;
    if (role == Qt::AccessibleTextRole)
        return u"%1, %2"_s.arg(name, screenText(row.durationText()));
    return {};
}

} // namespace brisklog
