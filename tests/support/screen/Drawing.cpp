#include "support/screen/Drawing.h"

#include "support/screen/LineDifference.h"
#include "support/screen/RoleNames.h"
#include "support/screen/ScreenTest.h"
#include "support/screen/Strokes.h"
#include "ui/look/Palette.h"

#include <QAbstractScrollArea>
#include <QFile>
#include <algorithm>
#include <cxxabi.h>
#include <memory>
#include <typeinfo>
#include <utility>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

struct DrawnWidget {
    QString name;
    QRect place;
    std::vector<Stroke> strokes;
    std::vector<DrawnWidget> children{};
};

/// The class without its namespaces.
QString classOf(const QWidget& widget) {
    const std::unique_ptr<char, decltype(&std::free)> name(
        abi::__cxa_demangle(typeid(widget).name(), nullptr, nullptr, nullptr), &std::free);
    return QString::fromLatin1(name.get()).section(u"::"_s, -1);
}

QString nameOf(const QWidget& widget) {
    const auto* const area = qobject_cast<const QAbstractScrollArea*>(widget.parentWidget());
    return area && area->viewport() == &widget ? classOf(*area) + u" content"_s : classOf(widget);
}

/// How far the mask of a window with rounded corners keeps from the corner.
QString cornerOf(const QWidget& window) {
    if (window.mask().isEmpty())
        return {};
    const QRegion topRow = window.mask().intersected(QRect(0, 0, window.width(), 1));
    return u", corners cut by %1"_s.arg(topRow.boundingRect().left());
}

DrawnWidget drawn(QWidget& widget) {
    DrawnWidget result{.name = nameOf(widget), .place = widget.geometry(), .strokes = strokesOf(widget)};
    for (QObject* const child : widget.children()) {
        auto* const part = qobject_cast<QWidget*>(child);
        if (part && !part->isWindow() && part->isVisible())
            result.children.push_back(drawn(*part));
    }
    return result;
}

/// Replaces what paints nothing by what is in it.
std::vector<DrawnWidget> withoutBlanks(std::vector<DrawnWidget> widgets) {
    std::vector<DrawnWidget> kept;
    for (DrawnWidget& widget : widgets) {
        widget.children = withoutBlanks(std::move(widget.children));
        if (!widget.strokes.empty()) {
            kept.push_back(std::move(widget));
            continue;
        }
        for (DrawnWidget& child : widget.children) {
            child.place.translate(widget.place.topLeft());
            kept.push_back(std::move(child));
        }
    }
    return kept;
}

DrawnWidget drawnIn(ColorScheme scheme, QWidget& widget) {
    applyColorScheme(scheme);
    settle();
    DrawnWidget result = drawn(widget);
    result.children = withoutBlanks(std::move(result.children));
    return result;
}

QString kindName(Stroke::Kind kind) {
    switch (kind) {
    case Stroke::Kind::fill:
        return u"fill"_s;
    case Stroke::Kind::frame:
        return u"frame"_s;
    case Stroke::Kind::line:
        return u"line"_s;
    case Stroke::Kind::text:
        return u"text"_s;
    case Stroke::Kind::symbol:
        return u"symbol"_s;
    case Stroke::Kind::picture:
        return u"picture"_s;
    }
    return {};
}

QString lineOf(const Stroke& stroke, const QString& color) {
    const QString line = u"%1 %2  %3  %4"_s.arg(kindName(stroke.kind), -7)
                             .arg(stroke.place, -22)
                             .arg(color, -16)
                             .arg(stroke.what);
    return line.trimmed();
}

QString colorName(const QColor& light, const QColor& dark) {
    return light.isValid() || dark.isValid() ? colorRoleName(light, dark) : QString();
}

bool isSameBesidesColor(const Stroke& one, const Stroke& other) {
    return one.kind == other.kind && one.place == other.place && one.what == other.what;
}

QStringList linesOf(const std::vector<Stroke>& light, const std::vector<Stroke>& dark) {
    QStringList lines;
    if (std::ranges::equal(light, dark, isSameBesidesColor)) {
        for (std::size_t i = 0; i < light.size(); ++i)
            lines << lineOf(light[i], colorName(light[i].color, dark[i].color));
        return lines;
    }
    for (const Stroke& stroke : light)
        lines << u"light: "_s + lineOf(stroke, colorName(stroke.color, {}));
    for (const Stroke& stroke : dark)
        lines << u"dark: "_s + lineOf(stroke, colorName({}, stroke.color));
    return lines;
}

void append(QString& text, const DrawnWidget& light, const DrawnWidget& dark, int depth);

void appendChildren(QString& text, const DrawnWidget& light, const DrawnWidget& dark, int depth) {
    const QString indent(2 * (depth + 1), u' ');
    ASSERT_EQ(light.children.size(), dark.children.size()) << "in " << light.name.toStdString();
    for (std::size_t i = 0; i < light.children.size(); ++i) {
        const DrawnWidget& child = light.children[i];
        EXPECT_EQ(child.place, dark.children[i].place) << "the schemes differ";
        text += u"%1%2 %3×%4 at %5,%6\n"_s.arg(indent, child.name)
                    .arg(child.place.width())
                    .arg(child.place.height())
                    .arg(child.place.x())
                    .arg(child.place.y());
        append(text, child, dark.children[i], depth + 1);
    }
}

void append(QString& text, const DrawnWidget& light, const DrawnWidget& dark, int depth) {
    const QString indent(2 * (depth + 1), u' ');
    for (const QString& line : linesOf(light.strokes, dark.strokes))
        text += indent + line + u'\n';
    appendChildren(text, light, dark, depth);
}

QString read(const QString& path) {
    QFile file(path);
    return file.open(QFile::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

void write(const QString& path, const QString& text) {
    QFile file(path);
    EXPECT_TRUE(file.open(QFile::WriteOnly) && file.write(text.toUtf8()) >= 0) << path.toStdString();
}

void expectText(const QString& drawing, const QString& name) {
    // Those have the machine's fonts.
    if (qEnvironmentVariableIsSet("BRISKLOG_PICTURES"))
        return;
    const QString path = QStringLiteral(BRISKLOG_DRAWN "/%1.txt").arg(name);
    if (qEnvironmentVariableIsSet("BRISKLOG_ACCEPT_DRAWINGS"))
        return write(path, drawing);
    const QString accepted = read(path);
    if (drawing != accepted)
        ADD_FAILURE() << "tests/drawn/" << name.toStdString()
                      << ".txt: this is drawn (+) instead of that (-):\n"
                      << difference(accepted, drawing).toStdString()
                      << "If it is meant to be so: tools/accept-drawings";
}

} // namespace

QString drawingOf(QWidget& widget) {
    const DrawnWidget dark = drawnIn(ColorScheme::dark, widget);
    const DrawnWidget light = drawnIn(ColorScheme::light, widget);
    QString text = u"%1 %2×%3%4\n"_s.arg(light.name)
                       .arg(light.place.width())
                       .arg(light.place.height())
                       .arg(cornerOf(widget));
    append(text, light, dark, 0);
    return text;
}

void expectAcceptedText(const QString& text, const QString& name) { expectText(text, name); }

void expectDrawn(QWidget& widget, const QString& name) { expectText(drawingOf(widget), name); }

void DrawnStates::add(const QString& caption, QWidget& window) {
    const DrawnWidget dark = drawnIn(ColorScheme::dark, window);
    const DrawnWidget light = drawnIn(ColorScheme::light, window);
    m_text += caption + u'\n';
    appendChildren(m_text, light, dark, 0);
}

void DrawnStates::expectAccepted(const QString& name) const { expectText(m_text, name); }

} // namespace brisklog::test
