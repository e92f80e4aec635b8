#pragma once

#include "Error.h"

#include <QSharedPointer>
#include <QStringList>

#include <optional>
#include <type_traits>
#include <utility>

/// The result of an operation: success, or an error code with the details for its sentence. `errorText` makes the
/// sentence where it is shown.
class [[nodiscard]] Status {
public:
    /// Success.
    Status() = default;
    /// A failure. The comment of the code lists the `details`; `cause` is the underlying failure, if the code has one.
    Status(Error error, QStringList details = {});
    Status(Error error, QStringList details, const Status& cause);

    /// True on success.
    explicit operator bool() const { return m_error == Error::None; }
    Error error() const { return m_error; }
    const QStringList& details() const { return m_details; }
    /// The underlying failure; success if there is none.
    Status cause() const { return m_cause ? *m_cause : Status(); }

    /// True if code, details and cause are equal.
    bool operator==(const Status& other) const;

private:
    Error m_error = Error::None;
    QStringList m_details;
    QSharedPointer<const Status> m_cause;
};

/// A value, or the status of the operation that failed to make one.
template <typename T> class [[nodiscard]] Result {
    static_assert(!std::is_same_v<T, bool>, "a condition would ask for success instead of the answer");

public:
    Result(T value)
        : m_value(std::move(value))
    {
    }
    /// `status` must be a failure.
    Result(Status status)
        : m_status(std::move(status))
    {
    }
    Result(Error error, QStringList details = {})
        : m_status(error, std::move(details))
    {
    }

    /// True if there is a value.
    explicit operator bool() const { return m_value.has_value(); }
    /// The value; there must be one.
    const T& operator*() const { return *m_value; }
    T& operator*() { return *m_value; }
    const T* operator->() const { return &*m_value; }
    T* operator->() { return &*m_value; }
    /// The value, or `other` if there is none.
    T valueOr(T other) const { return m_value ? *m_value : other; }
    /// Success if there is a value.
    const Status& status() const { return m_status; }

private:
    std::optional<T> m_value;
    Status m_status;
};
