#pragma once

#include "invoice/screens/InvoiceEntryModel.h"

#include <QWidget>

namespace brisklog {

class RowList;

/// The entries to tick. Up to twelve rows are shown in full; more scroll within a height of eleven and a
/// half, so that the half row hints at more and the totals below the list stay visible.
class InvoiceEntryList final : public QWidget {
public:
    InvoiceEntryList(InvoiceView& view, const Clock& clock);

    /// Shows the rows as they are now.
    void showRows();

    [[nodiscard]] RowList& list() const { return *m_list; }

private:
    bool keyPressed(const QModelIndex& index, int key);
    void toggle(const QModelIndex& index);
    void deleteEntry(const QModelIndex& index);
    void fitHeight();

    InvoiceEntryModel m_model;
    RowList* m_list;
};

} // namespace brisklog
