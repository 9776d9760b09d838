#include "ui/look/Typography.h"

#include <QFont>
#include <QStringList>
#include <array>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

struct Face {
    int size;
    int line;
    QFont::Weight weight;
};

Face faceOf(FontRole role) {
    switch (role) {
    case FontRole::figure22:
        return {22, 28, QFont::DemiBold};
    case FontRole::figure22Bold:
        return {22, 28, QFont::Bold};
    case FontRole::title17:
        return {17, 24, QFont::DemiBold};
    case FontRole::heading15:
        return {15, 20, QFont::DemiBold};
    case FontRole::body13:
        return {13, 18, QFont::Normal};
    case FontRole::body13Medium:
        return {13, 18, QFont::Medium};
    case FontRole::body13Semibold:
        return {13, 18, QFont::DemiBold};
    case FontRole::body13Bold:
        return {13, 18, QFont::Bold};
    case FontRole::tab12:
        return {12, 16, QFont::Normal};
    case FontRole::tab12Medium:
        return {12, 16, QFont::Medium};
    case FontRole::tab12Semibold:
        return {12, 16, QFont::DemiBold};
    case FontRole::tab12Bold:
        return {12, 16, QFont::Bold};
    case FontRole::caption11:
        return {11, 14, QFont::Normal};
    case FontRole::caption11Medium:
        return {11, 14, QFont::Medium};
    case FontRole::caption11Semibold:
        return {11, 14, QFont::DemiBold};
    }
    return {13, 18, QFont::Normal};
}

constexpr std::size_t roleCount = static_cast<std::size_t>(FontRole::caption11Semibold) + 1;

QFont makeFont(FontRole role) {
    const Face face = faceOf(role);
    QFont font;
    font.setFamilies(QStringList{u"Inter"_s, u"Liberation Sans"_s, u"DejaVu Sans"_s, u"sans-serif"_s});
    font.setPixelSize(face.size);
    font.setWeight(face.weight);
    return font;
}

} // namespace

const QFont& fontFor(FontRole role) {
    static const auto fonts = [] {
        std::array<QFont, roleCount> made;
        for (std::size_t i = 0; i < roleCount; ++i)
            made[i] = makeFont(static_cast<FontRole>(i));
        return made;
    }();
    return fonts[static_cast<std::size_t>(role)];
}

int lineHeight(FontRole role) { return faceOf(role).line; }

} // namespace brisklog
