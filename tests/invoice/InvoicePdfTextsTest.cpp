#include "invoice/InvoiceGenerator.h"
#include "invoice/SampleInvoice.h"
#include "platform/documents/CairoPdfFacility.h"
#include "support/PdfPictures.h"
#include "support/PdfReader.h"

#include <gmock/gmock.h>
#include <limits>

namespace brisklog::test {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

/// The salutation's line on the sample invoice for a customer.
testing::AssertionResult greets(const std::optional<Customer>& customer, const std::string& greeting) {
    SampleInvoice invoice;
    invoice.customer = customer;
    const PdfReader pdf(invoice.document());
    return pdf.find(greeting) ? testing::AssertionSuccess()
                              : testing::AssertionFailure() << greeting << " is not in " << pdf.copiedText();
}

Customer customerOf(Gender gender, const std::string& name = "Muster") {
    Customer customer;
    customer.gender = gender;
    customer.firstName = "Toni";
    customer.name = name;
    return customer;
}

SampleInvoice withEntries(std::vector<TimeEntry> entries) {
    SampleInvoice invoice;
    invoice.entries = std::move(entries);
    return invoice;
}

TEST(InvoicePdf, isASoundA4DocumentThatNamesCreatorAndAuthor) {
    const PdfReader pdf(SampleInvoice().document());
    EXPECT_EQ(pdf.complaints(), "");
    EXPECT_EQ(pdf.pageCount(), 1);
    EXPECT_EQ(pdf.information("MediaBox"), "0.00     0.00   595.00   842.00");
    EXPECT_EQ(pdf.information("Creator"), "Pennavo");
    EXPECT_EQ(pdf.information("Author"), "Jürgen Schäfer-Größmann");
}

TEST(InvoicePdf, namesNoAuthorWhenTheSenderHasNoName) {
    SampleInvoice invoice;
    invoice.sender.fullName = "";
    const PdfReader pdf(invoice.document());
    EXPECT_EQ(pdf.information("Author"), std::nullopt);
    EXPECT_EQ(pdf.information("Creator"), "Pennavo");
}

TEST(InvoicePdf, greetsByGenderAndSurnameAlone) {
    EXPECT_TRUE(greets(customerOf(Gender::male), "Sehr geehrter Herr Muster,"));
    EXPECT_TRUE(greets(customerOf(Gender::female), "Sehr geehrte Frau Muster,"));
    EXPECT_TRUE(greets(customerOf(Gender::diverse), "Sehr geehrte(r) Muster,"));
    EXPECT_TRUE(greets(std::nullopt, "Sehr geehrte Damen und Herren,"));
}

TEST(InvoicePdf, aCustomerWithoutASurnameIsGreetedWithoutOne) {
    EXPECT_TRUE(greets(customerOf(Gender::female, ""), "Sehr geehrte Frau ,"));
}

TEST(InvoicePdf, isPayableFourteenCalendarDaysAfterItsDate) {
    SampleInvoice invoice;
    // 20 February 2028, noon: a leap year.
    invoice.now = Date{856353600};
    const PdfReader pdf(invoice.document());
    EXPECT_TRUE(pdf.find("Rechnungsdatum: 20. Februar 2028"));
    EXPECT_TRUE(pdf.find("Zahlbar bis: 5. März 2028"));
}

TEST(InvoicePdf, anEmptyInvoiceNumberIsPrintedEmpty) {
    SampleInvoice invoice;
    invoice.invoiceNumber = "";
    EXPECT_TRUE(PdfReader(invoice.document()).find("Rechnungsnummer:"));
}

TEST(InvoicePdf, ninetyMinutesAtEightyEurosAreAHundredAndTwenty) {
    const PdfReader pdf(withEntries({billedEntry("Entwurf", 0, 90)}).document());
    EXPECT_TRUE(pdf.find("Entwurf 1 h 30 min 80,00 € 120,00 €"));
    EXPECT_TRUE(pdf.find("Gesamtbetrag: 120,00 €"));
}

TEST(InvoicePdf, anEntrysOwnRateGoesBeforeTheProjects) {
    const PdfReader pdf(
        withEntries({billedEntry("Eigener", 0, 60, 95.5), billedEntry("Projekt", 60, 60)}).document());
    EXPECT_TRUE(pdf.find("Eigener 1 h 0 min 95,50 € 95,50 €"));
    EXPECT_TRUE(pdf.find("Projekt 1 h 0 min 80,00 € 80,00 €"));
    EXPECT_TRUE(pdf.find("Gesamtbetrag: 175,50 €"));
}

TEST(InvoicePdf, aRowWithoutAnyRateStaysAndCostsNothing) {
    SampleInvoice invoice = withEntries({billedEntry("Ehrenamt", 0, 60)});
    invoice.project.hourlyRate.reset();
    const PdfReader pdf(invoice.document());
    EXPECT_TRUE(pdf.find("Ehrenamt 1 h 0 min 0,00 € 0,00 €"));
    EXPECT_TRUE(pdf.find("Gesamtbetrag: 0,00 €"));
}

TEST(InvoicePdf, anUnfinishedEntryCountsUpToNow) {
    SampleInvoice invoice;
    TimeEntry running = billedEntry("Läuft noch", 0, 0);
    running.startTime = invoice.now.addingSeconds(-2 * 3600 - 59);
    running.endTime.reset();
    invoice.entries = {running};
    EXPECT_TRUE(PdfReader(invoice.document()).find("Läuft noch 2 h 0 min 80,00 € 161,31 €"));
}

TEST(InvoicePdf, theTotalIsTheSumOfTheExactAmounts) {
    // One minute at one euro an hour is 1.67 cents.
    const PdfReader pdf(withEntries({billedEntry("Minute 0", 0, 1, 1.0), billedEntry("Minute 1", 1, 1, 1.0),
                                     billedEntry("Minute 2", 2, 1, 1.0)})
                            .document());
    EXPECT_TRUE(pdf.find("Minute 0 0 h 1 min 1,00 € 0,02 €"));
    EXPECT_TRUE(pdf.find("Gesamtbetrag: 0,05 €"));
}

TEST(InvoicePdf, rowsAreSortedByStartAndEqualStartsKeepTheirOrder) {
    std::vector<TimeEntry> entries{billedEntry("spät", 500, 60)};
    std::vector<std::string> expected{"früh"};
    for (int i = 0; i < 40; ++i) {
        expected.push_back("Zugleich" + std::to_string(100 + i));
        entries.push_back(billedEntry(expected.back(), 60, 100 - i));
    }
    entries.push_back(billedEntry("früh", 0, 60));
    expected.emplace_back("spät");
    const PdfReader pdf(withEntries(entries).document());
    std::vector<std::string> names;
    for (const PdfWord& word : pdf.words())
        if (word.text.starts_with("Zugleich") || word.text == "früh" || word.text == "spät")
            names.push_back(word.text);
    EXPECT_EQ(names, expected);
}

TEST(InvoicePdf, withoutEntriesThereAreHeaderRulesAndNothingToPay) {
    const PdfReader pdf(withEntries({}).document());
    EXPECT_EQ(pdf.pageCount(), 1);
    EXPECT_TRUE(pdf.find("Beschreibung Dauer Stundensatz Betrag"));
    EXPECT_TRUE(pdf.find("Gesamtbetrag: 0,00 €"));
}

TEST(InvoicePdf, anEntryThatEndsBeforeItBeganIsNegative) {
    const PdfReader pdf(withEntries({billedEntry("Rückwärts", 100, -90)}).document());
    EXPECT_TRUE(pdf.find("Rückwärts -1 h 30 min 80,00 € -120,00 €"));
}

TEST(InvoicePdf, figuresThatAreNotFiniteAreWrittenAsNothing) {
    TimeEntry endless = billedEntry("Endlos", 0, 60);
    endless.endTime = Date{infinity};
    const PdfReader pdf(withEntries({endless, billedEntry("Unbezahlbar", 1, 60, infinity)}).document());
    EXPECT_TRUE(pdf.find("Endlos 0 h 0 min 80,00 € 0,00 €"));
    EXPECT_TRUE(pdf.find("Unbezahlbar 1 h 0 min 0,00 € 0,00 €"));
    EXPECT_TRUE(pdf.find("Gesamtbetrag: 0,00 €"));
}

TEST(InvoicePdf, aNumberTooLongForItsColumnCoversNoOther) {
    const PdfReader pdf(
        withEntries({billedEntry("Sehr lange Beschreibung einer sehr teuren Arbeit", 0, 60, 1e12),
                     billedEntry("Noch teurer", 100, 6e9, 1e300)})
            .document());
    EXPECT_TRUE(pdf.find("1 h 0 min 1.000.000.000.000,00 € 1.000.000.000.000,00 €"));
    const std::string text = pdf.copiedText();
    EXPECT_THAT(text, testing::HasSubstr(withoutBlanks("100000000 h 0 min1.000.000.000")));
    const auto& words = pdf.words();
    for (std::size_t i = 1; i < words.size(); ++i)
        if (words[i].box.page == words[i - 1].box.page && words[i].box.top - words[i - 1].box.top < 5) {
            EXPECT_LE(words[i - 1].box.right, words[i].box.left) << words[i - 1].text << " " << words[i].text;
        }
}

TEST(InvoicePdf, aLongTaskNameEndsInAnEllipsisBeforeTheNextColumn) {
    const PdfReader pdf(withEntries({billedEntry("Lang " + std::string(2000, 'x'), 0, 60)}).document());
    const auto row = pdf.find("Lang");
    ASSERT_TRUE(row);
    for (const PdfWord& word : pdf.words())
        if (word.text.starts_with("xxx")) {
            EXPECT_THAT(word.text, testing::EndsWith("…"));
            EXPECT_LE(word.box.right, 50 + 495 * 0.5 - 6 + 0.5);
        }
    EXPECT_TRUE(pdf.find("1 h 0 min 80,00 € 80,00 €"));
}

TEST(InvoicePdf, aSenderNameOfTwoLinesIsWrittenOnOne) {
    SampleInvoice invoice;
    invoice.sender.fullName = "Anna\nMaria";
    const PdfReader pdf(invoice.document());
    EXPECT_EQ(pdf.information("Author"), "Anna Maria");
    std::vector<double> tops;
    for (const PdfWord& word : pdf.words())
        if (word.text == "Anna" || word.text == "Maria")
            tops.push_back(word.box.top);
    ASSERT_EQ(tops.size(), 4U);
    EXPECT_DOUBLE_EQ(tops[0], tops[1]);
    EXPECT_DOUBLE_EQ(tops[2], tops[3]);
}

TEST(InvoicePdf, isMadeOfWhatTheProfileHolds) {
    SampleInvoice invoice;
    UserProfile& profile = invoice.sender;
    profile.fullName = "Vollname";
    profile.companyName = "Firmenname";
    profile.address = "Straße 1";
    profile.postalCode = "12345";
    profile.city = "Ort";
    profile.phone = "0123";
    profile.email = "a@b.example";
    profile.website = "www.example";
    profile.taxId = "S1";
    profile.taxOffice = "F1";
    profile.vatId = "U1";
    profile.bankName = "Bank1";
    profile.iban = "I1";
    profile.bic = "B1";
    profile.logoData = pngImage(10, 10);
    const PdfReader pdf(invoice.document());
    EXPECT_EQ(pdf.information("Author"), "Vollname");
    for (const char* const line :
         {"Vollname", "Straße 1", "12345 Ort", "0123", "a@b.example", "Steuernummer: S1", "Finanzamt: F1",
          "USt-IdNr.: U1", "Bank1", "IBAN: I1", "BIC: B1"})
        EXPECT_TRUE(pdf.find(line)) << line;
    ASSERT_EQ(pdf.images().size(), 1U);
    EXPECT_EQ(pdf.images()[0].width, 10);

    CairoPdfFacility facility;
    const PdfReader report(
        InvoiceGenerator(facility, profile, Calendar(QTimeZone("Europe/Berlin")), invoice.now)
            .generate(invoice.project));
    for (const char* const line : {"Firmenname", "Vollname", "Straße 1", "12345 Ort", "Tel: 0123",
                                   "E-Mail: a@b.example", "Web: www.example", "Steuernummer: S1",
                                   "USt-IdNr.: U1", "Bankverbindung: Bank1", "IBAN: I1", "BIC: B1"})
        EXPECT_TRUE(report.find(line)) << line;
    EXPECT_EQ(report.images().size(), 1U);
}

} // namespace
} // namespace brisklog::test
