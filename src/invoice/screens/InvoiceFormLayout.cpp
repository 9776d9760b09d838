#include "invoice/screens/InvoiceFormLayout.h"

#include "ui/controls/Card.h"
#include "ui/look/Label.h"
#include "ui/look/Layout.h"
#include "ui/look/ScreenReader.h"

namespace brisklog::invoiceForm {
namespace {

constexpr int headingHeight = 26;
constexpr int headingInset = 2;
constexpr int headingGap = 6;
constexpr int labelWidth = 144;

} // namespace

LayoutItem heading(const QString& title, const LayoutBox& buttons) {
    auto* label = asHeading(new Label(title, FontRole::body13Semibold));
    label->setMinimumHeight(headingHeight);
    label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    return Row{label, stretch(), buttons}.margins({headingInset, 0, headingInset, headingGap});
}

LayoutItem heading(const QString& title) { return heading(title, Row{}); }

Label* fieldLabel(const QString& text) {
    auto* label = new Label(text, FontRole::body13, &Palette::secondary);
    label->setFixedWidth(labelWidth);
    return label;
}

Card* card(const LayoutBox& content, int paddingTop, int paddingBottom) {
    return new Card(content, {cardPadding, paddingTop, cardPadding, paddingBottom});
}

} // namespace brisklog::invoiceForm
