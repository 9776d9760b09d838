#include "ui/look/BitmapImage.h"

namespace brisklog {

QImage imageOf(const Bitmap& picture, qreal devicePixelRatio) {
    if (picture.pixels.empty())
        return {};
    const auto* const bytes = reinterpret_cast<const uchar*>(picture.pixels.data());
    const int bytesInRow = picture.size.width * static_cast<int>(sizeof(std::uint32_t));
    const QImage shared(bytes, picture.size.width, picture.size.height, bytesInRow, QImage::Format_ARGB32);
    QImage image = shared.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(devicePixelRatio);
    return image;
}

} // namespace brisklog
