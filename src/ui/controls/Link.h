#pragma once

#include "ui/controls/Clickable.h"

namespace brisklog {

/// A link out of the program, in small blue underlined letters.
class Link final : public Clickable {
public:
    explicit Link(const QString& caption, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace brisklog
