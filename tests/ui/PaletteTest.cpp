#include "ui/look/Palette.h"

#include "support/screen/ScreenTest.h"
#include "ui/look/Hairline.h"

#include <QApplication>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

constexpr double textContrast = 4.5;
constexpr double shapeContrast = 3.0;

/// A colour over the layers below it, listed from the ground upwards.
struct Pair {
    const char* name;
    QColor above;
    std::vector<QColor> layers;

    [[nodiscard]] double measured() const {
        QColor ground = layers.front();
        for (const QColor& layer : layers)
            ground = blendedOver(layer, ground);
        return contrast(blendedOver(above, ground), ground);
    }
};

std::vector<Pair> plainTexts(const Palette& p) {
    std::vector<Pair> pairs;
    for (const QColor& ground : {p.ground, p.card, p.field}) {
        pairs.push_back({"text", p.text, {ground}});
        pairs.push_back({"secondary", p.secondary, {ground}});
        pairs.push_back({"blue", p.blue, {ground}});
        pairs.push_back({"green", p.green, {ground}});
        pairs.push_back({"orange", p.orange, {ground}});
        pairs.push_back({"red", p.red, {ground}});
    }
    return pairs;
}

std::vector<Pair> tintedTexts(const Palette& p) {
    std::vector<Pair> pairs;
    for (const QColor& ground : {p.ground, p.card}) {
        for (const double share : {0.5, 0.7, 0.8, 0.9})
            pairs.push_back({"text on control", p.text, {ground, withOpacity(p.control, share)}});
        for (const double share : {0.08, 0.1, 0.2})
            pairs.push_back({"blue on blue tint", p.blue, {ground, withOpacity(p.blueFill, share)}});
        for (const double share : {0.10, 0.12, 0.16})
            pairs.push_back({"red on red tint", p.red, {ground, withOpacity(p.redFill, share)}});
        pairs.push_back({"text on running timer", p.text, {ground, withOpacity(p.blueFill, 0.08)}});
        pairs.push_back({"text on paused timer", p.text, {ground, withOpacity(p.orangeFill, 0.08)}});
        pairs.push_back({"text on invoiced row", p.text, {ground, withOpacity(p.greenFill, 0.2)}});
        pairs.push_back({"secondary on control", p.secondary, {ground, withOpacity(p.control, 0.5)}});
    }
    const QColor dashboardTimer = blendedOver(withOpacity(p.secondary, 0.05), p.card);
    pairs.push_back({"paused label", p.orange, {dashboardTimer, withOpacity(p.orangeFill, 0.2)}});
    pairs.push_back({"paused duration", p.orange, {p.card, withOpacity(p.orangeFill, 0.08)}});
    pairs.push_back({"secondary on the selected day", p.secondary, {p.card, withOpacity(p.blueFill, 0.2)}});
    pairs.push_back({"secondary on a running timer", p.secondary, {p.card, withOpacity(p.blueFill, 0.08)}});
    return pairs;
}

std::vector<Pair> whiteTexts(const Palette& p) {
    std::vector<Pair> pairs{
        {"white on primary", p.white, {p.blueFill}},
        {"white on hovered primary", p.white, {p.primaryHovered}},
        {"white on pressed primary", p.white, {p.primaryPressed}},
        {"white on red", p.white, {p.redFill}},
        {"tooltip", p.tooltipText, {p.tooltip}},
    };
    for (const QColor& ground : {p.ground, p.card}) {
        pairs.push_back({"white on hovered accent", p.white, {ground, withOpacity(p.blueFill, 0.9)}});
        pairs.push_back(
            {"white on hovered deleting", p.white, {ground, withOpacity(p.controlUnderWhiteText, 0.7)}});
    }
    if (p.scheme == ColorScheme::dark)
        pairs.push_back({"section header", p.white, {p.ground}});
    return pairs;
}

std::vector<Pair> shapes(const Palette& p) {
    std::vector<Pair> pairs;
    for (const QColor& ground : {p.ground, p.card}) {
        pairs.push_back({"time edge, paused", p.orangeFill, {ground}});
        pairs.push_back({"green dot", p.greenFill, {ground}});
        pairs.push_back({"chart bar", p.chartBar, {ground}});
        pairs.push_back({"focus ring", p.blue, {ground}});
    }
    pairs.push_back({"switch, on", p.blueFill, {p.ground}});
    pairs.push_back({"knob, off", p.white, {p.rule}});
    pairs.push_back({"knob, on", p.white, {p.blueFill}});
    pairs.push_back({"ledger line", p.rule, {p.field}});
    pairs.push_back({"frame of a check box", p.rule, {p.card}});
    return pairs;
}

class PaletteTest : public ScreenTest, public ::testing::WithParamInterface<ColorScheme> {
protected:
    [[nodiscard]] static const Palette& palette() { return Palette::of(GetParam()); }

    static void expectAtLeast(double least, const std::vector<Pair>& pairs) {
        for (const Pair& pair : pairs)
            EXPECT_GE(pair.measured(), least)
                << pair.name << " on " << pair.layers.front().name().toStdString();
    }
};

TEST_P(PaletteTest, everyTextIsLegibleOnThePlainGrounds) {
    expectAtLeast(textContrast, plainTexts(palette()));
}

TEST_P(PaletteTest, everyTextIsLegibleOnTheTintsItMeets) {
    expectAtLeast(textContrast, tintedTexts(palette()));
}

TEST_P(PaletteTest, everyTextIsLegibleOnFilledGrounds) { expectAtLeast(textContrast, whiteTexts(palette())); }

TEST_P(PaletteTest, shapesThatCarryMeaningStandOut) { expectAtLeast(shapeContrast, shapes(palette())); }

TEST_P(PaletteTest, examplesInFieldsAreLegibleAndNotMistakenForValues) {
    const QPalette toolkit = toolkitPalette(palette());
    const QColor example = toolkit.color(QPalette::PlaceholderText);
    EXPECT_GE(contrast(example, palette().field), 4.5);
    EXPECT_GE(contrast(example, toolkit.color(QPalette::Text)), 2.75);
}

TEST_P(PaletteTest, applyingAScheme_reachesOpenWidgetsAndTooltips) {
    QWidget open;
    open.show();
    applyColorScheme(GetParam());
    EXPECT_EQ(&Palette::current(), &palette());
    EXPECT_EQ(open.palette().color(QPalette::Window), palette().ground);
    EXPECT_EQ(open.palette().color(QPalette::Highlight), palette().blueFill);
    EXPECT_EQ(open.palette().color(QPalette::PlaceholderText), palette().placeholder);
    EXPECT_EQ(QToolTip::palette().color(QPalette::ToolTipBase), palette().tooltip);
}

TEST_P(PaletteTest, whatIsPaintedFollowsTheAppliedScheme_notTheWidgetsOwnColours) {
    applyColorScheme(GetParam());
    const ColorScheme other = GetParam() == ColorScheme::dark ? ColorScheme::light : ColorScheme::dark;
    Hairline line(Hairline::Kind::card);
    line.setPalette(toolkitPalette(Palette::of(other)));
    EXPECT_EQ(picture(line).pixelColor(0, 0), palette().line);
}

INSTANTIATE_TEST_SUITE_P(Schemes, PaletteTest, ::testing::Values(ColorScheme::light, ColorScheme::dark),
                         [](const auto& scheme) {
                             return scheme.param == ColorScheme::dark ? "dark" : "light";
                         });

TEST(Contrast, isTwentyOneBetweenBlackAndWhiteAndOneBetweenEquals) {
    EXPECT_NEAR(contrast(Qt::black, Qt::white), 21, 0.01);
    EXPECT_NEAR(contrast(Qt::white, Qt::black), 21, 0.01);
    EXPECT_NEAR(contrast(Qt::red, Qt::red), 1, 0.001);
}

} // namespace
} // namespace brisklog::test
