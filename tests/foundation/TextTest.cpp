#include "foundation/Text.h"

#include <gtest/gtest.h>
#include <string>

namespace brisklog::test {
namespace {

using namespace std::string_literals;

TEST(Text, blanksAtBothEndsAreTrimmed) {
    EXPECT_EQ(text::trimmed("  a b\t\r\n"), "a b");
    EXPECT_EQ(text::trimmed("a"), "a");
    EXPECT_EQ(text::trimmed(""), "");
    EXPECT_EQ(text::trimmed(" \t\n\v\f\r "), "");
}

TEST(Text, unicodeBlanksAreTrimmed) {
    for (const char* const blank :
         {"\u0085", "\u00A0", "\u1680", "\u2003", "\u2028", "\u2029", "\u202F", "\u205F", "\u3000"}) {
        EXPECT_EQ(text::trimmed(blank), "");
        EXPECT_EQ(text::trimmed(blank + "ä"s + blank + blank), "ä");
        EXPECT_EQ(text::trimmed("ä"s + blank + "ö"), "ä"s + blank + "ö") << "inner blanks stay";
    }
}

TEST(Text, bytesThatAreNotUtf8CountAsOrdinaryCharacters) {
    EXPECT_EQ(text::trimmed(" \xFF a \xC3 "), "\xFF a \xC3");
    EXPECT_EQ(text::trimmed("\xA0"), "\xA0") << "half a no-break space is not one";
    EXPECT_EQ(text::trimmed("\xC2"), "\xC2");
    EXPECT_EQ(text::trimmed("\xE2\x80"), "\xE2\x80");
    EXPECT_EQ(text::trimmed(" \x80\x80\x80 "), "\x80\x80\x80");
}

TEST(Text, everyLengthOfUtf8IsWellFormed) {
    EXPECT_TRUE(text::isValidUtf8(""));
    EXPECT_TRUE(text::isValidUtf8("plain text of more than eight bytes"));
    EXPECT_TRUE(text::isValidUtf8("ä€😀"));
    EXPECT_TRUE(text::isValidUtf8("\0"s));
    EXPECT_TRUE(text::isValidUtf8("\uFFFF\U0010FFFF"));
}

TEST(Text, malformedUtf8IsFoundWhereverItStands) {
    for (const char* const bad :
         {"\x80", "\xC3", "\xC0\x80", "\xC1\xBF", "\xE0\x80\x80", "\xE2\x82", "\xED\xA0\x80", "\xED\xBF\xBF",
          "\xF0\x80\x80\x80", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFE", "\xFF"})
        for (std::size_t before = 0; before < 20; ++before) {
            EXPECT_FALSE(text::isValidUtf8(std::string(before, 'x') + bad));
            EXPECT_FALSE(text::isValidUtf8(std::string(before, 'x') + bad + std::string(9, 'x')));
        }
}

TEST(Text, aBeginningDoesNotCutThroughACharacter) {
    EXPECT_EQ(text::beginning("abc", 3), "abc");
    EXPECT_EQ(text::beginning("abc", 2), "ab");
    EXPECT_EQ(text::beginning("a€b😀", 1), "a");
    EXPECT_EQ(text::beginning("a€b😀", 3), "a");
    EXPECT_EQ(text::beginning("a€b😀", 4), "a€");
    for (const std::size_t length : {5U, 6U, 7U, 8U})
        EXPECT_EQ(text::beginning("a€b😀", length), "a€b");
    EXPECT_EQ(text::beginning("a€b😀", 9), "a€b😀");
    EXPECT_EQ(text::beginning("€", 2), "");
    EXPECT_EQ(text::beginning("", 0), "");
}

TEST(Text, aBeginningOfBytesThatAreNotUtf8IsNotShorter) {
    EXPECT_EQ(text::beginning(std::string(100, '\x80'), 50), std::string(50, '\x80'));
}

TEST(Text, replacingTouchesEveryOccurrence) {
    EXPECT_EQ(text::replacing("1,2,3", ',', '.'), "1.2.3");
    EXPECT_EQ(text::replacing("", ',', '.'), "");
}

TEST(Text, controlCharactersBecomeBlanksOnOneLine) {
    EXPECT_EQ(text::onOneLine("a\nb\r\nc\td\x7F"s + "e\0f"s), "a b  c d e f");
    EXPECT_EQ(text::onOneLine("äöü ß"), "äöü ß");
}

TEST(Text, bytesThatAreNoUtf8AreReplaced) {
    EXPECT_EQ(text::asWellFormedUtf8("Grüße"), "Grüße");
    EXPECT_EQ(text::asWellFormedUtf8("a\xFF"
                                     "b"),
              "a\uFFFDb");
    EXPECT_TRUE(text::isValidUtf8(text::asWellFormedUtf8("\xED\xA0\x80\xC3")));
}

} // namespace
} // namespace brisklog::test
