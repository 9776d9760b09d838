#include "support/screen/LineDifference.h"

#include <QStringList>
#include <algorithm>
#include <vector>

namespace brisklog::test {
namespace {

struct DiffLine {
    QChar sign;
    QString text;
};

/// lengths[i][j]: how many lines what is left of both from there on has in common.
using Lengths = std::vector<std::vector<int>>;

Lengths commonLengths(const QStringList& before, const QStringList& after) {
    const auto rows = static_cast<std::size_t>(before.size());
    const auto columns = static_cast<std::size_t>(after.size());
    Lengths lengths(rows + 1, std::vector<int>(columns + 1));
    for (std::size_t i = rows; i-- > 0;)
        for (std::size_t j = columns; j-- > 0;) {
            const bool isSame = before[static_cast<qsizetype>(i)] == after[static_cast<qsizetype>(j)];
            lengths[i][j] =
                isSame ? lengths[i + 1][j + 1] + 1 : std::max(lengths[i + 1][j], lengths[i][j + 1]);
        }
    return lengths;
}

std::vector<DiffLine> aligned(const QStringList& before, const QStringList& after) {
    const Lengths lengths = commonLengths(before, after);
    std::vector<DiffLine> lines;
    std::size_t i = 0;
    std::size_t j = 0;
    const auto rows = static_cast<std::size_t>(before.size());
    const auto columns = static_cast<std::size_t>(after.size());
    while (i < rows || j < columns) {
        const bool hasBoth = i < rows && j < columns;
        if (hasBoth && before[static_cast<qsizetype>(i)] == after[static_cast<qsizetype>(j)]) {
            lines.push_back({u' ', before[static_cast<qsizetype>(i)]});
            ++i;
            ++j;
        } else if (j == columns || (i < rows && lengths[i + 1][j] >= lengths[i][j + 1])) {
            lines.push_back({u'-', before[static_cast<qsizetype>(i++)]});
        } else {
            lines.push_back({u'+', after[static_cast<qsizetype>(j++)]});
        }
    }
    return lines;
}

qsizetype indentOf(const QString& line) {
    return std::ranges::find_if(line, [](QChar character) { return character != u' '; }) - line.begin();
}

} // namespace

QString difference(const QString& before, const QString& after) {
    QString shown;
    QStringList above;
    for (const auto& [sign, text] : aligned(before.split(u'\n'), after.split(u'\n'))) {
        while (!above.isEmpty() && indentOf(above.back()) >= indentOf(text))
            above.pop_back();
        if (sign == u' ') {
            above << text;
            continue;
        }
        for (const QString& line : std::exchange(above, {}))
            shown += QStringLiteral("  ") + line + u'\n';
        shown += sign + QStringLiteral(" ") + text + u'\n';
    }
    return shown;
}

} // namespace brisklog::test
