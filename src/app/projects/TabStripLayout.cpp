#include "app/projects/TabStripLayout.h"

#include <algorithm>
#include <utility>

namespace brisklog {
namespace {

constexpr int widestTab = 146;
constexpr int widestCurrentTab = 126;
constexpr int narrowestTab = 72;
constexpr int autoTrackingSymbolWidth = 32;
constexpr int overflowWidth = 46;
/// The divider between the overflow button and "Auto-Tracking", including the space after it.
constexpr int dividerWidth = 4;

int tabWidth(const TabStripContent& content, int index) {
    return std::min(content.projectWidths[static_cast<std::size_t>(index)], widestTab);
}

int widthOfAllTabs(const TabStripContent& content) {
    int sum = 0;
    for (const int width : content.projectWidths) {
        sum += std::min(width, widestTab);
        // Stops early, so that thousands of projects cannot overflow the sum.
        if (sum > content.availableWidth)
            break;
    }
    return sum;
}

TabStripLayout withAllTabs(const TabStripContent& content, int autoTrackingWidth) {
    TabStripLayout layout;
    int x = 0;
    for (int index = 0; std::cmp_less(index, content.projectWidths.size()); ++index) {
        const int width = tabWidth(content, index);
        layout.projects.push_back({index, x, width});
        x += width;
    }
    layout.autoTracking = {x, autoTrackingWidth};
    layout.showsAutoTrackingLabel = autoTrackingWidth == content.autoTrackingWidth;
    return layout;
}

/// Adds the project's tab, narrowed if necessary, where there is room for it; false once no further tab can
/// fit.
bool addNeighbour(const TabStripContent& content, int index, int& room, std::vector<TabPlacement>& shown) {
    const int width = tabWidth(content, index);
    if (room < std::min(width, narrowestTab))
        return false;
    shown.push_back({index, 0, std::min(width, room)});
    room -= shown.back().width;
    return shown.back().width == width;
}

/// The current project, those after it and, if there is still room, those before it.
std::vector<TabPlacement> tabsAroundCurrent(const TabStripContent& content, int room) {
    const int count = static_cast<int>(content.projectWidths.size());
    const int current = std::clamp(content.currentProject, 0, count - 1);
    const int currentWidth = std::min({tabWidth(content, current), widestCurrentTab, room});
    std::vector<TabPlacement> shown{{current, 0, currentWidth}};
    room -= currentWidth;
    bool hasRoom = true;
    for (int index = current + 1; hasRoom && index < count; ++index)
        hasRoom = addNeighbour(content, index, room, shown);
    for (int index = current - 1; hasRoom && index >= 0; --index)
        hasRoom = addNeighbour(content, index, room, shown);
    std::ranges::sort(shown, {}, &TabPlacement::projectIndex);
    return shown;
}

TabStripLayout withOverflow(const TabStripContent& content) {
    TabStripLayout layout;
    layout.showsAutoTrackingLabel = content.isAutoTrackingSelected;
    const int autoTrackingWidth =
        content.isAutoTrackingSelected ? content.autoTrackingWidth : autoTrackingSymbolWidth;
    layout.autoTracking = {content.availableWidth - autoTrackingWidth, autoTrackingWidth};
    const int room = layout.autoTracking.x - dividerWidth - overflowWidth;
    layout.overflow = TabSpan{room, overflowWidth};
    layout.projects = tabsAroundCurrent(content, room);
    int x = 0;
    for (TabPlacement& tab : layout.projects) {
        tab.x = x;
        x += tab.width;
    }
    return layout;
}

} // namespace

TabStripLayout layoutTabStrip(const TabStripContent& content) {
    const int projects = widthOfAllTabs(content);
    if (projects + content.autoTrackingWidth <= content.availableWidth)
        return withAllTabs(content, content.autoTrackingWidth);
    if (!content.isAutoTrackingSelected && projects + autoTrackingSymbolWidth <= content.availableWidth)
        return withAllTabs(content, autoTrackingSymbolWidth);
    return withOverflow(content);
}

} // namespace brisklog
