#pragma once

#include <QLabel>

namespace brisklog {

/// A count in a small rounded badge after a heading.
class CountBadge final : public QLabel {
public:
    explicit CountBadge(int count = 0, QWidget* parent = nullptr);

    void setCount(int count);

    [[nodiscard]] QSize sizeHint() const override;

    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace brisklog
