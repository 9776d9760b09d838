#include "ui/controls/Card.h"

#include "ui/look/Layout.h"
#include "ui/look/Painting.h"

#include <QPainter>

namespace brisklog {

void Card::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintCard(painter, rect(), Palette::current());
}

CardView::CardView(QWidget* content, int padding, int cornerRadius, QWidget* parent)
    : QWidget(parent), m_content(content), m_padding(padding), m_cornerRadius(cornerRadius) {
    Column{content}.margins(padding).applyTo(*this);
}

} // namespace brisklog
