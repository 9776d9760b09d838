#include "platform/documents/CairoPdfCharacters.h"

#include <QString>
#include <algorithm>

namespace brisklog {
namespace {

enum class LineBreaks { becomeBlanks, kept };

bool isPlainAscii(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return c >= 0x20 && c < 0x7F; });
}

bool isLineBreak(char32_t c) {
    return c == '\n' || c == '\r' || c == 0x85 || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
}

bool isControl(char32_t c) { return c < 0x20 || (c >= 0x7F && c < 0xA0); }

char32_t printable(char32_t c, LineBreaks breaks) {
    if (isLineBreak(c))
        return breaks == LineBreaks::kept ? U'\n' : U' ';
    if (isControl(c))
        return U' ';
    return QChar::isNonCharacter(c) ? char32_t{QChar::ReplacementCharacter} : c;
}

std::string printable(std::string_view text, LineBreaks breaks) {
    if (isPlainAscii(text))
        return std::string(text);
    QString decoded = QString::fromUtf8(text);
    decoded.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    std::u32string characters = decoded.toStdU32String();
    std::ranges::transform(characters, characters.begin(),
                           [breaks](char32_t c) { return printable(c, breaks); });
    return QString::fromStdU32String(characters).toStdString();
}

} // namespace

std::string printableLine(std::string_view text) { return printable(text, LineBreaks::becomeBlanks); }

std::string printableLines(std::string_view text) { return printable(text, LineBreaks::kept); }

} // namespace brisklog
