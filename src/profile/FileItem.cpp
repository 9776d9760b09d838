#include "profile/FileItem.h"

#include <QCollator>
#include <algorithm>
#include <array>
#include <tuple>

namespace brisklog {
namespace {

bool hasImageExtension(const std::string& name) {
    constexpr std::array<std::string_view, 6> extensions{"jpg", "jpeg", "png", "gif", "tiff", "bmp"};
    const std::size_t dot = name.rfind('.');
    if (dot == name.npos)
        return false;
    std::string extension = name.substr(dot + 1);
    std::ranges::transform(extension, extension.begin(), [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
    return std::ranges::find(extensions, extension) != extensions.end();
}

bool isOffered(const FolderEntry& entry) {
    return !entry.name.starts_with('.') && (entry.isFolder || hasImageExtension(entry.name));
}

QCollator germanOrder() {
    QCollator collator(QLocale(QLocale::German, QLocale::Germany));
    collator.setNumericMode(true);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    return collator;
}

/// An entry with its sort key, which would be expensive to compute at every comparison.
struct Ranked {
    FolderEntry entry;
    QCollatorSortKey key;

    /// Names that differ only in case still have a defined order.
    bool operator<(const Ranked& other) const {
        if (entry.isFolder != other.entry.isFolder)
            return entry.isFolder;
        const int order = key.compare(other.key);
        return order != 0 ? order < 0 : entry.name < other.entry.name;
    }
};

} // namespace

std::vector<FileItem> offeredItems(const std::filesystem::path& folder, std::vector<FolderEntry> entries) {
    std::erase_if(entries, [](const FolderEntry& entry) { return !isOffered(entry); });
    const QCollator order = germanOrder();
    std::vector<Ranked> ranked;
    ranked.reserve(entries.size());
    for (FolderEntry& entry : entries) {
        const QCollatorSortKey key = order.sortKey(QString::fromStdString(entry.name));
        ranked.push_back({std::move(entry), key});
    }
    std::sort(ranked.begin(), ranked.end());
    std::vector<FileItem> items;
    items.reserve(ranked.size());
    for (const Ranked& each : ranked)
        items.push_back({folder / each.entry.name, each.entry.isFolder});
    return items;
}

} // namespace brisklog
