#include "settings/screens/SettingsScreen.h"

#include "settings/screens/ArchiveButton.h"
#include "ui/controls/Card.h"
#include "ui/controls/Link.h"
#include "ui/controls/Picker.h"
#include "ui/controls/SectionHeader.h"
#include "ui/lists/ScrollArea.h"
#include "ui/look/Label.h"
#include "ui/look/Layout.h"
#include "ui/sheets/Sheets.h"

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr int margin = 12;
constexpr int marginAbove = 16;
constexpr int marginBelow = 10;
constexpr int headerInset = 4;
constexpr int headerGap = 8;
constexpr int pickerWidth = 194;
/// The lowest pixel row of a card is its shadow, so this is seen as 18.
constexpr int sectionGap = 17;
constexpr int shadow = 1;

QString text(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

/// A picker of all values of that option; a choice is written at once.
template <class Option>
Picker* pickerFor(const QString& name, Published<Option>& property) {
    auto* picker = new Picker;
    std::vector<QString> labels;
    labels.reserve(allOptions<Option>.size());
    for (const Option option : allOptions<Option>)
        labels.push_back(text(rawValue(option)));
    picker->setAccessibleName(name);
    picker->setOptions(labels);
    picker->onChosen(
        [&property](int index) { property = allOptions<Option>.at(static_cast<std::size_t>(index)); });
    return picker;
}

template <class Option>
int indexOf(const Published<Option>& property) {
    const auto& all = allOptions<Option>;
    return static_cast<int>(std::ranges::find(all, property.get()) - all.begin());
}

LayoutItem section(const QString& title, const QString& symbol, QWidget* content) {
    return Column{Row{space(headerInset), new SectionHeader(title, symbol)}, space(headerGap), content};
}

Card* cardWith(const LayoutBox& content) {
    auto* card = new Card;
    Column{content}.margins({14, 12, 14, 12 + shadow}).applyTo(*card);
    return card;
}

/// The picker at the right of its label.
LayoutBox labelled(const QString& label, Picker* picker) {
    picker->setFixedWidth(pickerWidth);
    return Row{new Label(label), stretch(), picker};
}

} // namespace

SettingsScreen::SettingsScreen(AppSettings& settings, SettingsActions actions, QWidget* parent)
    : Screen(parent), m_view(settings), m_actions(std::move(actions)),
      m_colorScheme(pickerFor(u"Farbschema"_s, settings.colorScheme)),
      m_timeRounding(pickerFor(u"Zeitrundung"_s, settings.timeRounding)),
      m_invoiceRounding(pickerFor(u"Rechnungsrundung"_s, settings.invoiceRounding)) {
    Column{expanding(new ScrollArea(makeContent()))}.applyTo(*this);
    observe(settings);
    observe(m_view);
}

QWidget* SettingsScreen::makeContent() {
    auto* content = new QWidget;
    Column{section(u"Archiv"_s, u"archivebox"_s, archiveButton()),
           section(u"Erscheinung"_s, u"paintbrush"_s, appearanceCard()),
           section(u"Zeit Einstellungen"_s, u"clock"_s, timeCard()),
           section(u"Rundungsregeln für Rechnungen"_s, u"doc.text"_s, invoiceCard()),
           stretch(),
           credit()}
        .spacing(sectionGap)
        .margins({margin, marginAbove, margin, marginBelow})
        .applyTo(*content);
    return content;
}

QWidget* SettingsScreen::archiveButton() {
    auto* button = new ArchiveButton;
    button->onClick([this] { m_view.showingArchiveSheet = true; });
    return button;
}

Card* SettingsScreen::appearanceCard() { return cardWith(labelled(u"Farbschema"_s, m_colorScheme)); }

Card* SettingsScreen::timeCard() {
    auto* caption = new Label(u"Zeiteinträge runden auf"_s, FontRole::tab12, &Palette::secondary);
    return cardWith(Column{caption, space(8), labelled(u"Zeitrundung"_s, m_timeRounding)});
}

Card* SettingsScreen::invoiceCard() {
    // Under its label at full width: beside it the longest choice would be cut.
    return cardWith(Column{new Label(u"Rechnungsrundung"_s), space(6), m_invoiceRounding});
}

QWidget* SettingsScreen::credit() {
    auto* lines = new QWidget;
    Row links{stretch()};
    for (const CreditLink& link : creditLinks) {
        auto* word = new Link(text(link.caption));
        word->onClick([this, address = link.address] { m_actions.openLink(address); });
        links.add(word);
    }
    links.add(stretch()).spacing(4);
    auto* line = new Label(text(creditLine), FontRole::caption11, &Palette::secondary);
    Column{aligned(line, Qt::AlignHCenter), links}.applyTo(*lines);
    return lines;
}

void SettingsScreen::refresh() {
    m_colorScheme->setSelectedIndex(indexOf(m_view.settings.colorScheme));
    m_timeRounding->setSelectedIndex(indexOf(m_view.settings.timeRounding));
    m_invoiceRounding->setSelectedIndex(indexOf(m_view.settings.invoiceRounding));
    refreshArchiveSheet();
}

void SettingsScreen::refreshArchiveSheet() {
    if (!m_view.showingArchiveSheet || m_archiveSheet)
        return;
    m_archiveSheet = &presentSheet(*this, m_actions.makeArchiveSheet());
    m_archiveSheet->onClosed([this] {
        m_archiveSheet = nullptr;
        m_view.showingArchiveSheet = false;
    });
}

} // namespace brisklog
