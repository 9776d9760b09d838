#pragma once

#include "foundation/Date.h"
#include "foundation/JsonCoding.h"
#include "foundation/Uuid.h"

#include <optional>
#include <string>
#include <vector>

/// Records with every kind of member, for testing the JSON coding.
namespace brisklog::test {

enum class Fruit { apple, pear };

inline std::string_view jsonText(Fruit fruit) { return fruit == Fruit::apple ? "a" : "p"; }

inline bool fromJsonText(std::string_view text, Fruit& fruit) {
    fruit = text == "a" ? Fruit::apple : Fruit::pear;
    return text == "a" || text == "p";
}

struct Leaf {
    Uuid id;
    std::string name;
    Date when;
    bool flag = false;
    Fruit fruit = Fruit::apple;
    std::optional<double> rate;
    std::optional<std::string> note;
    std::optional<Uuid> owner;

    bool operator==(const Leaf&) const = default;
};

constexpr auto jsonFields(std::type_identity<Leaf>) {
    return std::tuple{json::field<&Leaf::id>("id"),       json::field<&Leaf::name>("name"),
                      json::field<&Leaf::when>("when"),   json::field<&Leaf::flag>("flag"),
                      json::field<&Leaf::fruit>("fruit"), json::field<&Leaf::rate>("rate"),
                      json::field<&Leaf::note>("note"),   json::field<&Leaf::owner>("owner")};
}

/// A small record, nested in a branch.
struct Knot {
    double width = 0;
    std::optional<std::string> mark;

    bool operator==(const Knot&) const = default;
};

constexpr auto jsonFields(std::type_identity<Knot>) {
    return std::tuple{json::field<&Knot::width>("width"), json::field<&Knot::mark>("mark")};
}

struct Branch {
    std::string name;
    std::vector<Leaf> leaves;
    std::optional<std::vector<double>> weights;
    Knot knot;
    std::optional<Knot> otherKnot;

    bool operator==(const Branch&) const = default;
};

constexpr auto jsonFields(std::type_identity<Branch>) {
    return std::tuple{json::field<&Branch::name>("name"), json::field<&Branch::leaves>("leaves"),
                      json::field<&Branch::weights>("weights"), json::field<&Branch::knot>("knot"),
                      json::field<&Branch::otherKnot>("otherKnot")};
}

} // namespace brisklog::test
