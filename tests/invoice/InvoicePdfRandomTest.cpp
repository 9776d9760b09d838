#include "invoice/RandomTexts.h"
#include "invoice/SampleInvoice.h"
#include "support/PdfPlaces.h"

#include <array>
#include <gmock/gmock.h>

namespace brisklog::test {
namespace {

using namespace std::string_literals;

std::string separator(Chance& chance) {
    static const std::array separators{" "s,    " "s,  " "s,      " "s,   "\n"s,
                                       "\r\n"s, "\t"s, "\n\n\n"s, "   "s, "\r"s};
    return chance.oneOf(separators);
}

std::string markOf(int number) { return "Q" + std::to_string(10000 + number) + "Z"; }

/// Notes with numbered marks between the pieces, each mark a separate word.
std::string notesWith(int marks, Chance& chance) {
    std::string notes;
    for (int i = 0; i < marks; ++i)
        notes += separator(chance) + randomPiece(chance) + separator(chance) + markOf(i);
    return notes;
}

SampleInvoice invoiceOf(Chance& chance, int marks) {
    SampleInvoice invoice;
    invoice.invoiceNumber = randomLine(chance, 3);
    invoice.entries = randomEntries(chance);
    invoice.project.hourlyRate = randomAmount(chance);
    if (chance.oneIn(3))
        invoice.customer.reset();
    else
        for (std::string* field : {&invoice.customer->firstName, &invoice.customer->name,
                                   &invoice.customer->company, &invoice.customer->city})
            if (chance.oneIn(3))
                *field = randomLine(chance, 4);
    UserProfile& sender = invoice.sender;
    for (auto* field : {&sender.fullName, &sender.address, &sender.phone, &sender.taxId, &sender.vatId,
                        &sender.bankName, &sender.iban})
        if (chance.oneIn(4))
            *field = randomLine(chance, 6);
    if (chance.oneIn(2))
        sender.logoData = randomLogo(chance);
    invoice.notes = notesWith(marks, chance);
    return invoice;
}

/// How often each mark occurs in the text.
std::vector<int> countMarks(const std::string& text, int marks) {
    std::vector<int> counts;
    for (int i = 0; i < marks; ++i) {
        const std::string mark = markOf(i);
        int count = 0;
        for (std::size_t at = 0; (at = text.find(mark, at)) != std::string::npos; ++at)
            ++count;
        counts.push_back(count);
    }
    return counts;
}

TEST(InvoicePdfRandom, whateverIsTypedNoWordOfTheNotesIsLostOrPrintedOver) {
    for (int seed = firstRandomSeed(); seed < firstRandomSeed() + randomDocumentCount(); ++seed) {
        SCOPED_TRACE(seed);
        Chance chance(static_cast<unsigned>(seed));
        const int marks = 1 + chance.below(chance.oneIn(3) ? 200 : 12);
        const SampleInvoice invoice = invoiceOf(chance, marks);
        const PdfReader pdf(invoice.document());
        EXPECT_EQ(pdf.complaints(), "");
        EXPECT_EQ(countMarks(pdf.copiedText(), marks), std::vector<int>(static_cast<std::size_t>(marks), 1));
        expectNothingPrintedOver(pdf);
        if (HasFailure())
            break;
    }
}

} // namespace
} // namespace brisklog::test
