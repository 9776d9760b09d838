#pragma once

#include "foundation/Result.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace brisklog {

struct PixelSize {
    int width = 0;
    int height = 0;

    bool operator==(const PixelSize&) const = default;
};

/// A picture in memory: rows from top to bottom, each pixel 0xAARRGGBB, not premultiplied, in sRGB.
struct Bitmap {
    PixelSize size;
    std::vector<std::uint32_t> pixels;

    bool operator==(const Bitmap&) const = default;
};

/// Pictures in the usual formats of logos: PNG, JPEG, GIF, BMP, TIFF, recognised by their content.
class Images {
public:
    /// Maps a picture's actual size to the wanted one, both of the upright picture.
    using SizeRule = std::function<PixelSize(PixelSize)>;

    virtual ~Images() = default;

    /// The file's first picture, upright, in the size the rule gives. An error if it is not a regular file,
    /// not a picture in one of the formats, broken, truncated, or made so that decoding it would fill the
    /// memory or take minutes. Any thread may call it.
    [[nodiscard]] virtual Result<Bitmap> read(const std::filesystem::path& file,
                                              const SizeRule& rule) const = 0;

    /// The same for a file's bytes.
    [[nodiscard]] virtual Result<Bitmap> decode(std::string_view bytes, const SizeRule& rule) const = 0;

    /// The picture as a PNG file's bytes; an error when it cannot be encoded.
    [[nodiscard]] virtual Result<std::string> encodePng(const Bitmap& picture) const = 0;
};

} // namespace brisklog
