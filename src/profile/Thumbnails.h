#pragma once

#include "platform/Background.h"
#include "platform/Images.h"

#include <filesystem>
#include <functional>
#include <map>
#include <vector>

namespace brisklog {

/// Thumbnails of the image files on show, made in the background. Files scrolled out of view before their
/// turn are never decoded, and of a folder with thousands of files only the last few hundred thumbnails are
/// kept.
class Thumbnails {
public:
    /// `arrived` is called on the main thread whenever a file has been decoded or has turned out not to be an
    /// image. Images and background must outlive this object and its pending work.
    Thumbnails(const Images& images, Background& background, std::function<void()> arrived);

    /// Requests the missing thumbnails of these files, each fitted into the box, and abandons all other
    /// pending requests.
    void show(const std::vector<std::filesystem::path>& files, PixelSize box);

    /// Discards all thumbnails and pending requests.
    void clear() { m_thumbnails.clear(); }

    /// The file's thumbnail, or why there is none; null until that is known.
    [[nodiscard]] const Result<Bitmap>* find(const std::filesystem::path& file) const;

    /// How many are finished or being made.
    [[nodiscard]] std::size_t count() const { return m_thumbnails.size(); }

private:
    struct Thumbnail {
        std::optional<Result<Bitmap>> result;
        std::unique_ptr<BackgroundTask> task;
    };

    void cancelAllExcept(const std::vector<std::filesystem::path>& files);
    void ask(const std::filesystem::path& file, PixelSize box);

    const Images& m_images;
    Background& m_background;
    std::function<void()> m_arrived;
    std::map<std::filesystem::path, Thumbnail> m_thumbnails;
    PixelSize m_box;
};

} // namespace brisklog
