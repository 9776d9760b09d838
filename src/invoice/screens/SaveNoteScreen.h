#pragma once

#include "core/TimeTrackingStore.h"
#include "invoice/InvoiceView.h"
#include "invoice/SaveNoteView.h"
#include "ui/sheets/Screen.h"

#include <memory>

namespace brisklog {

class Button;
class SheetWindow;
class TextField;

/// Asks for the name to save the invoice's notes under.
class SaveNoteScreen final : public Screen {
public:
    SaveNoteScreen(TimeTrackingStore& timeStore, InvoiceView& invoice);

    /// Return presses it.
    [[nodiscard]] Button& mainAction() const { return *m_save; }

protected:
    void refresh() override;

private:
    SaveNoteView m_view;
    TextField* m_name;
    Button* m_cancel;
    Button* m_save;
};

/// The sheet, ready to be presented. Its presenter closes it once `showingSaveNoteSheet` is false.
[[nodiscard]] std::unique_ptr<SheetWindow> makeSaveNoteSheet(TimeTrackingStore& timeStore,
                                                             InvoiceView& invoice);

} // namespace brisklog
