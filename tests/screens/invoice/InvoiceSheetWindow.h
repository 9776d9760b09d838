#pragma once

#include "invoice/InvoiceSheet.h"
#include "invoice/screens/InvoiceScreen.h"
#include "support/screen/ScreenTest.h"
#include "ui/sheets/Sheets.h"

#include <QAbstractButton>
#include <QListView>
#include <QPointer>
#include <QScrollArea>
#include <memory>

namespace brisklog::test {

/// The invoice sheet on the screen, over a window that stands for the popover.
class InvoiceSheetWindow {
public:
    /// Shows the sheet for the project; the store must be filled first.
    explicit InvoiceSheetWindow(InvoiceSheet& content);

    [[nodiscard]] InvoiceView& view();
    [[nodiscard]] QListView& list();
    /// What scrolls.
    [[nodiscard]] QScrollArea& page();
    /// Whether that area of a widget in the page is wholly visible.
    [[nodiscard]] bool isInView(const QWidget& part, const QRect& area);
    [[nodiscard]] bool isRowInView(int row);
    /// The button with that caption, visible or not.
    [[nodiscard]] QAbstractButton& button(const QString& caption);
    /// The label with that text; null when it is not visible.
    [[nodiscard]] QWidget* label(const QString& text);

    void clickRow(int row);
    void clickTrash(int row);

    QWidget popover;
    QPointer<SheetWindow> sheet;

private:
    [[nodiscard]] QRect rowRect(int row);
};

} // namespace brisklog::test
