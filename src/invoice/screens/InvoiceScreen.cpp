#include "invoice/screens/InvoiceScreen.h"

#include "invoice/screens/InvoiceFormLayout.h"
#include "invoice/screens/InvoiceSections.h"
#include "ui/controls/Button.h"
#include "ui/controls/Card.h"
#include "ui/controls/TextField.h"
#include "ui/look/Figures.h"
#include "ui/look/Layout.h"
#include "ui/look/ScreenReader.h"
#include "ui/look/Text.h"
#include "ui/sheets/SheetWindow.h"

#include <QShortcut>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr QSize sheetSize{640, 680};
constexpr QSize smallestSheet{640, 520};
constexpr int numberWidth = 200;
/// In addition to the footer's own gap.
constexpr int gapBehindSum = 8;
/// Between sections and below the last one, a card's shadow adds a pixel.
constexpr int sectionGap = 13;
constexpr int marginBelow = 19;
constexpr int marginAbove = 14;

/// Control-Return presses the button, wherever the focus is. Return alone deliberately does not: in a field
/// it would bill at once.
void pressWithControlReturn(Button& button, QWidget& sheet) {
    for (const int key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto* shortcut = new QShortcut(QKeySequence(Qt::CTRL | static_cast<Qt::Key>(key)), &sheet);
        // Holding the key down would bill repeatedly.
        shortcut->setAutoRepeat(false);
        QObject::connect(shortcut, &QShortcut::activated, &button, [&button] { button.click(); });
    }
}

} // namespace

InvoiceScreen::InvoiceScreen(TimeTrackingStore& timeStore, int projectIndex,
                             const DocumentFacilities& facilities, NotificationCenter& notificationCenter)
    : m_view(timeStore, projectIndex, facilities, notificationCenter), m_number(new TextField),
      m_sum(new FigureLabel({}, FontRole::body13Semibold)),
      m_create(new Button(u"Rechnung erstellen"_s, Button::Kind::primary)) {
    Column{new InvoiceCustomerSection(timeStore, m_view),
           numberCard(),
           new InvoiceEntriesSection(timeStore, m_view, facilities.clock),
           new InvoiceManualEntrySection(timeStore, m_view, facilities.clock),
           new InvoiceNotesSection(timeStore, m_view),
           stretch()}
        .spacing(sectionGap)
        .margins({invoiceForm::margin, marginAbove, invoiceForm::margin, marginBelow})
        .applyTo(*this);
    m_create->setSymbol(u"doc.text"_s);
    m_create->onClick([this] { m_view.createInvoice(); });
    observe(timeStore);
    observe(m_view);
}

Card* InvoiceScreen::numberCard() {
    m_number->setAccessibleName(u"Rechnungsnummer:"_s);
    m_number->setFixedWidth(numberWidth);
    m_number->onEdited([this](const QString& typed) { m_view.invoiceNumber = typed.toStdString(); });
    return invoiceForm::card(Row{invoiceForm::fieldLabel(u"Rechnungsnummer:"_s), space(invoiceForm::labelGap),
                                 m_number, stretch()},
                             10, 10);
}

void InvoiceScreen::showEvent(QShowEvent* event) {
    m_view.initializeEntryStatuses();
    Screen::showEvent(event);
}

void InvoiceScreen::refresh() {
    m_number->setValue(screenText(*m_view.invoiceNumber));
    m_sum->setValue(screenText(m_view.summary().inShort()));
    refreshButton();
}

void InvoiceScreen::refreshButton() {
    const QString missing = screenText(m_view.missingForInvoice());
    m_create->setEnabled(missing.isEmpty());
    m_create->setToolTip(missing.isEmpty() ? u"Rechnung erstellen (Strg+Eingabe)"_s : missing);
    m_create->setAccessibleDescription(missing);
}

QWidget& InvoiceScreen::sum() const { return *m_sum; }

std::unique_ptr<SheetWindow> makeInvoiceSheet(TimeTrackingStore& timeStore, int projectIndex,
                                              const DocumentFacilities& facilities,
                                              NotificationCenter& notificationCenter) {
    auto* screen = new InvoiceScreen(timeStore, projectIndex, facilities, notificationCenter);
    auto sheet = std::make_unique<SheetWindow>(screenText(screen->view().title()), sheetSize);
    sheet->setMinimumSize(smallestSheet);
    sheet->addCloseButton(u"Schließen"_s);
    sheet->setBody(screen);
    sheet->addFooterTrailing(asWidget(Row{screen->sum(), space(gapBehindSum)}));
    sheet->addFooterTrailing(&screen->createButton());
    pressWithControlReturn(screen->createButton(), *sheet);
    screen->view().dismiss = [shown = sheet.get()] { shown->dismiss(); };
    screen->view().announce = [shown = sheet.get()](const std::string& text) {
        announce(*shown, screenText(text));
    };
    return sheet;
}

} // namespace brisklog
