#pragma once

#include "foundation/Observable.h"
#include "platform/JsonFile.h"
#include "platform/UserDefaults.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>

/// Objects whose properties are kept in one JSON file. A table names each property once, in the order in
/// which they are written, loaded and taken over from the user defaults, where earlier versions kept them:
///
///     constexpr auto storedProperties(std::type_identity<UserProfile>) {
///         return std::tuple{stored<&UserProfile::city>("city", "profile_city"), …};
///     }
///
/// An enumeration is stored as its text, as in `JsonCoding.h`; an unknown text leaves the property unchanged.
namespace brisklog {

/// A row of the table.
template <auto Property>
struct StoredProperty {
    static constexpr auto property = Property;
    std::string_view key;
    /// Its key in the user defaults; empty if earlier versions did not keep it there.
    std::string_view olderKey;
    json::IfMissing ifMissing;
};

template <auto Property>
constexpr StoredProperty<Property> stored(std::string_view key, std::string_view olderKey = {}) {
    return {key, olderKey, json::IfMissing::isError};
}

/// With `keepsDefault`, for a property that files of earlier versions do not have.
template <auto Property>
constexpr StoredProperty<Property> stored(std::string_view key, json::IfMissing ifMissing) {
    return {key, {}, ifMissing};
}

/// What the file holds of one property.
template <auto Property>
struct StoredValue;

template <class Object, class T, Published<T> Object::*Property>
struct StoredValue<Property> {
    std::conditional_t<std::is_enum_v<T>, std::string, T> value{};
};

/// What the file holds of the whole object.
template <class Object, class Table = decltype(storedProperties(std::type_identity<Object>{}))>
struct StoredRecord;

template <class Object, auto... Properties>
struct StoredRecord<Object, std::tuple<StoredProperty<Properties>...>> : StoredValue<Properties>... {
    template <auto Property>
    auto& operator[](const StoredProperty<Property>& /*row*/) {
        return StoredValue<Property>::value;
    }
};

template <auto Property>
constexpr auto storedField(const StoredProperty<Property>& row) {
    return json::field<&StoredValue<Property>::value>(row.key, row.ifMissing);
}

template <class Object, auto... Properties>
constexpr auto
jsonFields(std::type_identity<StoredRecord<Object, std::tuple<StoredProperty<Properties>...>>>) {
    return std::apply([](const auto&... rows) { return std::tuple{storedField(rows)...}; },
                      storedProperties(std::type_identity<Object>{}));
}

namespace detail {

template <class Object>
JsonFile<StoredRecord<Object>> propertyFile(const std::filesystem::path& path) {
    return {path, json::Layout::pretty, Durability::leftToSystem};
}

/// Calls `visit(row, property)` for each property, in the table's order.
template <class Object, class Visit>
void forEachProperty(Object& object, Visit visit) {
    std::apply([&](const auto&... rows) { (visit(rows, object.*rows.property), ...); },
               storedProperties(std::type_identity<std::remove_const_t<Object>>{}));
}

template <class Object>
StoredRecord<Object> storedRecord(const Object& object) {
    StoredRecord<Object> record;
    forEachProperty(object, [&record]<class T>(const auto& row, const Published<T>& property) {
        if constexpr (std::is_enum_v<T>)
            record[row] = jsonText(property.get());
        else
            record[row] = property.get();
    });
    return record;
}

/// The option with that text; none when there is no such option.
template <class Option>
std::optional<Option> optionCalled(std::string_view text) {
    Option option{};
    return fromJsonText(text, option) ? std::optional(option) : std::nullopt;
}

template <class T>
std::optional<T> olderValue(const UserDefaults& defaults, std::string_view key) {
    if constexpr (std::is_enum_v<T>)
        return optionCalled<T>(textValue(defaults, key).value_or(""));
    else if constexpr (std::is_same_v<T, bool>)
        return truthValue(defaults, key);
    else if constexpr (std::is_same_v<T, double>)
        return numberValue(defaults, key);
    else
        return textValue(defaults, key);
}

} // namespace detail

/// Assigns what the file holds, one property after the other. Does nothing when there is no file; assigns
/// nothing when it cannot be read or decoded.
template <class Object>
Result<Done> loadProperties(Object& object, const std::filesystem::path& path, Files& files, Log& log) {
    if (!files.exists(path))
        return Done{};
    auto loaded = detail::propertyFile<Object>(path).load(files, log, detail::storedRecord(object));
    if (loaded.failed())
        return loaded.error();
    StoredRecord<Object> record = std::move(loaded).value();
    detail::forEachProperty(object, [&record]<class T>(const auto& row, Published<T>& property) {
        if constexpr (!std::is_enum_v<T>)
            property = record[row];
        else if (const auto option = detail::optionCalled<T>(record[row]))
            property = *option;
    });
    return Done{};
}

/// Replaces the file with the current properties.
template <class Object>
Result<Done> saveProperties(const Object& object, const std::filesystem::path& path, Files& files) {
    return detail::propertyFile<Object>(path).save(files, detail::storedRecord(object));
}

/// Assigns the properties found in the user defaults and removes them there; true if there were any.
template <class Object>
bool takeOverOlderValues(Object& object, UserDefaults& defaults) {
    bool tookAny = false;
    detail::forEachProperty(object, [&]<class T>(const auto& row, Published<T>& property) {
        if (row.olderKey.empty())
            return;
        const auto older = detail::olderValue<T>(defaults, row.olderKey);
        if (!older)
            return;
        property = *older;
        defaults.removeValue(row.olderKey);
        tookAny = true;
    });
    return tookAny;
}

} // namespace brisklog
