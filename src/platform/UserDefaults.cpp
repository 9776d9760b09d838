#include "platform/UserDefaults.h"

#include "foundation/NumericInput.h"

namespace brisklog {
namespace {

struct AsTruth {
    bool operator()(bool truth) const { return truth; }

    bool operator()(std::int64_t number) const { return number != 0; }

    bool operator()(double number) const { return number != 0; }

    bool operator()(const std::string& text) const { return text == "YES" || text == "true" || text == "1"; }

    bool operator()(const Data& /*data*/) const { return false; }
};

struct AsNumber {
    double operator()(bool truth) const { return truth ? 1 : 0; }

    double operator()(std::int64_t number) const { return static_cast<double>(number); }

    double operator()(double number) const { return number; }

    double operator()(const std::string& text) const { return parseDecimal(text).value_or(0); }

    double operator()(const Data& /*data*/) const { return 0; }
};

} // namespace

std::optional<std::string> textValue(const UserDefaults& defaults, std::string_view key) {
    auto value = defaults.value(key);
    if (value && std::holds_alternative<std::string>(*value))
        return std::get<std::string>(std::move(*value));
    return std::nullopt;
}

std::optional<bool> truthValue(const UserDefaults& defaults, std::string_view key) {
    const auto value = defaults.value(key);
    return value ? std::optional(std::visit(AsTruth{}, *value)) : std::nullopt;
}

std::optional<double> numberValue(const UserDefaults& defaults, std::string_view key) {
    const auto value = defaults.value(key);
    return value ? std::optional(std::visit(AsNumber{}, *value)) : std::nullopt;
}

std::optional<std::string> dataValue(const UserDefaults& defaults, std::string_view key) {
    auto value = defaults.value(key);
    if (value && std::holds_alternative<Data>(*value))
        return std::get<Data>(std::move(*value)).bytes;
    return std::nullopt;
}

} // namespace brisklog
