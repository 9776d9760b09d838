#include "ui/look/Layout.h"

#include <QBoxLayout>
#include <QCoreApplication>
#include <QEvent>
#include <QWidget>
#include <algorithm>

namespace brisklog {
namespace {

/// Two items in a row, or in a column where the row has no room.
class FoldingLayout final : public QBoxLayout {
public:
    explicit FoldingLayout(int gap) : QBoxLayout(LeftToRight) { setSpacing(gap); }

    [[nodiscard]] QSize sizeHint() const override {
        return asRow(itemAt(0)->sizeHint(), itemAt(1)->sizeHint());
    }

    [[nodiscard]] QSize minimumSize() const override {
        const QSize left = itemAt(0)->minimumSize(), right = itemAt(1)->minimumSize();
        return {std::max(left.width(), right.width()), asRow(left, right).height()};
    }

    [[nodiscard]] bool hasHeightForWidth() const override { return true; }

    [[nodiscard]] int heightForWidth(int width) const override {
        const int left = itemAt(0)->sizeHint().height(), right = itemAt(1)->sizeHint().height();
        return isFoldedAt(width) ? left + spacing() + right : std::max(left, right);
    }

    void setGeometry(const QRect& area) override {
        setDirection(isFoldedAt(area.width()) ? TopToBottom : LeftToRight);
        QBoxLayout::setGeometry(area);
    }

private:
    [[nodiscard]] QSize asRow(const QSize& left, const QSize& right) const {
        return {left.width() + spacing() + right.width(), std::max(left.height(), right.height())};
    }

    [[nodiscard]] bool isFoldedAt(int width) const { return width < sizeHint().width(); }
};

} // namespace

LayoutItem::LayoutItem(QWidget* widget) : m_add([widget](QBoxLayout& layout) { layout.addWidget(widget); }) {}

LayoutBox& LayoutBox::spacing(int pixels) {
    m_spacing = pixels;
    return *this;
}

LayoutBox& LayoutBox::margins(const QMargins& margins) {
    m_margins = margins;
    return *this;
}

LayoutBox& LayoutBox::add(LayoutItem item) {
    m_items.push_back(std::move(item));
    return *this;
}

QBoxLayout* LayoutBox::build() const {
    auto* layout =
        new QBoxLayout(m_direction == Direction::down ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    layout->setSpacing(m_spacing);
    layout->setContentsMargins(m_margins);
    for (const LayoutItem& item : m_items)
        item.addTo(*layout);
    return layout;
}

void LayoutBox::applyTo(QWidget& widget) const {
    delete widget.layout();
    widget.setLayout(build());
}

LayoutBox::operator LayoutItem() const {
    return LayoutItem([box = *this](QBoxLayout& layout) { layout.addLayout(box.build()); });
}

void layOutNow(QWidget& widget) {
    for (QWidget* each = &widget; each; each = each->parentWidget())
        QCoreApplication::sendPostedEvents(each, QEvent::LayoutRequest);
}

LayoutItem folding(const LayoutBox& left, const LayoutBox& right, int gap) {
    return LayoutItem([left, right, gap](QBoxLayout& layout) {
        auto* const both = new FoldingLayout(gap);
        left.operator LayoutItem().addTo(*both);
        right.operator LayoutItem().addTo(*both);
        both->itemAt(0)->setAlignment(Qt::AlignLeft);
        both->itemAt(1)->setAlignment(Qt::AlignRight);
        layout.addLayout(both);
    });
}

QWidget* asWidget(const LayoutBox& box) {
    auto* const widget = new QWidget;
    box.applyTo(*widget);
    return widget;
}

QWidget* asBar(const LayoutBox& box, int height) {
    QWidget* const bar = asWidget(box);
    bar->setFixedHeight(height);
    return bar;
}

LayoutItem stretch(int share) {
    return LayoutItem([share](QBoxLayout& layout) { layout.addStretch(share); });
}

LayoutItem space(int pixels) {
    return LayoutItem([pixels](QBoxLayout& layout) { layout.addSpacing(pixels); });
}

LayoutItem expanding(QWidget* widget, int share) {
    return LayoutItem([widget, share](QBoxLayout& layout) { layout.addWidget(widget, share); });
}

LayoutItem expanding(const LayoutBox& box, int share) {
    return LayoutItem([box, share](QBoxLayout& layout) {
        box.operator LayoutItem().addTo(layout);
        layout.setStretch(layout.count() - 1, share);
    });
}

LayoutItem aligned(QWidget* widget, Qt::Alignment alignment) {
    return LayoutItem([widget, alignment](QBoxLayout& layout) { layout.addWidget(widget, 0, alignment); });
}

} // namespace brisklog
