#include "settings/screens/SettingsScreen.h"

#include "ui/controls/Card.h"
#include "ui/controls/Clickable.h"
#include "ui/controls/Picker.h"
#include "ui/controls/SectionHeader.h"
#include "ui/lists/ScrollArea.h"
#include "ui/look/Label.h"
#include "ui/look/Layout.h"
#include "ui/look/Painting.h"
#include "ui/look/ScreenReader.h"
#include "ui/look/Symbols.h"
#include "ui/look/Text.h"
#include "ui/sheets/Sheets.h"

#include <QPainter>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace brisklog {

struct SettingsScreen::Choice {
    enum class PickerPlace { besideLabel, belowLabel };

    QString sectionTitle;
    QString symbol;
    QString label;
    /// Explains the setting; may be empty.
    QString caption = {};
    PickerPlace pickerPlace = PickerPlace::besideLabel;
};

namespace {

constexpr int margin = 12;
constexpr int marginAbove = 16;
constexpr int marginBelow = 6;
constexpr int headerInset = 4;
constexpr int headerGap = 8;
constexpr int pickerWidth = 194;
constexpr int cardPaddingAcross = 14;
constexpr int cardPaddingDown = 12;
/// The lowest pixel row of a card is its shadow, so this looks like 18.
constexpr int sectionGap = 17;
constexpr int linkRadius = 4;
constexpr int linkHeight = 28;
constexpr int linkPadding = 4;
/// In the upper part of its target, close to the line above.
constexpr int linkTextHeight = 20;
constexpr FontRole linkFont = FontRole::caption11Medium;

/// A link out of the program, in small blue underlined letters.
class Link final : public Clickable {
public:
    explicit Link(const QString& caption) : Clickable(linkRadius) {
        setCaption(caption);
        setCursor(Qt::PointingHandCursor);
        setAccessibleRole(*this, QAccessible::Link);
    }

    [[nodiscard]] QSize sizeHint() const override {
        return {textWidth(caption(), linkFont) + 2 * linkPadding, linkHeight};
    }

    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        const Palette& palette = Palette::current();
        QFont underlined = fontFor(linkFont);
        underlined.setUnderline(true);
        painter.setFont(underlined);
        painter.setPen(isHovered() ? palette.text : palette.blue);
        painter.drawText(QRect(0, 0, width(), linkTextHeight), Qt::AlignCenter | Qt::TextSingleLine,
                         caption());
    }
};

/// A link below the settings.
struct CreditLink {
    QString caption;
    std::string_view address;
};

LayoutItem section(const QString& title, const QString& symbol, QWidget* content) {
    return Column{Row{space(headerInset), new SectionHeader(title, symbol)}, space(headerGap), content};
}

Card* cardWith(const LayoutBox& content) {
    return new Card(content, {cardPaddingAcross, cardPaddingDown, cardPaddingAcross, cardPaddingDown});
}

/// A card that is a button as a whole and opens the archive.
class ArchiveButton final : public Clickable {
public:
    ArchiveButton() : Clickable(radius) {
        const QString headline = u"Archiv anzeigen"_s;
        const QString explanation =
            u"Hier findest du alle archivierten Rechnungen sortiert nach Jahr und Monat."_s;
        setAccessibleName(headline);
        setAccessibleDescription(explanation);
        setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
        Column{new Label(headline, FontRole::body13Semibold), space(2),
               new Label(explanation, FontRole::tab12, &Palette::secondary, Label::Lines::wrapped)}
            .margins({cardPaddingAcross, cardPaddingDown, cardPaddingAcross + symbolSize + symbolGap,
                      cardPaddingDown + cardShadow})
            .applyTo(*this);
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        const Palette& palette = Palette::current();
        if (isHovered() || isDown())
            paintHoveredCard(painter, rect(), palette);
        else
            paintCard(painter, rect(), palette);
        const QRect symbol(width() - cardPaddingAcross - symbolSize, 0, symbolSize, height() - cardShadow);
        paintSymbol(painter, symbol, u"chevron.right.circle.fill"_s, symbolSize, palette.blue);
    }

private:
    static constexpr int radius = 10;
    static constexpr int symbolSize = 22;
    static constexpr int symbolGap = 12;
};

} // namespace

SettingsScreen::SettingsScreen(AppSettings& settings, SettingsActions actions, QWidget* parent)
    : Screen(parent), m_settings(settings), m_actions(std::move(actions)) {
    Column{expanding(new ScrollArea(makeContent()))}.applyTo(*this);
    observe(settings);
}

QWidget* SettingsScreen::makeContent() {
    auto* content = new QWidget;
    Column{
        section(u"Archiv"_s, u"archivebox"_s, archiveButton()),
        choiceSection({.sectionTitle = u"Erscheinung"_s, .symbol = u"paintbrush"_s, .label = u"Farbschema"_s},
                      m_settings.colorScheme),
        choiceSection({.sectionTitle = u"Zeit Einstellungen"_s,
                       .symbol = u"clock"_s,
                       .label = u"Zeitrundung"_s,
                       .caption = u"Zeiteinträge runden auf"_s},
                      m_settings.timeRounding),
        // At full width: beside its label the longest choice would be truncated.
        choiceSection({.sectionTitle = u"Rundungsregeln für Rechnungen"_s,
                       .symbol = u"doc.text"_s,
                       .label = u"Rechnungsrundung"_s,
                       .pickerPlace = Choice::PickerPlace::belowLabel},
                      m_settings.invoiceRounding),
        stretch(), credit()}
        .spacing(sectionGap)
        .margins({margin, marginAbove, margin, marginBelow})
        .applyTo(*content);
    return content;
}

QWidget* SettingsScreen::archiveButton() {
    auto* button = new ArchiveButton;
    button->onClick([this] { openArchive(); });
    return button;
}

template <SettingsOption Option>
LayoutItem SettingsScreen::choiceSection(const Choice& choice, Published<Option>& setting) {
    Picker* const picker = pickerFor(setting);
    picker->setAccessibleName(choice.label);
    Column rows{};
    if (!choice.caption.isEmpty())
        rows.add(new Label(choice.caption, FontRole::tab12, &Palette::secondary)).add(space(8));
    if (choice.pickerPlace == Choice::PickerPlace::belowLabel) {
        rows.add(new Label(choice.label)).add(space(6)).add(picker);
    } else {
        picker->setFixedWidth(pickerWidth);
        rows.add(Row{new Label(choice.label), stretch(), picker});
    }
    return section(choice.sectionTitle, choice.symbol, cardWith(rows));
}

template <SettingsOption Option>
Picker* SettingsScreen::pickerFor(Published<Option>& setting) {
    const auto& values = rawValues<Option>;
    std::vector<QString> labels;
    for (const RawValue<Option>& value : values)
        labels.push_back(screenText(value.text));
    auto* picker = new Picker;
    picker->setOptions(labels);
    picker->onChosen(
        [&setting, &values](int index) { setting = values.at(static_cast<std::size_t>(index)).option; });
    m_showSettings.emplace_back([&setting, &values, picker] {
        const auto shown = std::ranges::find(values, setting.get(), &RawValue<Option>::option);
        picker->setSelectedIndex(static_cast<int>(shown - values.begin()));
    });
    return picker;
}

QWidget* SettingsScreen::credit() {
    auto* lines = new QWidget;
    Row links{stretch()};
    for (const auto& [caption, address] : {CreditLink{u"Website"_s, "https://brisklog.example"},
                                           CreditLink{u"Mail"_s, "mailto:kontakt@brisklog.example"}}) {
        auto* word = new Link(caption);
        word->onClick([this, address = address] { m_actions.openLink(address); });
        links.add(word);
    }
    links.add(stretch()).spacing(4);
    auto* line =
        new Label(u"Brisklog – Zeiterfassung und Rechnungen"_s, FontRole::caption11, &Palette::secondary);
    Column{aligned(line, Qt::AlignHCenter), links}.applyTo(*lines);
    return lines;
}

void SettingsScreen::refresh() {
    for (const auto& showSetting : m_showSettings)
        showSetting();
}

void SettingsScreen::openArchive() {
    if (m_archiveSheet)
        return;
    m_archiveSheet = &presentSheet(*this, m_actions.makeArchiveSheet());
    m_archiveSheet->onClosed([this] { m_archiveSheet = nullptr; });
}

} // namespace brisklog
