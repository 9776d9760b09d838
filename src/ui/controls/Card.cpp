#include "ui/controls/Card.h"

#include "ui/look/Layout.h"
#include "ui/look/Painting.h"

#include <QPainter>

namespace brisklog {

Card::Card(const LayoutBox& content, const QMargins& padding) {
    Column{content}.margins(padding + QMargins(0, 0, 0, cardShadow)).applyTo(*this);
}

void Card::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintCard(painter, rect(), Palette::current());
}

CardView::CardView(QWidget* content, int padding, int cornerRadius, QWidget* parent)
    : QWidget(parent), m_content(content), m_padding(padding), m_cornerRadius(cornerRadius) {
    Column{content}.margins(padding).applyTo(*this);
}

} // namespace brisklog
