#pragma once

#include "foundation/Observable.h"
#include "platform/Background.h"
#include "platform/Images.h"
#include "platform/Log.h"
#include "profile/FileItem.h"

#include <functional>
#include <optional>

namespace brisklog {

/// The outside world as the logo picker needs it. All of it must outlive the picker and its background work.
struct LogoPickerPlatform {
    const Files& files;
    const Images& images;
    /// Reads folders.
    Background& background;
    Log& log;
};

/// A small file browser: the user navigates the folders and chooses an image, whose bytes to keep as the logo
/// are passed on.
class LogoPickerView final : public ObservableObject {
public:
    struct Actions {
        /// Receives the bytes to keep.
        std::function<void(std::string bytes)> onImageSelected;
        /// Closes the window; may destroy the view, but only after the calling operation has returned.
        std::function<void()> dismiss;
    };

    /// Starts reading the user's pictures folder.
    LogoPickerView(const LogoPickerPlatform& platform, Actions actions);

    Published<std::filesystem::path> currentDirectory{*this, {}, [this] { loadDirectoryContents(); }};
    Published<std::vector<FileItem>> items{*this};
    Published<bool> isLoading{*this, false};
    /// Empty when there is no error.
    Published<std::string> errorText{*this};

    /// Has no effect at the root of the file system.
    void moveToParentFolder();

    /// Opens a folder, or takes an image and closes the picker.
    void handleSelection(const FileItem& item);

    /// The row of the subfolder the user has just come up from; none otherwise.
    [[nodiscard]] std::optional<std::size_t> rowOfPreviousDirectory() const;

private:
    [[nodiscard]] std::filesystem::path startFolder() const;
    void loadDirectoryContents();
    void takeContents(Result<std::vector<FileItem>> contents);
    [[nodiscard]] std::optional<std::string> processImage(const Bitmap& image,
                                                          const std::filesystem::path& file);

    LogoPickerPlatform m_platform;
    Actions m_actions;
    std::filesystem::path m_previousDirectory;
    std::unique_ptr<BackgroundTask> m_loading;
};

} // namespace brisklog
