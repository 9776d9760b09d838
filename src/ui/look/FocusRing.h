#pragma once

#include <QObject>
#include <QPointer>

class QFocusEvent;
class QPainter;
class QRectF;
class QWidget;

namespace brisklog {

struct Palette;

/// Paints the ring around that shape: 2 pixels wide, blue, 1 pixel away. It needs 3 pixels of room.
void paintFocusRing(QPainter& painter, const QRectF& around, qreal radius, const Palette& palette);

/// Shows the focus ring around a widget while it has the focus and got it from the keyboard. The ring lies
/// over the widget's surroundings and is clipped only by the scroll area or window it is in.
class FocusRing final : public QObject {
public:
    enum class Place {
        outside,
        inside, ///< along the widget's own edge, for what fills its window
    };

    /// Lives as long as the widget.
    static FocusRing& attach(QWidget& widget, int radius, Place place = Place::outside);

    ~FocusRing() override;

    /// Treats the focus the widget has or gets next as coming from the keyboard.
    void treatAsKeyboardFocus() { m_isKeyboard = true; }

    [[nodiscard]] bool isShown() const { return !m_overlay.isNull(); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    FocusRing(QWidget& widget, int radius, Place place);

    void handleFocusIn(const QFocusEvent& event);
    void show();
    void hide();
    void place();

    QWidget& m_widget;
    int m_radius;
    Place m_place;
    bool m_isKeyboard = false;
    QPointer<QWidget> m_overlay;
};

} // namespace brisklog
