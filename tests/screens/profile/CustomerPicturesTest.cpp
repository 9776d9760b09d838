// The customer screens as a person sees them.

#include "screens/Pictures.h"
#include "screens/profile/CustomerSheetWindow.h"

#include <QApplication>
#include <QTest>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

class CustomerPictures : public CustomerSheetWindow {
protected:
    static Customer customer(Gender gender, const std::string& firstName, const std::string& name,
                             const std::string& company) {
        Customer made = customerNamed(name, company);
        made.gender = gender;
        made.firstName = firstName;
        return made;
    }

    void fill() {
        Customer mueller =
            customer(Gender::male, "Jürgen", "Müller", "Müller & Söhne Möbelmanufaktur GmbH & Co. KG");
        mueller.address = "Königsallee 12";
        mueller.postalCode = "40212";
        mueller.city = "Düsseldorf";
        mueller.email = "j.mueller@moebel.example";
        mueller.phone = "+49 211 5550123";
        addCustomer(mueller);
        Customer groessmann = customer(Gender::female, "Dr. Änne", "Größmann", "Steuerberatung Größmann");
        groessmann.address = "Fürther Straße 98";
        groessmann.postalCode = "90429";
        groessmann.city = "Nürnberg";
        groessmann.email = "kanzlei@groessmann.example";
        groessmann.phone = "+49 911 5550177";
        groessmann.taxId = "218/5055/1234";
        addCustomer(groessmann);
        Customer oezdemir = customer(Gender::diverse, "Kim", "Özdemir", "");
        oezdemir.postalCode = "10969";
        oezdemir.city = "Berlin";
        oezdemir.email = "kim@oezdemir.example";
        addCustomer(oezdemir);
        Customer longest = mueller;
        longest.id = Uuid::generate();
        longest.firstName = "Prof. Dr. Dr. h. c. Maximiliane Leopoldine";
        longest.name = "von und zu Hohenlohe-Schillingsfürst";
        longest.company = "Bundesverband der Hersteller von Sonderanfertigungen für Messen und Ausstellungen";
        longest.address =
            "Straße des Zentralverbandes der Automobilindustrie 1234, Hinterhaus, 4. Stock links";
        addCustomer(longest);
        addCustomer(customer(Gender::male, "", "Dr. Jäger", "Praxis Dr. Jäger"));
    }

    static void take(QWidget& window, const QString& name) { takePictures(window, name, QPoint(3, 55)); }
};

TEST_F(CustomerPictures, none) {
    open();
    take(*sheet, u"kunden-leer"_s);
}

TEST_F(CustomerPictures, some) {
    fill();
    open();
    take(*sheet, u"kunden"_s);
}

TEST_F(CustomerPictures, ringAroundTheCurrentOne) {
    fill();
    open();
    QTest::keyClick(&list(), Qt::Key_Down);
    settle();
    take(*sheet, u"kunden-tastatur"_s);
}

TEST_F(CustomerPictures, formOfAnExistingOne) {
    fill();
    open();
    clickRow(1);
    take(*form(), u"kunde-bearbeiten"_s);
}

TEST_F(CustomerPictures, formOfANewOne) {
    open();
    click(*sheet, u"Neuer Kunde"_s);
    take(*form(), u"neuer-kunde"_s);
}

TEST_F(CustomerPictures, question) {
    fill();
    open();
    clickRow(1);
    click(*form(), u"Löschen"_s);
    take(*QApplication::activeModalWidget(), u"kunde-loeschen"_s);
}

} // namespace
} // namespace brisklog::test
