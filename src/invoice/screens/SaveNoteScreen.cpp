#include "invoice/screens/SaveNoteScreen.h"

#include "ui/controls/Button.h"
#include "ui/controls/TextField.h"
#include "ui/look/Label.h"
#include "ui/look/Layout.h"
#include "ui/look/ScreenReader.h"
#include "ui/look/Text.h"
#include "ui/sheets/SheetWindow.h"

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr QSize sheetSize{400, 150};

} // namespace

SaveNoteScreen::SaveNoteScreen(TimeTrackingStore& timeStore, InvoiceView& invoice)
    : m_view(timeStore, invoice.additionalNotes, invoice.noteNameToSave, invoice.showingSaveNoteSheet),
      m_name(new TextField(u"Name der Notiz"_s)), m_cancel(new Button(u"Abbrechen"_s)),
      m_save(new Button(u"Speichern"_s, Button::Kind::primary)) {
    m_name->onEdited([this](const QString& typed) { m_view.setNoteName(typed.toStdString()); });
    m_cancel->onClick([this] { m_view.cancel(); });
    m_save->onClick([this] { m_view.save(); });
    Column{asHeading(new Label(u"Notiz speichern"_s, FontRole::heading15)),
           new Label(u"Geben Sie einen Namen für die Notiz ein:"_s, FontRole::tab12, &Palette::secondary),
           space(9),
           m_name,
           stretch(),
           Row{stretch(), m_cancel, m_save}.spacing(8)}
        .margins({16, 13, 16, 12})
        .applyTo(*this);
    observe(invoice);
}

void SaveNoteScreen::refresh() {
    m_name->setValue(screenText(m_view.noteName()));
    m_save->setEnabled(m_view.canSave());
}

std::unique_ptr<SheetWindow> makeSaveNoteSheet(TimeTrackingStore& timeStore, InvoiceView& invoice) {
    auto sheet = std::make_unique<SheetWindow>(u"Notiz speichern"_s, sheetSize, SheetWindow::Chrome::bare);
    auto* screen = new SaveNoteScreen(timeStore, invoice);
    sheet->setBody(screen, SheetWindow::Body::fixed);
    sheet->setMainAction(screen->mainAction());
    return sheet;
}

} // namespace brisklog
