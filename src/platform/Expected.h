#pragma once

#include <optional>
#include <utility>
#include <variant>

#include <QtCore/QString>

namespace driftbox {

/// Why an operation failed.
struct Error
{
    QString message; ///< for the log; begins with the path where a file is concerned
};

/// The result of an operation or the reason why there is none. Implicitly made of either; test it
/// before dereferencing it or asking for the error.
template <typename T>
class [[nodiscard]] Expected
{
public:
    Expected(T value)
        : m_outcome(std::move(value))
    {
    }
    Expected(Error error)
        : m_outcome(std::move(error))
    {
    }

    /// True on success.
    explicit operator bool() const { return std::holds_alternative<T>(m_outcome); }

    [[nodiscard]] T& operator*() { return *std::get_if<T>(&m_outcome); }
    [[nodiscard]] const T& operator*() const { return *std::get_if<T>(&m_outcome); }
    [[nodiscard]] const T* operator->() const { return std::get_if<T>(&m_outcome); }
    [[nodiscard]] const Error& error() const { return *std::get_if<Error>(&m_outcome); }

private:
    std::variant<T, Error> m_outcome;
};

/// The outcome of an operation without a result: success, or the reason for the failure.
template <>
class [[nodiscard]] Expected<void>
{
public:
    Expected() = default;
    Expected(Error error)
        : m_error(std::move(error))
    {
    }

    /// True on success.
    explicit operator bool() const { return !m_error; }

    [[nodiscard]] const Error& error() const { return *m_error; }

private:
    std::optional<Error> m_error;
};

} // namespace driftbox
