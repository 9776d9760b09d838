#include "app/ContentView.h"

#include <algorithm>

namespace brisklog {

ContentView::ContentView(int initialSection, AppSettings& appSettings, const StorePlatform& platform)
    : selectedSection(*this, initialSection), settings(appSettings), timeStore(platform) {}

int ContentView::shownSection() const {
    const auto* const found = std::ranges::find(sections, selectedSection.get(), &Section::number);
    return found == sections.end() ? projectsSection : found->number;
}

} // namespace brisklog
