#pragma once

#include "core/TimeTrackingStore.h"
#include "invoice/InvoiceView.h"
#include "ui/sheets/Screen.h"

#include <memory>

namespace brisklog {

class Button;
class Card;
class FigureLabel;
class SheetWindow;
class TextField;

/// The invoice sheet's body: a form in sections. Its sum and its main action belong in the sheet's footer.
class InvoiceScreen final : public Screen {
public:
    InvoiceScreen(TimeTrackingStore& timeStore, int projectIndex, const DocumentFacilities& facilities,
                  NotificationCenter& notificationCenter);

    [[nodiscard]] InvoiceView& view() { return m_view; }

    /// "Rechnung erstellen"; disabled while there is nothing to bill or no one to bill it to.
    [[nodiscard]] Button& createButton() const { return *m_create; }

    /// How many entries are ticked, and their sum.
    [[nodiscard]] QWidget& sum() const;

protected:
    void showEvent(QShowEvent* event) override;
    void refresh() override;

private:
    [[nodiscard]] Card* numberCard();
    void refreshButton();

    InvoiceView m_view;
    TextField* m_number;
    FigureLabel* m_sum;
    Button* m_create;
};

/// The sheet for the project at that index, ready to be presented.
[[nodiscard]] std::unique_ptr<SheetWindow> makeInvoiceSheet(TimeTrackingStore& timeStore, int projectIndex,
                                                            const DocumentFacilities& facilities,
                                                            NotificationCenter& notificationCenter);

} // namespace brisklog
