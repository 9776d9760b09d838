#pragma once

#include <QTimer>
#include <QWidget>

class QAbstractScrollArea;

namespace brisklog {

/// A scroll bar that takes no room: it floats at the right edge and is shown while its area can scroll and is
/// hovered, scrolled or focused. It can be dragged.
class FloatingScrollBar final : public QWidget {
public:
    /// Replaces the area's own scroll bars, including the horizontal one. Lives as long as the area.
    static FloatingScrollBar& attach(QAbstractScrollArea& area);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    explicit FloatingScrollBar(QAbstractScrollArea& area);

    /// The handle's length and how far it can move, in pixels, and how far the area can scroll.
    struct Travel {
        int length;
        int room;
        int range;
    };

    void follow();
    void place();
    [[nodiscard]] Travel travel() const;
    [[nodiscard]] bool isWanted() const;

    QAbstractScrollArea& m_area;
    QTimer m_scrolled;
    bool m_isAreaHovered = false;
    bool m_isHovered = false;
    bool m_isDragged = false;
    int m_dragOffset = 0;
};

} // namespace brisklog
