// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

#include <optional>
#include <utility>

/// The result of a call that can fail: a value, or a text for the user that names what failed and where.
template <typename T>
class [[nodiscard]] CResult final
{
public:
    CResult(T value) // NOLINT: a value is a result
        : m_value(std::move(value))
    {
    }
    static CResult failure(QString text)
    {
        CResult result;
        result.m_error = std::move(text);
        return result;
    }

    explicit operator bool() const { return m_value.has_value(); }
    const T &value() const { return *m_value; } ///< only when the result is a value
    T &value() { return *m_value; }
    const QString &error() const { return m_error; } ///< empty when the result is a value

private:
    CResult() = default;
    std::optional<T> m_value;
    QString m_error;
};

/// A result without a value: success, or a text for the user that names what failed and where.
class [[nodiscard]] CStatus final
{
public:
    static CStatus done() { return CStatus(); }
    static CStatus failure(QString text)
    {
        CStatus status;
        status.m_failed = true;
        status.m_error = std::move(text);
        return status;
    }

    explicit operator bool() const { return !m_failed; }
    const QString &error() const { return m_error; }

private:
    bool m_failed = false;
    QString m_error;
};
