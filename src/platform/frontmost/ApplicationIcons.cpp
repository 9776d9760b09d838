#include "platform/frontmost/ApplicationIcons.h"

#include <QBuffer>
#include <QIcon>
#include <QImage>
#include <QPixmap>
#include <algorithm>
#include <span>

namespace brisklog {
namespace {

constexpr int side = 32;

/// Larger window icons are broken or malicious.
constexpr std::uint32_t longestSide = 1024;

std::optional<std::string> pngOf(const QImage& image) {
    QBuffer buffer;
    if (image.isNull() || !buffer.open(QIODevice::WriteOnly) || !image.save(&buffer, "PNG"))
        return std::nullopt;
    return buffer.data().toStdString();
}

QIcon iconNamed(const QString& name) { return name.startsWith(u'/') ? QIcon(name) : QIcon::fromTheme(name); }

struct WindowIcon {
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::span<const std::uint32_t> colours;
};

/// The icon at the beginning of the numbers; absent when there is no valid one.
std::optional<WindowIcon> firstIcon(std::span<const std::uint32_t> numbers) {
    constexpr std::size_t head = 2;
    if (numbers.size() < head)
        return std::nullopt;
    const WindowIcon icon{.width = numbers[0], .height = numbers[1], .colours = numbers.subspan(head)};
    const bool isSane =
        std::min(icon.width, icon.height) > 0 && std::max(icon.width, icon.height) <= longestSide;
    const std::size_t count = isSane ? std::size_t(icon.width) * icon.height : 0;
    if (!isSane || icon.colours.size() < count)
        return std::nullopt;
    return WindowIcon{icon.width, icon.height, icon.colours.first(count)};
}

/// Prefers the smallest icon that need not be enlarged, otherwise the largest.
bool isBetter(const WindowIcon& one, const WindowIcon& other) {
    if (other.colours.empty())
        return true;
    const bool isLargeEnough = one.width >= side;
    if (isLargeEnough != (other.width >= side))
        return isLargeEnough;
    return isLargeEnough ? one.width < other.width : one.width > other.width;
}

WindowIcon bestIcon(std::span<const std::uint32_t> numbers) {
    WindowIcon best;
    while (const auto icon = firstIcon(numbers)) {
        if (isBetter(*icon, best))
            best = *icon;
        numbers = numbers.subspan(2 + icon->colours.size());
    }
    return best;
}

} // namespace

std::optional<std::string> iconPng(const std::string& icon) {
    if (icon.empty())
        return std::nullopt;
    return pngOf(iconNamed(QString::fromStdString(icon)).pixmap(QSize(side, side), 1.0).toImage());
}

std::optional<std::string> iconPng(const std::vector<std::uint32_t>& windowIcons) {
    const WindowIcon best = bestIcon(windowIcons);
    if (best.colours.empty())
        return std::nullopt;
    const QImage image(reinterpret_cast<const uchar*>(best.colours.data()), static_cast<int>(best.width),
                       static_cast<int>(best.height), QImage::Format_ARGB32);
    return pngOf(image.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation));
}

} // namespace brisklog
