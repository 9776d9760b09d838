#include "JsonRecords.h"

#include <cmath>
#include <gtest/gtest.h>

namespace brisklog::test {
namespace {

using namespace std::string_literals;

template <class T>
std::string encoded(const T& value, json::Layout layout = json::Layout::compact) {
    const auto result = json::encode(value, layout);
    EXPECT_TRUE(result.succeeded()) << result.error().description;
    return result.succeeded() ? std::string(result.value().bytes()) : "";
}

template <class T>
std::string refusal(const T& value) {
    const auto compact = json::encode(value, json::Layout::compact);
    const auto pretty = json::encode(value, json::Layout::pretty);
    EXPECT_TRUE(compact.failed());
    EXPECT_TRUE(pretty.failed());
    EXPECT_EQ(compact.error(), pretty.error());
    return compact.error().description;
}

Leaf aLeaf() {
    Leaf leaf;
    leaf.id = *Uuid::parse("0A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9");
    leaf.name = "Blatt";
    leaf.when = Date{816456008.5};
    return leaf;
}

TEST(JsonEncoder, compactHasNoWhiteSpaceAndLeavesAbsentValuesOut) {
    EXPECT_EQ(encoded(std::vector{aLeaf()}),
              R"([{"id":"0A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9","name":"Blatt","when":816456008.5,)"
              R"("flag":false,"fruit":"a"}])");
}

TEST(JsonEncoder, prettyHasOneKeyALine) {
    Branch branch{.name = "Ast", .leaves = {aLeaf()}, .weights = {}, .knot = {1, "m"}, .otherKnot = {}};
    EXPECT_EQ(encoded(branch, json::Layout::pretty), R"({
  "name": "Ast",
  "leaves": [
    {
      "id": "0A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9",
      "name": "Blatt",
      "when": 816456008.5,
      "flag": false,
      "fruit": "a"
    }
  ],
  "knot": {
    "width": 1.0,
    "mark": "m"
  }
})");
}

TEST(JsonEncoder, emptyListsStayOnOneLine) {
    EXPECT_EQ(encoded(std::vector<Leaf>(), json::Layout::pretty), "[]");
    EXPECT_EQ(encoded(std::vector<Leaf>()), "[]");
}

TEST(JsonEncoder, presentOptionalsAreWrittenEmptyOnesIncluded) {
    Leaf leaf = aLeaf();
    leaf.rate = 0;
    leaf.note = "";
    leaf.owner = Uuid();
    EXPECT_NE(encoded(leaf).find(R"("rate":0.0,"note":"","owner":"00000000-0000-0000-0000-000000000000")"),
              std::string::npos);
}

TEST(JsonEncoder, textsAreUtf8WithTheNecessaryEscapesOnly) {
    EXPECT_EQ(encoded(std::vector{"äöü€😀"s}), "[\"äöü€😀\"]");
    EXPECT_EQ(encoded(std::vector{"\"\\/\b\f\n\r\t\x01\x1F\x7F"s}),
              "[\"\\\"\\\\/\\b\\f\\n\\r\\t\\u0001\\u001F\x7F\"]");
    EXPECT_EQ(encoded(std::vector{"a\0b"s}), "[\"a\\u0000b\"]");
    EXPECT_EQ(encoded(std::vector{"\u2028"s}), "[\"\u2028\"]");
}

TEST(JsonEncoder, everythingComesBackEqual) {
    Leaf full = aLeaf();
    full.name = "\"\\/\b\f\n\r\t\x01ä€😀"s + '\0' + "\u2028\uFFFF";
    full.flag = true;
    full.fruit = Fruit::pear;
    full.rate = -0.1;
    full.note = "note";
    full.owner = Uuid::generate();
    const std::vector<Branch> branches{{.name = "", .leaves = {}, .weights = {}, .knot = {}, .otherKnot = {}},
                                       {.name = "Ast",
                                        .leaves = {full, aLeaf()},
                                        .weights = {{1, 2}},
                                        .knot = {1, "m"},
                                        .otherKnot = Knot{2, {}}}};
    for (const auto layout : {json::Layout::pretty, json::Layout::compact})
        EXPECT_EQ(json::decode<std::vector<Branch>>(encoded(branches, layout)).value(), branches);
}

TEST(JsonEncoder, numberThatIsNotFiniteIsRefusedWithItsPath) {
    std::vector<Branch> branches(3);
    branches[2].leaves = {aLeaf(), aLeaf()};
    branches[2].leaves[1].rate = std::nan("");
    EXPECT_EQ(refusal(branches), "[2].leaves[1].rate: number is not finite");
    branches[2].leaves[1].rate = 1;
    branches[2].leaves[0].when = Date{HUGE_VAL};
    EXPECT_EQ(refusal(branches), "[2].leaves[0].when: number is not finite");
    EXPECT_EQ(refusal(HUGE_VAL), "number is not finite");
}

TEST(JsonEncoder, malformedTextIsRefusedWithItsPath) {
    std::vector<Branch> branches(1);
    branches[0].otherKnot = Knot{1, "\xFF"};
    EXPECT_EQ(refusal(branches), "[0].otherKnot.mark: text is not well-formed UTF-8");
    branches[0].name = "\xED\xA0\x80";
    EXPECT_EQ(refusal(branches), "[0].name: text is not well-formed UTF-8") << "the first fault is reported";
}

} // namespace
} // namespace brisklog::test
