#include "screens/invoice/InvoiceSheetWindow.h"

#include <vector>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

class InvoiceWidth : public ScreenTest {};

TEST_F(InvoiceWidth, fitsAScreenOf512PixelsWithAPanelAtItsSide) {
    for (const bool hasCustomer : {false, true}) {
        InvoiceSheet content({entryOf("Entwurf", hour)}, 60.0);
        content.store.addSavedNote("Skonto", "2 % in 10 Tagen");
        if (hasCustomer)
            content.addCustomer(customerNamed("Muster", "Muster GmbH"));
        InvoiceSheetWindow window(content);
        EXPECT_LE(window.page().widget()->minimumSizeHint().width(), 490);
    }
}

/// The places of the notes' buttons in a sheet of that width with a saved note.
std::vector<QRect> notesButtonsAt(int sheetWidth) {
    InvoiceSheet content({}, std::nullopt);
    content.store.addSavedNote("Skonto", "2 % in 10 Tagen");
    InvoiceSheetWindow window(content);
    window.sheet->setMinimumWidth(0);
    window.sheet->resize(sheetWidth, window.sheet->height());
    settle();
    std::vector<QRect> places;
    for (const QString& caption :
         {u"Speichern"_s, u"Gespeicherte Notizen"_s, u"Ausgewählte Notiz löschen"_s}) {
        const QWidget& button = window.button(caption);
        EXPECT_GE(button.width(), button.sizeHint().width());
        places.emplace_back(button.mapTo(window.page().widget(), QPoint()), button.size());
    }
    return places;
}

TEST_F(InvoiceWidth, foldsTheNotesButtonsIntoTwoRowsWhereTheyDoNotFitIntoOne) {
    const std::vector<QRect> wide = notesButtonsAt(640);
    EXPECT_EQ(wide[2].top(), wide[0].top());
    EXPECT_GT(wide[2].left(), wide[1].right());
    const std::vector<QRect> narrow = notesButtonsAt(512);
    EXPECT_EQ(narrow[1].top(), narrow[0].top());
    EXPECT_EQ(narrow[2].top(), narrow[0].bottom() + 1 + 8);
    EXPECT_LE(narrow[2].right(), 490);
}

TEST_F(InvoiceWidth, leavesTheCustomersPickerItsWholeWidth) {
    InvoiceSheet content({}, std::nullopt);
    content.addCustomer(customerNamed("Muster", "Muster GmbH"));
    InvoiceSheetWindow window(content);
    EXPECT_EQ(window.sheet->focusWidget()->width(), 300);
}

} // namespace
} // namespace brisklog::test
