// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/widgets/input/SumExpression.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int LongestSum = 64; // characters; bounds the depth of parentheses, too

bool isSumCharacter(QChar character)
{
    return character.unicode() < 128 &&
           (character.isDigit() || QStringLiteral("+-*/(). ").contains(character));
}

/// Reads a sum from left to right; each function takes what it reads off the front. Not a number: no sum.
class CSumReader final
{
public:
    explicit CSumReader(const QString &text)
        : m_text(text)
    {
        m_text.remove(QLatin1Char(' '));
    }

    double whole()
    {
        const double value = sum();
        return m_at == m_text.size() ? value : std::nan("");
    }

private:
    bool take(char character)
    {
        const bool there = m_at < m_text.size() && m_text.at(m_at) == QLatin1Char(character);
        m_at += there ? 1 : 0;
        return there;
    }
    double sum()
    {
        double value = product();
        for (;;) {
            if (take('+'))
                value += product();
            else if (take('-'))
                value -= product();
            else
                return value;
        }
    }
    double product()
    {
        double value = factor();
        for (;;) {
            if (take('*'))
                value *= factor();
            else if (take('/'))
                value /= factor();
            else
                return value;
        }
    }
    double factor()
    {
        if (take('-'))
            return -factor();
        if (take('(')) {
            const double value = sum();
            return take(')') ? value : std::nan("");
        }
        const int from = m_at;
        while (m_at < m_text.size() && (m_text.at(m_at).isDigit() || m_text.at(m_at) == QLatin1Char('.')))
            ++m_at;
        bool isNumber = false;
        const double value = m_text.mid(from, m_at - from).toDouble(&isNumber);
        return isNumber ? value : std::nan("");
    }

    QString m_text;
    int m_at = 0;
};

} // namespace

std::optional<double> SumExpression::evaluate(const QString &text)
{
    if (!mayBecomeSum(text))
        return std::nullopt;
    const double value = CSumReader(text).whole();
    return std::isfinite(value) ? std::optional<double>(value) : std::nullopt;
}

bool SumExpression::mayBecomeSum(const QString &text)
{
    return text.size() <= LongestSum && std::all_of(text.begin(), text.end(), isSumCharacter);
}
