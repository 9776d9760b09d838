#include "profile/LogoImage.h"

#include <algorithm>
#include <cmath>

namespace brisklog {
namespace {

constexpr int longestSide = 800;

int share(int of, double factor) { return std::max(1, static_cast<int>(std::lround(of * factor))); }

} // namespace

PixelSize logoSize(PixelSize picture) { return fittedInto({longestSide, longestSide}, picture); }

PixelSize fittedInto(PixelSize box, PixelSize picture) {
    const double across = static_cast<double>(box.width) / picture.width;
    const double down = static_cast<double>(box.height) / picture.height;
    const double factor = std::min(across, down);
    if (factor >= 1)
        return picture;
    return {share(picture.width, factor), share(picture.height, factor)};
}

} // namespace brisklog
