#pragma once

#include "core/TimeTrackingStore.h"
#include "invoice/InvoiceView.h"
#include "ui/sheets/Screen.h"

namespace brisklog {

class Button;
class FigureLabel;
class InvoiceEntryList;
class Label;
class LayoutBox;

/// The entries to bill, with their totals.
class InvoiceEntriesSection final : public Screen {
public:
    InvoiceEntriesSection(TimeTrackingStore& timeStore, InvoiceView& view, const Clock& clock);

protected:
    void refresh() override;

private:
    [[nodiscard]] LayoutBox selectionButtons();
    [[nodiscard]] LayoutBox summary();

    InvoiceView& m_view;
    InvoiceEntryList* m_list;
    Label* m_noEntries;
    Button* m_selectAll;
    Button* m_deselectAll;
    FigureLabel* m_entryCount;
    FigureLabel* m_totalTime;
    FigureLabel* m_totalAmount;
};

} // namespace brisklog
