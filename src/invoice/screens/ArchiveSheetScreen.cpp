#include "invoice/screens/ArchiveSheetScreen.h"

#include "invoice/screens/ArchiveList.h"
#include "ui/controls/EmptyState.h"
#include "ui/look/Label.h"
#include "ui/look/Layout.h"
#include "ui/look/Text.h"
#include "ui/sheets/SheetWindow.h"

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr QSize sheetSize{400, 600};

} // namespace

ArchiveSheetScreen::ArchiveSheetScreen(TimeTrackingStore& timeStore, const Clock& clock)
    : m_view(timeStore, clock), m_list(new ArchiveList(timeStore, m_view)),
      m_emptyArchive(makeEmptyArchive()) {
    Column{expanding(m_list), expanding(m_emptyArchive)}.applyTo(*this);
    observe(timeStore);
    observe(m_view);
}

QWidget* ArchiveSheetScreen::makeEmptyArchive() {
    auto* explanation = new Label(screenText(ArchiveSheetView::explanation), FontRole::tab12,
                                  &Palette::secondary, Label::Lines::wrapped);
    auto* state = new EmptyState({.symbol = u"archivebox"_s,
                                  .headline = u"Noch keine archivierten Rechnungen"_s,
                                  .sentence = u"Eine erstellte Rechnung erscheint hier."_s},
                                 EmptyState::Place::sheet);
    return asWidget(Column{Row{explanation}.margins({18, 12, 18, 0}), expanding(state)});
}

void ArchiveSheetScreen::refresh() {
    m_list->setVisible(!m_view.isEmpty());
    m_emptyArchive->setVisible(m_view.isEmpty());
    m_list->showInvoices();
}

std::unique_ptr<SheetWindow> makeArchiveSheet(TimeTrackingStore& timeStore, const Clock& clock) {
    auto sheet = std::make_unique<SheetWindow>(u"Archivierte Rechnungen"_s, sheetSize);
    sheet->addCloseButton(u"Schließen"_s, u"xmark.circle.fill"_s);
    sheet->setBody(new ArchiveSheetScreen(timeStore, clock), SheetWindow::Body::fixed);
    return sheet;
}

} // namespace brisklog
