#include "app/ContentScreen.h"

#include "ui/controls/NavigationButton.h"
#include "ui/look/Hairline.h"
#include "ui/look/Layout.h"
#include "ui/look/ScreenReader.h"
#include "ui/look/Text.h"

#include <QStackedWidget>
#include <vector>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

/// The four section buttons at the top of the main view, with a line below them.
class TopNavigationBar final : public Screen {
public:
    explicit TopNavigationBar(ContentView& content) : m_content(content) {
        setAccessibleRole(*this, QAccessible::PageTabList);
        setAccessibleName(u"Bereiche"_s);
        observe(m_content);
        Row row{stretch()};
        for (const Section& section : sections) {
            m_buttons.push_back(makeButton(section));
            row.add(m_buttons.back());
        }
        row.add(stretch());
        row.spacing(4);
        Column{space(6), row, space(5), new Hairline}.applyTo(*this);
    }

protected:
    void refresh() override {
        for (std::size_t i = 0; i < m_buttons.size(); ++i)
            m_buttons[i]->setSelected(m_content.selectedSection == sections[i].number);
    }

private:
    NavigationButton* makeButton(const Section& section) {
        return new NavigationButton(
            {.icon = screenText(section.symbol),
             .label = screenText(section.label),
             .action = [this, number = section.number] { m_content.selectedSection = number; }},
            NavigationButton::Form::bar);
    }

    ContentView& m_content;
    std::vector<NavigationButton*> m_buttons;
};

} // namespace

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
