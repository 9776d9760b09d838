#pragma once

#include "invoice/screens/ArchiveModel.h"

#include <QPersistentModelIndex>
#include <QPointer>
#include <QWidget>
#include <vector>

class QVariantAnimation;

namespace brisklog {

class ArchiveDelegate;
class ArchiveDetailsPanel;
class RowList;

/// The archived invoices by month. A click, Return or Space opens or closes one, Right opens, Left closes;
/// the trash button and Delete ask whether to delete it.
class ArchiveList final : public QWidget {
public:
    ArchiveList(TimeTrackingStore& timeStore, ArchiveSheetView& view);

    /// Shows the invoices as they are now.
    void showInvoices();

    [[nodiscard]] RowList& list() const { return *m_list; }

    /// The details that are shown, in row order.
    [[nodiscard]] std::vector<ArchiveDetailsPanel*> openPanels() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool keyPressed(const QModelIndex& index, int key);
    void toggle(const QModelIndex& index);
    /// Opens or closes the row's details; at once with reduced motion.
    void move(const QModelIndex& index);
    void movementEnded(const QModelIndex& index);
    void showPanels();
    [[nodiscard]] ArchiveDetailsPanel& panelOf(const QModelIndex& index);
    void confirmDeleting(const Uuid& id);

    ArchiveSheetView& m_view;
    ArchiveModel m_model;
    RowList* m_list;
    ArchiveDelegate* m_delegate;
    /// The row whose details are opening or closing.
    QPersistentModelIndex m_moving;
    QPointer<QVariantAnimation> m_movement;
};

} // namespace brisklog
