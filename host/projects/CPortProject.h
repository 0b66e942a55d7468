// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/SPrjPort.h"
#include "platform/common/CResult.h"

#include <QString>

/// Reads and writes port project files (*.pprj): one output port's record. Error texts name the file and the
/// place. Any thread.
class CPortProject final
{
public:
    static CResult<SPrjPort> read(const QString &file);
    static CStatus write(const QString &file, const SPrjPort &port);
};
