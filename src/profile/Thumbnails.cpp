#include "profile/Thumbnails.h"

#include "profile/LogoImage.h"

#include <algorithm>
#include <set>

namespace brisklog {
namespace {

namespace fs = std::filesystem;

/// In addition to those on show.
constexpr std::size_t maximumKept = 200;

} // namespace

Thumbnails::Thumbnails(const Images& images, Background& background, std::function<void()> arrived)
    : m_images(images), m_background(background), m_arrived(std::move(arrived)) {}

void Thumbnails::show(const std::vector<fs::path>& files, PixelSize box) {
    if (m_box != box)
        clear();
    m_box = box;
    cancelAllExcept(files);
    for (const fs::path& file : files)
        if (!m_thumbnails.contains(file))
            ask(file, box);
}

void Thumbnails::cancelAllExcept(const std::vector<fs::path>& files) {
    const std::set<fs::path> onShow(files.begin(), files.end());
    const bool isCrowded = m_thumbnails.size() > maximumKept + files.size();
    std::erase_if(m_thumbnails, [&](const auto& each) {
        const bool isKept = each.second.result && !isCrowded;
        return !isKept && !onShow.contains(each.first);
    });
}

void Thumbnails::ask(const fs::path& file, PixelSize box) {
    const auto make = [&images = m_images, file, box] {
        return images.read(file, [box](PixelSize picture) { return fittedInto(box, picture); });
    };
    const auto take = [this, file](Result<Bitmap> result) {
        m_thumbnails[file].result = std::move(result);
        m_arrived();
    };
    m_thumbnails[file].task = computeIn<Result<Bitmap>>(m_background, make, take);
}

const Result<Bitmap>* Thumbnails::find(const fs::path& file) const {
    const auto found = m_thumbnails.find(file);
    return found != m_thumbnails.end() && found->second.result ? &*found->second.result : nullptr;
}

} // namespace brisklog
