#pragma once

#include "invoice/ArchiveSheetView.h"
#include "ui/sheets/Screen.h"

#include <memory>

namespace brisklog {

class ArchiveList;
class SheetWindow;

/// The archive sheet's body: the issued invoices by month, or what to do while there are none.
class ArchiveSheetScreen final : public Screen {
public:
    ArchiveSheetScreen(TimeTrackingStore& timeStore, const Clock& clock);

protected:
    void refresh() override;

private:
    [[nodiscard]] static QWidget* makeEmptyArchive();

    ArchiveSheetView m_view;
    ArchiveList* m_list;
    QWidget* m_emptyArchive;
};

/// The sheet, ready to be presented.
[[nodiscard]] std::unique_ptr<SheetWindow> makeArchiveSheet(TimeTrackingStore& timeStore, const Clock& clock);

} // namespace brisklog
