#include "invoice/screens/ArchiveDetailsPanel.h"

#include "invoice/ArchiveSheetView.h"
#include "ui/controls/SymbolButton.h"
#include "ui/look/Figures.h"
#include "ui/look/Label.h"
#include "ui/look/Layout.h"
#include "ui/look/Painting.h"
#include "ui/look/Text.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr int radius = 6;
constexpr int labelWidth = 56;
constexpr int lineGap = 3;

FigureLabel* figure() { return new FigureLabel({}, FontRole::caption11Medium); }

LayoutItem line(const QString& label, FigureLabel* value) {
    auto* caption = new Label(label, FontRole::caption11, &Palette::secondary);
    caption->setFixedWidth(labelWidth);
    return Row{caption, value, stretch()};
}

} // namespace

ArchiveDetailsPanel::ArchiveDetailsPanel(std::function<void()> deleteInvoice)
    : m_content(new QWidget(this)), m_date(figure()), m_time(figure()), m_amount(figure()),
      m_delete(new SymbolButton(u"trash"_s, u"Rechnung löschen"_s, SymbolButton::Size::normal,
                                SymbolButton::Purpose::deleting)) {
    m_delete->onClick(std::move(deleteInvoice));
    constexpr int trashTop = (panelHeight - 28) / 2;
    Row{expanding(Column{line(u"Datum:"_s, m_date), line(u"Zeit:"_s, m_time), line(u"Betrag:"_s, m_amount),
                         stretch()}
                      .spacing(lineGap)
                      .margins({10, 8, 0, 0})),
        Column{space(trashTop), m_delete, stretch()}.margins({0, 0, 4, 0})}
        .applyTo(*m_content);
}

void ArchiveDetailsPanel::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    // Not in a layout: while the panel is not at full height, its content is cut off, not squeezed.
    m_content->setGeometry(0, 0, width(), panelHeight);
}

void ArchiveDetailsPanel::setDetails(const ArchiveDetails& details) {
    m_date->setValue(screenText(details.date));
    m_time->setValue(screenText(details.time));
    m_amount->setValue(screenText(details.amount));
}

void ArchiveDetailsPanel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    fillRounded(painter, rect(), radius, withOpacity(Palette::current().secondary, 0.07));
}

} // namespace brisklog
