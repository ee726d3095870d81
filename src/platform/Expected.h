#pragma once

#include <optional>
#include <utility>
#include <variant>

#include <QtCore/QString>

namespace driftbox {

/// Why a call could not do what it was asked for.
struct Error
{
    QString message; ///< for the log; where a file is the matter, its path comes first
};

/// What a call gives, or why it gives nothing; made from either. Ask which before taking one.
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

    /// True when there is a value.
    explicit operator bool() const { return std::holds_alternative<T>(m_outcome); }

    [[nodiscard]] T& operator*() { return *std::get_if<T>(&m_outcome); }
    [[nodiscard]] const T& operator*() const { return *std::get_if<T>(&m_outcome); }
    [[nodiscard]] const T* operator->() const { return std::get_if<T>(&m_outcome); }
    [[nodiscard]] const Error& error() const { return *std::get_if<Error>(&m_outcome); }

private:
    std::variant<T, Error> m_outcome;
};

/// That a call did what it was asked for, or why it did not.
template <>
class [[nodiscard]] Expected<void>
{
public:
    Expected() = default;
    Expected(Error error)
        : m_error(std::move(error))
    {
    }

    /// True when it worked.
    explicit operator bool() const { return !m_error; }

    [[nodiscard]] const Error& error() const { return *m_error; }

private:
    std::optional<Error> m_error;
};

} // namespace driftbox
