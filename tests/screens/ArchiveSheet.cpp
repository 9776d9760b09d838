// The archive as a sheet.

#include "app/components/Palette.h"
#include "app/components/Sheets.h"
#include "foundation/GermanFormat.h"
#include "invoice/InvoiceSheet.h"
#include "invoice/screens/ArchiveSheetScreen.h"
#include "screens/Pictures.h"
#include "support/screen/ScreenTest.h"

#include <QAbstractButton>
#include <QApplication>
#include <QHelpEvent>
#include <QLabel>
#include <QListView>
#include <QPointer>
#include <QTest>
#include <QToolTip>
#include <chrono>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

constexpr TimeInterval hour = 3600;
constexpr TimeInterval day = 24 * hour;

class ArchiveSheet : public ScreenTest {
protected:
    ArchiveSheet() { format::useTimeZone(QTimeZone::utc()); }

    void issue(const std::string& number, const std::optional<std::string>& customer, double daysAgo = 0,
               const std::vector<Uuid>& ids = {}) {
        const Date now = content.clock.now();
        content.clock.set(now.addingSeconds(-daysAgo * day));
        content.store.addArchivedInvoice(number, customer, ids);
        content.clock.set(now);
    }

    /// Two invoices in November 2026, one in October; the last one covers both entries.
    void issueThree() {
        issue("2026-038", std::nullopt, 30);
        issue("2026-040", "Müller - Müller & Söhne Möbelmanufaktur");
        issue("2026-041", "Dr. Änne Größmann - Steuerberatung Größmann", 0,
              {content.projectEntries().at(0).id, content.projectEntries().at(1).id});
    }

    void open() {
        popover.resize(370, 650);
        showActive(popover);
        sheet = &presentSheet(popover,
                              makeArchiveSheet(content.store, content.clock, Calendar(QTimeZone::utc())));
        showActive(*sheet);
    }

    [[nodiscard]] QListView& list() { return *sheet->findChild<QListView*>(); }

    [[nodiscard]] QStringList rows() {
        QStringList rows;
        for (int row = 0; row < list().model()->rowCount(); ++row)
            rows.push_back(list().model()->index(row, 0).data().toString());
        return rows;
    }

    [[nodiscard]] QModelIndex row(const QString& title) {
        return list().model()->index(static_cast<int>(rows().indexOf(title)), 0);
    }

    [[nodiscard]] QString spoken(const QString& title) {
        return row(title).data(Qt::AccessibleTextRole).toString();
    }

    [[nodiscard]] bool isOpen(const QString& title) { return spoken(title).contains(u"Betrag:"_s); }

    void click(const QPoint& point) {
        QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, point);
        settle();
    }

    void clickRow(const QString& title) { click(list().visualRect(row(title)).topLeft() + QPoint(60, 20)); }

    /// In the middle of the trash button of an opened invoice.
    [[nodiscard]] QPoint trashOf(const QString& title) {
        return list().visualRect(row(title)).topLeft() + QPoint(358, 78);
    }

    void press(Qt::Key key) {
        QTest::keyClick(&list(), key);
        settle();
    }

    [[nodiscard]] static QWidget* alert() { return QApplication::activeModalWidget(); }

    static void press(QWidget& window, const QString& caption) {
        findNamed<QAbstractButton>(window, caption)->click();
        settle();
    }

    [[nodiscard]] bool shows(const QString& text) {
        for (const auto* label : sheet->findChildren<QLabel*>())
            if (label->isVisible() && label->text() == text)
                return true;
        return false;
    }

    InvoiceSheet content{{entryOf("Eins", hour), entryOf("Zwei", 30 * 60, 80.0)}, 60.0};
    QWidget popover;
    QPointer<SheetWindow> sheet;
};

TEST_F(ArchiveSheet, saysWhatWillBeThereWhileItIsEmpty) {
    open();
    EXPECT_EQ(sheet->windowTitle(), u"Archivierte Rechnungen"_s);
    EXPECT_EQ(sheet->size(), QSize(400, 600));
    EXPECT_TRUE(shows(u"Hier findest du alle archivierten Rechnungen sortiert nach Jahr und Monat."_s));
    EXPECT_TRUE(shows(u"Noch keine archivierten Rechnungen"_s));
    EXPECT_TRUE(shows(u"Eine erstellte Rechnung erscheint hier."_s));
    EXPECT_FALSE(list().isVisible());
    takePictures(*sheet, u"archiv-leer"_s, {4, 500});
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

TEST_F(ArchiveSheet, aClickShowsTheDetailsAndAnotherTakesThemAway) {
    issueThree();
    open();
    const int closed = list().visualRect(row(u"2026-041"_s)).height();
    clickRow(u"2026-041"_s);
    EXPECT_EQ(spoken(u"2026-041"_s),
              u"2026-041, Dr. Änne Größmann - Steuerberatung Größmann, Datum: 15.11.2026, "
              u"Zeit: 1\u00A0h 30\u00A0min, Betrag: 100,00\u00A0€"_s);
    EXPECT_EQ(list().visualRect(row(u"2026-041"_s)).height(), closed + 72);
    EXPECT_EQ(list().visualRect(row(u"2026-040"_s)).top(),
              list().visualRect(row(u"2026-041"_s)).bottom() + 1);
    clickRow(u"2026-041"_s);
    EXPECT_FALSE(isOpen(u"2026-041"_s));
    EXPECT_EQ(list().visualRect(row(u"2026-041"_s)).height(), closed);
}

TEST_F(ArchiveSheet, severalInvoicesMayBeOpen) {
    issueThree();
    open();
    clickRow(u"2026-041"_s);
    clickRow(u"2026-038"_s);
    EXPECT_TRUE(isOpen(u"2026-041"_s));
    EXPECT_TRUE(isOpen(u"2026-038"_s));
    EXPECT_FALSE(isOpen(u"2026-040"_s));
}

TEST_F(ArchiveSheet, aClickOnTheDetailsLeavesThemOpen) {
    issueThree();
    open();
    clickRow(u"2026-041"_s);
    click(list().visualRect(row(u"2026-041"_s)).topLeft() + QPoint(60, 70));
    EXPECT_TRUE(isOpen(u"2026-041"_s));
}

TEST_F(ArchiveSheet, whatIsOpenedLowestComesIntoSight) {
    for (int count = 0; count < 40; ++count)
        issue(std::to_string(count), std::nullopt);
    open();
    list().scrollTo(row(u"20"_s), QAbstractItemView::PositionAtBottom);
    clickRow(u"20"_s);
    EXPECT_TRUE(list().viewport()->rect().contains(trashOf(u"20"_s)));
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

TEST_F(ArchiveSheet, rightOpensAndLeftShuts) {
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

TEST_F(ArchiveSheet, theTrashAsksAndDeletesTheInvoiceAlone) {
    issueThree();
    content.files.written.clear();
    open();
    clickRow(u"2026-041"_s);
    click(trashOf(u"2026-041"_s));
    ASSERT_NE(alert(), sheet);
    EXPECT_EQ(alert()->windowTitle(), u"Archivierte Rechnung löschen?"_s);
    press(*alert(), u"Abbrechen"_s);
    EXPECT_TRUE(content.files.written.empty());
    EXPECT_TRUE(rows().contains(u"2026-041"_s));
    click(trashOf(u"2026-041"_s));
    press(*alert(), u"Löschen"_s);
    EXPECT_EQ(content.files.written, std::vector<std::string>{"archivedInvoices.json"});
    EXPECT_EQ(rows().mid(1),
              (QStringList{u"November 2026"_s, u"2026-040"_s, u"Oktober 2026"_s, u"2026-038"_s}));
    EXPECT_FALSE(isOpen(u"2026-040"_s));
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
    EXPECT_NE(alert(), sheet) << "the keyboard goes on at the invoice that followed";
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

TEST_F(ArchiveSheet, tabGoesFromTheListToTheCloseButton) {
    issueThree();
    open();
    QTest::keyClick(&list(), Qt::Key_Tab);
    EXPECT_EQ(accessibleNameOf(*sheet->focusWidget()), u"Schließen"_s);
    QTest::keyClick(sheet->focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(sheet->focusWidget(), &list());
}

TEST_F(ArchiveSheet, theSumsFollowTheEntriesWhileItIsOpen) {
    issueThree();
    open();
    clickRow(u"2026-041"_s);
    content.store.resetProject(0);
    settle();
    EXPECT_TRUE(spoken(u"2026-041"_s).endsWith(u"Zeit: --, Betrag: --"_s));
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
    takePictures(*sheet, u"archiv-umbruch"_s, {4, 500});
    EXPECT_EQ(list().visualRect(list().model()->index(2, 0)).height(), 46 + 1 + 15);
}

TEST_F(ArchiveSheet, anOpenSheetFollowsTheColourScheme) {
    issueThree();
    open();
    clickRow(u"2026-041"_s);
    takePictures(*sheet, u"archiv"_s, {4, 500});
}

TEST_F(ArchiveSheet, theRowUnderThePointerAndTheKeyboardsAreMarked) {
    issueThree();
    open();
    clickRow(u"2026-041"_s);
    press(Qt::Key_Down);
    const QPoint trash = trashOf(u"2026-041"_s);
    QMouseEvent move(QEvent::MouseMove, trash, list().viewport()->mapToGlobal(trash), Qt::NoButton, {}, {});
    QCoreApplication::sendEvent(list().viewport(), &move);
    const QPoint inButton = list().viewport()->mapTo(sheet, trash + QPoint(11, 11));
    const QColor active = picture(*sheet).pixelColor(inButton);
    takePictures(*sheet, u"archiv-tastatur"_s, {4, 500});
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(list().viewport(), &leave);
    EXPECT_NE(picture(*sheet).pixelColor(inButton), active);
}

TEST_F(ArchiveSheet, twoThousandInvoicesOpenWithoutMakingOneWait) {
    std::vector<ArchivedInvoice> invoices;
    for (int count = 0; count < 2000; ++count)
        invoices.push_back({.id = Uuid::generate(),
                            .invoiceNumber = std::to_string(count),
                            .date = content.clock.now().addingSeconds((count - 2000) * day),
                            .customerName = "Müller",
                            .entryIDs = {content.projectEntries().at(0).id}});
    content.store.archivedInvoices = invoices;
    const auto start = std::chrono::steady_clock::now();
    open();
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    // From May 2021 to November 2026, under the sentence on top.
    EXPECT_EQ(list().model()->rowCount(), 1 + 67 + 2000);
    // Far above what it takes: the benchmark has the figure.
    EXPECT_LT(taken.count(), 1.0);
}

} // namespace
} // namespace brisklog::test
