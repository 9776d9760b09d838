#pragma once

#include "ui/controls/Clickable.h"

namespace brisklog {

/// Says how many projects there are and opens the menu that lists them.
class TabOverflowButton final : public Clickable {
public:
    explicit TabOverflowButton(QWidget* parent);

    void setCount(int count);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace brisklog
