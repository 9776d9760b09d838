// The profile form with its fields, its logo and what goes wrong with its files.

#include "platform/JsonFile.h"
#include "profile/screens/LogoPlate.h"
#include "screens/profile/ProfileScreenBench.h"
#include "support/SamplePictures.h"
#include "ui/look/Palette.h"

#include <QLabel>
#include <QScrollArea>
#include <QTest>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

using testing::Each;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

struct Expected {
    QString name;
    QString example;
    Published<std::string> UserProfile::*property;
    const char* key;
};

const std::vector<Expected>& expectedFields() {
    static const std::vector<Expected> fields{
        {u"Firma"_s, u"Ihre Firma GmbH"_s, &UserProfile::companyName, "companyName"},
        {u"Name"_s, u"Max Mustermann"_s, &UserProfile::fullName, "fullName"},
        {u"Adresse"_s, u"Musterstraße 123"_s, &UserProfile::address, "address"},
        {u"PLZ"_s, u"12345"_s, &UserProfile::postalCode, "postalCode"},
        {u"Ort"_s, u"Musterstadt"_s, &UserProfile::city, "city"},
        {u"Land"_s, u"Deutschland"_s, &UserProfile::country, "country"},
        {u"Telefon"_s, u"+49 123 456789"_s, &UserProfile::phone, "phone"},
        {u"E-Mail"_s, u"post@beispiel.example"_s, &UserProfile::email, "email"},
        {u"Website"_s, u"www.beispiel.example"_s, &UserProfile::website, "website"},
        {u"Steuernummer"_s, u"123/456/78901"_s, &UserProfile::taxId, "taxId"},
        {u"Finanzamt"_s, u"Finanzamt Musterstadt"_s, &UserProfile::taxOffice, "taxOffice"},
        {u"USt-IdNr."_s, u"DE123456789"_s, &UserProfile::vatId, "vatId"},
        {u"Bank"_s, u"Musterbank"_s, &UserProfile::bankName, "bankName"},
        {u"IBAN"_s, u"DE89 3704 0044 0532 0130 00"_s, &UserProfile::iban, "iban"},
        {u"BIC"_s, u"MUSTERDEXXX"_s, &UserProfile::bic, "bic"},
    };
    return fields;
}

class ProfileScreenTest : public ProfileScreenBench {
protected:
    /// The texts of the visible labels, in reading order.
    [[nodiscard]] QStringList labels() const {
        QStringList texts;
        for (const QLabel* const label : screen->findChildren<QLabel*>())
            if (label->isVisibleTo(screen.get()) && !label->text().isEmpty())
                texts.append(label->text());
        return texts;
    }

    [[nodiscard]] QLabel& plate() {
        for (QLabel* const label : screen->findChildren<QLabel*>())
            if (label->size() == QSize(224, 112))
                return *label;
        ADD_FAILURE() << "no logo plate";
        std::abort();
    }

    /// The size of whatever on the plate is not white.
    [[nodiscard]] QSize sizeOnPlate() {
        const QImage seen = picture(plate());
        QRect coloured;
        for (int y = 4; y < seen.height() - 4; ++y)
            for (int x = 4; x < seen.width() - 4; ++x)
                if (!looksLike(seen.pixelColor(x, y), Qt::white))
                    coloured |= QRect(x, y, 1, 1);
        return coloured.size();
    }

    void keepLogo(int width, int height) {
        QImage logo(width, height, QImage::Format_RGB32);
        logo.fill(Qt::darkBlue);
        profile.logoData = encoded(logo, "PNG");
        settle();
    }
};

TEST_F(ProfileScreenTest, everyFieldHasItsLabelItsExampleAndItsProperty) {
    open();
    for (const Expected& expected : expectedFields()) {
        QLineEdit& shown = field(expected.name, expected.example);
        profile.*expected.property = "Größe " + expected.example.toStdString();
        settle();
        EXPECT_EQ(shown.text(), u"Größe "_s + expected.example);
    }
    EXPECT_EQ(static_cast<std::size_t>(screen->findChildren<QLineEdit*>().size()), expectedFields().size());
}

TEST_F(ProfileScreenTest, saysEverythingFromTopToBottom) {
    open();
    EXPECT_EQ(
        labels(),
        (QStringList{u"Profil"_s,
                     u"Firmenlogo"_s,
                     u"Kein Logo"_s,
                     u"Kontaktdaten"_s,
                     u"Firma"_s,
                     u"Name"_s,
                     u"Adresse"_s,
                     u"PLZ & Ort"_s,
                     u"Land"_s,
                     u"Telefon"_s,
                     u"E-Mail"_s,
                     u"Website"_s,
                     u"Steuer- und Bankdaten"_s,
                     u"Steuernummer"_s,
                     u"Finanzamt"_s,
                     u"USt-IdNr."_s,
                     u"Bank"_s,
                     u"IBAN"_s,
                     u"BIC"_s,
                     u"Hinweis"_s,
                     u"Diese Daten werden auf Ihren Rechnungen verwendet. Bitte füllen Sie alle relevanten "
                     u"Felder aus, um vollständige und rechtskonforme Rechnungen zu erstellen."_s}));
}

TEST_F(ProfileScreenTest, everyKeystrokeIsInTheFileAtOnce) {
    open();
    for (const Expected& expected : expectedFields()) {
        QLineEdit& typedInto = field(expected.name, expected.example);
        typedInto.clear();
        std::string typed;
        for (const QChar key : u"Käse 1"_s) {
            files.written.clear();
            type(typedInto, key);
            typed += QString(key).toStdString();
            EXPECT_EQ((profile.*expected.property).get(), typed);
            EXPECT_EQ(files.written, std::vector<std::string>{"profile.json"});
            EXPECT_THAT(readFile(profileFile()),
                        HasSubstr(std::string("\"") + expected.key + "\": \"" + typed + "\""));
        }
    }
}

TEST_F(ProfileScreenTest, whatWasTypedIsThereAtTheNextStart) {
    open();
    type(field(u"IBAN"_s), u"DE89 3704"_s);
    type(field(u"Ort"_s, u"Musterstadt"_s), u"Köln"_s);
    const UserProfile next({files, defaults, log, nullptr});
    EXPECT_EQ(next.iban.get(), "DE89 3704");
    EXPECT_EQ(next.city.get(), "Köln");
}

TEST_F(ProfileScreenTest, typingInTheMiddleKeepsTheCursorThere) {
    profile.companyName = "Blau Gelb";
    open();
    QLineEdit& company = field(u"Firma"_s);
    company.setFocus();
    company.setCursorPosition(4);
    for (const QChar key : u" & Rot"_s) {
        type(company, key);
        settle();
    }
    EXPECT_EQ(company.text(), u"Blau & Rot Gelb"_s);
    EXPECT_EQ(company.cursorPosition(), 10);
}

TEST_F(ProfileScreenTest, aLongTextIsReadFromItsBeginningWhereNobodyWrites) {
    profile.companyName = std::string(100, 'w');
    open();
    EXPECT_EQ(field(u"Firma"_s).cursorPosition(), 0);
}

TEST_F(ProfileScreenTest, postalCodeAndTownStandSideBySide) {
    open();
    const QRect code(field(u"PLZ"_s, u"12345"_s).mapTo(screen.get(), QPoint()),
                     field(u"PLZ"_s, u"12345"_s).size());
    const QRect town(field(u"Ort"_s, u"Musterstadt"_s).mapTo(screen.get(), QPoint()),
                     field(u"Ort"_s, u"Musterstadt"_s).size());
    EXPECT_EQ(code.width(), 80);
    EXPECT_EQ(code.top(), town.top());
    EXPECT_GT(town.left(), code.right());
    EXPECT_EQ(town.left() + town.width(),
              field(u"Land"_s).mapTo(screen.get(), QPoint()).x() + field(u"Land"_s).width());
}

TEST_F(ProfileScreenTest, tabGoesThroughTheFormInReadingOrderAndKeepsTheFocusInView) {
    keepLogo(10, 10);
    open();
    std::vector<QString> reached;
    button(u"Logo auswählen"_s).setFocus(Qt::TabFocusReason);
    for (std::size_t count = 0; count < expectedFields().size() + 1; ++count) {
        QTest::keyClick(screen->focusWidget(), Qt::Key_Tab);
        QWidget* const focused = screen->focusWidget();
        reached.push_back(accessibleNameOf(*focused));
        const QRect seen(focused->mapTo(screen.get(), QPoint()), focused->size());
        EXPECT_TRUE(screen->rect().contains(seen))
            << reached.back().toStdString() << ' ' << seen.top() << " to " << seen.bottom();
    }
    std::vector<QString> expected{u"Logo entfernen"_s};
    for (const Expected& each : expectedFields())
        expected.push_back(each.name);
    EXPECT_EQ(reached, expected);
}

TEST_F(ProfileScreenTest, scrollsDownwardsOnly) {
    open();
    const auto* const area = screen->findChild<QScrollArea*>();
    EXPECT_GT(area->widget()->height(), area->viewport()->height());
    EXPECT_EQ(area->widget()->width(), 370);
}

TEST_F(ProfileScreenTest, theLogoIsShrunkIntoItsBoxWithoutLosingItsShape) {
    open();
    const std::vector<std::pair<QSize, QSize>> sizes{{{800, 200}, {200, 50}},
                                                     {{200, 800}, {25, 100}},
                                                     {{800, 800}, {100, 100}},
                                                     {{200, 100}, {200, 100}},
                                                     // Enlarged, it would look worse than on paper.
                                                     {{30, 20}, {30, 20}}};
    for (const auto& [kept, seen] : sizes) {
        keepLogo(kept.width(), kept.height());
        EXPECT_EQ(sizeOnPlate(), seen) << kept.width() << " x " << kept.height();
    }
}

/// Remembers how large the last picture was decoded.
class MeasuringImages final : public Images {
public:
    [[nodiscard]] Result<Bitmap> read(const std::filesystem::path& file,
                                      const SizeRule& rule) const override {
        return m_images.read(file, rule);
    }

    [[nodiscard]] Result<Bitmap> decode(std::string_view bytes, const SizeRule& rule) const override {
        auto decoded = m_images.decode(bytes, rule);
        decodedSize = decoded.value().size;
        return decoded;
    }

    [[nodiscard]] Result<std::string> encodePng(const Bitmap& picture) const override {
        return m_images.encodePng(picture);
    }

    mutable PixelSize decodedSize;

private:
    QtImages m_images;
};

TEST_F(ProfileScreenTest, theLogoIsDecodedForTwiceItsBoxWhateverItsSize) {
    const MeasuringImages measuring;
    LogoPlate shown(measuring);
    for (const auto& [kept, decoded] : std::vector<std::pair<QSize, PixelSize>>{
             {{4000, 1000}, {400, 100}}, {{1000, 4000}, {50, 200}}, {{4000, 4000}, {200, 200}}}) {
        QImage logo(kept, QImage::Format_RGB32);
        logo.fill(Qt::darkBlue);
        shown.setLogo(encoded(logo, "PNG"));
        EXPECT_EQ(measuring.decodedSize, decoded) << kept.width() << " x " << kept.height();
    }
}

TEST_F(ProfileScreenTest, theLogoStandsOnWhiteInTheDarkSchemeToo) {
    applyColorScheme(ColorScheme::dark);
    keepLogo(100, 100);
    open();
    EXPECT_TRUE(looksLike(picture(plate()).pixelColor(10, 56), Qt::white));
    EXPECT_EQ(accessibleNameOf(plate()), u"Firmenlogo"_s);
}

TEST_F(ProfileScreenTest, bytesThatAreNoImageShowNoLogo) {
    profile.logoData = "Das ist kein Bild.";
    open();
    EXPECT_TRUE(labels().contains(u"Kein Logo"_s));
    keepLogo(10, 10);
    EXPECT_FALSE(labels().contains(u"Kein Logo"_s));
}

TEST_F(ProfileScreenTest, aChosenLogoIsShownAndRemovedWithItsFile) {
    open();
    button(u"Logo auswählen"_s).click();
    EXPECT_EQ(picker.titles, std::vector<std::string>{"Logo auswählen"});
    picker.pending(encoded(fourQuarters(300, 200), "PNG"));
    settle();
    EXPECT_EQ(picker.closings, 1);
    EXPECT_EQ(accessibleNameOf(plate()), u"Firmenlogo"_s);
    EXPECT_TRUE(files.exists(folder() / "userLogo.png"));
    button(u"Logo entfernen"_s).click();
    settle();
    EXPECT_TRUE(labels().contains(u"Kein Logo"_s));
    EXPECT_FALSE(files.exists(folder() / "userLogo.png"));
    EXPECT_EQ(log.lines.back(), "Logo-Datei gelöscht");
}

TEST_F(ProfileScreenTest, aLogoCanBeRemovedOnlyWhileThereIsOne) {
    open();
    EXPECT_FALSE(button(u"Logo entfernen"_s).isEnabled());
    keepLogo(10, 10);
    EXPECT_TRUE(button(u"Logo entfernen"_s).isEnabled());
    profile.logoData = "Das ist kein Bild.";
    settle();
    EXPECT_TRUE(button(u"Logo entfernen"_s).isEnabled());
    profile.logoData = std::nullopt;
    settle();
    EXPECT_FALSE(button(u"Logo entfernen"_s).isEnabled());
}

TEST_F(ProfileScreenTest, aFolderThatCannotBeWrittenCostsOneLineATryAndNothingElse) {
    open();
    files.writesFail = true;
    type(field(u"Firma"_s), u"Blau"_s);
    settle();
    EXPECT_EQ(log.lines.size(), 4U);
    EXPECT_THAT(log.lines, Each(StartsWith("Error saving profile data: ")));
    EXPECT_EQ(profile.companyName.get(), "Blau");
    EXPECT_EQ(field(u"Firma"_s).text(), u"Blau"_s);
    files.writesFail = false;
    type(field(u"Firma"_s), u"!"_s);
    EXPECT_EQ(log.lines.size(), 4U);
    EXPECT_THAT(readFile(profileFile()), HasSubstr("Blau!"));
}

TEST_F(ProfileScreenTest, withoutAHomeTheScreenStillWorks) {
    open();
    files.hasHome = false;
    type(field(u"BIC"_s), u"X"_s);
    EXPECT_EQ(log.lines, std::vector<std::string>{
                             "Error saving profile data: no application support folder: HOME is not set"});
    EXPECT_EQ(profile.bic.get(), "X");
}

TEST_F(ProfileScreenTest, whatCameOverSeveralLinesIsShownOnOneAndLeftAlone) {
    profile.address = "Gasse 1\nHinterhaus";
    files.written.clear();
    open();
    EXPECT_EQ(field(u"Adresse"_s).text(), u"Gasse 1 Hinterhaus"_s);
    EXPECT_EQ(profile.address.get(), "Gasse 1\nHinterhaus");
    EXPECT_THAT(files.written, IsEmpty());
}

} // namespace
} // namespace brisklog::test
