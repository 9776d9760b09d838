#include "invoice/RandomTexts.h"

#include "invoice/SampleInvoice.h"
#include "support/PdfPictures.h"

#include <array>
#include <cstdlib>

namespace brisklog::test {
namespace {

using namespace std::string_literals;

std::string repeated(const std::string& text, int count) {
    std::string all;
    for (int i = 0; i < count; ++i)
        all += text;
    return all;
}

int fromEnvironment(const char* name, int otherwise) {
    const char* const value = std::getenv(name);
    return value != nullptr ? static_cast<int>(std::strtol(value, nullptr, 10)) : otherwise;
}

} // namespace

std::string randomPiece(Chance& chance) {
    static const std::array pieces{"Leistung"s,
                                   "für"s,
                                   "Überarbeitung"s,
                                   "§ 19 UStG"s,
                                   "1.234,50 €"s,
                                   "„Anführung“"s,
                                   "日本語の文章"s,
                                   "한국어"s,
                                   "Привет"s,
                                   "Ωμέγα"s,
                                   "שלום עולם"s,
                                   "مرحبا بالعالم"s,
                                   "हिन्दी"s,
                                   "ไทย"s,
                                   "😀"s,
                                   "👩‍👧"s,
                                   "🏳️‍🌈"s,
                                   "e\u0301\u0302"s,
                                   "\u200B"s,
                                   "\u00AD"s,
                                   "\uFEFF"s,
                                   "\uFFFE"s,
                                   "\U000F0000"s,
                                   "\xFF"s,
                                   "\xC3"s,
                                   "\xED\xA0\x80"s,
                                   "\0"s,
                                   "\x1B[0m"s,
                                   "\x7F"s,
                                   "\u0085"s,
                                   "<b>"s,
                                   "(endobj)"s,
                                   "\\"s,
                                   "fi ffl"s,
                                   "-> <= !="s,
                                   "\u2067abc\u2069"s};
    if (chance.oneIn(12))
        return repeated(chance.oneOf(pieces), 1 + chance.below(300));
    if (chance.oneIn(12))
        return repeated("x", 1 + chance.below(3000));
    return chance.oneOf(pieces);
}

std::string randomLine(Chance& chance, int pieces) {
    std::string line;
    for (int i = chance.below(pieces + 1); i > 0; --i)
        line += randomPiece(chance) + (chance.oneIn(2) ? " " : "");
    return line;
}

std::string randomLogo(Chance& chance) {
    const int width = 1 + chance.below(300);
    const int height = 1 + chance.below(300);
    std::string bytes = chance.oneIn(2) ? pngImage(width, height) : jpegImage(width, height);
    if (chance.oneIn(3))
        bytes.resize(static_cast<std::size_t>(chance.below(static_cast<int>(bytes.size()))));
    for (int damage = chance.oneIn(2) ? chance.below(20) : 0; damage > 0 && !bytes.empty(); --damage)
        bytes[static_cast<std::size_t>(chance.below(static_cast<int>(bytes.size())))] =
            static_cast<char>(chance.below(256));
    return bytes;
}

double randomAmount(Chance& chance) {
    static const std::array amounts{0.0, 1.0, 85.5, 1e5, 1e9, 1e15, -40.0, 0.005, 1e300};
    return chance.oneOf(amounts);
}

std::vector<TimeEntry> randomEntries(Chance& chance) {
    std::vector<TimeEntry> entries;
    for (int i = chance.below(chance.oneIn(4) ? 60 : 14); i > 0; --i) {
        entries.push_back(billedEntry(randomLine(chance, 5), chance.below(100000), chance.below(5000)));
        if (chance.oneIn(5))
            entries.back().hourlyRate = randomAmount(chance);
    }
    return entries;
}

int randomDocumentCount() { return fromEnvironment("BRISKLOG_RANDOM_DOCUMENTS", 40); }

int firstRandomSeed() { return fromEnvironment("BRISKLOG_RANDOM_SEED", 1); }

} // namespace brisklog::test
