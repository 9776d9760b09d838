#include "invoice/SampleInvoice.h"
#include "support/PdfPictures.h"
#include "support/PdfReader.h"

#include <gmock/gmock.h>

namespace brisklog::test {
namespace {

using testing::HasSubstr;

/// An invoice with this text wherever a user can type.
SampleInvoice madeOf(const std::string& text) {
    SampleInvoice invoice;
    invoice.project.name = text;
    invoice.invoiceNumber = text;
    invoice.entries = {billedEntry(text, 0, 60), billedEntry("danach", 60, 60)};
    invoice.notes = text;
    for (std::string* field :
         {&invoice.customer->firstName, &invoice.customer->name, &invoice.customer->company,
          &invoice.customer->address, &invoice.customer->postalCode, &invoice.customer->city})
        *field = text;
    for (auto* field :
         {&invoice.sender.fullName, &invoice.sender.address, &invoice.sender.postalCode, &invoice.sender.city,
          &invoice.sender.phone, &invoice.sender.email, &invoice.sender.taxId, &invoice.sender.taxOffice,
          &invoice.sender.vatId, &invoice.sender.bankName, &invoice.sender.iban, &invoice.sender.bic})
        *field = text;
    return invoice;
}

/// Expects that nothing after the text was lost: the next row, the total and the last line of the footer.
void expectComplete(const PdfReader& pdf) {
    EXPECT_EQ(pdf.complaints(), "");
    EXPECT_EQ(pdf.information("Creator"), "Pennavo");
    EXPECT_TRUE(pdf.find("danach 1 h 0 min 80,00 € 80,00 €"));
    EXPECT_TRUE(pdf.find("Gesamtbetrag: 160,00 €", 1) || pdf.find("Gesamtbetrag: 160,00 €", 2));
    EXPECT_THAT(pdf.copiedText(), HasSubstr("BIC:"));
}

TEST(InvoicePdfHostile, brokenUtf8IsReplacedEverywhere) {
    const PdfReader pdf(madeOf("Gr\xFC\xDF"
                               "e")
                            .document());
    expectComplete(pdf);
    EXPECT_THAT(pdf.copiedText(), HasSubstr("Steuernummer:Gr\uFFFD\uFFFDe"));
    EXPECT_EQ(pdf.information("Author"), "Gr\uFFFD\uFFFDe");
}

TEST(InvoicePdfHostile, controlCharactersBecomeBlanks) {
    using namespace std::string_literals;
    const PdfReader pdf(madeOf("a\0b\x01"s + "c\x1B[31md\te\x7F" + "f").document());
    expectComplete(pdf);
    EXPECT_TRUE(pdf.find("Steuernummer: a b c [31md e f"));
}

TEST(InvoicePdfHostile, lineBreaksInSingleLinesBecomeBlanks) {
    const PdfReader pdf(madeOf("oben\nunten").document());
    expectComplete(pdf);
    EXPECT_TRUE(pdf.find("Rechnungsnummer: oben unten"));
    EXPECT_TRUE(pdf.find("IBAN: oben unten"));
    EXPECT_TRUE(pdf.find("oben unten 1 h 0 min"));
}

TEST(InvoicePdfHostile, hebrewAndArabicAreDrawnWhole) {
    for (const char* word : {"שלום", "مرحبا"}) {
        const PdfReader pdf(madeOf(word).document());
        expectComplete(pdf);
        const std::string text = pdf.readText();
        int places = 0;
        for (std::size_t at = 0; (at = text.find(word, at)) != std::string::npos; ++at)
            ++places;
        EXPECT_GE(places, 10) << word;
    }
}

TEST(InvoicePdfHostile, emojiCanBeCopiedWhetherOrNotAFontHasThem) {
    const PdfReader pdf(madeOf("😀🦄👩‍👧").document());
    expectComplete(pdf);
    EXPECT_THAT(pdf.copiedText(), HasSubstr("Steuernummer:😀🦄👩"));
}

TEST(InvoicePdfHostile, marksThatTurnTheDirectionStayInTheirLine) {
    const PdfReader pdf(madeOf("\u202Eabc\u2066def").document());
    expectComplete(pdf);
    EXPECT_TRUE(pdf.find("vielen Dank für Ihren Auftrag und Ihr Vertrauen."));
}

TEST(InvoicePdfHostile, towersOfAccentsAndInvisibleCharactersDoNoHarm) {
    std::string text = "a";
    for (int i = 0; i < 500; ++i)
        text += "\u0301\u200B\u00AD";
    expectComplete(PdfReader(madeOf(text).document()));
}

TEST(InvoicePdfHostile, endlessTextsEverywhereGiveASoundDocument) {
    const PdfReader pdf(madeOf(std::string(100'000, 'm')).document());
    expectComplete(pdf);
}

TEST(InvoicePdfHostile, markupAndPdfSyntaxAreOnlyText) {
    const std::string text = "<b>&amp;</b> (endstream) \\) Tj";
    const PdfReader pdf(madeOf(text).document());
    expectComplete(pdf);
    EXPECT_THAT(pdf.copiedText(), HasSubstr("IBAN:" + withoutBlanks(text)));
    EXPECT_EQ(pdf.information("Author"), text);
}

TEST(InvoicePdfHostile, aLogoOfFourHundredMillionPixelsIsLeftOut) {
    SampleInvoice invoice = madeOf("x");
    invoice.sender.logoData = hugePng();
    const PdfReader pdf(invoice.document());
    expectComplete(pdf);
    EXPECT_TRUE(pdf.images().empty());
}

} // namespace
} // namespace brisklog::test
