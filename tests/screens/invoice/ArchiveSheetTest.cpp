// The archive as a sheet: its months and invoices.

#include "screens/Pictures.h"
#include "screens/invoice/ArchiveSheetWindow.h"
#include "support/WritableStore.h"
#include "support/screen/Strokes.h"
#include "ui/look/Palette.h"
#include "ui/look/Typography.h"

#include <QHelpEvent>
#include <QTest>
#include <QToolTip>
#include <algorithm>
#include <chrono>
#include <set>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

using ArchiveSheet = ArchiveSheetWindow;

TEST_F(ArchiveSheet, saysWhatWillBeThereWhileItIsEmpty) {
    open();
    EXPECT_EQ(sheet->windowTitle(), u"Archivierte Rechnungen"_s);
    EXPECT_EQ(sheet->size(), QSize(400, 600));
    EXPECT_TRUE(shows(u"Hier findest du alle archivierten Rechnungen sortiert nach Jahr und Monat."_s));
    EXPECT_TRUE(shows(u"Noch keine archivierten Rechnungen"_s));
    EXPECT_TRUE(shows(u"Eine erstellte Rechnung erscheint hier."_s));
    EXPECT_FALSE(list().isVisible());
    takePictures(*sheet, u"archiv-leer"_s, QPoint(4, 500));
}

TEST_F(ArchiveSheet, listsTheNewestMonthAndInvoiceFirst) {
    issueThree();
    open();
    EXPECT_FALSE(shows(u"Noch keine archivierten Rechnungen"_s));
    EXPECT_EQ(
        rows(),
        (QStringList{u"Hier findest du alle archivierten Rechnungen sortiert nach Jahr und Monat."_s,
                     u"November 2026"_s, u"2026-041"_s, u"2026-040"_s, u"Oktober 2026"_s, u"2026-038"_s}));
    EXPECT_EQ(spoken(u"2026-038"_s), u"2026-038, Unbekannt"_s);
}

TEST_F(ArchiveSheet, theExplanationHasAsManyLinesAsItNeedsAtEveryWidth) {
    issueThree();
    open();
    std::set<int> counts;
    for (int width = 220; width <= 520; width += 15) {
        list().resize(width, 500);
        settle();
        const auto strokes = strokesOf(*list().viewport());
        const auto lines = static_cast<int>(std::ranges::count_if(
            strokes, [](const Stroke& stroke) { return stroke.what.startsWith(u"tab12"_s); }));
        EXPECT_EQ(list().visualRect(list().model()->index(0, 0)).height(),
                  12 + lines * lineHeight(FontRole::tab12))
            << width;
        counts.insert(lines);
    }
    EXPECT_EQ(counts, (std::set{1, 2, 3}));
}

TEST_F(ArchiveSheet, theArrowsPassTheMonthsAndReturnOpens) {
    issueThree();
    open();
    EXPECT_EQ(sheet->focusWidget(), &list());
    EXPECT_EQ(list().currentIndex(), row(u"2026-041"_s));
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    EXPECT_EQ(list().currentIndex(), row(u"2026-038"_s));
    press(Qt::Key_Return);
    EXPECT_TRUE(isOpen(u"2026-038"_s));
    press(Qt::Key_Up);
    EXPECT_EQ(list().currentIndex(), row(u"2026-040"_s));
    press(Qt::Key_Up);
    press(Qt::Key_Up);
    EXPECT_EQ(list().currentIndex(), row(u"2026-041"_s));
    press(Qt::Key_Space);
    EXPECT_TRUE(isOpen(u"2026-041"_s));
}

TEST_F(ArchiveSheet, deleteAsksAboutTheCurrentInvoice) {
    issueThree();
    open();
    press(Qt::Key_Down);
    press(Qt::Key_Delete);
    ASSERT_NE(alert(), sheet);
    press(*alert(), u"Löschen"_s);
    EXPECT_FALSE(rows().contains(u"2026-040"_s));
    press(Qt::Key_Delete);
    EXPECT_NE(alert(), sheet) << "the next invoice has become the current one";
}

TEST_F(ArchiveSheet, deletingTheLastInvoiceOfAMonthTakesItsTitleAwayToo) {
    issueThree();
    open();
    list().setCurrentIndex(row(u"2026-038"_s));
    press(Qt::Key_Delete);
    press(*alert(), u"Löschen"_s);
    EXPECT_EQ(rows().mid(1), (QStringList{u"November 2026"_s, u"2026-041"_s, u"2026-040"_s}));
}

TEST_F(ArchiveSheet, deletingTheVeryLastInvoiceLeavesTheEmptyArchive) {
    issue("1", std::nullopt);
    open();
    press(Qt::Key_Delete);
    press(*alert(), u"Löschen"_s);
    EXPECT_TRUE(shows(u"Noch keine archivierten Rechnungen"_s));
    EXPECT_FALSE(list().isVisible());
}

TEST_F(ArchiveSheet, escapeClosesTheQuestionThenTheSheet) {
    issueThree();
    open();
    press(Qt::Key_Delete);
    QTest::keyClick(alert(), Qt::Key_Escape);
    settle();
    EXPECT_EQ(alert(), sheet);
    QTest::keyClick(sheet, Qt::Key_Escape);
    settle();
    EXPECT_TRUE(sheet.isNull());
    EXPECT_EQ(content.store.archivedInvoices->size(), 3U);
}

TEST_F(ArchiveSheet, longTextsAreShortenedWithTheWholeTextAsTooltip) {
    issue(std::string(80, 'N'), std::string(120, 'K'));
    open();
    const QRect area = list().visualRect(list().model()->index(2, 0));
    const auto tooltipAt = [&](const QPoint& point) {
        QHelpEvent event(QEvent::ToolTip, point, list().viewport()->mapToGlobal(point));
        QCoreApplication::sendEvent(list().viewport(), &event);
        return QToolTip::text();
    };
    EXPECT_EQ(tooltipAt(area.topLeft() + QPoint(369, 20)), QString());
    EXPECT_EQ(tooltipAt(area.topLeft() + QPoint(60, 15)), QString(80, u'N'));
    EXPECT_TRUE(tooltipAt(area.topLeft() + QPoint(60, 32)).contains(QString(120, u'K')));
}

TEST_F(ArchiveSheet, lineBreaksInANumberStayOnOneLine) {
    issue("2026\n041\tNachtrag", "Müller\r\nGmbH");
    open();
    takePictures(*sheet, u"archiv-umbruch"_s, QPoint(4, 500));
    EXPECT_EQ(list().visualRect(list().model()->index(2, 0)).height(), 46 + 1 + 15);
}

TEST_F(ArchiveSheet, anOpenSheetFollowsTheColourScheme) {
    issueThree();
    open();
    clickRow(u"2026-041"_s);
    takePictures(*sheet, u"archiv"_s, QPoint(4, 500));
}

TEST_F(ArchiveSheet, theKeyboardsInvoiceHasTheRing) {
    issueThree();
    open();
    clickRow(u"2026-041"_s);
    press(Qt::Key_Down);
    hover(trashOf(u"2026-041"_s));
    takePictures(*sheet, u"archiv-tastatur"_s, QPoint(4, 500));
    unhover(trashOf(u"2026-041"_s));
    const QRect head = list().visualRect(list().currentIndex());
    const QImage image = picture(*sheet);
    const QPoint onRing = list().viewport()->mapTo(sheet, head.topLeft() + QPoint(200, 3));
    EXPECT_TRUE(looksLike(image.pixelColor(onRing), Palette::current().blue));
}

TEST_F(ArchiveSheet, twoThousandInvoicesOpenWithoutMakingOneWait) {
    std::vector<ArchivedInvoice> invoices;
    invoices.reserve(2000);
    for (int count = 0; count < 2000; ++count)
        invoices.push_back({.id = Uuid::generate(),
                            .invoiceNumber = std::to_string(count),
                            .date = content.clock.now().addingSeconds((count - 2000) * fullDay),
                            .customerName = "Müller",
                            .entryIDs = {content.projectEntries().at(0).id}});
    writable(content.store.archivedInvoices) = invoices;
    const auto start = std::chrono::steady_clock::now();
    open();
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    // The introduction, 67 months from May 2021 to November 2026, and the invoices.
    EXPECT_EQ(list().model()->rowCount(), 1 + 67 + 2000);
    // A generous limit; the benchmark measures what it takes.
    EXPECT_LT(taken.count(), 1.0);
}

} // namespace
} // namespace brisklog::test
