#include "platform/documents/CairoPdfFacility.h"

#include "platform/documents/OnePage.h"
#include "support/PdfPictures.h"
#include "support/PdfPlaces.h"

#include <cmath>
#include <gmock/gmock.h>
#include <tuple>

namespace brisklog::test {
namespace {

using testing::HasSubstr;

constexpr TextStyle regular{.pointSize = 10};
constexpr PageRectangle line{100, 700, 200, 14};

double fromTop(double y) { return a4.height - y; }

TEST(CairoPdf, makesASoundDocumentOfA4Pages) {
    CairoPdfFacility facility;
    const auto document = facility.begin({.creator = "Maker", .author = "Someone", .title = {}});
    for (const char* text : {"eins", "zwei", "drei"}) {
        document->beginPage();
        document->drawLine(text, line, regular);
    }
    const PdfReader pdf(document->finish());
    EXPECT_EQ(pdf.complaints(), "");
    EXPECT_EQ(pdf.pageCount(), 3);
    EXPECT_EQ(pdf.information("MediaBox"), "0.00     0.00   595.00   842.00");
    EXPECT_TRUE(pdf.find("drei", 3));
}

TEST(CairoPdf, saysWhoMadeItAndWhoWroteIt) {
    const auto bytes = onePage([](PdfDocument&) {},
                               {.creator = "Maker", .author = "Jürgen (Büro) \\ „Söhne“\n\xFF", .title = {}});
    const PdfReader pdf(bytes);
    EXPECT_EQ(pdf.information("Creator"), "Maker");
    EXPECT_EQ(pdf.information("Author"), "Jürgen (Büro) \\ „Söhne“ \uFFFD");
    EXPECT_TRUE(pdf.information("CreationDate"));
}

TEST(CairoPdf, writesNoAuthorWhenThereIsNone) {
    const PdfReader pdf(onePage([](PdfDocument&) {}, {.creator = "Maker", .author = {}, .title = {}}));
    EXPECT_EQ(pdf.information("Author"), std::nullopt);
}

TEST(CairoPdf, textHangsFromTheTopOfItsRectangle) {
    const PdfReader pdf(onePage([](PdfDocument& page) { page.drawLine("Hamburg", line, regular); }));
    const auto word = pdf.find("Hamburg");
    ASSERT_TRUE(word);
    EXPECT_NEAR(word->left, line.x, placeTolerance);
    EXPECT_NEAR(word->top, fromTop(line.y + line.height), placeTolerance);
    const auto ink = pdf.picture(1).inkWithin(wholePage);
    ASSERT_TRUE(ink);
    EXPECT_GT(ink->top, fromTop(line.y + line.height));
    EXPECT_LT(ink->bottom, fromTop(line.y));
}

TEST(CairoPdf, aCharacterFromAnotherFontDoesNotMoveItsLine) {
    const PdfReader pdf(onePage([](PdfDocument& page) {
        page.drawLine("Wort", line, regular);
        page.drawLine("Wort مرحبا", {line.x + 200, line.y, line.width, line.height}, regular);
    }));
    std::vector<double> bottoms;
    for (const PdfWord& word : pdf.words())
        if (word.text == "Wort")
            bottoms.push_back(word.box.bottom);
    ASSERT_EQ(bottoms.size(), 2U);
    EXPECT_DOUBLE_EQ(bottoms[0], bottoms[1]);
}

TEST(CairoPdf, aLineTooLongEndsInAnEllipsisInsideItsRectangle) {
    const std::string longText(2000, 'x');
    const PdfReader pdf(onePage([&](PdfDocument& page) { page.drawLine(longText, line, regular); }));
    ASSERT_EQ(pdf.words().size(), 1U);
    EXPECT_THAT(pdf.words()[0].text, testing::MatchesRegex("x+…"));
    EXPECT_LE(pdf.words()[0].box.right, line.x + line.width + placeTolerance);
}

TEST(CairoPdf, aLineBeyondAllBoundsIsDrawnAtOnce) {
    std::string endless;
    endless.resize(50'000'000, 'x');
    const PdfReader pdf(onePage([&](PdfDocument& page) { page.drawLine(endless, line, regular); }));
    ASSERT_EQ(pdf.words().size(), 1U);
    EXPECT_THAT(pdf.words()[0].text, testing::EndsWith("…"));
}

TEST(CairoPdf, aNumberEndsAtTheRightEdge) {
    const PdfReader pdf(
        onePage([](PdfDocument& page) { page.drawNumber("1.234,50\u00A0€", line, regular); }));
    const auto number = pdf.find("1.234,50 €");
    ASSERT_TRUE(number);
    EXPECT_NEAR(number->right, line.x + line.width, placeTolerance);
}

TEST(CairoPdf, aNumberTooLongIsSetSmallerAndNeverShortened) {
    const std::string digits(300, '7');
    const PdfReader pdf(onePage([&](PdfDocument& page) { page.drawNumber(digits, line, regular); }));
    ASSERT_EQ(pdf.words().size(), 1U);
    EXPECT_EQ(pdf.words()[0].text, digits);
    EXPECT_GE(pdf.words()[0].box.left, line.x - placeTolerance);
    EXPECT_NEAR(pdf.words()[0].box.right, line.x + line.width, placeTolerance);
}

TEST(CairoPdf, digitsAreOfEqualWidth) {
    onePage([](PdfDocument& page) {
        EXPECT_DOUBLE_EQ(page.widthOfNumber("1111111", regular), page.widthOfNumber("8888888", regular));
    });
}

TEST(CairoPdf, everyCharacterCanBeCopied) {
    const std::string text = "-x- (a) [b] 3x4 1-2 -> fi ffl „Söhne“ – 85,50\u00A0€ \\ % & § ß";
    const PdfReader pdf(onePage([&](PdfDocument& page) {
        page.drawLine(text, {50, 700, 500, 14}, regular);
    }));
    EXPECT_EQ(pdf.copiedText(), withoutBlanks(text));
}

TEST(CairoPdf, charactersThatNoFontHasCanStillBeCopied) {
    const std::string text = "Hieroglyphe \U00013000 Ende, privat \U000F0000 Ende";
    const PdfReader pdf(onePage([&](PdfDocument& page) {
        page.drawLine(text, {50, 700, 500, 14}, regular);
    }));
    EXPECT_EQ(pdf.copiedText(), withoutBlanks(text));
}

TEST(CairoPdf, aCharacterThatNoFontHasCanBeCopiedWhereverItStands) {
    const std::string unknown = "\U000F0000";
    for (const double x : {100.0, 100.001, 99.999, 100.25, 100.5, 100.9})
        for (const double y : {700.0, 700.3125, 700.5}) {
            const PdfReader pdf(onePage([&](PdfDocument& page) {
                page.drawLine(unknown, {x, y, 200, 14}, regular);
            }));
            EXPECT_EQ(pdf.copiedText(), unknown) << x << ", " << y;
        }
}

TEST(CairoPdf, aCharacterThatNoFontHasIsAnEmptyBox) {
    const PdfReader pdf(onePage([](PdfDocument& page) { page.drawLine("\U000F0000", line, regular); }));
    const auto picture = pdf.picture(1, 720);
    const auto ink = picture.inkWithin(wholePage);
    ASSERT_TRUE(ink);
    const PdfBox inside{1, ink->left + 1, ink->top + 1, ink->right - 1, ink->bottom - 1};
    EXPECT_GT(inside.right, inside.left);
    EXPECT_EQ(picture.inkWithin(inside), std::nullopt);
}

TEST(CairoPdf, whatIsNoTextIsReplacedAndEverythingAfterItIsDrawn) {
    using namespace std::string_literals;
    // Invalid UTF-8, a surrogate, noncharacters, control characters.
    const std::string bad =
        "A\xFF\xC3|\xED\xA0\x80|\uFFFE\uFDD0\U0001FFFF|\0\x01\x1B\x7F\u0085\u2028\t\r\nZ"s;
    const PdfReader pdf(onePage([&](PdfDocument& page) {
        page.drawLine(bad, line, regular);
        page.drawNumber(bad, {100, 650, 300, 14}, regular);
        std::ignore = page.drawWrapped(bad, {100, 500, 300, 100}, regular);
        page.drawLine("danach", {100, 400, 200, 14}, regular);
    }));
    EXPECT_EQ(pdf.complaints(), "");
    EXPECT_TRUE(pdf.find("danach"));
    const std::string text = pdf.copiedText();
    EXPECT_THAT(text, HasSubstr("A\uFFFD\uFFFD|\uFFFD"));
    EXPECT_THAT(text, HasSubstr("|\uFFFD\uFFFD\uFFFD|Z"));
}

TEST(CairoPdf, lineBreaksAreKeptInWrappedTextAndBlanksInALine) {
    const std::string text = "eins\nzwei\r\ndrei\rvier";
    const PdfReader pdf(onePage([&](PdfDocument& page) {
        page.drawLine(text, line, regular);
        std::ignore = page.drawWrapped(text, {100, 500, 300, 100}, regular);
    }));
    EXPECT_TRUE(pdf.find("eins zwei drei vier"));
    std::vector<double> tops;
    for (const PdfWord& word : pdf.words())
        if (word.box.top > fromTop(line.y))
            tops.push_back(word.box.top);
    ASSERT_EQ(tops.size(), 4U);
    for (std::size_t i = 1; i < tops.size(); ++i)
        EXPECT_NEAR(tops[i] - tops[i - 1], tops[1] - tops[0], placeTolerance);
}

TEST(CairoPdf, linesOfUnknownCharactersAreAsHighAsOthers) {
    const std::string text = "eins\n\U000F0000\nzwei";
    const PdfReader pdf(onePage([&](PdfDocument& page) {
        EXPECT_DOUBLE_EQ(page.sizeOfWrapped(text, 300, regular).height,
                         page.sizeOfWrapped("x\nx\nx", 300, regular).height);
        std::ignore = page.drawWrapped(text, {100, 500, 300, 100}, regular);
    }));
    const auto first = pdf.find("eins");
    const auto last = pdf.find("zwei");
    ASSERT_TRUE(first && last);
    EXPECT_NEAR(last->top - first->top, 2 * (first->bottom - first->top), 0.1);
}

TEST(CairoPdf, aLineBreakOfTwoCharactersIsOneLineBreakWhereverItStands) {
    std::string lines;
    std::string twice;
    for (int i = 0; i < 60; ++i) {
        lines += std::string(40, 'x') + "\n";
        twice += std::string(40, 'x') + "\r\n";
    }
    onePage([&](PdfDocument& page) {
        const double height = page.sizeOfWrapped(lines, 495, regular).height;
        EXPECT_LT(height, a4.height);
        for (std::size_t length = 0; length < 42; ++length)
            EXPECT_DOUBLE_EQ(page.sizeOfWrapped(std::string(length, 'x') + twice, 495, regular).height,
                             height);
    });
}

TEST(CairoPdf, textIsLaidOutTheSameWhereverItIsTakenApart) {
    std::string text;
    for (int i = 0; i < 700; ++i)
        text += "Wort" + std::to_string(i) + " ";
    const PdfReader pdf(onePage([&](PdfDocument& page) {
        EXPECT_EQ(page.drawWrapped(text, {50, 0, 495, a4.height}, regular), "");
    }));
    EXPECT_EQ(pdf.copiedText(), withoutBlanks(text));
    double previousTop = pdf.words().front().box.top;
    for (std::size_t i = 1; i < pdf.words().size(); ++i) {
        const PdfBox& before = pdf.words()[i - 1].box;
        const PdfBox& box = pdf.words()[i].box;
        if (std::abs(box.top - before.top) < 1)
            continue;
        // Every line is full before the next one begins, and the line spacing is constant.
        EXPECT_GT(before.right + (box.right - box.left), 545 - 3);
        EXPECT_NEAR(box.top - previousTop, pdf.words().front().box.bottom - pdf.words().front().box.top,
                    placeTolerance);
        previousTop = box.top;
    }
}

TEST(CairoPdf, aWordLongerThanTheLineIsBrokenWithoutHyphens) {
    const std::string word(500, 'w');
    const PdfReader pdf(onePage([&](PdfDocument& page) {
        EXPECT_EQ(page.drawWrapped(word, {100, 100, 200, 700}, regular), "");
    }));
    EXPECT_EQ(pdf.copiedText(), word);
    for (const PdfWord& part : pdf.words())
        EXPECT_LE(part.box.right, 300 + placeTolerance);
}

TEST(CairoPdf, wrappedTextGivesBackWhatFindsNoRoom) {
    const std::string text = "erste Zeile\n\nzweite Zeile\ndritte Zeile";
    std::string rest;
    const PdfReader pdf(onePage([&](PdfDocument& page) {
        const std::string expected = page.restOfWrapped(text, {300, 30}, regular);
        rest = page.drawWrapped(text, {100, 700, 300, 30}, regular);
        EXPECT_EQ(rest, expected);
        rest = page.drawWrapped(rest, {100, 600, 300, 13}, regular);
    }));
    EXPECT_TRUE(pdf.find("erste Zeile"));
    EXPECT_EQ(rest, "dritte Zeile");
    EXPECT_FALSE(pdf.find("dritte Zeile"));
}

TEST(CairoPdf, wrappedTextDrawsAtLeastOneLine) {
    onePage([](PdfDocument& page) {
        EXPECT_EQ(page.drawWrapped("eins\nzwei", {100, 700, 300, 1}, regular), "zwei");
    });
}

TEST(CairoPdf, wrappedTextNeedsTheHeightItWasMeasuredWith) {
    const std::string text = "Leistungszeitraum: 1. bis 14. November 2026. مرحبا 😀\nZweiter Absatz.";
    onePage([&](PdfDocument& page) {
        const PageSize size = page.sizeOfWrapped(text, 150, regular);
        EXPECT_GT(size.height, 0);
        EXPECT_LE(size.width, 150);
        EXPECT_EQ(page.drawWrapped(text, {100, 300, 150, size.height}, regular), "");
        EXPECT_NE(page.drawWrapped(text, {100, 300, 150, size.height - 1}, regular), "");
    });
}

TEST(CairoPdf, textLongerThanAnyPageIsGivenBackWhole) {
    std::string text;
    for (int i = 0; i < 20000; ++i)
        text += "Wörter ";
    std::size_t drawn = 0;
    onePage([&](PdfDocument& page) {
        EXPECT_GT(page.sizeOfWrapped(text, 495, regular).height, a4.height);
        const std::string rest = page.drawWrapped(text, {50, 50, 495, 742}, regular);
        EXPECT_TRUE(text.ends_with(rest));
        drawn = text.size() - rest.size();
    });
    EXPECT_GT(drawn, 1000U);
    EXPECT_LT(drawn, text.size() / 2);
}

TEST(CairoPdf, aRuleIsAGreyLineOfHalfAPoint) {
    const PdfReader pdf(onePage([](PdfDocument& page) { page.drawRule(50, 545, 400); }));
    const auto picture = pdf.picture(1, 720);
    const auto ink = picture.inkWithin(wholePage);
    ASSERT_TRUE(ink);
    EXPECT_NEAR(ink->left, 50, 0.2);
    EXPECT_NEAR(ink->right, 545, 0.2);
    EXPECT_NEAR(ink->top, fromTop(400.25), 0.2);
    EXPECT_NEAR(ink->bottom, fromTop(399.75), 0.2);
    EXPECT_NEAR(picture.brightness(3000, static_cast<int>(fromTop(400) * 10)), 128, 2);
}

TEST(CairoPdf, aFilledRectangleCoversItselfAndNothingElse) {
    const PdfReader pdf(onePage([](PdfDocument& page) { page.fillRectangle({50, 400, 495, 30}, 0.2); }));
    const auto picture = pdf.picture(1, 720);
    const auto ink = picture.inkWithin(wholePage);
    ASSERT_TRUE(ink);
    EXPECT_NEAR(ink->left, 50, 0.2);
    EXPECT_NEAR(ink->right, 545, 0.2);
    EXPECT_NEAR(ink->top, fromTop(430), 0.2);
    EXPECT_NEAR(ink->bottom, fromTop(400), 0.2);
    for (const int row : {4130, 4270, 4410})
        for (const int column : {510, 3000, 5440})
            EXPECT_NEAR(picture.brightness(column, row), 51, 1);
}

TEST(CairoPdf, whatIsDrawnLaterCoversWhatWasDrawnBefore) {
    const PdfReader pdf(onePage([](PdfDocument& page) {
        page.drawLine("verdeckt", line, regular);
        page.fillRectangle({line.x - 10, line.y - 10, 300, 40}, 1);
        page.drawLine("sichtbar", {line.x, line.y - 100, line.width, line.height}, regular);
    }));
    const auto ink = pdf.picture(1).inkWithin(wholePage);
    ASSERT_TRUE(ink);
    EXPECT_GT(ink->top, fromTop(line.y - 60));
    EXPECT_EQ(pdf.copiedText(), "verdecktsichtbar");
}

TEST(CairoPdf, moreWordsThanAreRememberedAreDrawnWhole) {
    std::string text;
    const PdfReader pdf(onePage([&](PdfDocument& page) {
        for (int i = 0; i < 9000; ++i) {
            const std::string word = "w" + std::to_string(i);
            page.drawLine("immer " + word, {50.0 + i % 8 * 60, 800.0 - i / 8 % 70 * 11, 60, 10}, regular);
            text += "immer" + word;
        }
    }));
    EXPECT_EQ(pdf.complaints(), "");
    EXPECT_EQ(pdf.copiedText().size(), text.size());
}

TEST(CairoPdf, whiteInkShowsOnADarkGroundAndWhatFollowsIsBlackAgain) {
    TextStyle white = regular;
    white.ink = Ink::white;
    const PageRectangle under{line.x, line.y - 50, line.width, line.height};
    const PdfReader pdf(onePage([&](PdfDocument& page) {
        page.fillRectangle(line, 0);
        page.drawLine("Aufgabe", line, white);
        page.drawNumber("12", line, white);
        page.drawLine("danach", under, regular);
        page.drawNumber("34", under, regular);
    }));
    EXPECT_EQ(pdf.copiedText(), "Aufgabe12danach34");
    const auto picture = pdf.picture(1, 288);
    const auto isWhiteSomewhere = [&](double left, double right) {
        for (int row = 4 * 128; row < 4 * 142; ++row)
            for (auto column = static_cast<int>(4 * left); column < static_cast<int>(4 * right); ++column)
                if (picture.brightness(column, row) == 255)
                    return true;
        return false;
    };
    EXPECT_TRUE(isWhiteSomewhere(100, 140));
    EXPECT_FALSE(isWhiteSomewhere(150, 270));
    EXPECT_TRUE(isWhiteSomewhere(280, 300));
    const auto ink = picture.inkWithin({1, 0, 170, a4.width, 200});
    ASSERT_TRUE(ink);
    EXPECT_NEAR(ink->left, 100.7, 1);
    EXPECT_NEAR(ink->right, 299.5, 1);
}

} // namespace
} // namespace brisklog::test
