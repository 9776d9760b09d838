#include "app/projects/screens/CrossFade.h"

#include "ui/look/Look.h"

#include <QPainter>
#include <QWidget>

namespace brisklog {
namespace {

constexpr int milliseconds = 120;

/// The picture that fades away; it lets the pointer through and ends itself.
class FadingPicture final : public QWidget {
public:
    explicit FadingPicture(QWidget& area) : QWidget(&area), m_picture(area.grab()) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        resize(area.size());
        const auto fade = [this](double opacity) {
            m_opacity = opacity;
            update();
        };
        glide(*this, 1, 0, milliseconds, fade, [this] { deleteLater(); });
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setOpacity(m_opacity);
        painter.drawPixmap(0, 0, m_picture);
    }

private:
    QPixmap m_picture;
    double m_opacity = 1;
};

} // namespace

void crossFade(QWidget& area) {
    if (!motionAllowed() || !area.isVisible())
        return;
    auto* picture = new FadingPicture(area);
    picture->show();
    picture->raise();
}

} // namespace brisklog
