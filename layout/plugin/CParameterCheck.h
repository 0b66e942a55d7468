// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"
#include "platform/common/CResult.h"

#include <QCoreApplication>

class CLayoutData;

/// Finds the cabinets whose parameters can be saved, or what is in the way. GUI thread.
class CParameterCheck final
{
    Q_DECLARE_TR_FUNCTIONS(CParameterCheck)

public:
    using Cabinet = CabinetLayout::CabinetPort::Cabinet;

    /// @p store knows the type library and must outlive the check.
    explicit CParameterCheck(const CLayoutData &store);

    /// The cabinets of all detected processors, as the host holds them. A failure when there are none or when
    /// one of them cannot take parameters; the text is that of the first.
    CResult<QList<Cabinet>> run() const;

private:
    static QList<Cabinet> detectedCabinets();
    static QString processorOf(const Cabinet &cabinet);
    QString faultOf(const Cabinet &cabinet) const;

    const CLayoutData &m_store;
};
