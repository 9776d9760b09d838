#include "ui/lists/RowListAccessible.h"

#include "ui/lists/RowList.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

QString deleteAction() { return u"Löschen"_s; }

void announceState(QAccessibleInterface& changed, const QAccessible::State& difference) {
    QAccessibleStateChangeEvent event(&changed, difference);
    QAccessible::updateAccessibility(&event);
}

RowAccessible* rowOf(QAccessible::Id id) {
    return dynamic_cast<RowAccessible*>(QAccessible::accessibleInterface(id));
}

} // namespace

RowAccessible::RowAccessible(RowList& list, const QModelIndex& index)
    : m_list(list), m_index(index), m_knownState(contentState()), m_knownName(text(QAccessible::Name)) {}

QAccessible::State RowAccessible::contentState() const {
    QAccessible::State state;
    const QVariant tick = m_index.data(Qt::CheckStateRole);
    const QVariant isOpen = m_index.data(RowList::isOpenRole);
    state.checkable = tick.isValid();
    state.checked = tick.toInt() == Qt::Checked;
    state.expandable = isOpen.isValid();
    state.expanded = isOpen.toBool();
    state.collapsed = isOpen.isValid() && !isOpen.toBool();
    return state;
}

void RowAccessible::announceChange() {
    if (!isValid())
        return;
    const QAccessible::State before = std::exchange(m_knownState, contentState());
    QAccessible::State difference;
    difference.checked = before.checked != m_knownState.checked;
    difference.expanded = before.expanded != m_knownState.expanded;
    if (difference.checked || difference.expanded)
        announceState(*this, difference);
    if (const QString name = text(QAccessible::Name); std::exchange(m_knownName, name) != name) {
        QAccessibleEvent renamed(this, QAccessible::NameChanged);
        QAccessible::updateAccessibility(&renamed);
    }
}

QAccessible::Role RowAccessible::role() const {
    const QVariant role = m_index.data(RowList::accessibleRole);
    return role.isValid() ? static_cast<QAccessible::Role>(role.toInt()) : QAccessible::ListItem;
}

QAccessible::State RowAccessible::state() const {
    if (!isValid())
        return {};
    QAccessible::State state = contentState();
    const bool isEnabled = m_index.flags().testFlag(Qt::ItemIsEnabled);
    const QRect area = m_list.visualRect(m_index);
    state.invisible = !m_list.isVisible();
    state.offscreen = !m_list.viewport()->visibleRegion().intersects(area);
    state.focusable = isEnabled;
    state.focused = m_list.hasFocus() && m_list.currentIndex() == m_index;
    // Headings and texts between the rows cannot be used either, but are not unavailable.
    state.disabled = !isEnabled && role() == QAccessible::MenuItem;
    return state;
}

QString RowAccessible::text(QAccessible::Text kind) const {
    if (kind == QAccessible::Description)
        return m_index.data(Qt::AccessibleDescriptionRole).toString();
    if (kind != QAccessible::Name)
        return {};
    const QString spoken = m_index.data(Qt::AccessibleTextRole).toString();
    return spoken.isEmpty() ? m_index.data(Qt::DisplayRole).toString() : spoken;
}

QRect RowAccessible::rect() const {
    const QRect area = m_list.pressArea(m_index);
    return {m_list.viewport()->mapToGlobal(area.topLeft()), area.size()};
}

QWindow* RowAccessible::window() const { return m_list.window()->windowHandle(); }

QAccessibleInterface* RowAccessible::parent() const { return QAccessible::queryAccessibleInterface(&m_list); }

QStringList RowAccessible::actionNames() const {
    if (!isValid() || !m_index.flags().testFlag(Qt::ItemIsEnabled))
        return {};
    QStringList names;
    if (m_list.canPressRows())
        names << (role() == QAccessible::CheckBox ? toggleAction() : pressAction());
    names << setFocusAction();
    return m_list.hasTrash() ? names << deleteAction() : names;
}

void RowAccessible::doAction(const QString& name) {
    if (!actionNames().contains(name))
        return;
    if (name == setFocusAction())
        return m_list.focusRow(m_index);
    const RowPart part = name == deleteAction() ? RowPart::trash : RowPart::row;
    // Once the screen reader has its answer: it may destroy the list.
    QMetaObject::invokeMethod(
        &m_list, [&list = m_list, row = m_index, part] { list.pressRow(row, part); }, Qt::QueuedConnection);
}

void* RowAccessible::interface_cast(QAccessible::InterfaceType type) {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
}

RowListAccessible::RowListAccessible(RowList& list) : QAccessibleWidget(&list, QAccessible::List) {}

RowListAccessible::~RowListAccessible() {
    for (const auto& [row, id] : m_rows)
        QAccessible::deleteAccessibleInterface(id);
}

RowList& RowListAccessible::list() const { return *static_cast<RowList*>(widget()); }

void RowListAccessible::announceChanges() {
    followRows();
    for (const auto& [row, id] : m_rows)
        if (RowAccessible* const known = rowOf(id))
            known->announceChange();
}

int RowListAccessible::childCount() const { return list().model() ? list().model()->rowCount() : 0; }

QAccessibleInterface* RowListAccessible::child(int index) const {
    if (index < 0 || index >= childCount())
        return nullptr;
    if (const auto id = known(index))
        return QAccessible::accessibleInterface(*id);
    auto* const row = new RowAccessible(list(), list().model()->index(index, 0));
    m_rows[index] = QAccessible::registerAccessibleInterface(row);
    return row;
}

QAccessibleInterface* RowListAccessible::childAt(int x, int y) const {
    const QModelIndex row = list().indexAt(list().viewport()->mapFromGlobal(QPoint(x, y)));
    return row.isValid() ? child(row.row()) : nullptr;
}

int RowListAccessible::indexOfChild(const QAccessibleInterface* child) const {
    const auto* const row = dynamic_cast<const RowAccessible*>(child);
    return row != nullptr && row->index().model() == list().model() ? row->index().row() : -1;
}

QAccessibleInterface* RowListAccessible::focusChild() const {
    if (!list().hasFocus())
        return nullptr;
    QAccessibleInterface* const current = child(list().currentIndex().row());
    return current != nullptr ? current : QAccessible::queryAccessibleInterface(widget());
}

std::optional<QAccessible::Id> RowListAccessible::known(int row) const {
    followRows();
    const auto found = m_rows.find(row);
    return found == m_rows.end() ? std::nullopt : std::optional(found->second);
}

void RowListAccessible::followRows() const {
    if (std::exchange(m_revision, list().rowsRevision()) == list().rowsRevision())
        return;
    for (const auto& [before, id] : std::exchange(m_rows, {}))
        if (const RowAccessible* const row = rowOf(id); row != nullptr && row->isValid())
            m_rows[row->index().row()] = id;
        else
            QAccessible::deleteAccessibleInterface(id);
}

} // namespace brisklog
