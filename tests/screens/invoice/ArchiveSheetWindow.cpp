#include "screens/invoice/ArchiveSheetWindow.h"

#include "invoice/screens/ArchiveSheetScreen.h"
#include "ui/sheets/Sheets.h"

#include <QApplication>
#include <QLabel>
#include <QTest>

using namespace Qt::StringLiterals;

namespace brisklog::test {

ArchiveSheetWindow::ArchiveSheetWindow()
    : content({entryOf("Eins", hour), entryOf("Zwei", hour / 2, 80.0)}, 60.0) {}

void ArchiveSheetWindow::issue(const std::string& number, const std::optional<std::string>& customer,
                               double daysAgo, const std::vector<Uuid>& ids) {
    const Date now = content.clock.now();
    content.clock.set(now.addingSeconds(-daysAgo * fullDay));
    content.store.addArchivedInvoice(number, customer, ids);
    content.clock.set(now);
}

void ArchiveSheetWindow::issueThree() {
    issue("2026-038", std::nullopt, 30);
    issue("2026-040", "Müller - Müller & Söhne Möbelmanufaktur");
    issue("2026-041", "Dr. Änne Größmann - Steuerberatung Größmann", 0,
          {content.projectEntries().at(0).id, content.projectEntries().at(1).id});
}

void ArchiveSheetWindow::open() {
    popover.resize(370, 650);
    showActive(popover);
    sheet = &presentSheet(popover, makeArchiveSheet(content.store, content.clock));
    showActive(*sheet);
}

QStringList ArchiveSheetWindow::rows() {
    QStringList rows;
    for (int row = 0; row < list().model()->rowCount(); ++row)
        rows.push_back(list().model()->index(row, 0).data().toString());
    return rows;
}

QModelIndex ArchiveSheetWindow::row(const QString& title) {
    return list().model()->index(static_cast<int>(rows().indexOf(title)), 0);
}

QString ArchiveSheetWindow::spoken(const QString& title) {
    return row(title).data(Qt::AccessibleTextRole).toString();
}

bool ArchiveSheetWindow::isOpen(const QString& title) { return spoken(title).contains(u"Betrag:"_s); }

void ArchiveSheetWindow::click(const QPoint& point) {
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, point);
    settle();
}

void ArchiveSheetWindow::clickRow(const QString& title) {
    click(list().visualRect(row(title)).topLeft() + QPoint(60, 20));
}

void ArchiveSheetWindow::press(Qt::Key key) {
    QTest::keyClick(&list(), key);
    settle();
}

QAbstractButton& ArchiveSheetWindow::trashOf(const QString& title) {
    return *findNamed<QAbstractButton>(*list().indexWidget(row(title)), u"Rechnung löschen"_s);
}

void ArchiveSheetWindow::clickTrash(const QString& title) {
    QTest::mouseClick(&trashOf(title), Qt::LeftButton);
    settle();
}

QStringList ArchiveSheetWindow::detailsOf(const QString& title) {
    QStringList lines;
    for (const auto* label : list().indexWidget(row(title))->findChildren<QLabel*>())
        lines.push_back(label->text());
    return lines;
}

QWidget* ArchiveSheetWindow::alert() { return QApplication::activeModalWidget(); }

void ArchiveSheetWindow::press(QWidget& window, const QString& caption) {
    findNamed<QAbstractButton>(window, caption)->click();
    settle();
}

bool ArchiveSheetWindow::shows(const QString& text) {
    for (const auto* label : sheet->findChildren<QLabel*>())
        if (label->isVisible() && label->text() == text)
            return true;
    return false;
}

} // namespace brisklog::test
