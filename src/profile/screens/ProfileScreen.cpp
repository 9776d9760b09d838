#include "profile/screens/ProfileScreen.h"

#include "profile/screens/LogoPlate.h"
#include "ui/controls/Button.h"
#include "ui/controls/Card.h"
#include "ui/controls/SectionHeader.h"
#include "ui/controls/TextField.h"
#include "ui/lists/ScrollArea.h"
#include "ui/look/Label.h"
#include "ui/look/Layout.h"
#include "ui/look/Painting.h"
#include "ui/look/ScreenReader.h"
#include "ui/look/Text.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace brisklog {

struct ProfileScreen::FormField {
    Published<std::string> UserProfile::*property;
    /// The placeholder.
    QString example;
    /// For screen readers, where the row's label names two fields.
    QString name = {};
};

/// A label and the fields next to it.
struct ProfileScreen::FormRow {
    QString label;
    std::vector<FormField> fields;
};

namespace {

constexpr int margin = 12;
constexpr int titleInset = 4;
constexpr int gapBetweenCards = 11;
constexpr int rowGap = 6;
constexpr int labelWidth = 96;
constexpr int fieldGap = 6;
constexpr int narrowFieldWidth = 80;
constexpr int buttonGap = 8;
constexpr QMargins cardPadding{14, 12, 14, 14};

QWidget* card(const LayoutBox& content) { return new Card(content, cardPadding); }

/// A field without the focus shows the beginning of a long text.
void showValue(TextField& field, const QString& value) {
    const QString before = field.text();
    field.setValue(value);
    if (field.text() != before && !field.hasFocus())
        field.setCursorPosition(0);
}

/// A note that should be noticed: a heading above a text, with the same bar at its left that marks running
/// time.
class NoteBox final : public QWidget {
public:
    NoteBox(const QString& heading, const QString& text) {
        Column{asHeading(new Label(heading, FontRole::body13Semibold)), space(1),
               new Label(text, FontRole::tab12, &Palette::secondary, Label::Lines::wrapped)}
            .margins({17, 9, 16, 11})
            .applyTo(*this);
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        const Palette& palette = Palette::current();
        fillRounded(painter, rect(), radius, blendedOver(withOpacity(palette.blueFill, 0.08), palette.card));
        frameRounded(painter, rect(), radius, withOpacity(palette.blueFill, 0.16));
        paintTimeEdge(painter, {edgeLeft, edgeInset, edgeWidth, height() - 2 * edgeInset}, palette.blue);
    }

private:
    static constexpr int radius = 8;
    static constexpr int edgeLeft = 5;
    static constexpr int edgeWidth = 3;
    static constexpr int edgeInset = 9;
};

QWidget* note() {
    return new NoteBox(u"Hinweis"_s,
                       u"Diese Daten werden auf Ihren Rechnungen verwendet. Bitte füllen Sie alle relevanten "
                       u"Felder aus, um vollständige und rechtskonforme Rechnungen zu erstellen."_s);
}

} // namespace

ProfileScreen::ProfileScreen(UserProfile& profile, const Images& images, QWidget* parent)
    : Screen(parent), m_profile(profile), m_logo(new LogoPlate(images)),
      m_removeLogo(new Button(u"Logo entfernen"_s, Button::Kind::destructive)) {
    auto* const content = new QWidget;
    auto* const title = asHeading(new Label(u"Profil"_s, FontRole::title17));
    Column{Row{title}.margins({titleInset, 0, titleInset, 0}),
           space(margin),
           logoSection(),
           space(gapBetweenCards),
           contactSection(),
           space(gapBetweenCards),
           taxAndBankSection(),
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
    select->onClick([this] { m_profile.loadLogoFromFile(); });
    m_removeLogo->onClick([this] { m_profile.logoData = std::nullopt; });
    return card(Column{new SectionHeader(u"Firmenlogo"_s, u"photo"_s), space(10),
                       aligned(m_logo, Qt::AlignHCenter), space(margin),
                       Row{stretch(), select, m_removeLogo, stretch()}.spacing(buttonGap)});
}

QWidget* ProfileScreen::contactSection() {
    return fieldSection(u"Kontaktdaten"_s, u"person.fill"_s,
                        {{u"Firma"_s, {{&UserProfile::companyName, u"Ihre Firma GmbH"_s}}},
                         {u"Name"_s, {{&UserProfile::fullName, u"Max Mustermann"_s}}},
                         {u"Adresse"_s, {{&UserProfile::address, u"Musterstraße 123"_s}}},
                         {u"PLZ & Ort"_s,
                          {{&UserProfile::postalCode, u"12345"_s, u"PLZ"_s},
                           {&UserProfile::city, u"Musterstadt"_s, u"Ort"_s}}},
                         {u"Land"_s, {{&UserProfile::country, u"Deutschland"_s}}},
                         {u"Telefon"_s, {{&UserProfile::phone, u"+49 123 456789"_s}}},
                         {u"E-Mail"_s, {{&UserProfile::email, u"post@beispiel.example"_s}}},
                         {u"Website"_s, {{&UserProfile::website, u"www.beispiel.example"_s}}}});
}

QWidget* ProfileScreen::taxAndBankSection() {
    return fieldSection(u"Steuer- und Bankdaten"_s, u"banknote"_s,
                        {{u"Steuernummer"_s, {{&UserProfile::taxId, u"123/456/78901"_s}}},
                         {u"Finanzamt"_s, {{&UserProfile::taxOffice, u"Finanzamt Musterstadt"_s}}},
                         {u"USt-IdNr."_s, {{&UserProfile::vatId, u"DE123456789"_s}}},
                         {u"Bank"_s, {{&UserProfile::bankName, u"Musterbank"_s}}},
                         {u"IBAN"_s, {{&UserProfile::iban, u"DE89 3704 0044 0532 0130 00"_s}}},
                         {u"BIC"_s, {{&UserProfile::bic, u"MUSTERDEXXX"_s}}}});
}

QWidget* ProfileScreen::fieldSection(const QString& title, const QString& symbol,
                                     const std::vector<FormRow>& rows) {
    Column column{new SectionHeader(title, symbol), space(4)};
    for (const FormRow& each : rows)
        column.add(row(each));
    return card(column.spacing(rowGap));
}

LayoutItem ProfileScreen::row(const FormRow& row) {
    auto* const label = new Label(row.label, FontRole::body13, &Palette::secondary);
    label->setFixedWidth(labelWidth);
    Row fields{};
    for (const FormField& each : row.fields)
        fields.add(field(row, each));
    return Row{label, expanding(fields.spacing(fieldGap))};
}

TextField* ProfileScreen::field(const FormRow& row, const FormField& field) {
    auto* const created = new TextField(field.example);
    created->setAccessibleName(field.name.isEmpty() ? row.label : field.name);
    if (field.property == &UserProfile::postalCode)
        created->setFixedWidth(narrowFieldWidth);
    Published<std::string>& property = m_profile.*field.property;
    created->onEdited([&property](const QString& edited) { property = edited.toStdString(); });
    m_fields.push_back({created, &property});
    return created;
}

void ProfileScreen::refresh() {
    for (const BoundField& bound : m_fields)
        showValue(*bound.field, screenText(**bound.property));
    m_removeLogo->setEnabled(m_profile.logoData->has_value());
    // Decoding the logo again at every keystroke would be noticeable.
    if (m_shownLogo != m_profile.logoData.revision())
        m_logo->setLogo(m_profile.logoData);
    m_shownLogo = m_profile.logoData.revision();
}

} // namespace brisklog
