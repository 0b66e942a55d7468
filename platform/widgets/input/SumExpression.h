// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

#include <optional>

/// Sums that users type into number fields, such as "1920/2" or "3*(192+8)".
namespace SumExpression {

/// What @p text comes to; nothing if it is no sum of numbers, + - * / and parentheses, or divides by zero.
std::optional<double> evaluate(const QString &text);

/// Returns whether @p text holds only characters that occur in sums, so that typing may go on.
bool mayBecomeSum(const QString &text);

} // namespace SumExpression
