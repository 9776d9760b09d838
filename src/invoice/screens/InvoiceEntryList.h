#pragma once

#include "invoice/screens/InvoiceEntryDelegate.h"
#include "invoice/screens/InvoiceEntryModel.h"

#include <QPersistentModelIndex>
#include <QWidget>

class QMouseEvent;

namespace brisklog {

class RowList;

/// The entries to tick. Few rows are all shown; more than twelve scroll within eleven and a half, so that the
/// cut row says that there is more and the sums under the list stay in sight.
class InvoiceEntryList final : public QWidget {
public:
    InvoiceEntryList(InvoiceView& view, const Clock& clock);

    /// Shows the rows as they are now.
    void showRows();

    [[nodiscard]] RowList& list() const { return *m_list; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    using Part = InvoiceEntryDelegate::Part;

    bool keyPressed(int key);
    void pointerMoved(const QPoint& position);
    void pressed(const QMouseEvent& event);
    void released(const QMouseEvent& event);
    void toggle(const QModelIndex& index);
    void deleteEntry(const QModelIndex& index);
    [[nodiscard]] Part partAt(const QModelIndex& index, const QPoint& position) const;
    void fitHeight();

    InvoiceEntryModel m_model;
    RowList* m_list;
    InvoiceEntryDelegate* m_delegate;
    QPersistentModelIndex m_pressedIndex;
    Part m_pressedPart = Part::none;
};

} // namespace brisklog
