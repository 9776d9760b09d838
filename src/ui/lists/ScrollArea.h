#pragma once

#include <QScrollArea>

namespace brisklog {

/// Shows a widget as wide as itself and scrolls it downwards where it is higher. Keeps what has the focus in
/// view. It has no ground and no frame.
class ScrollArea final : public QScrollArea {
public:
    explicit ScrollArea(QWidget* content = nullptr, QWidget* parent = nullptr);

    /// Instead of `setWidget`, which would give the content a ground.
    void setContent(QWidget* content);

    [[nodiscard]] QSize sizeHint() const override;

    [[nodiscard]] QSize minimumSizeHint() const override { return {0, 0}; }

private:
    void bringIntoView(const QWidget& part);

protected:
    bool focusNextPrevChild(bool next) override;
};

} // namespace brisklog
