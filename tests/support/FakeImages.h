#pragma once

#include "platform/Images.h"

#include <string>
#include <vector>

namespace brisklog::test {

/// A file is an image when it begins with "image", followed by its size ("image 1600 400").
class FakeImages final : public Images {
public:
    [[nodiscard]] Result<Bitmap> read(const std::filesystem::path& file, const SizeRule& rule) const override;
    [[nodiscard]] Result<Bitmap> decode(std::string_view bytes, const SizeRule& rule) const override;
    /// Encodes a picture as "png 800 200".
    [[nodiscard]] Result<std::string> encodePng(const Bitmap& picture) const override;

    bool encodingFails = false;
    /// Names of the files read, in order.
    mutable std::vector<std::string> readFiles;
};

} // namespace brisklog::test
