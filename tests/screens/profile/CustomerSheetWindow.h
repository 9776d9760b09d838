#pragma once

#include "invoice/InvoiceSheet.h"
#include "support/screen/ScreenTest.h"
#include "ui/look/Palette.h"
#include "ui/sheets/SheetWindow.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QListView>
#include <QPointer>

namespace brisklog::test {

/// The customer sheet on the screen, over a window that stands for the popover.
class CustomerSheetWindow : public ScreenTest {
protected:
    /// A customer with every line a card can have.
    [[nodiscard]] static Customer wordyCustomer();

    void addCustomer(const Customer& customer) { content.addCustomer(customer); }

    /// Shows the sheet; the store must be filled first.
    void open();

    [[nodiscard]] QListView& list();
    [[nodiscard]] QString textOf(int row);
    /// The row's area in the list's viewport.
    [[nodiscard]] QRect rowArea(int row);
    void clickRow(int row);

    /// The open form over the list; null when there is none.
    [[nodiscard]] SheetWindow* form();
    /// The form's field with that label.
    [[nodiscard]] QLineEdit& field(const QString& label);

    /// The visible button with that name.
    [[nodiscard]] static QAbstractButton& button(QWidget& window, const QString& name);
    static void click(QWidget& window, const QString& name);
    [[nodiscard]] static bool shows(QWidget& window, const QString& text);
    /// The names of the tab stops from the current one on, once around.
    [[nodiscard]] static QStringList tabPath(QWidget& window);

    InvoiceSheet content{{}, std::nullopt};
    QWidget popover;
    QPointer<SheetWindow> sheet;
};

} // namespace brisklog::test
