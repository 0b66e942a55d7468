// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/PrintConfig.h"
#include "layout/printing/sheets/SSheet.h"

/// The views in which everything is drawn.
namespace DrawnViews {

inline QVector<SSheet::View> of(const PrintConfig &config)
{
    if (config.views == PrintConfig::BothViews)
        return {SSheet::Front, SSheet::Back};
    return {config.views == PrintConfig::BackView ? SSheet::Back : SSheet::Front};
}

} // namespace DrawnViews
