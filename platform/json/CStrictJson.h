// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/common/CResult.h"
#include "platform/json/CJsonDocument.h"

#include <QByteArray>
#include <QCoreApplication>

/// Parses JSON text that may be damaged or hostile: whatever QJsonDocument would silently round, repair or
/// accept is an error with line and column, and so is text that would need too much memory. Any thread.
class CStrictJson final
{
    Q_DECLARE_TR_FUNCTIONS(CStrictJson)

public:
    static constexpr int MaximumDepth = 256;                    ///< of nested objects and arrays
    static constexpr int MaximumMembers = 128;                  ///< of one object
    static constexpr int MaximumValues = 4000000;               ///< of all kinds, in one text
    static constexpr int MaximumTextBytes = 32768;              ///< of one string, as written
    static constexpr double MaximumNumber = 9007199254740992.0; ///< 2^53: above it integers lose digits

    /// Returns the one object that @p text consists of from byte @p from on. Throws std::bad_alloc if there
    /// is not enough memory. The error text begins with the place in the text ("line 1, column 7: …").
    static CResult<CJsonDocument> parse(const QByteArray &text, int from = 0);
};
