#include "JsonRecords.h"

#include <gtest/gtest.h>

namespace brisklog::test {
namespace {

using namespace std::string_literals;

constexpr const char* anId = "0A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9";

/// A leaf as JSON, with one of its parts replaced.
std::string leaf(const std::string& from = "", const std::string& to = "") {
    std::string text =
        R"({"id":")" + std::string(anId) + R"(","name":"Blatt","when":816456008.5,"flag":true,"fruit":"p"})";
    if (!from.empty())
        text.replace(text.find(from), from.size(), to);
    return text;
}

template <class T>
std::string errorOf(const std::string& bytes) {
    const auto decoded = json::decode<T>(bytes);
    EXPECT_TRUE(decoded.failed()) << bytes.substr(0, 200);
    return decoded.failed() ? decoded.error().description : "";
}

template <class T>
T valueOf(const std::string& bytes) {
    auto decoded = json::decode<T>(bytes);
    EXPECT_TRUE(decoded.succeeded()) << bytes.substr(0, 200) << "\n" << decoded.error().description;
    return std::move(decoded).value();
}

// What fits

TEST(JsonDecoder, recordWithoutItsOptionalKeys) {
    const Leaf read = valueOf<Leaf>(leaf());
    EXPECT_EQ(read.id.text(), anId);
    EXPECT_EQ(read.name, "Blatt");
    EXPECT_EQ(read.when, Date{816456008.5});
    EXPECT_TRUE(read.flag);
    EXPECT_EQ(read.fruit, Fruit::pear);
    EXPECT_EQ(read.rate, std::nullopt);
    EXPECT_EQ(read.note, std::nullopt);
    EXPECT_EQ(read.owner, std::nullopt);
}

TEST(JsonDecoder, optionalKeysAreReadWhenPresent) {
    const Leaf read =
        valueOf<Leaf>(leaf("}", R"(,"rate":80,"note":"","owner":")" + std::string(anId) + "\"}"));
    EXPECT_EQ(read.rate, 80);
    EXPECT_EQ(read.note, "");
    EXPECT_EQ(read.owner->text(), anId);
}

TEST(JsonDecoder, orderOfKeysDoesNotMatter) {
    const std::string turned =
        R"({"fruit":"p","flag":true,"note":"n","when":1,"name":"Blatt","id":")" + std::string(anId) + "\"}";
    EXPECT_EQ(valueOf<Leaf>(turned).note, "n");
}

TEST(JsonDecoder, indentationOfAnyDepthIsPassedOver) {
    for (const char* const other : {"", " ", "\n", "\t", "\r\n"})
        for (std::size_t depth = 0; depth < 40; ++depth) {
            std::string bytes;
            for (const char* const token : {"[", "1", ",", "2", "]"})
                bytes.append(token).append(depth, ' ').append(other);
            EXPECT_EQ(valueOf<std::vector<double>>(bytes), (std::vector{1.0, 2.0}));
        }
}

TEST(JsonDecoder, whiteSpaceDoesNotMatter) {
    EXPECT_EQ(valueOf<std::vector<double>>(" \t\r\n[ 1 ,\n2\t] \n"), (std::vector<double>{1, 2}));
}

TEST(JsonDecoder, nestedListsAndRecords) {
    const Branch branch =
        valueOf<Branch>(R"({"name":"Ast","leaves":[)" + leaf() + "," + leaf("Blatt", "zweites") +
                        R"(],"weights":[],"knot":{"width":2},"otherKnot":{"width":3}})");
    EXPECT_EQ(branch.leaves.size(), 2U);
    EXPECT_EQ(branch.leaves[1].name, "zweites");
    EXPECT_EQ(branch.weights->size(), 0U);
    EXPECT_EQ(branch.knot.width, 2);
    EXPECT_EQ(branch.otherKnot->width, 3);
}

TEST(JsonDecoder, emptyListsAreRead) {
    EXPECT_TRUE(valueOf<std::vector<Leaf>>("[]").empty());
    EXPECT_TRUE(valueOf<std::vector<std::vector<double>>>("[[],[1],[]]")[2].empty());
}

TEST(JsonDecoder, byteOrderMarkInFrontIsPassedOver) {
    EXPECT_EQ(valueOf<std::vector<double>>("\xEF\xBB\xBF[1]"), std::vector<double>{1});
    EXPECT_EQ(errorOf<std::vector<double>>("\xEF\xBB\xBF[x]"), "[0]: Invalid value. (byte 4)");
    EXPECT_NE(errorOf<std::vector<double>>("[\xEF\xBB\xBF\x31]"), "");
    EXPECT_NE(errorOf<std::vector<double>>("\xEF\xBB\xBF\xEF\xBB\xBF[1]"), "");
}

// Unknown keys

TEST(JsonDecoder, unknownKeysArePassedOverWhateverTheyHold) {
    for (const char* const unknown :
         {"1", "-1.5e3", "true", "null", "\"text\"", "[]", "{}", "[1,[2,[3,{}]],{\"id\":5}]",
          "{\"id\":5,\"a\":{\"name\":[{}]},\"b\":[[]]}", "18446744073709551615"}) {
        const std::string extra = "\"unknown\":"s + unknown;
        EXPECT_EQ(valueOf<Leaf>(leaf("{", "{" + extra + ",")), valueOf<Leaf>(leaf())) << unknown;
        EXPECT_EQ(valueOf<Leaf>(leaf("\"when\"", extra + ",\"when\"")), valueOf<Leaf>(leaf())) << unknown;
        EXPECT_EQ(valueOf<Leaf>(leaf("}", "," + extra + "}")), valueOf<Leaf>(leaf())) << unknown;
        EXPECT_EQ(valueOf<std::vector<Leaf>>("[" + leaf("}", "," + extra + "}") + "," + leaf() + "]").size(),
                  2U);
    }
}

TEST(JsonDecoder, keysAreComparedExactly) {
    EXPECT_EQ(errorOf<Leaf>(leaf("\"name\"", "\"Name\"")).find("name: missing"), 0U);
    EXPECT_EQ(errorOf<Leaf>(leaf("\"name\"", "\"name\\u0000\"")).find("name: missing"), 0U);
    EXPECT_EQ(errorOf<Leaf>(leaf("\"name\"", "\"\"")).find("name: missing"), 0U);
    EXPECT_EQ(valueOf<Leaf>(leaf("\"name\"", "\"n\\u0061me\"")).name, "Blatt");
}

// Repeated keys

TEST(JsonDecoder, ofARepeatedKeyTheLastOneCounts) {
    EXPECT_EQ(valueOf<Leaf>(leaf("}", ",\"name\":\"last\"}")).name, "last");
    EXPECT_EQ(valueOf<Leaf>(leaf("}", ",\"rate\":1,\"rate\":2}")).rate, 2);
    EXPECT_EQ(valueOf<Leaf>(leaf("}", ",\"rate\":1,\"rate\":null}")).rate, std::nullopt);
    EXPECT_EQ(valueOf<Leaf>(leaf("}", ",\"rate\":null,\"rate\":1}")).rate, 1);
}

TEST(JsonDecoder, ofARepeatedListOrRecordNothingOfTheFirstOneStays) {
    const auto twice = [](const std::string& first, const std::string& second) {
        return R"({"name":"","leaves":[],"knot":{"width":1},)" + first + "," + second + "}";
    };
    EXPECT_EQ(
        valueOf<Branch>(twice("\"leaves\":[" + leaf() + "," + leaf() + "]", "\"leaves\":[" + leaf() + "]"))
            .leaves.size(),
        1U);
    EXPECT_TRUE(valueOf<Branch>(twice("\"leaves\":[" + leaf() + "]", "\"leaves\":[]")).leaves.empty());
    EXPECT_EQ(valueOf<Branch>(twice("\"weights\":[1,2]", "\"weights\":[3]")).weights, std::vector<double>{3});
    EXPECT_EQ(valueOf<Branch>(twice(R"("knot":{"width":1,"mark":"x"})", R"("knot":{"width":2})")).knot,
              (Knot{2, std::nullopt}));
    EXPECT_EQ(valueOf<Branch>(twice(R"("otherKnot":{"width":1,"mark":"x"})", R"("otherKnot":{"width":2})"))
                  .otherKnot,
              (Knot{2, std::nullopt}));
}

TEST(JsonDecoder, firstOfARepeatedKeyMustFitToo) {
    EXPECT_EQ(errorOf<Leaf>(leaf("{", "{\"name\":5,")).find("name: expected text, found a number"), 0U);
}

// What does not fit

TEST(JsonDecoder, missingKeyIsNamedWithItsPlace) {
    EXPECT_EQ(errorOf<Leaf>(leaf(",\"flag\":true")).substr(0, 14), "flag: missing ");
    std::string leaves;
    for (int i = 0; i < 17; ++i)
        leaves += leaf() + ",";
    const std::string branch = R"({"name":"","knot":{"width":1},"leaves":[]})";
    const std::string start =
        "[" + branch + "," + branch + "," + branch + R"(,{"name":"","leaves":[)" + leaves;
    const std::string broken = leaf(",\"flag\":true");
    EXPECT_EQ(errorOf<std::vector<Branch>>(start + broken + "]}]"),
              "[3].leaves[17].flag: missing (byte " + std::to_string(start.size() + broken.size() - 1) + ")");
}

TEST(JsonDecoder, everyRequiredKeyIsRequired) {
    for (const char* const key : {"\"id\"", "\"name\"", "\"when\"", "\"flag\"", "\"fruit\""})
        EXPECT_NE(errorOf<Leaf>(leaf(key, "\"other\"")).find(": missing"), std::string::npos) << key;
    EXPECT_EQ(errorOf<Leaf>("{}"), "id: missing (byte 1)");
    EXPECT_EQ(errorOf<std::vector<Branch>>("[{\"name\":\"\",\"leaves\":[],\"knot\":{}}]").substr(0, 27),
              "[0].knot.width: missing (by");
}

TEST(JsonDecoder, keyInsideAnUnknownValueDoesNotCount) {
    EXPECT_EQ(errorOf<Knot>(R"({"unknown":{"width":1}})"), "width: missing (byte 22)");
}

TEST(JsonDecoder, nullForAnOptionalKeyIsAbsence) {
    const Leaf read = valueOf<Leaf>(leaf("}", ",\"rate\":null,\"note\":null,\"owner\":null}"));
    EXPECT_EQ(read, valueOf<Leaf>(leaf()));
}

TEST(JsonDecoder, nullForAnythingElseIsAnError) {
    EXPECT_EQ(errorOf<Leaf>(leaf("\"Blatt\"", "null")).find("name: expected text, found null"), 0U);
    EXPECT_EQ(errorOf<std::vector<double>>("[null]").find("[0]: expected a number, found null"), 0U);
    EXPECT_EQ(errorOf<std::vector<double>>("null").find("expected a list, found null"), 0U);
    EXPECT_EQ(errorOf<Branch>(R"({"leaves":null})").find("leaves: expected a list, found null"), 0U);
    EXPECT_EQ(errorOf<Branch>(R"({"knot":null})").find("knot: expected an object, found null"), 0U);
    EXPECT_EQ(errorOf<Branch>(R"({"weights":[null]})").find("weights[0]: expected a number, found null"), 0U);
}

TEST(JsonDecoder, typesAreExact) {
    const auto complaint = [](const std::string& from, const std::string& to) {
        const std::string error = errorOf<Leaf>(leaf(from, to));
        return error.substr(0, error.find(" (byte"));
    };
    EXPECT_EQ(complaint("true", "1"), "flag: expected a truth value, found a number");
    EXPECT_EQ(complaint("true", "\"true\""), "flag: expected a truth value, found text");
    EXPECT_EQ(complaint("816456008.5", "true"), "when: expected a number, found a truth value");
    EXPECT_EQ(complaint("816456008.5", "\"816456008.5\""), "when: expected a number, found text");
    EXPECT_EQ(complaint("816456008.5", "[1]"), "when: expected a number, found a list");
    EXPECT_EQ(complaint("816456008.5", "{}"), "when: expected a number, found an object");
    EXPECT_EQ(complaint("\"Blatt\"", "5"), "name: expected text, found a number");
    EXPECT_EQ(complaint("\"Blatt\"", "false"), "name: expected text, found a truth value");
    EXPECT_EQ(complaint("\"Blatt\"", "[\"Blatt\"]"), "name: expected text, found a list");
    EXPECT_EQ(complaint("\"p\"", "\"x\""), "fruit: unknown value");
    EXPECT_EQ(complaint("\"p\"", "1"), "fruit: expected text, found a number");
    EXPECT_EQ(complaint(anId, "no identifier"), "id: text is no identifier");
    EXPECT_EQ(complaint("}", ",\"rate\":\"80\"}"), "rate: expected a number, found text");
    EXPECT_EQ(complaint("}", ",\"owner\":\"\"}"), "owner: text is no identifier");
}

TEST(JsonDecoder, wrongShapeIsAnError) {
    EXPECT_EQ(errorOf<std::vector<Leaf>>("{}"), "expected a list, found an object (byte 0)");
    EXPECT_EQ(errorOf<Leaf>("[]"), "expected an object, found a list (byte 0)");
    EXPECT_EQ(errorOf<std::vector<Leaf>>("5"), "expected a list, found a number (byte 1)");
    EXPECT_EQ(errorOf<std::vector<Leaf>>("\"x\"").find("expected a list, found text"), 0U);
    EXPECT_EQ(errorOf<std::vector<Leaf>>("[[]]").find("[0]: expected an object, found a list"), 0U);
    EXPECT_EQ(
        errorOf<std::vector<Leaf>>("[" + leaf() + ",5]").find("[1]: expected an object, found a number"), 0U);
    EXPECT_EQ(errorOf<Branch>(R"({"leaves":{}})").find("leaves: expected a list, found an object"), 0U);
    EXPECT_EQ(errorOf<Branch>(R"({"leaves":[],"knot":5})").find("knot: expected an object, found a number"),
              0U);
}

TEST(JsonDecoder, whatFollowsARecordInAListIsStillChecked) {
    EXPECT_EQ(errorOf<Branch>(R"({"weights":[1],"name":5})").find("name: expected text"), 0U);
    EXPECT_EQ(errorOf<Branch>(R"({"knot":{"width":1},"name":5})").find("name: expected text"), 0U);
    EXPECT_EQ(errorOf<Branch>("{\"leaves\":[" + leaf() + ",true]}").find("leaves[1]: expected an object"),
              0U);
}

// What is not JSON

TEST(JsonDecoder, noiseIsRefused) {
    for (const std::string& noise : {""s,
                                     " "s,
                                     "\n\n"s,
                                     "x"s,
                                     "[1,]"s,
                                     "[,1]"s,
                                     "[1 2]"s,
                                     "{\"a\" 1}"s,
                                     "{a:1}"s,
                                     "{'a':1}"s,
                                     "[1"s,
                                     "]"s,
                                     "[01]"s,
                                     "[+1]"s,
                                     "[.5]"s,
                                     "[5.]"s,
                                     "[1e]"s,
                                     "[0x10]"s,
                                     "[NaN]"s,
                                     "[Infinity]"s,
                                     "[-Infinity]"s,
                                     "[-]"s,
                                     "[True]"s,
                                     "[tru]"s,
                                     "[nul]"s,
                                     "[1]]"s,
                                     "[1]x"s,
                                     "[1] [1]"s,
                                     "[1],"s,
                                     "/**/[1]"s,
                                     "[1]//"s,
                                     "[\"a\nb\"]"s,
                                     "[\"\\x\"]"s,
                                     "[\"\\u12\"]"s,
                                     "[\"\\u12G4\"]"s,
                                     "[\"a]"s,
                                     "\xFF\xFE[\0"s,
                                     "\0"s}) {
        EXPECT_TRUE(json::decode<std::vector<double>>(noise).failed()) << noise;
        EXPECT_TRUE(json::decode<std::vector<std::string>>(noise).failed()) << noise;
    }
}

TEST(JsonDecoder, fileCutAtAnyByteIsRefused) {
    const std::string whole = R"([{"name":"Ast \u00e4","leaves":[)" + leaf() + "," +
                              leaf("}", ",\"rate\":null}") +
                              R"(],"weights":[1,-2.5e-3],"unknown":[{"a":[]}],"knot":{"width":2}}])";
    ASSERT_TRUE(json::decode<std::vector<Branch>>(whole).succeeded());
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_TRUE(json::decode<std::vector<Branch>>(whole.substr(0, length)).failed()) << length;
}

TEST(JsonDecoder, trailingBytesAreRefused) {
    EXPECT_EQ(errorOf<std::vector<double>>("[1]}").substr(0, 20), "The document root mu");
    EXPECT_EQ(errorOf<std::vector<double>>("[1]\0"s), "The document is followed by something else. (byte 3)");
    EXPECT_EQ(errorOf<std::vector<double>>("[1] \0[2]"s),
              "The document is followed by something else. (byte 4)");
}

TEST(JsonDecoder, zeroBytesAreRefused) {
    EXPECT_NE(errorOf<std::vector<double>>("[1\0]"s), "");
    EXPECT_NE(errorOf<std::vector<std::string>>("[\"a\0b\"]"s), "");
    EXPECT_NE(errorOf<Knot>("{\"wid\0th\":1}"s), "");
    EXPECT_NE(errorOf<std::vector<double>>(std::string(1000, '\0')), "");
    EXPECT_EQ(valueOf<std::vector<std::string>>("[\"a\\u0000b\"]")[0], "a\0b"s)
        << "written as an escape, a zero byte is text";
}

// Texts

TEST(JsonDecoder, escapesAreTranslated) {
    EXPECT_EQ(valueOf<std::vector<std::string>>(R"(["\"\\\/\b\f\n\r\t\u00e4\u20AC\ud83d\ude00"])")[0],
              "\"\\/\b\f\n\r\tä€😀");
    EXPECT_EQ(valueOf<std::vector<std::string>>("[\"ä€😀\x7F\"]")[0], "ä€😀\x7F");
}

TEST(JsonDecoder, malformedUtf8IsRefusedEverywhere) {
    for (const char* const bad : {"\x80", "\xC3", "\xC0\x80", "\xE0\x80\x80", "\xED\xA0\x80",
                                  "\xF4\x90\x80\x80", "\xF8\x88\x80\x80\x80", "\xFF"}) {
        EXPECT_NE(errorOf<std::vector<std::string>>("[\"a"s + bad + "b\"]"), "");
        EXPECT_NE(errorOf<std::vector<std::string>>("[\"a"s + bad), "");
        EXPECT_NE(errorOf<Knot>("{\"width\":1,\"x"s + bad + "\":2}"), "") << "in a key";
        EXPECT_NE(errorOf<Knot>("{\"width\":1,\"x\":[\""s + bad + "\"]}"), "") << "below an unknown key";
        EXPECT_NE(errorOf<Knot>("{\"width\":1,\"x\":{\"y"s + bad + "\":2}}"), "")
            << "in a key below an unknown key";
        EXPECT_NE(errorOf<Knot>("{\"width\":1,\"mark\":\"0123456789\\n"s + bad + "01234567\"}"), "");
    }
}

TEST(JsonDecoder, textsAreReadWhateverStandsWhereInThem) {
    for (const auto& [written, read] : {std::pair{"a", "a"},
                                        {"ä", "ä"},
                                        {"😀", "😀"},
                                        {R"(\")", "\""},
                                        {R"(\\)", "\\"},
                                        {R"(\u20ac)", "€"},
                                        {"\x7F", "\x7F"}})
        for (std::size_t before = 0; before < 20; ++before)
            for (std::size_t after = 0; after < 20; ++after) {
                const std::string bytes =
                    "[\"" + std::string(before, 'b') + written + std::string(after, 'e') + "\"]";
                EXPECT_EQ(valueOf<std::vector<std::string>>(bytes)[0],
                          std::string(before, 'b') + read + std::string(after, 'e'));
            }
}

TEST(JsonDecoder, controlCharactersInTextsAreRefused) {
    for (char control = 0; control < ' '; ++control)
        for (std::size_t before = 0; before < 20; ++before) {
            const std::string bytes =
                "[\"" + std::string(before, 'b') + std::string(1, control) + "0123456789\"]";
            EXPECT_NE(errorOf<std::vector<std::string>>(bytes), "");
        }
}

TEST(JsonDecoder, loneSurrogatesWrittenAsEscapesAreRefused) {
    for (const char* const bad :
         {R"(\ud83d)", R"(\ud83dx)", R"(\ud83d\n)", R"(\ud83d\u0041)", R"(\ud83d\ud83d)", R"(\udc00)",
          R"(\udfff)", R"(ok \udc00 ok)", R"(\ude00\ud83d)"}) {
        EXPECT_NE(errorOf<std::vector<std::string>>("[\""s + bad + "\"]"), "") << bad;
        EXPECT_NE(errorOf<Knot>("{\"width\":1,\"x"s + bad + "\":2}"), "") << bad;
        EXPECT_NE(errorOf<Knot>("{\"width\":1,\"x\":\""s + bad + "\"}"), "") << bad;
    }
    EXPECT_EQ(valueOf<std::vector<std::string>>("[\"\uD7FF\uE000\"]")[0], "\uD7FF\uE000")
        << "their neighbours are accepted";
}

// Depth

TEST(JsonDecoder, twoMillionOpenBracketsCostNoStack) {
    constexpr std::size_t many = 2000000;
    EXPECT_NE(errorOf<std::vector<Leaf>>(std::string(many, '[')), "");
    EXPECT_NE(errorOf<std::vector<std::vector<double>>>(std::string(many, '[')), "");
    EXPECT_NE(errorOf<Knot>("{\"width\":1,\"deep\":" + std::string(many, '[')), "");
    std::string objects;
    for (std::size_t i = 0; i < many / 5; ++i)
        objects += "{\"a\":";
    EXPECT_NE(errorOf<Knot>("{\"width\":1,\"deep\":" + objects), "");
}

TEST(JsonDecoder, twoMillionNestedListsBelowAnUnknownKeyArePassedOver) {
    constexpr std::size_t many = 2000000;
    EXPECT_EQ(
        valueOf<Knot>("{\"deep\":" + std::string(many, '[') + std::string(many, ']') + ",\"width\":1}").width,
        1);
}

} // namespace
} // namespace brisklog::test
