#pragma once

#include <string>
#include <utility>
#include <variant>

namespace brisklog {

/// Why something failed, in words that fit on one line of a log.
struct Error {
    std::string description;

    bool operator==(const Error&) const = default;
};

/// The value of a successful operation that has nothing to return.
struct Done {
    bool operator==(const Done&) const = default;
};

/// A value, or the error that prevented it.
template <class T>
class [[nodiscard]] Result {
public:
    Result(T value) : m_content(std::move(value)) {}

    Result(Error error) : m_content(std::move(error)) {}

    [[nodiscard]] bool succeeded() const { return std::holds_alternative<T>(m_content); }

    [[nodiscard]] bool failed() const { return !succeeded(); }

    /// The value; only after `succeeded()`.
    [[nodiscard]] const T& value() const& { return std::get<T>(m_content); }

    [[nodiscard]] T&& value() && { return std::get<T>(std::move(m_content)); }

    /// The error; only after `failed()`.
    [[nodiscard]] const Error& error() const { return std::get<Error>(m_content); }

private:
    std::variant<T, Error> m_content;
};

} // namespace brisklog
