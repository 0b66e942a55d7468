// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/access/ModuleSettings.h"
#include "layout/api/records/SMD5.h"

#include <QSize>
#include <QVector>

/// The recently used cabinet types and the last custom size, kept between runs. GUI thread.
class CRecentCabinets final
{
public:
    static constexpr int Limit = 10;

    QVector<SMD5> types() const; ///< the most recent one first
    void noteType(const SMD5 &key);

    /// Pixels, within the limits of a size that the user enters; 192 x 192 if none was set.
    QSize customSize() const;
    void setCustomSize(const QSize &size);

private:
    QSettings m_settings = ModuleSettings::open();
};
