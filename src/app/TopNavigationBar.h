#pragma once

#include "app/ContentView.h"
#include "ui/controls/NavigationButton.h"
#include "ui/sheets/Screen.h"

#include <vector>

namespace brisklog {

/// The four section buttons at the top of the main view, with a line under them.
class TopNavigationBar final : public Screen {
public:
    explicit TopNavigationBar(ContentView& content, QWidget* parent = nullptr);

protected:
    void refresh() override;

private:
    ContentView& m_content;
    std::vector<NavigationButton*> m_buttons;
};

} // namespace brisklog
