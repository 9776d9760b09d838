#include "support/screen/ScreenTest.h"
#include "ui/controls/CountBadge.h"
#include "ui/controls/SectionHeader.h"
#include "ui/look/Figures.h"
#include "ui/look/Label.h"

#include <QApplication>
#include <QHelpEvent>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

class ComponentLabel : public ScreenTest {
protected:
    static QString tooltipOf(QWidget& widget) {
        QToolTip::hideText();
        QHelpEvent help(QEvent::ToolTip, {2, 2}, widget.mapToGlobal(QPoint(2, 2)));
        QApplication::sendEvent(&widget, &help);
        return QToolTip::isVisible() ? QToolTip::text() : QString();
    }

    static bool contains(const QImage& image, const QColor& color) {
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixelColor(x, y) == color)
                    return true;
        return false;
    }
};

TEST_F(ComponentLabel, elidedTellsItsFullTextOnlyWhenItIsCut) {
    ElidedLabel label(u"Rückmeldungen aus dem Usability-Test einarbeiten"_s);
    label.resize(label.sizeHint());
    label.show();
    EXPECT_FALSE(label.isElided());
    EXPECT_EQ(tooltipOf(label), QString());
    label.resize(80, label.height());
    EXPECT_TRUE(label.isElided());
    EXPECT_EQ(tooltipOf(label), label.text());
}

TEST_F(ComponentLabel, elidedMayShrinkButNamesAllOfItself) {
    const ElidedLabel label(u"Website-Relaunch Müller & Söhne"_s, FontRole::title17);
    EXPECT_EQ(label.minimumSizeHint().width(), 0);
    EXPECT_EQ(accessibleNameOf(label), u"Website-Relaunch Müller & Söhne"_s);
}

TEST_F(ComponentLabel, tooltipsShowMarkupLetterByLetter) {
    EXPECT_EQ(plainTooltip(u"Projekteinstellungen"_s), u"Projekteinstellungen"_s);
    EXPECT_EQ(plainTooltip(u"<b>A & B</b>"_s), u"<qt>&lt;b&gt;A &amp; B&lt;/b&gt;</qt>"_s);
    EXPECT_TRUE(plainTooltip(QString(200, u'x')).startsWith(u"<qt>"_s));
}

TEST_F(ComponentLabel, textIsNeverReadAsMarkup) {
    Label label(u"<b>fett</b>"_s);
    EXPECT_EQ(label.textFormat(), Qt::PlainText);
    EXPECT_GT(label.sizeHint().width(), Label(u"fett"_s).sizeHint().width());
}

TEST_F(ComponentLabel, whateverBreaksALineIsABlankInOne) {
    const auto shown = [this](const QString& text) {
        ElidedLabel label(text);
        label.resize(label.sizeHint());
        return picture(label);
    };
    EXPECT_EQ(shown(u"a\u2028b\u2029c\u0085d\ne\tf\r\ng"_s), shown(u"a b c d e f g"_s));
}

TEST_F(ComponentLabel, wrappedLinesKeepTheLineHeight) {
    const Label label(u"Diese Aktion kann nicht rückgängig gemacht werden."_s, FontRole::body13,
                      &Palette::text, Label::Lines::wrapped);
    const int oneLine = label.sizeHint().width();
    EXPECT_EQ(label.heightForWidth(oneLine), 18);
    EXPECT_EQ(label.heightForWidth(oneLine * 2 / 3), 36);
    EXPECT_EQ(
        Label(u"a\nb\nc"_s, FontRole::caption11, &Palette::text, Label::Lines::wrapped).heightForWidth(200),
        42);
}

TEST_F(ComponentLabel, asksForAllItsOwnLines) {
    const auto size = [](const QString& text) {
        return Label(text, FontRole::body13, &Palette::text, Label::Lines::wrapped).sizeHint();
    };
    EXPECT_EQ(size(u"länger\na\nb"_s), QSize(size(u"länger"_s).width(), 3 * 18));
    EXPECT_EQ(size(u"a\nb\nlänger"_s), QSize(size(u"länger"_s).width(), 3 * 18));
}

TEST_F(ComponentLabel, isPaintedInItsRole) {
    Label label(u"████"_s, FontRole::title17, &Palette::green);
    label.resize(label.sizeHint());
    EXPECT_TRUE(contains(picture(label), Palette::of(ColorScheme::light).green));
    applyColorScheme(ColorScheme::dark);
    EXPECT_TRUE(contains(picture(label), Palette::of(ColorScheme::dark).green));
}

TEST_F(ComponentLabel, figuresOfEqualLengthAreEquallyWide) {
    EXPECT_EQ(figureWidth(u"11:11:11"_s, FontRole::title17), figureWidth(u"00:00:00"_s, FontRole::title17));
    EXPECT_EQ(figureWidth(u"1.111,11 €"_s, FontRole::body13Semibold),
              figureWidth(u"8.888,88 €"_s, FontRole::body13Semibold));
    EXPECT_GT(figureWidth(u"100:00:00"_s, FontRole::title17), figureWidth(u"00:00:00"_s, FontRole::title17));
}

TEST_F(ComponentLabel, figuresStandStillWhileTheOnesBesideThemChange) {
    FigureLabel label(u"00:00:04"_s);
    label.resize(label.sizeHint());
    const QImage before = picture(label);
    label.setValue(u"11:11:14"_s);
    ASSERT_EQ(label.sizeHint(), label.size());
    const QImage after = picture(label);
    const int cell = figureWidth(u"4"_s, FontRole::title17);
    const QRect last(label.width() - cell, 0, cell, label.height());
    EXPECT_EQ(before.copy(last), after.copy(last));
    EXPECT_NE(before, after);
}

TEST_F(ComponentLabel, figuresAreReadable) {
    FigureLabel label;
    label.setValue(u"01:24:07"_s);
    EXPECT_EQ(accessibleNameOf(label), u"01:24:07"_s);
    CountBadge badge(128);
    EXPECT_EQ(accessibleNameOf(badge), u"128"_s);
    EXPECT_EQ(badge.sizeHint().height(), 16);
}

TEST_F(ComponentLabel, sectionHeaderIsBlueAndInkInLightAndWhiteInDark) {
    SectionHeader header(u"████"_s, u"circle.fill"_s);
    header.resize(header.sizeHint());
    const Palette& light = Palette::of(ColorScheme::light);
    EXPECT_TRUE(contains(picture(header), light.blue));
    EXPECT_TRUE(contains(picture(header), light.text));
    applyColorScheme(ColorScheme::dark);
    EXPECT_TRUE(contains(picture(header), Qt::white));
    EXPECT_FALSE(contains(picture(header), Palette::of(ColorScheme::dark).blue));
}

} // namespace
} // namespace brisklog::test
