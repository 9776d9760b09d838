#pragma once

#include <QWidget>

namespace brisklog {

/// A white sheet of work on the ground: radius 10, a line around, a line of shadow under it. Whatever is laid
/// out in it brings its own margins; the lowest pixel row belongs to the shadow.
class Card : public QWidget {
public:
    explicit Card(QWidget* parent = nullptr) : QWidget(parent) {}

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// Shows its content with `padding` on all four sides and nothing else. The corner radius is held but
/// deliberately not applied: there is no ground and no clipping.
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
