#pragma once

#include "platform/Images.h"

namespace brisklog {

/// Pictures decoded and encoded by the toolkit.
class QtImages final : public Images {
public:
    [[nodiscard]] Result<Bitmap> read(const std::filesystem::path& file, const SizeRule& rule) const override;
    [[nodiscard]] Result<Bitmap> decode(std::string_view bytes, const SizeRule& rule) const override;
    [[nodiscard]] Result<std::string> encodePng(const Bitmap& picture) const override;
};

} // namespace brisklog
