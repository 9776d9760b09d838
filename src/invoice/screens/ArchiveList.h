#pragma once

#include "invoice/screens/ArchiveDelegate.h"
#include "invoice/screens/ArchiveModel.h"

#include <QPersistentModelIndex>
#include <QPointer>
#include <QWidget>

class QMouseEvent;
class QVariantAnimation;

namespace brisklog {

class ListView;

/// The archived invoices by month. A click, Return or Space opens one and shuts it again, Right opens, Left
/// shuts, the trash and Delete ask whether to delete it.
class ArchiveList final : public QWidget {
public:
    ArchiveList(TimeTrackingStore& timeStore, ArchiveSheetView& view);

    /// Shows the invoices as they are now.
    void showInvoices();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    using Part = ArchiveDelegate::Part;

    bool keyPressed(int key);
    void pointerMoved(const QPoint& position);
    void pressed(const QMouseEvent& event);
    void released(const QMouseEvent& event);
    [[nodiscard]] Part partAt(const QModelIndex& index, const QPoint& position) const;
    void toggle(const QModelIndex& index);
    /// Lets the row's details arrive or leave, at once where nothing may move.
    void move(const QModelIndex& index);
    void confirmDeleting(const QModelIndex& index);

    ArchiveSheetView& m_view;
    ArchiveModel m_model;
    ListView* m_list;
    ArchiveDelegate* m_delegate;
    QPersistentModelIndex m_pressedIndex;
    Part m_pressedPart = Part::none;
    QPointer<QVariantAnimation> m_movement;
};

} // namespace brisklog
