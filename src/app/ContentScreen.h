#pragma once

#include "app/ContentView.h"
#include "ui/sheets/Screen.h"

#include <functional>
#include <map>

class QStackedWidget;

namespace brisklog {

/// The main view's screen: the navigation bar, and below it the selected section's screen, which is created
/// when it is first shown.
class ContentScreen final : public Screen {
public:
    /// Creates the screen of a section; called at most once for each.
    using SectionMaker = std::function<QWidget*(int section)>;

    ContentScreen(ContentView& content, SectionMaker makeSection, QWidget* parent = nullptr);

protected:
    void refresh() override;

private:
    [[nodiscard]] QWidget* sectionScreen(int section);

    ContentView& m_content;
    SectionMaker m_makeSection;
    QStackedWidget* m_stack;
    std::map<int, QWidget*> m_sectionScreens;
};

} // namespace brisklog
