#include "support/screen/SymbolNames.h"

#include <QDir>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <algorithm>
#include <cmath>
#include <map>
#include <vector>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

/// The opacity of each pixel, and the colour of the most opaque one.
struct Stencil {
    std::vector<int> opacities;
    int highest = 0;
    QColor color;
};

Stencil stencilOf(const QImage& drawn) {
    const QImage image = drawn.convertToFormat(QImage::Format_ARGB32);
    Stencil stencil;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            stencil.opacities.push_back(qAlpha(pixel));
            if (qAlpha(pixel) > stencil.highest) {
                stencil.highest = qAlpha(pixel);
                stencil.color = QColor::fromRgb(qRed(pixel), qGreen(pixel), qBlue(pixel));
            }
        }
    return stencil;
}

Stencil stencilOf(const QString& file, const QSize& size) {
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QSvgRenderer renderer(file);
    QPainter painter(&image);
    renderer.render(&painter);
    painter.end();
    return stencilOf(image);
}

using Stencils = std::map<QString, Stencil>;

const Stencils& symbolsOfSize(const QSize& size) {
    static std::map<std::pair<int, int>, Stencils> known;
    Stencils& symbols = known[{size.width(), size.height()}];
    if (symbols.empty())
        for (const QFileInfo& file : QDir(u":/symbols"_s).entryInfoList())
            symbols[file.completeBaseName()] = stencilOf(file.filePath(), size);
    return symbols;
}

/// Whether the one is the other at that share of its opacity.
bool matches(const Stencil& shown, const Stencil& symbol, double share) {
    constexpr double rounding = 2;
    return std::ranges::equal(shown.opacities, symbol.opacities, [share](int one, int other) {
        return std::abs(one - share * other) <= rounding;
    });
}

} // namespace

std::optional<FoundSymbol> symbolIn(const QPixmap& pixmap) {
    const Stencil shown = stencilOf(pixmap.toImage());
    if (shown.highest == 0)
        return std::nullopt;
    for (const auto& [name, symbol] : symbolsOfSize(pixmap.size())) {
        const double share = symbol.highest == 0 ? 0 : static_cast<double>(shown.highest) / symbol.highest;
        if (share > 1 || !matches(shown, symbol, share))
            continue;
        QColor color = shown.color;
        color.setAlphaF(static_cast<float>(share));
        return FoundSymbol{name, color};
    }
    return std::nullopt;
}

} // namespace brisklog::test
