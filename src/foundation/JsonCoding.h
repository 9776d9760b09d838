#pragma once

#include "foundation/Date.h"
#include "foundation/JsonDecoder.h"
#include "foundation/JsonEncoder.h"
#include "foundation/Result.h"
#include "foundation/SharedData.h"
#include "foundation/Uuid.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

/// Encodes and decodes records as JSON. A record names its keys once, for both directions, in the order in
/// which they are written:
///
///     constexpr auto jsonFields(std::type_identity<Customer>) {
///         return std::tuple{json::field<&Customer::id>("id"), …};
///     }
///
/// A member that is an `std::optional` may be missing and is left out when absent; every other key is
/// required unless the table says otherwise. `SharedData` is written as Base64 text. An enumeration is
/// written as text: it provides `jsonText(value)` and `fromJsonText(text, value)`.
namespace brisklog::json {

template <auto Member>
struct Field {
    std::string_view key;
    IfMissing ifMissing;
};

template <auto Member>
constexpr Field<Member> field(std::string_view key, IfMissing ifMissing = IfMissing::isError) {
    return {key, ifMissing};
}

template <class T>
concept Record = requires {
    jsonFields(std::type_identity<T>{});
};

template <class T>
concept TextEnumeration = std::is_enum_v<T> && requires(T value) {
    { jsonText(value) } -> std::convertible_to<std::string_view>;
    { fromJsonText(std::string_view{}, value) } -> std::same_as<bool>;
};

namespace detail {

template <class T>
struct IsOptional : std::false_type {};

template <class T>
struct IsOptional<std::optional<T>> : std::true_type {
    using Inner = T;
};

template <class T>
struct IsVector : std::false_type {};

template <class T>
struct IsVector<std::vector<T>> : std::true_type {
    using Element = T;
};

template <class T>
const ValueDecoder& decoderFor();

template <class T, auto Member>
FieldDecoder fieldDecoder(Field<Member> field) {
    using Value = std::remove_reference_t<decltype(std::declval<T&>().*Member)>;
    if constexpr (IsOptional<Value>::value) {
        return {field.key, &decoderFor<typename IsOptional<Value>::Inner>(), IfMissing::keepsDefault,
                [](void* record) -> void* { return &(static_cast<T*>(record)->*Member).emplace(); },
                [](void* record) { (static_cast<T*>(record)->*Member).reset(); }};
    } else {
        return {field.key, &decoderFor<Value>(), field.ifMissing,
                [](void* record) -> void* {
                    Value& value = static_cast<T*>(record)->*Member;
                    // When a key is repeated, nothing of its earlier value remains.
                    if constexpr (Record<Value>)
                        value = Value{};
                    return &value;
                },
                nullptr};
    }
}

template <class T>
ValueDecoder recordDecoder() {
    static const auto fields =
        std::apply([](auto... declared) { return std::array{fieldDecoder<T>(declared)...}; },
                   jsonFields(std::type_identity<T>{}));
    static_assert(std::tuple_size_v<decltype(jsonFields(std::type_identity<T>{}))> <= 64);
    ValueDecoder decoder{.expected = "an object"};
    decoder.fields = fields;
    return decoder;
}

template <class T>
ValueDecoder listDecoder() {
    using List = std::vector<T>;
    ValueDecoder decoder{.expected = "a list"};
    decoder.beginList = [](void* target) { static_cast<List*>(target)->clear(); };
    decoder.appendElement = [](void* target) -> void* { return &static_cast<List*>(target)->emplace_back(); };
    decoder.element = &decoderFor<T>();
    return decoder;
}

template <class T>
ValueDecoder textDecoder() {
    if constexpr (std::is_same_v<T, std::string>) {
        return {.expected = "text", .readText = [](void* target, std::string_view text) -> Complaint {
                    static_cast<std::string*>(target)->assign(text);
                    return nullptr;
                }};
    } else if constexpr (std::is_same_v<T, Uuid>) {
        return {.expected = "an identifier",
                .readText = [](void* target, std::string_view text) -> Complaint {
                    const auto id = Uuid::parse(text);
                    if (!id)
                        return "text is no identifier";
                    *static_cast<Uuid*>(target) = *id;
                    return nullptr;
                }};
    } else {
        static_assert(TextEnumeration<T>, "this type has no JSON form");
        return {.expected = "text", .readText = [](void* target, std::string_view text) -> Complaint {
                    return fromJsonText(text, *static_cast<T*>(target)) ? nullptr : "unknown value";
                }};
    }
}

template <class T>
ValueDecoder scalarDecoder() {
    if constexpr (std::is_same_v<T, SharedData>) {
        return {.expected = "Base64 text", .takeData = [](void* target, SharedData data) {
                    *static_cast<SharedData*>(target) = std::move(data);
                }};
    } else if constexpr (std::is_same_v<T, bool>) {
        return {.expected = "a truth value", .readBoolean = [](void* target, bool truth) -> Complaint {
                    *static_cast<bool*>(target) = truth;
                    return nullptr;
                }};
    } else if constexpr (std::is_same_v<T, double> || std::is_same_v<T, Date>) {
        return {.expected = "a number", .readNumber = [](void* target, double number) -> Complaint {
                    *static_cast<T*>(target) = T{number};
                    return nullptr;
                }};
    } else {
        return textDecoder<T>();
    }
}

template <class T>
const ValueDecoder& decoderFor() {
    static const ValueDecoder decoder = [] {
        if constexpr (Record<T>)
            return recordDecoder<T>();
        else if constexpr (IsVector<T>::value)
            return listDecoder<typename IsVector<T>::Element>();
        else
            return scalarDecoder<T>();
    }();
    return decoder;
}

template <class T>
void encodeValue(Encoder& encoder, const T& value);

template <class T>
void encodeKeyed(Encoder& encoder, std::string_view key, const T& value) {
    encoder.key(key);
    encodeValue(encoder, value);
    if (encoder.failed())
        encoder.addStep(key);
}

template <class T, auto Member>
void encodeField(Encoder& encoder, const T& record, Field<Member> field) {
    const auto& value = record.*Member;
    using Value = std::remove_cvref_t<decltype(value)>;
    if (encoder.failed())
        return;
    if constexpr (!IsOptional<Value>::value)
        encodeKeyed(encoder, field.key, value);
    else if (value)
        encodeKeyed(encoder, field.key, *value);
}

template <class T>
void encodeList(Encoder& encoder, const std::vector<T>& list) {
    encoder.beginList();
    for (std::size_t i = 0; i < list.size() && !encoder.failed(); ++i) {
        encoder.nextElement();
        encodeValue(encoder, list[i]);
        if (encoder.failed())
            encoder.addStep(i);
    }
    encoder.endList();
}

inline void encodeIdentifier(Encoder& encoder, const Uuid& id) {
    std::array<char, 38> quoted{};
    quoted.front() = quoted.back() = '"';
    id.writeTo(&quoted[1]);
    encoder.quotedText({quoted.data(), quoted.size()});
}

template <class T>
void encodeValue(Encoder& encoder, const T& value) {
    if constexpr (Record<T>) {
        encoder.beginRecord();
        std::apply([&](auto... declared) { (encodeField(encoder, value, declared), ...); },
                   jsonFields(std::type_identity<T>{}));
        encoder.endRecord();
    } else if constexpr (IsVector<T>::value) {
        encodeList(encoder, value);
    } else if constexpr (std::is_same_v<T, std::string>) {
        encoder.text(value);
    } else if constexpr (std::is_same_v<T, Uuid>) {
        encodeIdentifier(encoder, value);
    } else if constexpr (std::is_same_v<T, SharedData>) {
        encoder.plainText(value.base64());
    } else if constexpr (std::is_same_v<T, bool>) {
        encoder.boolean(value);
    } else if constexpr (std::is_same_v<T, double>) {
        encoder.number(value);
    } else if constexpr (std::is_same_v<T, Date>) {
        encoder.number(value.secondsSinceReference);
    } else {
        encoder.text(jsonText(value));
    }
}

} // namespace detail

/// Decodes one document; the error names byte offset and path. Members whose keys may be missing keep what
/// they have in `value`.
template <class T>
Result<T> decode(std::string_view bytes, T value = {}) {
    if (const auto filled = decodeInto(detail::decoderFor<T>(), &value, bytes); filled.failed())
        return filled.error();
    return value;
}

/// The same for a document that is read in parts; bytes are shared through the pool.
template <class T>
Result<T> decode(DataParts& parts, SharedDataPool& pool) {
    T value{};
    if (const auto filled = decodeInto(detail::decoderFor<T>(), &value, parts, pool); filled.failed())
        return filled.error();
    return value;
}

/// Encodes the value as one document; the error names the path of whatever has no JSON form.
template <class T>
Result<EncodedDocument> encode(const T& value, Layout layout) {
    Encoder encoder(layout);
    detail::encodeValue(encoder, value);
    if (encoder.failed())
        return Error{encoder.error()};
    return encoder.takeDocument();
}

/// The same with an encoder that is reused for many values; the bytes are valid until the next call.
template <class T>
Result<std::string_view> encode(const T& value, Encoder& encoder) {
    encoder.beginAnew();
    detail::encodeValue(encoder, value);
    if (encoder.failed())
        return Error{encoder.error()};
    return encoder.bytes();
}

} // namespace brisklog::json
