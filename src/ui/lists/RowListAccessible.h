#pragma once

#include <QAccessibleWidget>
#include <QPersistentModelIndex>
#include <optional>
#include <unordered_map>

namespace brisklog {

class RowList;

/// A list's row for screen readers. What they do with it is what a click on the row does.
class RowAccessible final : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    RowAccessible(RowList& list, const QModelIndex& index);

    [[nodiscard]] const QPersistentModelIndex& index() const { return m_index; }

    /// Tells screen readers what has changed since the last call: its text, its tick, whether it is open.
    void announceChange();

    [[nodiscard]] bool isValid() const override { return m_index.isValid(); }

    [[nodiscard]] QObject* object() const override { return nullptr; }

    [[nodiscard]] QAccessible::Role role() const override;
    [[nodiscard]] QAccessible::State state() const override;
    [[nodiscard]] QString text(QAccessible::Text kind) const override;

    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}

    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QWindow* window() const override;
    [[nodiscard]] QAccessibleInterface* parent() const override;

    [[nodiscard]] QAccessibleInterface* child(int /*index*/) const override { return nullptr; }

    [[nodiscard]] QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }

    [[nodiscard]] int childCount() const override { return 0; }

    [[nodiscard]] int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }

    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString& name) override;

    [[nodiscard]] QStringList keyBindingsForAction(const QString& /*name*/) const override { return {}; }

protected:
    void* interface_cast(QAccessible::InterfaceType type) override;

private:
    [[nodiscard]] QAccessible::State contentState() const;

    RowList& m_list;
    const QPersistentModelIndex m_index;
    /// As screen readers know it.
    QAccessible::State m_knownState;
    QString m_knownName;
};

/// A list for screen readers, with its rows as children. The toolkit's own would offer an action in each row
/// that does nothing, and would call the current row focused wherever the focus is.
class RowListAccessible final : public QAccessibleWidget {
public:
    explicit RowListAccessible(RowList& list);
    ~RowListAccessible() override;

    /// For the rows that a screen reader has asked for.
    void announceChanges();

    [[nodiscard]] int childCount() const override;
    [[nodiscard]] QAccessibleInterface* child(int index) const override;
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override;
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;
    [[nodiscard]] QAccessibleInterface* focusChild() const override;

private:
    [[nodiscard]] RowList& list() const;
    [[nodiscard]] std::optional<QAccessible::Id> known(int row) const;
    /// Finds the rows again that have moved, and forgets those that are gone.
    void followRows() const;

    /// By row, as of that revision of the rows. A row keeps its interface for as long as it exists.
    mutable std::unordered_map<int, QAccessible::Id> m_rows;
    mutable std::uint64_t m_revision = 0;
};

} // namespace brisklog
