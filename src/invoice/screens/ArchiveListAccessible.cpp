#include "invoice/screens/ArchiveListAccessible.h"

#include "invoice/screens/ArchiveDetailsPanel.h"
#include "invoice/screens/ArchiveList.h"
#include "ui/lists/RowList.h"

#include <QAccessibleWidget>
#include <algorithm>

namespace brisklog {
namespace {

/// Its children are the list and, in the order of the rows, the open details.
class ArchiveListAccessible final : public QAccessibleWidget {
public:
    explicit ArchiveListAccessible(ArchiveList& list) : QAccessibleWidget(&list, QAccessible::Grouping) {}

    [[nodiscard]] int childCount() const override { return static_cast<int>(children().size()); }

    [[nodiscard]] QAccessibleInterface* child(int index) const override {
        const auto all = children();
        const bool exists = index >= 0 && std::cmp_less(index, all.size());
        return exists ? QAccessible::queryAccessibleInterface(all[static_cast<std::size_t>(index)]) : nullptr;
    }

    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override {
        const auto all = children();
        const auto found = std::ranges::find(all, child->object());
        return found == all.end() ? -1 : static_cast<int>(found - all.begin());
    }

private:
    [[nodiscard]] std::vector<QObject*> children() const {
        const auto& list = *static_cast<ArchiveList*>(widget());
        std::vector<QObject*> all{&list.list()};
        std::ranges::copy(list.openPanels(), std::back_inserter(all));
        return all;
    }
};

QAccessibleInterface* archiveListAccessible(const QString&, QObject* object) {
    auto* const list = dynamic_cast<ArchiveList*>(object);
    return list ? new ArchiveListAccessible(*list) : nullptr;
}

} // namespace

void installArchiveListAccessible() { QAccessible::installFactory(archiveListAccessible); }

} // namespace brisklog
