// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/SSettings.h"
#include "platform/common/CResult.h"

#include <QString>

/// The content of a cabinet configuration file (*.rcvbp, *.rcvp).
struct SCabinetConfig
{
    SSettings::TypeLibrary::STreeNode::RcvTypeInfo type;
    QVector<QRect> rects; ///< the cabinet's receiver areas in wiring order, in its own pixels
    double gamma = 2.8;   ///< 1.0 to 4.0

    friend bool operator==(const SCabinetConfig &a, const SCabinetConfig &b)
    {
        return a.type == b.type && a.rects == b.rects && !(a.gamma < b.gamma) && !(b.gamma < a.gamma);
    }
    friend bool operator!=(const SCabinetConfig &a, const SCabinetConfig &b) { return !(a == b); }
};

/// Reads and writes cabinet configuration files. Error texts name the file and the place. Any thread.
class CCabinetConfig final
{
public:
    static CResult<SCabinetConfig> read(const QString &file);
    static CStatus write(const QString &file, const SCabinetConfig &config);
};
