#pragma once

#include <QScrollArea>

namespace brisklog {

/// Shows a widget at its own width and scrolls it vertically where it is higher. Keeps in view what the
/// keyboard or a screen reader focuses. It has no background and no frame.
class ScrollArea final : public QScrollArea {
public:
    explicit ScrollArea(QWidget* content = nullptr, QWidget* parent = nullptr);

    /// Use instead of `setWidget`, which would give the content a background.
    void setContent(QWidget* content);

    [[nodiscard]] QSize sizeHint() const override;

    [[nodiscard]] QSize minimumSizeHint() const override { return {0, 0}; }

    /// The area that the widget scrolls with; null when there is none.
    [[nodiscard]] static ScrollArea* around(const QWidget& part);

    /// Scrolls until that area of a widget in the content is visible, if it is not higher than this.
    void bringIntoView(const QWidget& part, const QRect& area);

protected:
    bool focusNextPrevChild(bool next) override;
};

} // namespace brisklog
