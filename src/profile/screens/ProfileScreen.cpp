#include "profile/screens/ProfileScreen.h"

#include "profile/screens/LogoPlate.h"
#include "profile/screens/NoteBox.h"
#include "ui/controls/Button.h"
#include "ui/controls/Card.h"
#include "ui/controls/SectionHeader.h"
#include "ui/controls/TextField.h"
#include "ui/lists/ScrollArea.h"
#include "ui/look/Label.h"
#include "ui/look/Layout.h"
#include "ui/look/Text.h"

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr int margin = 12;
constexpr int titleInset = 4;
constexpr int gapBetweenCards = 11;
constexpr int rowGap = 6;
constexpr int labelWidth = 96;
constexpr int fieldGap = 6;
constexpr int narrowFieldWidth = 80;
constexpr int buttonGap = 8;
/// The lowest pixel row belongs to the card's shadow.
constexpr QMargins cardPadding{14, 12, 14, 15};

QWidget* card(const LayoutBox& content) {
    auto* const card = new Card;
    Column{content}.margins(cardPadding).applyTo(*card);
    return card;
}

/// Where nobody writes, a long text is read from its beginning.
void showValue(TextField& field, const QString& value) {
    const QString before = field.text();
    field.setValue(value);
    if (field.text() != before && !field.hasFocus())
        field.setCursorPosition(0);
}

QWidget* note() {
    return new NoteBox(u"Hinweis"_s,
                       u"Diese Daten werden auf Ihren Rechnungen verwendet. Bitte füllen Sie alle relevanten "
                       u"Felder aus, um vollständige und rechtskonforme Rechnungen zu erstellen."_s);
}

} // namespace

ProfileScreen::ProfileScreen(UserProfile& profile, const Images& images, QWidget* parent)
    : Screen(parent), m_view(profile), m_logo(new LogoPlate(images)) {
    auto* const content = new QWidget;
    auto* const title = new Label(u"Profil"_s, FontRole::title17);
    Column{Row{title}.margins({titleInset, 0, titleInset, 0}),
           space(margin),
           logoSection(),
           space(gapBetweenCards),
           fieldSection(u"Kontaktdaten"_s, u"person.fill"_s, ProfileView::contactRows()),
           space(gapBetweenCards),
           fieldSection(u"Steuer- und Bankdaten"_s, u"banknote"_s, ProfileView::taxAndBankRows()),
           space(gapBetweenCards),
           note(),
           stretch()}
        .margins(margin)
        .applyTo(*content);
    Column{new ScrollArea(content)}.applyTo(*this);
    observe(profile);
}

QWidget* ProfileScreen::logoSection() {
    auto* const select = new Button(u"Logo auswählen"_s);
    auto* const remove = new Button(u"Logo entfernen"_s, Button::Kind::destructive);
    select->onClick([this] { m_view.selectLogo(); });
    remove->onClick([this] { m_view.removeLogo(); });
    return card(Column{new SectionHeader(u"Firmenlogo"_s, u"photo"_s), space(10),
                       aligned(m_logo, Qt::AlignHCenter), space(margin),
                       Row{stretch(), select, remove, stretch()}.spacing(buttonGap)});
}

QWidget* ProfileScreen::fieldSection(const QString& title, const QString& symbol,
                                     const std::vector<ProfileRow>& rows) {
    Column column{new SectionHeader(title, symbol), space(4)};
    for (const ProfileRow& each : rows)
        column.add(row(each));
    return card(column.spacing(rowGap));
}

LayoutItem ProfileScreen::row(const ProfileRow& row) {
    auto* const label = new Label(screenText(row.label), FontRole::body13, &Palette::secondary);
    label->setFixedWidth(labelWidth);
    Row fields{};
    for (const ProfileField& each : row.fields)
        fields.add(field(row, each));
    return Row{label, expanding(fields.spacing(fieldGap))};
}

TextField* ProfileScreen::field(const ProfileRow& row, const ProfileField& field) {
    auto* const created = new TextField(screenText(field.exampleText));
    // Fields that share a label are told apart by their examples, which the toolkit gives as descriptions.
    created->setAccessibleName(screenText(row.label));
    if (field.property == &UserProfile::postalCode)
        created->setFixedWidth(narrowFieldWidth);
    created->onEdited([this, property = field.property](const QString& edited) {
        m_view.profile().*property = edited.toStdString();
    });
    m_fields.push_back({created, field.property});
    return created;
}

void ProfileScreen::refresh() {
    UserProfile& profile = m_view.profile();
    for (const BoundField& bound : m_fields)
        showValue(*bound.field, screenText((profile.*bound.property).get()));
    // Decoding the logo anew at every keystroke would be felt.
    if (m_shownLogo != profile.logoData.revision())
        m_logo->setLogo(profile.logoData);
    m_shownLogo = profile.logoData.revision();
}

} // namespace brisklog
