#include "support/screen/RoleNames.h"

#include "ui/look/Palette.h"
#include "ui/look/Typography.h"

#include <QFont>
#include <QStringList>
#include <array>
#include <cmath>
#include <cstdlib>
#include <utility>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

constexpr std::array fontRoles{
    std::pair{FontRole::figure22, "figure22"},
    std::pair{FontRole::figure22Bold, "figure22Bold"},
    std::pair{FontRole::title17, "title17"},
    std::pair{FontRole::heading15, "heading15"},
    std::pair{FontRole::body13, "body13"},
    std::pair{FontRole::body13Medium, "body13Medium"},
    std::pair{FontRole::body13Semibold, "body13Semibold"},
    std::pair{FontRole::body13Bold, "body13Bold"},
    std::pair{FontRole::tab12, "tab12"},
    std::pair{FontRole::tab12Medium, "tab12Medium"},
    std::pair{FontRole::tab12Semibold, "tab12Semibold"},
    std::pair{FontRole::tab12Bold, "tab12Bold"},
    std::pair{FontRole::caption11, "caption11"},
    std::pair{FontRole::caption11Medium, "caption11Medium"},
    std::pair{FontRole::caption11Semibold, "caption11Semibold"},
};

constexpr std::array colorRoles{
    std::pair{&Palette::ground, "ground"},
    std::pair{&Palette::card, "card"},
    std::pair{&Palette::field, "field"},
    std::pair{&Palette::text, "text"},
    std::pair{&Palette::secondary, "secondary"},
    std::pair{&Palette::placeholder, "placeholder"},
    std::pair{&Palette::control, "control"},
    std::pair{&Palette::controlUnderWhiteText, "controlUnderWhiteText"},
    std::pair{&Palette::line, "line"},
    std::pair{&Palette::rule, "rule"},
    std::pair{&Palette::blue, "blue"},
    std::pair{&Palette::blueFill, "blueFill"},
    std::pair{&Palette::green, "green"},
    std::pair{&Palette::greenFill, "greenFill"},
    std::pair{&Palette::orange, "orange"},
    std::pair{&Palette::orangeFill, "orangeFill"},
    std::pair{&Palette::red, "red"},
    std::pair{&Palette::redFill, "redFill"},
    std::pair{&Palette::primaryHovered, "primaryHovered"},
    std::pair{&Palette::primaryPressed, "primaryPressed"},
    std::pair{&Palette::tooltip, "tooltip"},
    std::pair{&Palette::tooltipText, "tooltipText"},
    std::pair{&Palette::chartBar, "chartBar"},
    std::pair{&Palette::white, "white"},
};

/// Symbols' colours come from blended pixels.
constexpr int tolerance = 2;

struct Pair {
    QColor light;
    QColor dark;
};

bool isSame(const QColor& shown, const QColor& wanted) {
    const auto isNear = [](int one, int other) { return std::abs(one - other) <= tolerance; };
    return !shown.isValid() || (isNear(shown.red(), wanted.red()) && isNear(shown.green(), wanted.green()) &&
                                isNear(shown.blue(), wanted.blue()));
}

bool isSame(const Pair& shown, const Pair& wanted) {
    return isSame(shown.light, wanted.light) && isSame(shown.dark, wanted.dark);
}

Pair colorsOf(ColorRole role) {
    return {Palette::of(ColorScheme::light).*role, Palette::of(ColorScheme::dark).*role};
}

int percentOf(const QColor& color) { return static_cast<int>(std::lround(color.alphaF() * 100)); }

QString withPercent(const QString& name, int percent) {
    return percent == 100 ? name : u"%1 %2%"_s.arg(name).arg(percent);
}

QString plainRole(const Pair& shown) {
    QStringList names;
    for (const auto& [role, name] : colorRoles)
        if (isSame(shown, colorsOf(role)))
            names << QString::fromLatin1(name);
    return names.join(u'|');
}

/// A translucent role over an opaque one.
QString blendedRole(const Pair& shown) {
    for (const ColorRole ground : {&Palette::card, &Palette::ground})
        for (const auto& [role, name] : colorRoles)
            for (const int percent : {5, 8, 10, 12, 16, 20, 50}) {
                const Pair over = colorsOf(role);
                const Pair below = colorsOf(ground);
                const double share = percent / 100.0;
                const Pair blended{blendedOver(withOpacity(over.light, share), below.light),
                                   blendedOver(withOpacity(over.dark, share), below.dark)};
                if (shown.light.rgb() == blended.light.rgb() && shown.dark.rgb() == blended.dark.rgb())
                    return u"%1 %2% on %3"_s.arg(QString::fromLatin1(name))
                        .arg(percent)
                        .arg(ground == &Palette::card ? u"card"_s : u"ground"_s);
            }
    return {};
}

/// In one scheme several roles can have the same colour.
QString inOneScheme(const QColor& color, const QString& role) {
    if (!color.isValid())
        return u"–"_s;
    return withPercent(role.isEmpty() ? color.name() : role, percentOf(color));
}

} // namespace

QString fontRoleName(const QFont& font) {
    for (const auto& [role, name] : fontRoles) {
        const QFont& candidate = fontFor(role);
        if (font.pixelSize() == candidate.pixelSize() && font.weight() == candidate.weight() &&
            font.families() == candidate.families() && font.style() == candidate.style())
            return QString::fromLatin1(name);
    }
    return u"%1 %2px %3"_s.arg(font.family()).arg(font.pixelSize()).arg(font.weight());
}

QString colorRoleName(const QColor& light, const QColor& dark) {
    const int percent = percentOf(light.isValid() ? light : dark);
    const bool isAlike = !light.isValid() || !dark.isValid() || percent == percentOf(dark);
    if (const QString role = plainRole({light, dark}); isAlike && !role.isEmpty())
        return withPercent(role, percent);
    if (const QString role = blendedRole({light, dark}); percent == 100 && !role.isEmpty())
        return role;
    const QString inLight = inOneScheme(light, plainRole({light, {}}));
    const QString inDark = inOneScheme(dark, plainRole({{}, dark}));
    return inLight == inDark ? inLight : u"%1/%2"_s.arg(inLight, inDark);
}

QString tableOfRoles() {
    QString table;
    for (const auto& [role, name] : fontRoles) {
        const QFont& font = fontFor(role);
        table += u"%1 %2/%3 %4\n"_s.arg(QString::fromLatin1(name), -21)
                     .arg(font.pixelSize())
                     .arg(lineHeight(role))
                     .arg(font.weight());
    }
    for (const auto& [role, name] : colorRoles) {
        const Pair colors = colorsOf(role);
        table +=
            u"%1 %2 %3\n"_s.arg(QString::fromLatin1(name), -21).arg(colors.light.name(), colors.dark.name());
    }
    return table;
}

} // namespace brisklog::test
