#pragma once

#include "invoice/screens/InvoiceEntryModel.h"

#include <QWidget>

namespace brisklog {

class RowList;

/// The entries to tick. The list is as high as all its rows and scrolls with the sheet.
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
    void showNewRow();

    InvoiceEntryModel m_model;
    RowList* m_list;
};

} // namespace brisklog
