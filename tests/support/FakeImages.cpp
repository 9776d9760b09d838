#include "support/FakeImages.h"

#include <fstream>
#include <iterator>
#include <sstream>

namespace brisklog::test {

Result<Bitmap> FakeImages::read(const std::filesystem::path& file, const SizeRule& rule) const {
    readFiles.push_back(file.filename());
    std::ifstream stream(file, std::ios::binary);
    return decode(std::string(std::istreambuf_iterator(stream), {}), rule);
}

Result<Bitmap> FakeImages::decode(std::string_view bytes, const SizeRule& rule) const {
    std::istringstream words{std::string(bytes)};
    std::string word;
    PixelSize size;
    if (!(words >> word >> size.width >> size.height) || word != "image")
        return Error{"not an image"};
    return Bitmap{rule(size), {}};
}

Result<std::string> FakeImages::encodePng(const Bitmap& picture) const {
    if (encodingFails)
        return Error{"cannot be encoded"};
    return "png " + std::to_string(picture.size.width) + " " + std::to_string(picture.size.height);
}

} // namespace brisklog::test
