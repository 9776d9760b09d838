// A field that was added to a record later: older files lack its key.

#include "foundation/JsonCoding.h"

#include <gtest/gtest.h>

namespace brisklog::test {
namespace {

struct Person {
    std::string name;
    std::string mobile;
    std::string country = "Deutschland";
    double discount = 3;
    std::vector<double> rates{80};

    bool operator==(const Person&) const = default;
};

constexpr auto jsonFields(std::type_identity<Person>) {
    using enum json::IfMissing;
    return std::tuple{json::field<&Person::name>("name"),
                      json::field<&Person::mobile>("mobile", keepsDefault),
                      json::field<&Person::country>("country", keepsDefault),
                      json::field<&Person::discount>("discount", keepsDefault),
                      json::field<&Person::rates>("rates", keepsDefault)};
}

constexpr const char* fromBefore = R"({"name":"Muster"})";

Person named(const std::string& name) {
    Person person;
    person.name = name;
    return person;
}

Person decoded(const std::string& bytes) {
    auto person = json::decode<Person>(bytes);
    EXPECT_TRUE(person.succeeded()) << bytes << "\n" << person.error().description;
    return std::move(person).value();
}

std::string errorOf(const std::string& bytes) {
    const auto person = json::decode<Person>(bytes);
    return person.failed() ? person.error().description : "";
}

TEST(JsonLaterField, keepsItsDeclarationsDefaultWhenTheKeyIsMissing) {
    EXPECT_EQ(decoded(fromBefore), named("Muster"));
}

TEST(JsonLaterField, isReadWhenTheKeyIsThere) {
    EXPECT_EQ(decoded(R"({"mobile":"0170","country":"","name":"Muster","discount":0,"rates":[]})"),
              (Person{.name = "Muster", .mobile = "0170", .country = "", .discount = 0, .rates = {}}));
}

TEST(JsonLaterField, ofARepeatedKeyTheLastOneCounts) {
    EXPECT_EQ(decoded(R"({"country":"Polen","name":"Muster","country":"Italien"})").country, "Italien");
}

TEST(JsonLaterField, mustFitWhenTheKeyIsThere) {
    EXPECT_EQ(errorOf(R"({"name":"","mobile":5})").find("mobile: expected text, found a number"), 0U);
    EXPECT_EQ(errorOf(R"({"name":"","discount":"3"})").find("discount: expected a number, found text"), 0U);
    EXPECT_EQ(errorOf(R"({"name":"","mobile":null})").find("mobile: expected text, found null"), 0U)
        << "null means absence, which only optional values allow; a text is not optional";
}

TEST(JsonLaterField, leavesTheOtherKeysRequired) {
    EXPECT_EQ(errorOf(R"({"mobile":"0170"})"), "name: missing (byte 16)");
}

TEST(JsonLaterField, ofOneElementIsNotTakenFromTheOneBefore) {
    const auto people = json::decode<std::vector<Person>>(
        R"([{"name":"Eins","mobile":"0170","country":"Polen"},{"name":"Zwei"}])");
    ASSERT_TRUE(people.succeeded());
    EXPECT_EQ(people.value().at(1), named("Zwei"));
}

TEST(JsonLaterField, keepsWhatTheRecordAlreadyHeldWhereThereIsOne) {
    Person before = named("Alt");
    before.mobile = "0170";
    const auto person = json::decode(fromBefore, before);
    ASSERT_TRUE(person.succeeded());
    before.name = "Muster";
    EXPECT_EQ(person.value(), before);
}

TEST(JsonLaterField, isAlwaysWritten) {
    const auto encoded = json::encode(named("Muster"), json::Layout::compact);
    ASSERT_TRUE(encoded.succeeded());
    EXPECT_EQ(encoded.value().bytes(),
              R"({"name":"Muster","mobile":"","country":"Deutschland","discount":3.0,"rates":[80.0]})");
}

} // namespace
} // namespace brisklog::test
