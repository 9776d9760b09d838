// The profile form as a person sees it.

#include "screens/Pictures.h"
#include "screens/profile/ProfileScreenBench.h"
#include "support/SamplePictures.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

class ProfilePictures : public ProfileScreenBench {
protected:
    static constexpr QPoint ground{3, 3};

    void fillIn() {
        profile.companyName = "Bergström Gestaltung GmbH";
        profile.fullName = "Käthe Bergström";
        profile.address = "Große Elbstraße 145 b";
        profile.postalCode = "22767";
        profile.city = "Hamburg";
        profile.email = "post@bergstroem.example";
        profile.taxOffice = "Finanzamt Hamburg-Altona";
        profile.vatId = "DE123456789";
        profile.iban = "DE89 3704 0044 0532 0130 00";
    }

    static std::string wideLogo() {
        QImage logo(600, 200, QImage::Format_ARGB32);
        logo.fill(Qt::transparent);
        QPainter painter(&logo);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setBrush(QColor(0xC4, 0x54, 0x2D));
        painter.setPen(Qt::NoPen);
        painter.drawEllipse(20, 20, 160, 160);
        painter.setPen(QColor(0x19, 0x1D, 0x27));
        QFont font = painter.font();
        font.setPixelSize(72);
        painter.setFont(font);
        painter.drawText(QRect(200, 0, 400, 200), Qt::AlignCenter, u"Bergström"_s);
        painter.end();
        return encoded(logo, "PNG");
    }

    /// Shows the whole form, as if the window were that high.
    void openWhole() {
        open();
        constexpr int wholeHeight = 1043;
        screen->resize(sectionSize.width(), wholeHeight);
        settle();
    }
};

TEST_F(ProfilePictures, filledIn) {
    fillIn();
    profile.logoData = wideLogo();
    openWhole();
    takePictures(*screen, u"profil"_s, ground);
}

TEST_F(ProfilePictures, empty) {
    openWhole();
    takePictures(*screen, u"profil-leer"_s, ground);
}

TEST_F(ProfilePictures, longTexts) {
    profile.companyName = "Donaudampfschifffahrtsgesellschaft, Abteilung für Fahrplanauskünfte";
    profile.city = "Hellschen-Heringsand-Unterschaar";
    profile.postalCode = "25764 (DE)";
    open();
    takePictures(*screen, u"profil-lang"_s, ground);
}

} // namespace
} // namespace brisklog::test
