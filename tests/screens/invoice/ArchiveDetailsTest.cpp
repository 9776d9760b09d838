// What expanded invoices in the archive show, and how they are deleted.

#include "screens/Pictures.h"
#include "screens/invoice/ArchiveSheetWindow.h"
#include "support/screen/ScreenReader.h"
#include "ui/look/Look.h"
#include "ui/look/Palette.h"

#include <QAccessible>
#include <QApplication>
#include <QScrollBar>
#include <QTest>
#include <QVariantAnimation>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

using ArchiveDetailsOnScreen = ArchiveSheetWindow;

TEST_F(ArchiveDetailsOnScreen, aClickShowsTheDetailsAndAnotherTakesThemAway) {
    issueThree();
    open();
    const int closed = list().visualRect(row(u"2026-041"_s)).height();
    clickRow(u"2026-041"_s);
    EXPECT_EQ(spoken(u"2026-041"_s),
              u"2026-041, Dr. Änne Größmann - Steuerberatung Größmann, Datum: 15.11.2026, "
              u"Zeit: 1\u00A0h 30\u00A0min, Betrag: 100,00\u00A0€"_s);
    EXPECT_EQ(detailsOf(u"2026-041"_s),
              (QStringList{u"Datum:"_s, u"15.11.2026"_s, u"Zeit:"_s, u"1\u00A0h 30\u00A0min"_s, u"Betrag:"_s,
                           u"100,00\u00A0€"_s}));
    EXPECT_EQ(list().visualRect(row(u"2026-041"_s)).height(), closed + 72);
    EXPECT_EQ(list().visualRect(row(u"2026-040"_s)).top(),
              list().visualRect(row(u"2026-041"_s)).bottom() + 1);
    clickRow(u"2026-041"_s);
    EXPECT_FALSE(isOpen(u"2026-041"_s));
    EXPECT_EQ(list().indexWidget(row(u"2026-041"_s)), nullptr);
    EXPECT_EQ(list().visualRect(row(u"2026-041"_s)).height(), closed);
}

TEST_F(ArchiveDetailsOnScreen, severalInvoicesMayBeOpen) {
    issueThree();
    open();
    clickRow(u"2026-041"_s);
    clickRow(u"2026-038"_s);
    EXPECT_TRUE(isOpen(u"2026-041"_s));
    EXPECT_TRUE(isOpen(u"2026-038"_s));
    EXPECT_FALSE(isOpen(u"2026-040"_s));
}

TEST_F(ArchiveDetailsOnScreen, aClickOnTheDetailsLeavesThemOpen) {
    issueThree();
    open();
    clickRow(u"2026-041"_s);
    click(list().visualRect(row(u"2026-041"_s)).topLeft() + QPoint(60, 70));
    EXPECT_TRUE(isOpen(u"2026-041"_s));
}

TEST_F(ArchiveDetailsOnScreen, whatIsOpenedLowestComesIntoSight) {
    for (int count = 0; count < 40; ++count)
        issue(std::to_string(count), std::nullopt);
    open();
    list().scrollTo(row(u"20"_s), QAbstractItemView::PositionAtBottom);
    clickRow(u"20"_s);
    const QRect details = list().indexWidget(row(u"20"_s))->geometry();
    EXPECT_EQ(details.height(), 64);
    EXPECT_TRUE(list().viewport()->rect().contains(details));
}

TEST_F(ArchiveDetailsOnScreen, rightOpensAndLeftShuts) {
    issueThree();
    open();
    press(Qt::Key_Left);
    EXPECT_FALSE(isOpen(u"2026-041"_s));
    press(Qt::Key_Right);
    press(Qt::Key_Right);
    EXPECT_TRUE(isOpen(u"2026-041"_s));
    press(Qt::Key_Left);
    EXPECT_FALSE(isOpen(u"2026-041"_s));
}

TEST_F(ArchiveDetailsOnScreen, theTrashAsksAndDeletesTheInvoiceAlone) {
    issueThree();
    content.files.written.clear();
    open();
    clickRow(u"2026-041"_s);
    clickTrash(u"2026-041"_s);
    ASSERT_NE(alert(), sheet);
    EXPECT_EQ(alert()->windowTitle(), u"Archivierte Rechnung löschen?"_s);
    press(*alert(), u"Abbrechen"_s);
    EXPECT_TRUE(content.files.written.empty());
    EXPECT_TRUE(rows().contains(u"2026-041"_s));
    clickTrash(u"2026-041"_s);
    press(*alert(), u"Löschen"_s);
    EXPECT_EQ(content.files.written, std::vector<std::string>{"archivedInvoices.json"});
    EXPECT_EQ(rows().mid(1),
              (QStringList{u"November 2026"_s, u"2026-040"_s, u"Oktober 2026"_s, u"2026-038"_s}));
    EXPECT_FALSE(isOpen(u"2026-040"_s));
}

TEST_F(ArchiveDetailsOnScreen, tabGoesFromTheListOverTheOpenDetailsToTheCloseButton) {
    issueThree();
    open();
    clickRow(u"2026-038"_s);
    clickRow(u"2026-041"_s);
    std::vector<QWidget*> path;
    for (int stop = 0; stop < 4; ++stop) {
        QTest::keyClick(sheet->focusWidget(), Qt::Key_Tab);
        path.push_back(sheet->focusWidget());
    }
    EXPECT_EQ(path[0], &trashOf(u"2026-041"_s));
    EXPECT_EQ(path[1], &trashOf(u"2026-038"_s));
    EXPECT_EQ(accessibleNameOf(*path[2]), u"Schließen"_s);
    EXPECT_EQ(path[3], &list());
}

TEST_F(ArchiveDetailsOnScreen, aScreenReaderOpensAnInvoiceAndHearsItsDetails) {
    issueThree();
    open();
    auto& rows = ScreenReader::of(list());
    QAccessibleInterface& invoice = *rows.child(row(u"2026-038"_s).row());
    EXPECT_TRUE(invoice.state().expandable);
    EXPECT_TRUE(invoice.state().collapsed);
    ScreenReader reader;
    ScreenReader::act(invoice, QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(isOpen(u"2026-038"_s));
    EXPECT_TRUE(invoice.state().expanded);
    EXPECT_LT(invoice.rect().height(), list().visualRect(row(u"2026-038"_s)).height());
    EXPECT_FALSE(ScreenReader::of(*list().parentWidget()).state().focused);
    EXPECT_EQ(reader.count(QAccessible::StateChanged, invoice.text(QAccessible::Name)), 1);
    ScreenReader::act(invoice, QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(invoice.state().collapsed);
    ASSERT_EQ(reader.announced().size(), 2);
    EXPECT_TRUE(reader.announced()[0].startsWith(u"Datum: "_s)) << reader.announced()[0].toStdString();
    EXPECT_EQ(reader.announced()[1], u"Einzelheiten geschlossen"_s);
}

TEST_F(ArchiveDetailsOnScreen, toAScreenReaderMonthsAreHeadingsThatOfferNothing) {
    issueThree();
    open();
    auto& rows = ScreenReader::of(list());
    QAccessibleInterface& month = *rows.child(row(u"November 2026"_s).row());
    EXPECT_EQ(month.role(), QAccessible::Heading);
    EXPECT_FALSE(month.state().disabled);
    EXPECT_EQ(ScreenReader::actionsOf(month), QStringList());
    EXPECT_EQ(rows.child(0)->role(), QAccessible::StaticText);
}

TEST_F(ArchiveDetailsOnScreen, aScreenReaderFindsTheDetailsOfOpenInvoicesBesideTheList) {
    issueThree();
    open();
    QAccessibleInterface* const around = QAccessible::queryAccessibleInterface(list().parentWidget());
    EXPECT_EQ(around->childCount(), 1);
    clickRow(u"2026-038"_s);
    clickRow(u"2026-041"_s);
    ASSERT_EQ(around->childCount(), 3);
    EXPECT_EQ(around->child(0)->object(), &list());
    EXPECT_EQ(around->child(1)->object(), list().indexWidget(row(u"2026-041"_s)));
    EXPECT_EQ(around->indexOfChild(around->child(2)), 2);
    EXPECT_EQ(around->child(3), nullptr);
}

TEST_F(ArchiveDetailsOnScreen, theDetailsSurviveTheDeletionOfAnotherInvoice) {
    issueThree();
    open();
    clickRow(u"2026-038"_s);
    content.store.deleteArchivedInvoice(content.store.archivedInvoices->back().id);
    settle();
    EXPECT_EQ(detailsOf(u"2026-038"_s).first(), u"Datum:"_s);
    EXPECT_EQ(list().indexWidget(row(u"2026-038"_s))->geometry().bottom() + 1 + 8 + 1 + 15,
              list().visualRect(row(u"2026-038"_s)).bottom() + 1);
}

TEST_F(ArchiveDetailsOnScreen, theSumsFollowTheEntriesWhileItIsOpen) {
    issueThree();
    open();
    clickRow(u"2026-041"_s);
    content.store.resetProject(0);
    settle();
    EXPECT_TRUE(spoken(u"2026-041"_s).endsWith(u"Zeit: --, Betrag: --"_s));
    EXPECT_EQ(detailsOf(u"2026-041"_s).last(), u"--"_s);
}

TEST_F(ArchiveDetailsOnScreen, theInvoiceUnderThePointerIsMarkedUntilThePointerIsOnItsDetails) {
    issueThree();
    open();
    clickRow(u"2026-041"_s);
    const QPoint onHead = list().visualRect(row(u"2026-041"_s)).topLeft() + QPoint(300, 20);
    const auto colorThere = [&] {
        return picture(*sheet).pixelColor(list().viewport()->mapTo(sheet, onHead));
    };
    QMouseEvent move(QEvent::MouseMove, onHead, list().viewport()->mapToGlobal(onHead), Qt::NoButton, {}, {});
    QCoreApplication::sendEvent(list().viewport(), &move);
    EXPECT_NE(colorThere(), Palette::current().card);
    hover(*list().indexWidget(row(u"2026-041"_s)));
    EXPECT_EQ(colorThere(), Palette::current().card);
}

TEST_F(ArchiveDetailsOnScreen, detailsThatAreStillMovingEndWhereTheyShouldWhenOthersBegin) {
    installLook(*qApp, Motion::full);
    issueThree();
    open();
    const auto panel = [this](const QString& title) { return list().indexWidget(row(title)); };
    const QPoint head = list().visualRect(row(u"2026-038"_s)).topLeft() + QPoint(60, 20);
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, head);
    EXPECT_EQ(panel(u"2026-038"_s)->height(), 0) << "the details only begin to appear";
    clickRow(u"2026-041"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return panel(u"2026-041"_s)->height() == 64; }));
    EXPECT_EQ(panel(u"2026-038"_s)->height(), 64);
    clickRow(u"2026-038"_s);
    clickRow(u"2026-041"_s);
    EXPECT_EQ(panel(u"2026-038"_s), nullptr);
    EXPECT_TRUE(QTest::qWaitFor([&] { return panel(u"2026-041"_s) == nullptr; }));
    EXPECT_EQ(list().visualRect(row(u"2026-041"_s)).height(), 46);
}

TEST_F(ArchiveDetailsOnScreen, detailsBelowTheEdgeComeIntoViewButNotUnderAPressedButton) {
    installLook(*qApp, Motion::full);
    for (int i = 0; i < 30; ++i)
        issue("2026-" + std::to_string(100 + i), std::nullopt, i);
    open();
    const QPoint lowest(60, list().viewport()->height() - 20);
    const QModelIndex opened = list().indexAt(lowest);
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, lowest);
    const QPoint elsewhere = list().viewport()->mapTo(sheet, QPoint(60, 60));
    QTest::mousePress(sheet->windowHandle(), Qt::LeftButton, {}, elsewhere);
    auto* const movement = sheet->findChild<QVariantAnimation*>();
    ASSERT_NE(movement, nullptr);
    movement->setCurrentTime(movement->duration());
    settle();
    EXPECT_EQ(list().verticalScrollBar()->value(), 0);
    QTest::mouseRelease(sheet->windowHandle(), Qt::LeftButton, {}, QPoint(2, 2));
    settle();
    EXPECT_TRUE(list().viewport()->rect().contains(list().visualRect(opened)));
}

} // namespace
} // namespace brisklog::test
