#pragma once

#include "platform/Background.h"
#include "platform/Images.h"

#include <filesystem>
#include <functional>
#include <map>
#include <vector>

namespace brisklog {

/// Small pictures of the image files on show, made in the background. What scrolls out of sight before its
/// turn has come is never decoded, and of a folder with thousands of files only the last few hundred pictures
/// are kept.
class Thumbnails {
public:
    /// `arrived` is called on the main thread whenever a picture has come or turned out to be none. Images
    /// and background must outlive work that is under way, and so this object.
    Thumbnails(const Images& images, Background& background, std::function<void()> arrived);

    /// Asks for what is missing of these files, each fitted into the box, and gives up everything else that
    /// was asked for.
    void show(const std::vector<std::filesystem::path>& files, PixelSize box);

    /// Forgets everything, as if nothing had ever been on show.
    void clear() { m_thumbnails.clear(); }

    /// The picture of the file, or why there is none; null as long as that is unknown.
    [[nodiscard]] const Result<Bitmap>* find(const std::filesystem::path& file) const;

    /// How many are known or being made.
    [[nodiscard]] std::size_t count() const { return m_thumbnails.size(); }

private:
    struct Thumbnail {
        std::optional<Result<Bitmap>> result;
        std::unique_ptr<BackgroundTask> task;
    };

    void giveUpAllBut(const std::vector<std::filesystem::path>& files);
    void ask(const std::filesystem::path& file, PixelSize box);

    const Images& m_images;
    Background& m_background;
    std::function<void()> m_arrived;
    std::map<std::filesystem::path, Thumbnail> m_thumbnails;
    PixelSize m_box;
};

} // namespace brisklog
