#include "profile/screens/LogoPlate.h"

#include "profile/LogoImage.h"
#include "ui/look/BitmapImage.h"
#include "ui/look/Painting.h"
#include "ui/look/ScreenReader.h"
#include "ui/look/Symbols.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr QSize plateSize{224, 112};
constexpr PixelSize logoBox{200, 100};
/// Decoded at double size, so that it is sharp on high-DPI screens.
constexpr PixelSize denseLogoBox{400, 200};
constexpr int radius = 8;
constexpr int symbolSize = 24;
constexpr int gap = 6;

QSize sizeOnScreen(const QImage& logo) {
    const PixelSize size = fittedInto(logoBox, {logo.width(), logo.height()});
    return {size.width, size.height};
}

} // namespace

LogoPlate::LogoPlate(const Images& images, QWidget* parent) : QLabel(parent), m_images(images) {
    setFixedSize(plateSize);
    setLogo(std::nullopt);
}

QSize LogoPlate::sizeHint() const { return plateSize; }

void LogoPlate::setLogo(const std::optional<std::string>& bytes) {
    m_logo = {};
    if (bytes) {
        const auto rule = [](PixelSize picture) { return fittedInto(denseLogoBox, picture); };
        const auto decoded = m_images.decode(*bytes, rule);
        if (decoded.succeeded())
            m_logo = imageOf(decoded.value());
    }
    setText(m_logo.isNull() ? u"Kein Logo"_s : QString());
    setAccessibleName(m_logo.isNull() ? QString() : u"Firmenlogo"_s);
    setAccessibleRole(*this, m_logo.isNull() ? QAccessible::StaticText : QAccessible::Graphic);
    update();
}

void LogoPlate::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (m_logo.isNull())
        paintEmpty(painter);
    else
        paintLogo(painter);
}

void LogoPlate::paintLogo(QPainter& painter) const {
    const Palette& palette = Palette::current();
    fillRounded(painter, rect(), radius, palette.white);
    frameRounded(painter, rect(), radius, palette.line);
    QRect place(QPoint(), sizeOnScreen(m_logo));
    place.moveCenter(rect().center());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(place, m_logo);
}

void LogoPlate::paintEmpty(QPainter& painter) const {
    const Palette& palette = Palette::current();
    const int textHeight = lineHeight(FontRole::tab12);
    QRect lines(0, 0, width(), symbolSize + gap + textHeight);
    lines.moveCenter(rect().center());
    fillRounded(painter, rect(), radius, withOpacity(palette.control, 0.5));
    paintSymbol(painter, QRect(lines.topLeft(), QSize(width(), symbolSize)), u"photo"_s, symbolSize,
                palette.secondary);
    paintText(painter, lines.adjusted(0, symbolSize + gap, 0, 0), text(), FontRole::tab12, palette.secondary,
              Qt::AlignCenter);
}

} // namespace brisklog
