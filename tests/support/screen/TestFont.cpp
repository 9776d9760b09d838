#include "support/screen/TestFont.h"

#include <QFile>
#include <QString>
#include <array>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

constexpr int unitsPerEm = 1000;
constexpr int ascent = 969;
constexpr int descent = 241;
constexpr int boxTop = 650;
constexpr int boxGap = 60;

struct Weight {
    int value;
    const char* name;
    /// How much wider than regular, in thousandths.
    int widening;
};

constexpr std::array weights{Weight{400, "Regular", 0}, Weight{500, "Medium", 17},
                             Weight{600, "SemiBold", 34}, Weight{700, "Bold", 52}};

struct Range {
    char16_t first;
    char16_t last;
};

/// What our texts are written with: Latin letters, punctuation, the euro sign and the minus sign.
constexpr std::array characters{Range{0x20, 0x17F}, Range{0x2010, 0x203A}, Range{0x20AC, 0x20AC},
                                Range{0x2212, 0x2212}};

/// Inter's widths from the space to the tilde.
constexpr std::array<int, 95> asciiWidths{
    281, 278, 403, 631, 638, 813, 639, 222, 362, 362, 500, 659, 280, 460, 276, 357, 625, 464, 605,
    636, 642, 608, 624, 571, 616, 624, 276, 280, 659, 659, 659, 507, 936, 676, 651, 727, 719, 598,
    587, 743, 740, 264, 543, 652, 563, 889, 753, 761, 635, 761, 639, 638, 642, 741, 676, 949, 642,
    665, 625, 362, 357, 362, 469, 452, 497, 564, 621, 558, 621, 582, 361, 609, 591, 237, 237, 544,
    237, 869, 585, 597, 609, 609, 372, 523, 364, 581, 557, 813, 540, 557, 541, 362, 327, 362, 659};

int regularWidth(char16_t character) {
    switch (character) {
    case u'\u00A0':
        return asciiWidths[0];
    case u'ß':
        return 609;
    case u'€':
        return 665;
    case u'–':
        return 500;
    case u'…':
        return 821;
    case u'„':
    case u'“':
        return 381;
    case u'·':
        return 276;
    default:
        break;
    }
    const QString parts = QChar(character).decomposition();
    const char16_t base = parts.isEmpty() ? character : parts[0].unicode();
    return base >= u' ' && base <= u'~' ? asciiWidths[base - u' '] : 600;
}

/// Numbers as font files hold them: most significant byte first.
class FontBytes {
public:
    FontBytes& add16(int value) {
        bytes += static_cast<char>(value >> 8);
        bytes += static_cast<char>(value);
        return *this;
    }

    FontBytes& add16(std::initializer_list<int> values) {
        for (const int value : values)
            add16(value);
        return *this;
    }

    FontBytes& add32(std::uint32_t value) {
        return add16(static_cast<int>(value >> 16)).add16(static_cast<int>(value & 0xFFFF));
    }

    FontBytes& zeros(std::size_t count) {
        bytes.append(count, '\0');
        return *this;
    }

    std::string bytes;
};

std::uint32_t sizeOf(const std::string& bytes) { return static_cast<std::uint32_t>(bytes.size()); }

std::string boxGlyph(int width) {
    constexpr int onCurve = 0x0101;
    FontBytes glyph;
    glyph.add16({1, boxGap, 0, width - boxGap, boxTop, 3, 0, onCurve, onCurve});
    glyph.add16({boxGap, 0, width - 2 * boxGap, 0, 0, boxTop, 0, -boxTop});
    return glyph.zeros(2).bytes;
}

/// A font file in the making.
class FontFile {
public:
    explicit FontFile(const Weight& weight) : m_weight(weight) {
        addGlyph(600, boxGlyph(600));
        for (const auto& [first, last] : characters)
            for (char16_t character = first; character <= last; ++character)
                addCharacter(character);
        m_places.add32(sizeOf(m_outlines.bytes));
    }

    [[nodiscard]] std::string bytes() const {
        // In alphabetical order.
        const std::vector<std::pair<std::string, std::string>> tables{
            {"OS/2", style()},          {"cmap", characterMap()},
            {"glyf", m_outlines.bytes}, {"head", head()},
            {"hhea", lines()},          {"hmtx", m_widths.bytes},
            {"loca", m_places.bytes},   {"maxp", limits()},
            {"name", names()},          {"post", FontBytes().add32(0x00030000).zeros(28).bytes}};
        FontBytes directory;
        directory.add32(0x00010000).add16({static_cast<int>(tables.size()), 128, 3, 32});
        std::string content;
        const std::uint32_t start = 12 + 16 * static_cast<std::uint32_t>(tables.size());
        for (const auto& [tag, table] : tables) {
            directory.bytes += tag;
            directory.add32(0).add32(start + sizeOf(content)).add32(sizeOf(table));
            content += table;
            content.append((4 - table.size() % 4) % 4, '\0');
        }
        return directory.bytes + content;
    }

private:
    void addCharacter(char16_t character) {
        const int width = regularWidth(character) * (1000 + m_weight.widening) / 1000;
        const bool isBlank = character == u' ' || character == u'\u00A0';
        addGlyph(width, isBlank ? std::string() : boxGlyph(width));
    }

    void addGlyph(int width, const std::string& outline) {
        m_places.add32(sizeOf(m_outlines.bytes));
        m_outlines.bytes += outline;
        m_widths.add16({width, 0});
        ++m_count;
    }

    [[nodiscard]] std::string style() const {
        FontBytes table;
        table.add16({4, 560, m_weight.value, 5}).zeros(2 + 20 + 2 + 10);
        // Latin and its additions, punctuation, currency signs.
        table.add32(0x00000007).add32(0x00000002).zeros(8 + 4);
        table.add16({0x40, 0x20, 0x2212, ascent, -descent, 0, ascent, descent});
        return table.zeros(8).add16({545, 727, 0, 0x20, 1}).bytes;
    }

    [[nodiscard]] static std::string characterMap() {
        FontBytes table;
        const auto groups = static_cast<std::uint32_t>(characters.size());
        table.add16({0, 1, 3, 10}).add32(12);
        table.add16({12, 0}).add32(16 + 12 * groups).add32(0).add32(groups);
        std::uint32_t glyph = 1;
        for (const auto& [first, last] : characters) {
            table.add32(first).add32(last).add32(glyph);
            glyph += static_cast<std::uint32_t>(last - first) + 1;
        }
        return table.bytes;
    }

    [[nodiscard]] static std::string head() {
        FontBytes table;
        table.add32(0x00010000).add32(0x00010000).add32(0).add32(0x5F0F3CF5);
        table.add16({3, unitsPerEm}).zeros(16).add16({0, 0, unitsPerEm, boxTop, 0, 8, 2});
        return table.add16({1, 0}).bytes;
    }

    [[nodiscard]] std::string lines() const {
        FontBytes table;
        table.add32(0x00010000).add16({ascent, -descent, 0, unitsPerEm, 0, 0, unitsPerEm, 1});
        return table.zeros(14).add16(m_count).bytes;
    }

    [[nodiscard]] std::string limits() const {
        FontBytes table;
        table.add32(0x00010000).add16({m_count, 4, 1, 0, 0, 1});
        return table.zeros(16).bytes;
    }

    [[nodiscard]] std::string names() const {
        const std::string family = "Inter";
        const std::string style = m_weight.name;
        constexpr int macintosh = 1;
        const auto entry = [](FontBytes& table, int id, const std::string& text, std::size_t offset) {
            table.add16({macintosh, 0, 0, id, static_cast<int>(text.size()), static_cast<int>(offset)});
        };
        FontBytes table;
        table.add16({0, 2, 6 + 2 * 12});
        entry(table, 1, family, 0);
        entry(table, 2, style, family.size());
        return table.bytes + family + style;
    }

    Weight m_weight;
    int m_count = 0;
    FontBytes m_outlines;
    FontBytes m_places;
    FontBytes m_widths;
};

void write(const QString& path, const std::string& bytes) {
    QFile file(path);
    if (!file.open(QFile::WriteOnly) || file.write(bytes.data(), static_cast<qint64>(bytes.size())) < 0)
        qFatal("cannot write %s", qPrintable(path));
}

} // namespace

TestFont::TestFont() {
    const QString folder = m_folder.path();
    for (const Weight& weight : weights)
        write(u"%1/Inter-%2.ttf"_s.arg(folder, QString::fromLatin1(weight.name)), FontFile(weight).bytes());
    const QString configuration = u"%1/fonts.conf"_s.arg(folder);
    write(configuration,
          u"<fontconfig><dir>%1</dir><cachedir>%1/cache</cachedir>"
          u"<match target=\"pattern\"><edit name=\"hinting\" mode=\"assign\"><bool>false</bool>"
          u"</edit></match></fontconfig>"_s.arg(folder)
              .toStdString());
    qputenv("FONTCONFIG_FILE", configuration.toUtf8());
}

} // namespace brisklog::test
