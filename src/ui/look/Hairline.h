#pragma once

#include <QWidget>

namespace brisklog {

/// A line of one pixel, horizontal or vertical.
class Hairline final : public QWidget {
public:
    /// `separating`: secondary at 0.2, between parts of a screen; `card`: the line colour, inside cards.
    enum class Kind { separating, card };

    explicit Hairline(Kind kind = Kind::separating, Qt::Orientation orientation = Qt::Horizontal,
                      QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Kind m_kind;
};

} // namespace brisklog
