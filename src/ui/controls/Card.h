#pragma once

#include <QWidget>

namespace brisklog {

class LayoutBox;

/// A white sheet of work on the ground: radius 10, a line around, a line of shadow under it.
class Card final : public QWidget {
public:
    /// The padding lies between the content and the card's edges; the shadow comes on top.
    Card(const LayoutBox& content, const QMargins& padding);

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// Shows its content with `padding` on all four sides and nothing else. The corner radius is held but
/// deliberately not applied: there is no ground and no clipping. A widget in spite of its name.
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
