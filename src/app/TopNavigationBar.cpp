#include "app/TopNavigationBar.h"

#include "ui/look/Hairline.h"
#include "ui/look/Layout.h"

namespace brisklog {
namespace {

QString qString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace

TopNavigationBar::TopNavigationBar(ContentView& content, QWidget* parent)
    : Screen(parent), m_content(content) {
    observe(m_content);
    Row row{stretch()};
    for (const Section& section : sections) {
        m_buttons.push_back(new NavigationButton(
            {.icon = qString(section.symbol),
             .label = qString(section.label),
             .action = [this, number = section.number] { m_content.selectedSection = number; }},
            NavigationButton::Form::bar));
        row.add(m_buttons.back());
    }
    row.add(stretch());
    row.spacing(4);
    Column{space(6), row, space(5), new Hairline}.applyTo(*this);
}

void TopNavigationBar::refresh() {
    for (std::size_t i = 0; i < m_buttons.size(); ++i)
        m_buttons[i]->setSelected(m_content.shownSection() == sections[i].number);
}

} // namespace brisklog
