// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/redundancy/CBackupDelegate.h"

/// Draws the cells of the processors' table. GUI thread.
class CProcessorBackupDelegate final : public CBackupDelegate
{
    Q_OBJECT

public:
    using CBackupDelegate::CBackupDelegate;
};
