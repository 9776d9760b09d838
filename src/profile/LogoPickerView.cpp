#include "profile/LogoPickerView.h"

#include "profile/LogoImage.h"

#include <algorithm>
#include <array>

namespace brisklog {

namespace fs = std::filesystem;

LogoPickerView::LogoPickerView(const LogoPickerPlatform& platform, Actions actions)
    : m_platform(platform), m_actions(std::move(actions)) {
    currentDirectory = startFolder();
}

/// Folders that do not exist are skipped.
fs::path LogoPickerView::startFolder() const {
    const Files& files = m_platform.files;
    for (const auto& folder : {files.picturesFolder(), files.documentsFolder(), files.homeFolder()})
        if (folder && files.exists(*folder))
            return *folder;
    return "/";
}

void LogoPickerView::moveToParentFolder() {
    const fs::path folder = currentDirectory;
    if (folder == folder.parent_path())
        return;
    currentDirectory = folder.parent_path();
    m_previousDirectory = folder;
}

void LogoPickerView::loadDirectoryContents() {
    using Contents = Result<std::vector<FileItem>>;
    errorText = "";
    items = {};
    isLoading = true;
    const auto list = [&files = m_platform.files, folder = currentDirectory.get()]() -> Contents {
        auto entries = files.entriesIn(folder);
        return entries.failed() ? Contents(entries.error())
                                : offeredItems(folder, std::move(entries).value());
    };
    // Replacing the task abandons the previous folder if it is still being read.
    m_loading = computeIn<Contents>(m_platform.background, list,
                                    [this](Contents contents) { takeContents(std::move(contents)); });
}

void LogoPickerView::takeContents(Result<std::vector<FileItem>> contents) {
    if (contents.failed())
        errorText = "Fehler beim Laden des Verzeichnisses: " + contents.error().description;
    else
        items = std::move(contents).value();
    isLoading = false;
}

void LogoPickerView::handleSelection(const FileItem& item) {
    if (item.isDirectory) {
        currentDirectory = item.path;
        return;
    }
    errorText = "";
    // Scaled while it is read, so that a large photograph is rarely held in memory at full size.
    const auto image = m_platform.images.read(item.path, logoSize);
    const auto bytes = image.failed() ? std::nullopt : processImage(image.value(), item.path);
    if (!bytes) {
        errorText = "Konnte das Bild nicht laden";
        return;
    }
    m_actions.onImageSelected(*bytes);
    m_actions.dismiss();
}

/// The bytes to keep: the image as PNG, else the chosen file's own bytes; none when that cannot be read
/// either.
std::optional<std::string> LogoPickerView::processImage(const Bitmap& image, const fs::path& file) {
    auto encoded = m_platform.images.encodePng(image);
    if (encoded.succeeded())
        return std::move(encoded).value();
    auto original = m_platform.files.read(file);
    if (original.succeeded())
        return std::move(original).value();
    m_platform.log.print("Error getting original image data: " + original.error().description);
    return std::nullopt;
}

std::optional<std::size_t> LogoPickerView::rowOfPreviousDirectory() const {
    const auto found = std::ranges::find(items.get(), m_previousDirectory, &FileItem::path);
    if (m_previousDirectory.empty() || found == items->end())
        return std::nullopt;
    return static_cast<std::size_t>(found - items->begin());
}

} // namespace brisklog
