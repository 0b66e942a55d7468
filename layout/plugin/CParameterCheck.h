// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"
#include "platform/common/CResult.h"

#include <QCoreApplication>

class ITypeLookup;

/// Finds the cabinets whose parameters can be saved, or the reason why they cannot. GUI thread.
class CParameterCheck final
{
    Q_DECLARE_TR_FUNCTIONS(CParameterCheck)

public:
    using Cabinet = CabinetLayout::CabinetPort::Cabinet;

    /// @p types must outlive the check.
    explicit CParameterCheck(const ITypeLookup &types);

    /// The cabinets of all detected processors, as the host has them. Fails if there are none, or if one of
    /// them cannot accept parameters; the text is about the first such cabinet.
    CResult<QList<Cabinet>> run() const;

private:
    static QList<Cabinet> detectedCabinets();
    static QString processorOf(const Cabinet &cabinet);
    QString faultOf(const Cabinet &cabinet) const;

    const ITypeLookup &m_types;
};
