#include "app/ContentScreen.h"

#include "app/TopNavigationBar.h"
#include "ui/look/Layout.h"

#include <QStackedWidget>

namespace brisklog {

ContentScreen::ContentScreen(ContentView& content, SectionMaker makeSection, QWidget* parent)
    : Screen(parent), m_content(content), m_makeSection(std::move(makeSection)), m_stack(new QStackedWidget) {
    observe(m_content);
    Column{new TopNavigationBar(m_content), expanding(m_stack)}.applyTo(*this);
}

void ContentScreen::refresh() { m_stack->setCurrentWidget(sectionScreen(m_content.shownSection())); }

QWidget* ContentScreen::sectionScreen(int section) {
    QWidget*& screen = m_sectionScreens[section];
    if (screen == nullptr) {
        screen = m_makeSection(section);
        m_stack->addWidget(screen);
    }
    return screen;
}

} // namespace brisklog
