#include "screens/invoice/InvoiceSheetWindow.h"

#include <QLabel>
#include <QTest>

using namespace Qt::StringLiterals;

namespace brisklog::test {

InvoiceSheetWindow::InvoiceSheetWindow(InvoiceSheet& content) {
    popover.resize(370, 650);
    showActive(popover);
    sheet = &presentSheet(
        popover, makeInvoiceSheet(content.store, 0, content.facilities(), content.notificationCenter));
    showActive(*sheet);
}

InvoiceView& InvoiceSheetWindow::view() {
    for (QWidget* widget : sheet->findChildren<QWidget*>())
        if (auto* screen = dynamic_cast<InvoiceScreen*>(widget))
            return screen->view();
    std::abort();
}

QListView& InvoiceSheetWindow::list() {
    for (auto* list : sheet->findChildren<QListView*>())
        if (list->accessibleName() == u"Einträge zur Abrechnung"_s)
            return *list;
    std::abort();
}

QScrollArea& InvoiceSheetWindow::page() { return *sheet->findChild<QScrollArea*>(); }

bool InvoiceSheetWindow::isInView(const QWidget& part, const QRect& area) {
    const QWidget& seen = *page().viewport();
    return seen.rect().contains(QRect(part.mapTo(&seen, area.topLeft()), area.size()));
}

bool InvoiceSheetWindow::isRowInView(int row) {
    return isInView(*list().viewport(), list().visualRect(list().model()->index(row, 0)));
}

QAbstractButton& InvoiceSheetWindow::button(const QString& caption) {
    for (auto* button : sheet->findChildren<QAbstractButton*>())
        if (button->text() == caption || button->accessibleName() == caption)
            return *button;
    std::abort();
}

QWidget* InvoiceSheetWindow::label(const QString& text) {
    for (auto* label : sheet->findChildren<QLabel*>())
        if (label->text() == text && label->isVisible())
            return label;
    return nullptr;
}

QRect InvoiceSheetWindow::rowRect(int row) {
    const QModelIndex index = list().model()->index(row, 0);
    list().scrollTo(index);
    return list().visualRect(index);
}

void InvoiceSheetWindow::clickRow(int row) {
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, rowRect(row).center());
    settle();
}

void InvoiceSheetWindow::clickTrash(int row) {
    const QRect rect = rowRect(row);
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, QPoint(rect.right() - 20, rect.center().y()));
    settle();
}

} // namespace brisklog::test
