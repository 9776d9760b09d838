#pragma once

#include <QWidget>

namespace brisklog {

class LayoutBox;

/// A card on the background: corner radius 10, a border, and a line of shadow below.
class Card final : public QWidget {
public:
    /// The padding is between the content and the card's edges; the shadow is added to it.
    Card(const LayoutBox& content, const QMargins& padding);

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// Shows its content with `padding` on all four sides and nothing else. The corner radius is stored but
/// deliberately not applied: there is no background and no clipping. A widget, despite its name.
class CardView final : public QWidget {
public:
    CardView(QWidget* content, int padding, int cornerRadius, QWidget* parent = nullptr);

    [[nodiscard]] QWidget* content() const { return m_content; }

    [[nodiscard]] int padding() const { return m_padding; }

    [[nodiscard]] int cornerRadius() const { return m_cornerRadius; }

private:
    QWidget* m_content;
    int m_padding;
    int m_cornerRadius;
};

} // namespace brisklog
