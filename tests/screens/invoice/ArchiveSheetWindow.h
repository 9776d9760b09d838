#pragma once

#include "invoice/InvoiceSheet.h"
#include "support/screen/ScreenTest.h"
#include "ui/sheets/SheetWindow.h"

#include <QAbstractButton>
#include <QListView>
#include <QPointer>

namespace brisklog::test {

/// The archive sheet on the screen, over a window that stands for the popover.
class ArchiveSheetWindow : public ScreenTest {
protected:
    ArchiveSheetWindow();

    void issue(const std::string& number, const std::optional<std::string>& customer, double daysAgo = 0,
               const std::vector<Uuid>& ids = {});
    /// Two invoices in November 2026 and one in October; the newest covers both entries.
    void issueThree();

    /// Shows the sheet; the store must be filled first.
    void open();

    [[nodiscard]] QListView& list() { return *sheet->findChild<QListView*>(); }

    /// The titles of all rows.
    [[nodiscard]] QStringList rows();
    [[nodiscard]] QModelIndex row(const QString& title);
    [[nodiscard]] QString spoken(const QString& title);
    [[nodiscard]] bool isOpen(const QString& title);

    void click(const QPoint& point);
    void clickRow(const QString& title);
    void press(Qt::Key key);

    /// The delete button of an expanded invoice.
    [[nodiscard]] QAbstractButton& trashOf(const QString& title);
    void clickTrash(const QString& title);
    /// The text of an expanded invoice, line by line.
    [[nodiscard]] QStringList detailsOf(const QString& title);

    [[nodiscard]] static QWidget* alert();
    static void press(QWidget& window, const QString& caption);
    [[nodiscard]] bool shows(const QString& text);

    InvoiceSheet content;
    QWidget popover;
    QPointer<SheetWindow> sheet;
};

} // namespace brisklog::test
