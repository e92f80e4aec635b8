#pragma once

#include "Error.h"

#include <QSharedPointer>
#include <QStringList>

#include <optional>
#include <utility>

/// What came of an operation: success, or an error code with the details that its sentence needs. `errorText` makes the
/// sentence where it is shown.
class [[nodiscard]] Status {
public:
    /// Success.
    Status() = default;
    /// A failure. `details` are the values that the comment at the code names; `cause` is the failure behind it, where
    /// the code has one.
    Status(Error error, QStringList details = {});
    Status(Error error, QStringList details, const Status& cause);

    /// True on success.
    explicit operator bool() const { return m_error == Error::None; }
    Error error() const { return m_error; }
    const QStringList& details() const { return m_details; }
    /// The failure behind this one; success when there is none.
    Status cause() const { return m_cause ? *m_cause : Status(); }

    /// True when code, details and cause are the same.
    bool operator==(const Status& other) const;

private:
    Error m_error = Error::None;
    QStringList m_details;
    QSharedPointer<const Status> m_cause;
};

/// A value, or the status that says why there is none.
template <typename T> class [[nodiscard]] Result {
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

    /// True when there is a value.
    explicit operator bool() const { return m_value.has_value(); }
    /// The value; only to be asked for when there is one.
    const T& operator*() const { return *m_value; }
    T& operator*() { return *m_value; }
    const T* operator->() const { return &*m_value; }
    T* operator->() { return &*m_value; }
    /// The value, or `other` when there is none.
    T valueOr(T other) const { return m_value ? *m_value : other; }
    /// Success when there is a value.
    const Status& status() const { return m_status; }

private:
    std::optional<T> m_value;
    Status m_status;
};
