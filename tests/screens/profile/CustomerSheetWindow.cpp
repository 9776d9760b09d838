#include "screens/profile/CustomerSheetWindow.h"

#include "profile/screens/CustomerScreen.h"
#include "ui/sheets/Sheets.h"

#include <QApplication>
#include <QLabel>
#include <QTest>

using namespace Qt::StringLiterals;

namespace brisklog::test {

Customer CustomerSheetWindow::wordyCustomer() {
    Customer customer = customerNamed("Adler", "Adler KG");
    customer.address = "Ringstraße 8";
    customer.postalCode = "50667";
    customer.city = "Köln";
    customer.email = "post@adler.example";
    customer.phone = "0221 1";
    return customer;
}

void CustomerSheetWindow::open() {
    popover.resize(370, 650);
    showActive(popover);
    sheet = &presentSheet(popover, makeCustomerSheet(content.store));
    showActive(*sheet);
}

QListView& CustomerSheetWindow::list() { return *sheet->findChild<QListView*>(); }

QString CustomerSheetWindow::textOf(int row) { return list().model()->index(row, 0).data().toString(); }

QRect CustomerSheetWindow::rowArea(int row) { return list().visualRect(list().model()->index(row, 0)); }

void CustomerSheetWindow::clickRow(int row) {
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, rowArea(row).center());
    settle();
}

SheetWindow* CustomerSheetWindow::form() {
    auto* window = dynamic_cast<SheetWindow*>(QApplication::activeModalWidget());
    return window == sheet ? nullptr : window;
}

QLineEdit& CustomerSheetWindow::field(const QString& label) {
    auto* field = findNamed<QLineEdit>(*form(), label);
    if (!field)
        std::abort();
    return *field;
}

QAbstractButton& CustomerSheetWindow::button(QWidget& window, const QString& name) {
    for (auto* button : window.findChildren<QAbstractButton*>())
        if (button->isVisible() && button->window() == &window && accessibleNameOf(*button) == name)
            return *button;
    ADD_FAILURE() << "no button " << name.toStdString();
    std::abort();
}

void CustomerSheetWindow::click(QWidget& window, const QString& name) {
    button(window, name).click();
    settle();
}

bool CustomerSheetWindow::shows(QWidget& window, const QString& text) {
    for (auto* label : window.findChildren<QLabel*>())
        if (label->text() == text && label->isVisible())
            return true;
    return false;
}

QStringList CustomerSheetWindow::tabPath(QWidget& window) {
    QStringList names;
    const QWidget* const start = window.focusWidget();
    do {
        names.push_back(accessibleNameOf(*window.focusWidget()));
        QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
    } while (window.focusWidget() != start && names.size() < 50);
    return names;
}

} // namespace brisklog::test
